#include "platform/devanagariinput/DevanagariInput.h"

#include "platform/encoding/Unicode.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "platform/transliteration/UnicodeToRoman.h"

#include <QAbstractScrollArea>
#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace tolvan {
namespace {

bool isRomanLetter(QChar character) {
    return (character >= u'a' && character <= u'z') || (character >= u'A' && character <= u'Z');
}

// Means nothing by itself, but something after a letter.
bool isLoneJoiner(const QString& text) {
    return text.size() == 1 && isJoiner(text[0].unicode());
}

// Keys that change how others are meant.
bool isModifier(int key) {
    return key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock;
}

// The letters that a Roman word stands for; none if they would not be spelled as the same word.
QString lettersOf(const std::string& roman) {
    const std::string codes = LineConvert(roman);
    const std::string unicode = unicodeOfCodes(codes);
    if (LineConvert(romanOfUnicode(unicode, RomanUse::Program)) != codes) return {};
    return QString::fromStdString(unicode);
}

QString romanWordAtEnd(const QString& text) {
    const auto start = std::find_if_not(text.rbegin(), text.rend(), isRomanLetter);
    return text.right(start - text.rbegin());
}

}  // namespace

DevanagariInput::DevanagariInput(QWidget& widget, std::unique_ptr<RomanTextAtCaret> text)
    : QObject(&widget), widget_(widget), text_(std::move(text)) {
    widget.installEventFilter(this);
    if (const auto* area = qobject_cast<QAbstractScrollArea*>(&widget)) area->viewport()->installEventFilter(this);
}

DevanagariInput::~DevanagariInput() = default;

// Asks the input method to commit its text. What it does not commit, and so would lose, is typed from here.
void DevanagariInput::finish() {
    if (preedit_.isEmpty()) return;
    QGuiApplication::inputMethod()->commit();
    const QString left = std::exchange(preedit_, {});
    if (left.isEmpty()) return;
    {
        const QScopedValueRollback passing(passing_, true);
        QInputMethodEvent nothing;
        QCoreApplication::sendEvent(&widget_, &nothing);
    }
    if (text_->takesText()) type(left);
    close();
    QGuiApplication::inputMethod()->reset();
}

bool DevanagariInput::eventFilter(QObject* watched, QEvent* event) {
    if (passing_) return QObject::eventFilter(watched, event);
    switch (event->type()) {
        case QEvent::KeyPress:
            return text_->takesText() && takeKey(static_cast<QKeyEvent&>(*event));
        case QEvent::InputMethod:
            return text_->takesText() && takeInputMethod(static_cast<QInputMethodEvent&>(*event));
        case QEvent::InputMethodQuery:
            return answerQuery(static_cast<QInputMethodQueryEvent&>(*event));
        case QEvent::MouseButtonPress:
        case QEvent::FocusOut:
            finish();
            close();
            return false;
        default:
            return QObject::eventFilter(watched, event);
    }
}

bool DevanagariInput::takeKey(QKeyEvent& event) {
    const bool undoes = !text_->joinsUndoSteps() && event.matches(QKeySequence::Undo);
    const bool erases = event.key() == Qt::Key_Backspace && event.modifiers() == Qt::NoModifier;
    if ((undoes || erases) && isAtCaret()) {
        removeLetters(undoes ? 0 : letters_.size() - 1, letters_.size());
        return true;
    }
    if (event.matches(QKeySequence::Paste) && qobject_cast<QLineEdit*>(&widget_) != nullptr && paste()) return true;
    const QString text = event.text();
    if (hasDevanagari(text) || (isLoneJoiner(text) && isAtCaret())) {
        type(text);
        return true;
    }
    if (!isModifier(event.key())) close();
    return false;
}

// Pastes Devanagari as Roman text; any other text is left to the box.
bool DevanagariInput::paste() {
    const QString pasted = QGuiApplication::clipboard()->text();
    if (!hasDevanagari(pasted)) return false;
    close();
    const std::string roman = romanOfUnicode(pasted.simplified().toStdString(), RomanUse::Program);
    text_->replace(0, QString::fromStdString(roman), RomanTextAtCaret::UndoStep::New);
    return true;
}

