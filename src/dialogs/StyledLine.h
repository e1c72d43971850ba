// One line of text whose characters have different fonts, such as a title with a file name in it.
#pragma once

#include "platform/richtext/StyledText.h"

#include <QSizeF>
#include <QString>
#include <QTextLayout>

class QColor;
class QPainter;
class QRectF;

namespace tolvan {

// The fonts of a text as ranges for QTextLayout, in the sizes of controls.
QList<QTextLayout::FormatRange> controlFormats(StyledView text);

// The size that the line needs.
QSizeF styledLineSize(StyledView text);

// Draws at the left, its letters in the middle of the height; what does not fit is left out and an ellipsis put in its
// place.
void drawStyledLine(QPainter& painter, const QRectF& area, StyledView text, const QColor& colour);

}  // namespace tolvan
