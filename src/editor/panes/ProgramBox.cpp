#include "editor/panes/ProgramBox.h"

#include "dialogs/Accessibility.h"
#include "editor/panes/ShownText.h"
#include "platform/encoding/Ascii.h"
#include "platform/encoding/Lines.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/UnicodeText.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QTextBlock>

#include <algorithm>
#include <utility>

namespace tolvan {
namespace {

// Attached to each block of the document: the program line that it shows, with its fonts.
struct LineOfBlock : QTextBlockUserData {
    explicit LineOfBlock(ProgramLine what) : line(std::move(what)) {}
    ProgramLine line;
};

// Null for the only block of a new document.
const ProgramLine* lineOf(const QTextBlock& block) {
    const auto* data = static_cast<const LineOfBlock*>(block.userData());
    return data ? &data->line : nullptr;
}

std::vector<ProgramLine> linesOf(StyledView text) {
    std::vector<ProgramLine> lines;
    for (const LinePlace& line : linePlaces(text.text()))
        lines.push_back({StyledText(text.substr(line.begin, line.size())),
                         line.end < text.size() ? text.font(line.end) : Font::Devanagari});
    return lines;
}

QTextLayout::FormatRange formatRange(std::size_t start, std::size_t length, const QTextCharFormat& format) {
    return {static_cast<int>(start), static_cast<int>(length), format};
}

QString unicodeOfLine(const QTextBlock& block, std::size_t length = std::string::npos) {
    const ProgramLine* const line = lineOf(block);
    return line ? QString::fromStdString(unicodeOf(line->text.view().substr(0, length))) : QString();
}

// Without the two blanks that end the last word of a program and that its user never typed.
std::size_t ownSize(const QTextBlock& block, const StyledText& line) {
    constexpr std::string_view added = "  ";
    const bool hasThem = !block.next().isValid() && line.text().ends_with(added);
    return line.size() - (hasThem ? added.size() : 0);
}

class ProgramInterface : public accessible::ReadText {
  public:
    explicit ProgramInterface(ProgramBox& box) : ReadText(box, QAccessible::EditableText), box_(box) {}
    QString content() const override { return box_.unicodeText(); }
    int childCount() const override { return 0; }
    int cursorPosition() const override { return box_.unicodePosition(box_.textCursor().position()); }
    void setCursorPosition(int position) override { setSelection(0, position, position); }
    int selectionCount() const override { return box_.textCursor().hasSelection() ? 1 : 0; }
    void selection(int, int* start, int* end) const override {
        *start = box_.unicodePosition(box_.textCursor().selectionStart());
        *end = box_.unicodePosition(box_.textCursor().selectionEnd());
    }
    void setSelection(int, int start, int end) override {
        QTextCursor cursor = box_.textCursor();
        cursor.setPosition(box_.documentPositionOf(start));
        cursor.setPosition(box_.documentPositionOf(end), QTextCursor::KeepAnchor);
        box_.setTextCursor(cursor);
    }
    // Several characters may be drawn by one code, and codes without a width above or below others.
    QRect characterRect(int offset) const override {
        const int behind = box_.documentPositionOf(offset + 1);
        int at = std::max(behind - 1, 0);
        const QTextBlock block = box_.document()->findBlock(at);
        const QRect end = caretRect(block.contains(behind) ? behind : at);
        while (at > block.position() && block.contains(behind) && caretRect(at).left() >= end.left()) --at;
        const QRect start = caretRect(at);
        const QRect area(start.topLeft(), QSize(std::max(end.left() - start.left(), 1), start.height()));
        return area.translated(box_.viewport()->mapToGlobal(QPoint()));
    }
    int offsetAtPoint(const QPoint& point) const override {
        const QPoint place = box_.viewport()->mapFromGlobal(point);
        if (!box_.viewport()->rect().contains(place)) return -1;
        const QTextBlock block = box_.cursorForPosition(place).block();
        int at = block.position();
        while (block.contains(at + 1) && caretRect(at + 1).left() <= place.x()) ++at;
        return box_.unicodePosition(at);
    }

