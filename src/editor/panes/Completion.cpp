#include "editor/panes/Completion.h"

#include "editor/panes/CompletionList.h"
#include "editor/panes/RomanBox.h"
#include "editor/panes/RomanInput.h"
#include "guide/Sounds.h"
#include "guide/WordMending.h"
#include "library/LibraryWords.h"
#include "platform/encoding/Ascii.h"
#include "platform/encoding/Unicode.h"
#include "platform/transliteration/ReplaceRomanChars.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>

namespace tolvan {
namespace {

constexpr std::size_t lettersToOpen = 2;

constexpr double heardTheSame = 0.15;

// What is compared of a word, made once.
struct Offered {
    const LanguageWord* word;
    std::string loose;
    guide::Sounds sounds;
};

template <class Words>
std::vector<Offered> offered(const Words& words) {
    std::vector<Offered> all;
    for (const LanguageWord& word : words)
        all.push_back({&word, guide::looseSpelling(word.roman), guide::soundsOf(word.roman)});
    return all;
}

}  // namespace

std::vector<const LanguageWord*> wordsBeginning(std::string_view start) {
    static const std::vector<Offered> ofLanguage = offered(languageWords());
    static const std::vector<Offered> ofLibrary = offered(libraryWords());
    std::vector<const LanguageWord*> words;
    const std::string loose = guide::looseSpelling(start);
    const auto add = [&](const std::vector<Offered>& from) {
        for (const Offered& one : from)
            if (one.loose.starts_with(loose) || guide::mayBeHeardAs(start, one.sounds)) words.push_back(one.word);
    };
    add(ofLanguage);
    if (!isLanguageWord(LineConvert(start))) add(ofLibrary);
    std::stable_partition(words.begin(), words.end(), [&](const auto* word) { return word->roman.starts_with(start); });
    return words;
}

Completion::Completion(RomanBox& roman, const RomanInput& input)
    : roman_(roman), input_(input), list_(new CompletionList(&roman)) {
    roman.installEventFilter(this);
    connect(&roman, &RomanBox::caretMoved, this, &Completion::follow);
    connect(roman.verticalScrollBar(), &QScrollBar::valueChanged, this, &Completion::close);
    connect(list_, &CompletionList::clicked, this, &Completion::putIn);
}

bool Completion::isOpen() const {
    return list_->isVisible();
}

// The letters before the caret.
std::string Completion::typedStart() const {
    if (input_.caretIsInSpan()) return {};
    const QTextCursor caret = roman_.textCursor();
    const std::string before = roman_.line(static_cast<std::size_t>(caret.blockNumber()))
                                   .substr(0, static_cast<std::size_t>(caret.positionInBlock()));
    const auto end = std::find_if_not(before.rbegin(), before.rend(), isLetter);
    return {end.base(), before.end()};
}

void Completion::open() {
    if (roman_.isLocked() || input_.caretIsInSpan()) return;
    if (offer(typedStart())) list_->choose(0);
}

void Completion::follow() {
    const bool typed = std::exchange(typed_, false);
    if (!isOpen() && !(automatic_ && typed)) return;
    const std::string start = typedStart();
    const bool chosen = isOpen() && list_->chosen() >= 0;
    if (start.size() < (chosen ? 1 : lettersToOpen)) return close();
    if (offer(start) && chosen) list_->choose(0);
}

bool Completion::offer(const std::string& start) {
    const std::vector<const LanguageWord*> words = wordsBeginning(start);
    if (words.empty() || (words.size() == 1 && words[0]->roman == start)) {
        close();
        return false;
    }
    list_->setWords(words);
    const QRect caret = roman_.cursorRect();
    list_->openAt({roman_.viewport()->mapToGlobal(caret.topLeft()), caret.size()});
    return true;
}

void Completion::close() {
    list_->hide();
}

void Completion::putIn(int row) {
    const std::size_t typed = typedStart().size();
    const std::string_view word = list_->word(row).roman;
    close();
    if (roman_.isLocked()) return;
    roman_.select(roman_.caret() - typed, typed);
    roman_.replaceSelection(word);
}

// Whether the first word of the list was typed whole, but for what sounds the same. A name of the program stays, and so
// does what only sounds like a word of the library: any name may.
bool Completion::isTypedToItsEnd() const {
    const std::string typed = typedStart();
    if (typed.size() < guide::lettersToHear || isLanguageWord(LineConvert(typed))) return false;
    if (!isLanguageWord(LineConvert(list_->word(0).roman))) return false;
    const guide::Sounds word = guide::soundsOf(list_->word(0).roman);
    if (guide::soundDistance(guide::soundsOf(typed), word, heardTheSame) > heardTheSame) return false;
    return !guide::isNameOf(roman_.text(), typed, static_cast<std::size_t>(roman_.currentLine() - 1));
}

bool Completion::takeKey(int key) {
    constexpr int page = 7;
    const int chosen = list_->chosen();
    switch (key) {
        case Qt::Key_Down:
            list_->choose(chosen + 1);
            return true;
        case Qt::Key_Up:
            list_->choose(std::max(0, chosen - 1));
            return true;
        case Qt::Key_PageDown:
            list_->choose(chosen + page);
            return true;
        case Qt::Key_PageUp:
            list_->choose(std::max(0, chosen - page));
            return true;
        case Qt::Key_Escape:
            close();
            return true;
        case Qt::Key_Tab:
            putIn(std::max(0, chosen));
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (chosen < 0 && !isTypedToItsEnd()) break;
            putIn(std::max(0, chosen));
            return true;
        default:
            return false;
    }
    close();
    return false;
}

bool Completion::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && isOpen() &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
        event->accept();
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (isOpen() && key->modifiers() == Qt::NoModifier && takeKey(key->key())) return true;
        typed_ = !roman_.isLocked() && key->text().size() == 1 &&
                 (isLetter(key->text()[0].toLatin1()) || isDevanagari(key->text()[0].unicode()));
    }
    if (event->type() == QEvent::FocusOut || event->type() == QEvent::Hide) close();
    return QObject::eventFilter(watched, event);
}

}  // namespace tolvan
