#include "dialogs/MessageSign.h"

#include "dialogs/Look.h"

#include <QPainter>

namespace tolvan {
namespace {

// In the order of the kinds.
constexpr struct {
    char letter;
    QColor look::Colours::*colour;
} signs[] = {{'i', &look::Colours::accent}, {'?', &look::Colours::accent}, {'!', &look::Colours::warning}};

}  // namespace

MessageSign::MessageSign(Kind kind, QWidget* parent) : QWidget(parent), kind_(kind) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize MessageSign::sizeHint() const {
    return {look::em(2.4), look::em(2.4)};
}

void MessageSign::paintEvent(QPaintEvent*) {
    const auto& [letter, colour] = signs[static_cast<int>(kind_)];
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(look::colours().*colour);
    painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
    QFont bold = font();
    bold.setBold(true);
    bold.setPixelSize(height() * 6 / 10);
    painter.setFont(bold);
    painter.setPen(look::colours().textOnAccent);
    painter.drawText(rect(), Qt::AlignCenter, QString(QLatin1Char(letter)));
}

}  // namespace tolvan