  private:
    QRect caretRect(int position) const {
        QTextCursor caret(box_.document());
        caret.setPosition(position);
        return box_.cursorRect(caret);
    }

    ProgramBox& box_;
};

QAccessibleInterface* programInterface(const QString& className, QObject* object) {
    return className == QLatin1String("tolvan::ProgramBox") ? new ProgramInterface(static_cast<ProgramBox&>(*object))
                                                            : nullptr;
}

}  // namespace

ProgramBox::ProgramBox(QWidget* parent) : TextPane(parent) {
    [[maybe_unused]] static const bool installed = (QAccessible::installFactory(programInterface), true);
    accessible::replaceTextEvents(*this, [](QWidget& widget) {
        const auto& box = static_cast<ProgramBox&>(widget);
        return box.unicodePosition(box.textCursor().position());
    });
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setZoom(100);
    connect(this, &TextPane::lookChanged, this, &ProgramBox::formatAll);
}

void ProgramBox::setText(StyledView text) {
    replaceLines({0, static_cast<std::size_t>(blockCount()), linesOf(text)});
}

StyledText ProgramBox::text() const {
    StyledText text;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const ProgramLine* line = lineOf(block);
        if (!line) continue;
        text.append(line->text);
        if (block.next().isValid()) text.append(lineEnd, line->lineEnd);
    }
    return text;
}

void ProgramBox::replaceLines(const ProgramLinesUpdate& update) {
    QString shown;
    for (const ProgramLine& line : update.lines) shown += toShown(line.text.text()) + u'\n';
    shown.chop(1);

    const int first = static_cast<int>(update.first);
    const QTextBlock last = document()->findBlockByNumber(first + static_cast<int>(update.removed) - 1);
    QTextCursor cursor(document()->findBlockByNumber(first));
    cursor.beginEditBlock();
    cursor.setPosition(last.position() + last.length() - 1, QTextCursor::KeepAnchor);
    cursor.insertText(shown);
    QTextBlock block = document()->findBlockByNumber(first);
    for (const ProgramLine& line : update.lines) {
        block.setUserData(new LineOfBlock(line));  // the block owns it
        format(block);
        block = block.next();
    }
    cursor.endEditBlock();
}

void ProgramBox::format(const QTextBlock& block) {
    const ProgramLine* line = lineOf(block);
    if (!line) return;
    QList<QTextLayout::FormatRange> formats;
    const StyledView text = line->text;
    for (std::size_t start = 0; start < text.size();) {
        std::size_t end = start + 1;
        while (end < text.size() && text.font(end) == text.font(start)) ++end;
        if (text.font(start) != Font::Devanagari) formats.append(formatRange(start, end - start, latin_));
        start = end;
    }
    for (const ColourRun& run : coloursOf(text)) {
        QTextCharFormat colour;
        colour.setForeground(run.colour);
        formats.append(formatRange(run.start, run.length, colour));
    }
    block.layout()->setFormats(formats);
    emit lineColoured(block.blockNumber());
}

std::vector<ColourRun> ProgramBox::coloursOf(StyledView line) const {
    return colouring_ ? colouring_(line) : std::vector<ColourRun>();
}

const ProgramLine* ProgramBox::line(int number) const {
    return lineOf(document()->findBlockByNumber(number));
}

void ProgramBox::formatAll() {
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) format(block);
    cursor.endEditBlock();
}

void ProgramBox::setColouring(Colouring colouring) {
    colouring_ = std::move(colouring);
    formatAll();
}

void ProgramBox::colourLinesWith(std::string_view text) {
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        if (const ProgramLine* line = lineOf(block); line && line->text.text().find(text) != std::string::npos)
            format(block);
    cursor.endEditBlock();
}

QString ProgramBox::unicodeText() const {
    QStringList lines;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) lines += unicodeOfLine(block);
    return lines.join(u'\n');
}

