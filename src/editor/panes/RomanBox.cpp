#include "editor/panes/RomanBox.h"

#include "editor/panes/ShownText.h"
#include "platform/encoding/Ascii.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/RtfReader.h"
#include "translator/UnicodeProgram.h"

#include <QClipboard>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextDocumentFragment>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace tolvan {
namespace {

constexpr qsizetype tabWidth = 6;
const QString ownFormat = QStringLiteral("application/x-tolvan-roman");  // the exact bytes of a copied text
constexpr std::array editKeys = {QKeySequence::Undo, QKeySequence::Redo,  QKeySequence::Cut,
                                 QKeySequence::Copy, QKeySequence::Paste, QKeySequence::SelectAll};

// An 8-bit text with the line ends of a text document.
QString documentText(std::string_view bytes) {
    QString shown;
    shown.reserve(static_cast<qsizetype>(bytes.size()));
    while (true) {
        const std::size_t end = bytes.find(lineEnd);
        shown += toShown(bytes.substr(0, end));
        if (end == std::string_view::npos) return shown;
        shown += u'\n';
        bytes.remove_prefix(end + lineEnd.size());
    }
}

// Line ends of any kind become line feeds.
QString withLineFeeds(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (const QChar other : {QChar(u'\r'), QChar(QChar::LineSeparator), QChar(QChar::ParagraphSeparator)})
        text.replace(other, u'\n');
    return text;
}

QString plainText(const QMimeData& source) {
    if (source.hasText()) return source.text();
    if (source.hasHtml()) return QTextDocumentFragment::fromHtml(source.html()).toPlainText();
    for (const QString& format : {QStringLiteral("text/rtf"), QStringLiteral("application/rtf")})
        if (source.hasFormat(format)) return toQString(readRtf(source.data(format).toStdString()).text.text());
    return {};
}

// What is taken of a text from elsewhere, in whole lines where there are several. With more of it the window would not
// answer for many seconds.
QString startOf(const QString& text) {
    constexpr qsizetype most = 1'000'000;
    if (text.size() <= most) return text;
    const qsizetype lineEnd = text.lastIndexOf(u'\n', most - 1);
    return text.left(lineEnd < 0 ? most : lineEnd + 1);
}

struct Difference {
    qsizetype start;
    qsizetype end;  // in the text before
    QString inserted;
};

Difference difference(const QString& before, const QString& after) {
    const qsizetype shorter = std::min(before.size(), after.size());
    const auto start = std::mismatch(before.begin(), before.begin() + shorter, after.begin()).first - before.begin();
    const auto most = shorter - start;
    const auto same = std::mismatch(before.rbegin(), before.rbegin() + most, after.rbegin()).first - before.rbegin();
    return {start, before.size() - same, after.mid(start, after.size() - same - start)};
}

// The blanks before its text.
int indentOf(const QTextBlock& line) {
    const QString text = line.text();
    return static_cast<int>(std::find_if(text.begin(), text.end(), [](QChar c) { return c != u' '; }) - text.begin());
}

// Letters typed one after the other are undone together; what is inserted here is undone by itself.
void insertAsOneStep(QTextCursor& cursor, const QString& shown) {
    cursor.beginEditBlock();
    cursor.insertText(shown);
    cursor.endEditBlock();
}

// Whether a key produces text, unlike a cursor or function key.
bool isTyped(const QString& keyText) {
    return !keyText.isEmpty() && (keyText[0].isPrint() || keyText[0].isSurrogate());
}

bool isDeletion(const QKeyEvent& key) {
    return key.key() == Qt::Key_Backspace || key.key() == Qt::Key_Delete;
}

bool changesText(const QKeyEvent& key) {
    return isTyped(key.text()) || isDeletion(key) || key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter ||
           (key.key() == Qt::Key_Tab && key.modifiers() == Qt::NoModifier) || key.matches(QKeySequence::Paste);
}

// Replaces tabs by blanks, in a text that begins in column `column` (from 0).
QString withoutTabs(const QString& shown, qsizetype column) {
    QString text;
    text.reserve(shown.size());
    for (const QChar character : shown) {
        if (character == u'\t') {
            const qsizetype blanks = tabWidth - column % tabWidth;
            text += QString(blanks, u' ');
            column += blanks;
        } else {
            text += character;
            column = character == u'\n' ? 0 : column + 1;
        }
    }
    return text;
}

}  // namespace

RomanBox::RomanBox(QWidget* parent) : TextPane(parent) {
    setZoom(100);
    connect(this, &QPlainTextEdit::selectionChanged, this, [this] { marked_ = false; });
}

