#include "editor/panes/LineNumbers.h"

#include "dialogs/Look.h"
#include "editor/panes/LineMarkShape.h"
#include "editor/panes/TextPane.h"
#include "platform/fonts/Fonts.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tolvan {
namespace {

constexpr qsizetype leastDigits = 3;  // so that the text does not move when the tenth line is typed
constexpr qreal smaller = 0.8;
constexpr double badgePadding = 0.25;  // em

}  // namespace

LineNumbers::LineNumbers(TextPane& pane) : QWidget(&pane), pane_(pane) {
    setObjectName(QStringLiteral("margin"));
    pane.installEventFilter(this);
    connect(&pane, &TextPane::blockCountChanged, this, &LineNumbers::fit);
    connect(&pane, &TextPane::zoomChanged, this, &LineNumbers::fit);
    connect(&pane, &TextPane::updateRequest, this, &LineNumbers::follow);
    connect(&pane, &TextPane::markedLineChanged, this, &LineNumbers::updateLines);
    connect(&pane, &TextPane::stepLineChanged, this, &LineNumbers::updateLines);
    connect(&pane, &TextPane::lineMarksChanged, this, &LineNumbers::fit);
    fit();
}

void LineNumbers::fit() {
    font_ = qtFont(Font::Devanagari, pane_.paneFonts().devanagari.pointSizeF() * smaller);
    const QFontMetrics metrics(font_);
    const qsizetype digits = std::max(leastDigits, QString::number(pane_.lineCount()).size());
    int width = metrics.horizontalAdvance(QString(digits, u'0')) + look::em(1.2);
    for (const auto& [line, pass] : pane_.breakPoints())
        if (pass > 0)
            width = std::max(width, metrics.horizontalAdvance(QString::number(pass) + QString::number(line)) +
                                        look::em(0.7 + badgePadding * 4));
    update();
    if (width == this->width()) return;
    pane_.setLeftMargin(width);
    setGeometry(0, 0, width, pane_.height());
}

void LineNumbers::follow(const QRect& changed, int scrolledBy) {
    if (scrolledBy != 0)
        update();
    else
        update(0, changed.top(), width(), changed.height());
}

void LineNumbers::updateLines(int one, int other) {
    for (const int line : {one, other}) {
        const qreal top = pane_.firstVisibleTop() + (line - pane_.firstVisibleLine()) * pane_.lineHeight();
        update(QRectF(0, top, width(), pane_.lineHeight()).toAlignedRect());
    }
}

bool LineNumbers::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) resize(width(), pane_.height());
    return QWidget::eventFilter(watched, event);
}

void LineNumbers::mousePressEvent(QMouseEvent* event) {
    const qreal row = (event->position().y() - pane_.firstVisibleTop()) / pane_.lineHeight();
    const int line = pane_.firstVisibleLine() + static_cast<int>(std::floor(row));
    if (event->button() == Qt::LeftButton && line <= pane_.lineCount())
        emit pane_.marginClicked(line, event->modifiers());
}

void LineNumbers::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), look::colours().numbers);
    painter.setFont(font_);
    const QRect asked = event->rect();
    qreal top = pane_.firstVisibleTop();
    for (int line = pane_.firstVisibleLine(); line <= pane_.lineCount() && top <= asked.bottom();
         ++line, top += pane_.lineHeight()) {
        if (top + pane_.lineHeight() >= asked.top()) paintLine(painter, line, top);
    }
}

// The number of a break point stands on a shield, and the line that is about to run has an arrow.
void LineNumbers::paintLine(QPainter& painter, int line, qreal top) {
    const look::Colours& colours = look::colours();
    const QString number = QString::number(line);
    const int right = width() - look::em(0.4);
    const qreal left = right - painter.fontMetrics().horizontalAdvance(number);
    const auto breakPoint = pane_.breakPoints().find(line);
    const bool isBreakPoint = breakPoint != pane_.breakPoints().end();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (isBreakPoint) {
        painter.setBrush(colours.accent);
        const QRectF shield(left - look::em(0.3), top, right - left + look::em(0.5), pane_.lineHeight());
        painter.drawRoundedRect(shield.adjusted(0, 1, 0, -1), look::em(0.3), look::em(0.3));
        if (breakPoint->second > 0) paintPass(painter, breakPoint->second, shield);
    }
    if (line == pane_.stepLine()) {
        painter.setBrush(colours.warning);
        const qreal middle = top + pane_.lineHeight() / 2;
        const qreal size = look::em(0.35);
        painter.drawPolygon(QPolygonF(
            {{width() - size, middle - size}, {static_cast<qreal>(width()), middle}, {width() - size, middle + size}}));
    }
    painter.setPen(isBreakPoint ? colours.textOnAccent : line == pane_.markedLine() ? colours.text : colours.dimText);
    painter.drawText(QPointF(left, top + pane_.baseLine()), number);
    if (const auto mark = pane_.lineMarks().find(line); mark != pane_.lineMarks().end())
        drawLineMark(painter, QRectF(0, top, look::em(0.8), pane_.lineHeight()),
                     mark->second == TextPane::LineMark::Error);
}

// At which of its passes the program stands: in a badge of its own, left of the shield.
void LineNumbers::paintPass(QPainter& painter, int pass, const QRectF& shield) {
    const look::Colours& colours = look::colours();
    const QString text = QString::number(pass);
    const qreal width = painter.fontMetrics().horizontalAdvance(text) + 2 * look::em(badgePadding);
    const QRectF badge(shield.left() - width - 1, shield.top() + 1, width, shield.height() - 2);
    painter.setPen(QPen(colours.accent, 1));
    painter.setBrush(colours.numbers);
    painter.drawRoundedRect(badge.adjusted(0.5, 0.5, -0.5, -0.5), look::em(0.3), look::em(0.3));
    painter.setPen(colours.text);
    painter.drawText(QPointF(badge.left() + look::em(badgePadding), shield.top() + pane_.baseLine()), text);
    painter.setPen(Qt::NoPen);
}

}  // namespace tolvan
