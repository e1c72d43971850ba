#include "editor/panes/LineNumbers.h"

#include "dialogs/Look.h"
#include "editor/panes/LineMarkShape.h"
#include "editor/panes/TextPane.h"
#include "platform/fonts/Fonts.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace tolvan {
namespace {

constexpr qsizetype leastDigits = 3;  // so that the text does not move when the tenth line is typed
constexpr qreal smaller = 0.8;

}  // namespace

LineNumbers::LineNumbers(TextPane& pane) : QWidget(&pane), pane_(pane) {
    pane.installEventFilter(this);
    connect(&pane, &TextPane::blockCountChanged, this, &LineNumbers::fit);
    connect(&pane, &TextPane::zoomChanged, this, &LineNumbers::fit);
    connect(&pane, &TextPane::updateRequest, this, &LineNumbers::follow);
    connect(&pane, &TextPane::markedLineChanged, this, qOverload<>(&QWidget::update));
    connect(&pane, &TextPane::lineMarksChanged, this, qOverload<>(&QWidget::update));
    fit();
}

void LineNumbers::fit() {
    font_ = qtFont(Font::Devanagari, pane_.paneFonts().devanagari.pointSizeF() * smaller);
    const QFontMetrics metrics(font_);
    const qsizetype digits = std::max(leastDigits, QString::number(pane_.lineCount()).size());
    const int width = metrics.horizontalAdvance(QString(digits, u'0')) + look::em(1.2);
    pane_.setLeftMargin(width);
    setGeometry(0, 0, width, pane_.height());
    update();
}

void LineNumbers::follow(const QRect& changed, int scrolledBy) {
    if (scrolledBy != 0)
        update();
    else
        update(0, changed.top(), width(), changed.height());
}

bool LineNumbers::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) resize(width(), pane_.height());
    return QWidget::eventFilter(watched, event);
}

void LineNumbers::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), look::colours().numbers);
    painter.setFont(font_);
    const int right = width() - look::em(0.4);
    const QRect asked = event->rect();
    qreal top = pane_.firstVisibleTop();
    for (int line = pane_.firstVisibleLine(); line <= pane_.lineCount() && top <= asked.bottom();
         ++line, top += pane_.lineHeight()) {
        if (top + pane_.lineHeight() < asked.top()) continue;
        const QString number = QString::number(line);
        painter.setPen(line == pane_.markedLine() ? look::colours().text : look::colours().dimText);
        painter.drawText(QPointF(right - painter.fontMetrics().horizontalAdvance(number), top + pane_.baseLine()),
                         number);
        if (const auto mark = pane_.lineMarks().find(line); mark != pane_.lineMarks().end())
            drawLineMark(painter, QRectF(0, top, look::em(0.8), pane_.lineHeight()),
                         mark->second == TextPane::LineMark::Error);
    }
}

}  // namespace tolvan
