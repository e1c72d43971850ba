#include "editor/guide/WordCorrection.h"

#include "editor/panes/RomanBox.h"
#include "guide/WordMending.h"
#include "platform/encoding/Ascii.h"

#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace tolvan {
namespace {

constexpr std::size_t longestLine = 4000;

}  // namespace

WordCorrection::WordCorrection(RomanBox& roman) : roman_(roman) {
    roman.installEventFilter(this);
}

void WordCorrection::correct() {
    if (roman_.selectionLength() > 0) return;
    const QTextCursor caret = roman_.textCursor();
    const auto number = static_cast<std::size_t>(caret.blockNumber());
    const std::string before = roman_.line(number).substr(0, static_cast<std::size_t>(caret.positionInBlock()));
    if (before.size() > longestLine) return;
    const auto start = std::find_if_not(before.rbegin(), before.rend(), isLetter).base();
    const std::string word(start, before.end());
    if (word.size() < 2 || word == kept_) return;
    if (start != before.begin() && !(*(start - 1) == ' ' || *(start - 1) == '(')) return;
    const std::string put(guide::wordToPut(word));
    if (put.empty() || guide::isInTextOrComment({before.begin(), start})) return;
    if (guide::isNameOf(roman_.text(), word, number)) return;
    place_ = roman_.caret() - word.size();
    typed_ = word;
    put_ = put;
    roman_.select(place_, word.size());
    roman_.replaceSelection(put);
    roman_.flash(put.size());
}

// The caret stands after the character that finished the word.
bool WordCorrection::takeBack() {
    if (typed_.empty()) return false;
    const std::string typed = std::exchange(typed_, {});
    const std::size_t caret = roman_.caret();
    const std::size_t end = place_ + put_.size();
    if (roman_.selectionLength() > 0 || caret < end || caret > end + 2) return false;
    if (roman_.text().substr(place_, put_.size()) != put_) return false;
    kept_ = typed;
    roman_.select(place_, put_.size());
    roman_.replaceSelection(typed);
    roman_.select(caret - put_.size() + typed.size(), 0);
    return true;
}

bool WordCorrection::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !enabled_ || roman_.isLocked())
        return QObject::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool plain = (key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (plain && key->key() == Qt::Key_Backspace && takeBack()) return true;
    typed_.clear();
    const bool finishes = key->key() == Qt::Key_Space || key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (plain && finishes) correct();
    return QObject::eventFilter(watched, event);
}

}  // namespace tolvan
