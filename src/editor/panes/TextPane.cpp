#include "editor/panes/TextPane.h"

#include "dialogs/Look.h"
#include "editor/panes/EvenLines.h"

#include <QDropEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace tolvan {
namespace {

constexpr std::chrono::milliseconds flashTime{600};

// A line end is one character of the document and two of the text.
std::size_t startOf(const QTextBlock& line) {
    return static_cast<std::size_t>(line.position()) + static_cast<std::size_t>(line.blockNumber());
}

bool isMouseEvent(QEvent::Type type) {
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease || type == QEvent::MouseMove ||
           type == QEvent::MouseButtonDblClick;
}

}  // namespace

TextPane::TextPane(QWidget* parent) : QPlainTextEdit(parent) {
    auto* text = new QTextDocument(this);
    lines_ = new EvenLines(text);
    text->setDocumentLayout(lines_);
    setDocument(text);
    setLineWrapMode(NoWrap);
    setFrameShape(NoFrame);
    setCornerWidget(new QWidget(this));  // an empty one, between the bars
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &TextPane::caretMoved);
}

std::size_t TextPane::bytePosition(int documentPosition) const {
    return static_cast<std::size_t>(documentPosition) +
           static_cast<std::size_t>(document()->findBlock(documentPosition).blockNumber());
}

int TextPane::documentPosition(std::size_t bytePosition) const {
    int first = 0;
    int end = blockCount();
    while (end - first > 1) {
        const int middle = first + (end - first) / 2;
        (startOf(document()->findBlockByNumber(middle)) <= bytePosition ? first : end) = middle;
    }
    const QTextBlock line = document()->findBlockByNumber(first);
    const std::size_t column = std::min(bytePosition - startOf(line), static_cast<std::size_t>(line.length() - 1));
    return line.position() + static_cast<int>(column);
}

std::size_t TextPane::caret() const {
    return bytePosition(textCursor().position());
}

std::size_t TextPane::selectionStart() const {
    return bytePosition(textCursor().selectionStart());
}

std::size_t TextPane::selectionLength() const {
    return bytePosition(textCursor().selectionEnd()) - selectionStart();
}

