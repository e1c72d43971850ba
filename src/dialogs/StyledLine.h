// One line of text whose characters have different fonts, such as a title with a file name in it.
#pragma once

#include "platform/richtext/StyledText.h"

#include <QSizeF>
#include <QString>
#include <QTextLayout>

#include <cstddef>

class QColor;
class QPainter;
class QRectF;

namespace tolvan {

// A text with its fonts, in the sizes of controls.
struct ControlText {
    QString text;
    QList<QTextLayout::FormatRange> formats;
};

// `name` stands after the text, in the Latin font; it may be of any script, which the font-encoded text may not.
ControlText controlText(StyledView text, const QString& name = {});

// Makes characters of the text bold.
void embolden(ControlText& text, std::size_t start, std::size_t length);

// The size that the line needs.
QSizeF styledLineSize(const ControlText& text);

// Draws at the left, its letters in the middle of the height; what does not fit is left out and an ellipsis put in its
// place.
void drawStyledLine(QPainter& painter, const QRectF& area, const ControlText& text, const QColor& colour);

}  // namespace tolvan