void RomanBox::mark(std::size_t start, std::size_t length) {
    select(start, length);
    marked_ = true;
}

void RomanBox::leaveMark() {
    if (!std::exchange(marked_, false)) return;
    QTextCursor caret = textCursor();
    caret.setPosition(caret.selectionEnd());
    setTextCursor(caret);
}

std::string RomanBox::text() const {
    std::string text;
    text.reserve(textSize());
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockNumber() > 0) text += lineEnd;
        text += fromShown(block.text());
    }
    return text;
}

std::string RomanBox::line(std::size_t number) const {
    return fromShown(document()->findBlockByNumber(static_cast<int>(number)).text());
}

void RomanBox::setText(std::string_view bytes) {
    setPlainText(documentText(bytes));
}

void RomanBox::replaceText(std::string_view bytes) {
    if (isLocked()) return;
    const QString before = documentText(text());
    const QString after = documentText(bytes);
    if (before == after) return;
    const auto [start, end, inserted] = difference(before, after);

    const int line = textCursor().blockNumber();
    const int column = textCursor().positionInBlock();
    const int indent = indentOf(textCursor().block());
    QTextCursor cursor(document());
    cursor.setPosition(static_cast<int>(start));
    cursor.setPosition(static_cast<int>(end), QTextCursor::KeepAnchor);
    insertAsOneStep(cursor, inserted);
    const QTextBlock block = document()->findBlockByNumber(std::min(line, blockCount() - 1));
    const int newColumn = column < indent ? column : column - indent + indentOf(block);
    cursor.setPosition(block.position() + std::min(newColumn, block.length() - 1));
    setTextCursor(cursor);
}

std::string RomanBox::wordAtCaret() const {
    const std::string text = line(static_cast<std::size_t>(textCursor().blockNumber()));
    const auto caret = text.begin() + textCursor().positionInBlock();
    const auto start = std::find_if_not(std::make_reverse_iterator(caret), text.rend(), isLetter).base();
    return {start, std::find_if_not(caret, text.end(), isLetter)};
}

std::string RomanBox::selectedText() const {
    return text().substr(selectionStart(), selectionLength());
}

void RomanBox::replaceSelection(std::string_view bytes) {
    if (!isLocked()) insertShown(documentText(bytes));
}

void RomanBox::insertShown(const QString& shown) {
    QTextCursor cursor = textCursor();
    const QTextBlock line = document()->findBlock(cursor.selectionStart());
    insertAsOneStep(cursor, withoutTabs(shown, cursor.selectionStart() - line.position()));
    setTextCursor(cursor);
    ensureCursorVisible();
}

void RomanBox::copy() {
    QGuiApplication::clipboard()->setMimeData(createMimeDataFromSelection());
}

void RomanBox::cut() {
    copy();
    replaceSelection({});
}

void RomanBox::undo() {
    if (!isLocked()) TextPane::undo();
}

void RomanBox::redo() {
    if (!isLocked()) TextPane::redo();
}

void RomanBox::setLocked(bool locked) {
    setReadOnly(locked);
    if (locked) setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

// Outside a span, a quote in pasted text gets a "#" span around it, as a typed quote does.
QString RomanBox::withKeyboardMarks(const QString& text) const {
    const auto marksFor = [](QChar character) { return keyboardMarks(character.unicode()); };
    if (std::all_of(text.begin(), text.end(), [&](QChar character) { return marksFor(character).empty(); }))
        return text;
    bool inSpan = toPlainText().left(textCursor().selectionStart()).count(u'#') % 2 == 1;
    QString result;
    for (const QChar character : text) {
        if (character == u'#') inSpan = !inSpan;
        const std::string_view marks = marksFor(character);
        if (marks.empty())
            result += character;
        else
            result += marks == "\"" && !inSpan ? QStringLiteral("#\"#") : toQString(marks);
    }
    return result;
}

bool RomanBox::refuses(QStringView text) {
    const std::optional<char32_t> character = firstWithoutCode(text);
    if (character) emit characterRefused(*character);
    return character.has_value();
}

bool RomanBox::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        // The command would empty the clipboard.
        if (key->matches(QKeySequence::Copy) && !textCursor().hasSelection()) {
            event->accept();
            return true;
        }
        if (std::any_of(editKeys.begin(), editKeys.end(), [&](auto command) { return key->matches(command); })) {
            event->ignore();
            return true;
        }
    }
    return TextPane::event(event);
}