void TextPane::select(std::size_t start, std::size_t length) {
    const std::size_t size = textSize();
    start = std::min(start, size);
    QTextCursor cursor = textCursor();
    cursor.setPosition(documentPosition(start));
    cursor.setPosition(documentPosition(start + std::min(length, size - start)), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    ensureCursorVisible();
}

void TextPane::showColumn(int line, std::size_t column) {
    const QTextBlock block = document()->findBlockByNumber(line - 1);
    if (!block.isValid()) return;
    QTextCursor place(block);
    place.setPosition(block.position() +
                      static_cast<int>(std::min(column, static_cast<std::size_t>(block.length() - 1))));
    const int x = cursorRect(place).left();
    const int margin = static_cast<int>(lineHeight());
    QScrollBar& bar = *horizontalScrollBar();
    const int inText = bar.value() + x;
    const int room = viewport()->width() - margin;
    if (x < margin)
        bar.setValue(inText <= room ? 0 : inText - margin);  // short lines are seen from their start
    else if (x > room)
        bar.setValue(inText - room);
}

std::size_t TextPane::textSize() const {
    const QTextBlock last = document()->lastBlock();
    return startOf(last) + static_cast<std::size_t>(last.length() - 1);
}

int TextPane::currentLine() const {
    return textCursor().blockNumber() + 1;
}

void TextPane::setZoom(int percent) {
    fonts_ = PaneFonts::ofZoom(percent);
    lines_->setLine(fonts_.lineHeight, fonts_.baseLine);
    applyFonts(fonts_);
    emit zoomChanged();
}

void TextPane::setMarkedLine(int line) {
    const int before = std::exchange(markedLine_, line);
    if (before == line) return;
    viewport()->update(lineBand(before));
    viewport()->update(lineBand(line));
    emit markedLineChanged(before, line);
}

void TextPane::setStepLine(int line) {
    const int before = std::exchange(stepLine_, line);
    if (before == line) return;
    viewport()->update(lineBand(before));
    viewport()->update(lineBand(line));
    emit stepLineChanged(before, line);
}

// The value of the bar is a line, from 0.
void TextPane::showLine(int line) {
    QScrollBar& bar = *verticalScrollBar();
    const int index = line - 1;
    if (index < bar.value())
        bar.setValue(index);
    else if (index > bar.value() + bar.pageStep() - 2)
        bar.setValue(index - bar.pageStep() / 2);
}

void TextPane::setBreakPoints(std::map<int, int> lines) {
    if (lines == breakPoints_) return;
    breakPoints_ = std::move(lines);
    emit lineMarksChanged();
}

void TextPane::flash(std::size_t length) {
    flashed_ = textCursor();
    flashed_.setPosition(std::max(0, flashed_.position() - static_cast<int>(length)), QTextCursor::KeepAnchor);
    viewport()->update();
    QTimer::singleShot(flashTime, this, [this] {
        flashed_ = {};
        viewport()->update();
    });
}

void TextPane::paintFlash() {
    if (flashed_.isNull()) return;
    QTextCursor end(document());
    end.setPosition(flashed_.selectionEnd());
    QTextCursor start(document());
    start.setPosition(flashed_.selectionStart());
    QPainter(viewport()).fillRect(cursorRect(start).united(cursorRect(end)), look::colours().flash);
}

// With an edge, since the ground alone is a matter of colour.
void TextPane::paintStepLine() {
    QPainter painter(viewport());
    const QRect band = lineBand(stepLine_);
    painter.fillRect(band, look::colours().stepLine);
    const int edge = std::max(1, look::em(0.08));
    painter.fillRect(band.x(), band.top(), band.width(), edge, look::colours().warning);
    painter.fillRect(band.x(), band.bottom() + 1 - edge, band.width(), edge, look::colours().warning);
}

void TextPane::setLineMarks(std::map<int, LineMark> marks) {
    if (marks == lineMarks_) return;
    lineMarks_ = std::move(marks);
    emit lineMarksChanged();
}

void TextPane::setLeftMargin(int width) {
    setViewportMargins(width, 0, 0, 0);
}

int TextPane::firstVisibleLine() const {
    return firstVisibleBlock().blockNumber() + 1;
}

qreal TextPane::firstVisibleTop() const {
    return contentOffset().y();
}

QRect TextPane::lineBand(int line) const {
    const qreal top = firstVisibleTop() + (line - firstVisibleLine()) * lineHeight();
    return QRectF(0, top, viewport()->width(), lineHeight()).toAlignedRect();
}

// The place on the letters of its line. Lines are higher than their letters, and a click above or below these would
// else be taken for one at the start or the end of the line.
QPointF TextPane::onLetters(QPointF place) const {
    const qreal row = std::floor((place.y() - firstVisibleTop()) / lineHeight());
    return {place.x(), firstVisibleTop() + row * lineHeight() + baseLine() - 1};
}

void TextPane::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) emit lookChanged();
}

void TextPane::focusInEvent(QFocusEvent* event) {
    QPlainTextEdit::focusInEvent(event);
    viewport()->update();
}

void TextPane::focusOutEvent(QFocusEvent* event) {
    QPlainTextEdit::focusOutEvent(event);
    viewport()->update();
}

// The caret alone would not show it: the pane that is only read has none.
void TextPane::paintFocus() {
    const int thickness = std::max(2, look::em(0.12));
    if (hasFocus()) QPainter(viewport()).fillRect(0, 0, viewport()->width(), thickness, look::colours().focus);
}

bool TextPane::viewportEvent(QEvent* event) {
    if (isMouseEvent(event->type())) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        QMouseEvent moved(mouse->type(), onLetters(mouse->position()), mouse->scenePosition(), mouse->globalPosition(),
                          mouse->button(), mouse->buttons(), mouse->modifiers(), mouse->pointingDevice());
        const bool handled = QPlainTextEdit::viewportEvent(&moved);
        event->setAccepted(moved.isAccepted());
        return handled;
    }
    if (event->type() == QEvent::Drop) {
        auto* drop = static_cast<QDropEvent*>(event);
        QDropEvent moved(onLetters(drop->position()), drop->possibleActions(), drop->mimeData(), drop->buttons(),
                         drop->modifiers());
        moved.setDropAction(drop->dropAction());
        const bool handled = QPlainTextEdit::viewportEvent(&moved);
        drop->setDropAction(moved.dropAction());
        drop->setAccepted(moved.isAccepted());
        return handled;
    }
    return QPlainTextEdit::viewportEvent(event);
}

void TextPane::paintEvent(QPaintEvent* event) {
    if (markedLine_ > 0) QPainter(viewport()).fillRect(lineBand(markedLine_), look::colours().caretLine);
    if (stepLine_ > 0) paintStepLine();
    paintFlash();
    QPlainTextEdit::paintEvent(event);
    paintFocus();
}

}  // namespace tolvan