// What an input method replaces is counted in the text that it was told of: in the letters of the open word.
bool DevanagariInput::takeInputMethod(QInputMethodEvent& event) {
    const QString committed = event.commitString();
    const bool replaces = event.replacementLength() > 0 && isAtCaret();
    preedit_ = event.preeditString();
    if (!hasDevanagari(committed) && !replaces && !(isLoneJoiner(committed) && isAtCaret())) {
        if (!committed.isEmpty()) close();
        return false;
    }
    if (replaces) removeLetters(letters_.size() + event.replacementStart(), event.replacementLength());
    type(committed);
    event.setCommitString({});
    return false;
}

bool DevanagariInput::answerQuery(QInputMethodQueryEvent& event) {
    if (!isAtCaret()) return false;
    {
        const QScopedValueRollback passing(passing_, true);
        QCoreApplication::sendEvent(&widget_, &event);
    }
    const int end = static_cast<int>(letters_.size());
    const std::pair<Qt::InputMethodQuery, QVariant> answers[] = {
        {Qt::ImSurroundingText, letters_}, {Qt::ImTextBeforeCursor, letters_}, {Qt::ImTextAfterCursor, QString()},
        {Qt::ImCursorPosition, end},       {Qt::ImAnchorPosition, end},        {Qt::ImAbsolutePosition, end},
    };
    for (const auto& [query, answer] : answers)
        if (event.queries().testFlag(query)) event.setValue(query, answer);
    return true;
}

bool DevanagariInput::isAtCaret() const {
    return !letters_.isEmpty() && !text_->hasSelection() && text_->beforeCaret().endsWith(roman_);
}

void DevanagariInput::type(const QString& text) {
    for (qsizetype start = 0; start < text.size();) {
        const auto belongs = [&](qsizetype at) {
            return isDevanagari(text[at].unicode()) || isJoiner(text[at].unicode());
        };
        const bool letters = belongs(start);
        qsizetype end = start;
        while (end < text.size() && belongs(end) == letters) ++end;
        const QString piece = text.mid(start, end - start);
        letters ? typeLetters(piece) : typeOther(piece);
        start = end;
    }
}

// A key may give several letters, and the first of them that cannot be spelled is the one to name.
void DevanagariInput::typeLetters(const QString& letters) {
    if (!isAtCaret()) open();
    for (const QChar letter : letters)
        if (!spell(letters_ + letter)) emit refused(letter.unicode());
    if (roman_.isEmpty()) close();
}

void DevanagariInput::typeOther(const QString& text) {
    close();
    if (const auto character = firstWithoutCode(text))
        emit refused(*character);
    else
        text_->replace(0, text, RomanTextAtCaret::UndoStep::New);
}

// Begins with the Roman word that stands before the caret already, if there is one.
void DevanagariInput::open() {
    close();
    isNew_ = true;
    inSpan_ = text_->isInSpan();
    if (text_->hasSelection() || inSpan_) return;
    const QString word = romanWordAtEnd(text_->beforeCaret());
    letters_ = lettersOf(word.toStdString());
    if (!letters_.isEmpty()) roman_ = word;
}

void DevanagariInput::close() {
    letters_.clear();
    roman_.clear();
}

// Writes the word that the letters make in the place of the one before; false, and nothing is changed, if the last
// letter has no spelling there.
bool DevanagariInput::spell(const QString& letters) {
    std::u32string unspelled;
    const std::string spelling = romanOfUnicode(letters.toStdString(), RomanUse::Program, &unspelled);
    if (!unspelled.empty()) return false;
    QString roman = toQString(spelling);
    if (inSpan_ && !roman.isEmpty()) roman = u'#' + roman + u'#';
    using Step = RomanTextAtCaret::UndoStep;
    text_->replace(roman_.size(), roman, std::exchange(isNew_, false) ? Step::New : Step::Last);
    letters_ = letters;
    roman_ = roman;
    return true;
}

void DevanagariInput::removeLetters(qsizetype start, qsizetype length) {
    QString letters = letters_;
    const qsizetype first = std::clamp<qsizetype>(start, 0, letters.size());
    letters.remove(first, std::min(length, letters.size() - first));
    if (!spell(letters)) close();
}

}  // namespace tolvan