void RomanBox::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) return textCursor().hasSelection() ? copy() : void();
    if (event->matches(QKeySequence::Cut)) return cut();
    if (isLocked()) {
        if (changesText(*event)) emit typedWhileLocked();
        return TextPane::keyPressEvent(event);
    }
    if (marked_ && changesText(*event)) {
        leaveMark();
        if (isDeletion(*event)) return;
    }
    if (event->key() == Qt::Key_Tab && event->modifiers() == Qt::NoModifier)
        return selectsLines() ? indentLines() : replaceSelection("\t");
    if (event->key() == Qt::Key_Backtab && selectsLines()) return unindentLines();
    if (event->matches(QKeySequence::InsertLineSeparator)) return replaceSelection(lineEnd);
    if (!isTyped(event->text())) return TextPane::keyPressEvent(event);
    if (const QString typed = withKeyboardMarks(event->text()); typed != event->text())
        insertShown(typed);
    else if (!refuses(event->text()))
        TextPane::keyPressEvent(event);
}

// A whole line, or a selection that reaches over a line end.
bool RomanBox::selectsLines() const {
    const QTextCursor cursor = textCursor();
    const QTextBlock first = document()->findBlock(cursor.selectionStart());
    return cursor.selectionEnd() - first.position() >= first.length() ||
           (first.length() > 1 && cursor.selectedText().size() == first.length() - 1);
}

// Calls `change(cursor)` at the start of each line with selected characters, as one step of undo. Afterwards whole
// lines are selected.
template <class Change>
void RomanBox::changeSelectedLines(Change change) {
    QTextCursor cursor = textCursor();
    const QTextBlock first = document()->findBlock(cursor.selectionStart());
    const QTextBlock last = document()->findBlock(cursor.selectionEnd() - 1);
    cursor.beginEditBlock();
    for (QTextBlock line = first; line.isValid(); line = line == last ? QTextBlock() : line.next())
        change(QTextCursor(line));
    cursor.endEditBlock();
    cursor.setPosition(first.position());
    cursor.setPosition(last.position() + last.length() - 1, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void RomanBox::indentLines() {
    changeSelectedLines([](QTextCursor start) {
        if (!start.block().text().isEmpty()) start.insertText(QString(tabWidth, u' '));
    });
}

void RomanBox::unindentLines() {
    changeSelectedLines([](QTextCursor start) {
        const int blanks = std::min(static_cast<int>(tabWidth), indentOf(start.block()));
        start.setPosition(start.position() + blanks, QTextCursor::KeepAnchor);
        start.removeSelectedText();
    });
}

// Without selected lines Tab indents and Shift+Tab leaves the box.
bool RomanBox::focusNextPrevChild(bool next) {
    if (!next && selectsLines() && !isLocked()) return false;
    if (next) return TextPane::focusNextPrevChild(next);
    return QWidget::focusNextPrevChild(next);  // NOLINT(bugprone-parent-virtual-call): QPlainTextEdit stays in the text
}

void RomanBox::applyFonts(const PaneFonts& fonts) {
    setFont(fonts.roman);
    setTabStopDistance(tabWidth * QFontMetricsF(fonts.roman).horizontalAdvance(u' '));
}

void RomanBox::inputMethodEvent(QInputMethodEvent* event) {
    const QString text = withKeyboardMarks(event->commitString());
    event->setCommitString(refuses(text) ? QString() : text);
    if (!event->commitString().isEmpty() || !event->preeditString().isEmpty()) leaveMark();
    TextPane::inputMethodEvent(event);
    emit preeditChanged();
}

QMimeData* RomanBox::createMimeDataFromSelection() const {
    auto* selection = new QMimeData;  // owned by the caller
    selection->setText(toQString(selectedText()));
    selection->setData(ownFormat, QByteArray::fromStdString(selectedText()));
    return selection;
}

bool RomanBox::canInsertFromMimeData(const QMimeData* source) const {
    return !isLocked() && !source->hasUrls() && !plainText(*source).isEmpty();
}

void RomanBox::insertFromMimeData(const QMimeData* source) {
    if (isLocked()) return;
    leaveMark();
    if (source->hasFormat(ownFormat)) {
        QStringList lines = withLineFeeds(toQString(source->data(ownFormat).toStdString())).split(u'\n');
        for (QString& line : lines) line = toShown(toFontEncoded(line));
        return insertShown(lines.join(u'\n'));
    }
    const QString whole = plainText(*source);
    const QString text = startOf(whole);
    const RomanProgram program =
        romanOfUnicodeProgram((hasDevanagari(text) ? text : withKeyboardMarks(text)).toStdString());
    if (!program.roman.empty()) insertShown(documentText(program.roman));
    if (!program.leftOut.empty()) emit charactersLeftOut(program.leftOut);
    if (text.size() < whole.size()) emit pastedInPart();
}

}  // namespace tolvan