int ProgramBox::unicodePosition(int documentPosition) const {
    const QTextBlock at = document()->findBlock(documentPosition);
    qsizetype position = 0;
    for (QTextBlock block = document()->begin(); block != at; block = block.next())
        position += unicodeOfLine(block).size() + 1;
    return static_cast<int>(position +
                            unicodeOfLine(at, static_cast<std::size_t>(documentPosition - at.position())).size());
}

int ProgramBox::documentPositionOf(int unicodePosition) const {
    QTextBlock block = document()->begin();
    qsizetype left = unicodePosition;
    for (qsizetype size = 0; block.next().isValid() && left > (size = unicodeOfLine(block).size());
         block = block.next())
        left -= size + 1;
    int column = 0;
    while (column < block.length() - 1 && unicodeOfLine(block, static_cast<std::size_t>(column)).size() < left)
        ++column;
    return block.position() + column;
}

std::string ProgramBox::wordAtCaret() const {
    const ProgramLine* const line = lineOf(textCursor().block());
    if (!line) return {};
    const StyledText& text = line->text;
    const auto belongs = [&](std::size_t at) { return text.font(at) == Font::Devanagari && text.text()[at] != ' '; };
    auto start = std::min(static_cast<std::size_t>(textCursor().positionInBlock()), text.size());
    std::size_t end = start;
    while (start > 0 && belongs(start - 1)) --start;
    while (end < text.size() && belongs(end)) ++end;
    return text.text().substr(start, end - start);
}

void ProgramBox::applyFonts(const PaneFonts& fonts) {
    latin_.setFontFamilies(fonts.latin.families());
    latin_.setFontPointSize(fonts.latin.pointSizeF());
    setFont(fonts.devanagari);
    formatAll();
}

bool ProgramBox::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Copy) || key->matches(QKeySequence::SelectAll)) {
            event->accept();
            return true;
        }
    }
    return TextPane::event(event);
}

void ProgramBox::mouseReleaseEvent(QMouseEvent* event) {
    TextPane::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && !textCursor().hasSelection()) emit clicked();
}

QMimeData* ProgramBox::createMimeDataFromSelection() const {
    auto* selection = new QMimeData;  // owned by the caller
    QString plain;
    QString html = QStringLiteral("<pre>");
    const int end = textCursor().selectionEnd();
    for (QTextBlock block = document()->findBlock(textCursor().selectionStart());
         block.isValid() && block.position() <= end; block = block.next()) {
        if (!plain.isNull()) {
            plain += u'\n';
            html += u'\n';
        }
        const ProgramLine* line = lineOf(block);
        if (!line) continue;
        const auto from = static_cast<std::size_t>(std::max(textCursor().selectionStart() - block.position(), 0));
        const auto to = static_cast<std::size_t>(std::min(end - block.position(), block.length() - 1));
        addUnicode(line->text, from, std::min(to, ownSize(block, line->text)), plain, html);
    }
    selection->setText(plain);
    selection->setHtml(html + QStringLiteral("</pre>"));
    return selection;
}

// The part of a line, with its colours.
void ProgramBox::addUnicode(StyledView line, std::size_t from, std::size_t to, QString& plain, QString& html) const {
    std::vector<ColourRun> runs = coloursOf(line);
    runs.push_back({to, 0, {}});
    const auto add = [&](std::size_t start, std::size_t end, QColor colour) {
        start = std::max(start, from);
        end = std::min(end, to);
        if (start >= end) return;
        const QString text = QString::fromStdString(unicodeOf(line.substr(start, end - start)));
        plain += text;
        html += colour.isValid()
                    ? QStringLiteral("<span style=\"color:%1\">%2</span>").arg(colour.name(), text.toHtmlEscaped())
                    : text.toHtmlEscaped();
    };
    std::size_t done = from;
    for (const ColourRun& run : runs) {
        add(done, run.start, {});
        add(run.start, run.start + run.length, run.colour);
        done = std::max(done, run.start + run.length);
    }
}

}  // namespace tolvan
