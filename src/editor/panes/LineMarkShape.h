// The marks of errors and advice, told apart by shape as well as by colour.
#pragma once

class QPainter;
class QRectF;

namespace tolvan {

// In the middle of the area: a filled disc for an error, a ring for advice.
void drawLineMark(QPainter& painter, const QRectF& area, bool isError);

}  // namespace tolvan
