// Measures how well misspelt words are found again: every word of the language with every kind of typing mistake, and
// words that have nothing to do with it. The numbers are printed; the marks that they must reach stand at the tests.

#include "guide/Speller.h"
#include "library/LibraryWords.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "platform/transliteration/UnicodeToRoman.h"
#include "support/SpellingDictionary.h"
#include "translator/LanguageWords.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <gmock/gmock.h>
#include <random>
#include <set>

namespace tolvan::guide {
namespace {

std::vector<std::string> knownWords() {
    std::vector<std::string> words;
    for (const LanguageWord& word : languageWords()) words.emplace_back(word.roman);
    for (const LibraryWord& word : libraryWords()) words.emplace_back(word.roman);
    return words;
}

std::string romanOf(const Sounds& sounds) {
    std::string roman;
    for (const unsigned char sound : sounds)
        roman += std::find_if(spellings.begin(), spellings.end(), [&](const Spelling& spelling) {
                     return static_cast<unsigned char>(spelling.sound) == sound;
                 })->roman;
    return roman;
}

bool isConsonantAt(const Sounds& sounds, std::size_t at) {
    return at < sounds.size() && sounds[at] < firstOtherCharacter && isConsonant(static_cast<Sound>(sounds[at]));
}

// A place of a word, and what somebody writes there who hears badly or writes fast.
struct Mistake {
    std::size_t place;
    Sounds written;  // instead of the one sound
};

// Sounds of a pair, a left out or put in between consonants, a letter doubled.
std::vector<Mistake> soundMistakes(const Sounds& right, double dearest) {
    constexpr auto a = static_cast<unsigned char>(Sound::A);
    std::vector<Mistake> mistakes;
    for (std::size_t i = 0; i < right.size(); ++i) {
        for (const SoundPair& pair : soundPairs()) {
            if (pair.cost > dearest) continue;
            const auto one = static_cast<unsigned char>(pair.one);
            const auto other = static_cast<unsigned char>(pair.other);
            if (right[i] == one || right[i] == other) mistakes.push_back({i, {right[i] == one ? other : one}});
        }
        if (right[i] == a && i > 0 && i + 1 < right.size()) mistakes.push_back({i, {}});
        if (!isConsonantAt(right, i)) continue;
        if (i > 0) mistakes.push_back({i, {right[i], right[i]}});
        if (isConsonantAt(right, i + 1)) mistakes.push_back({i, {right[i], a}});
    }
    return mistakes;
}

Sounds with(const Mistake& mistake, Sounds sounds) {
    const auto place = sounds.begin() + static_cast<std::ptrdiff_t>(mistake.place);
    sounds.insert(sounds.erase(place), mistake.written.begin(), mistake.written.end());
    return sounds;
}

constexpr double heardAlike = 0.4;  // the dearest pair that is made a mistake of
constexpr double oftenMistaken = 0.15;

std::vector<std::string> oneSoundMistake(const std::string& word) {
    std::vector<std::string> wrong;
    const Sounds right = soundsOf(word);
    for (const Mistake& mistake : soundMistakes(right, heardAlike)) wrong.push_back(romanOf(with(mistake, right)));
    return wrong;
}

// Two or three, each in another place.
std::vector<std::string> severalSoundMistakes(const std::string& word) {
    std::mt19937 random(static_cast<unsigned>(std::hash<std::string>{}(word)));
    const Sounds right = soundsOf(word);
    std::vector<std::string> wrong;
    for (int i = 0; i < 8; ++i) {
        std::vector<Mistake> all = soundMistakes(right, oftenMistaken);
        std::shuffle(all.begin(), all.end(), random);
        std::stable_sort(all.begin(), all.begin() + std::min<std::ptrdiff_t>(2 + i % 2, std::ssize(all)),
                         [](const Mistake& one, const Mistake& other) { return one.place > other.place; });
        Sounds sounds = right;
        std::size_t last = right.size() + 1;
        for (std::size_t j = 0; j < std::min<std::size_t>(2 + static_cast<std::size_t>(i) % 2, all.size()); ++j)
            if (all[j].place < last) sounds = with(all[j], std::move(sounds)), last = all[j].place;
        wrong.push_back(romanOf(sounds));
    }
    return wrong;
}

std::vector<std::string> lostOrSwappedLetters(const std::string& word) {
    std::vector<std::string> wrong;
    for (std::size_t i = 0; i < word.size() && word.size() > 2; ++i) {
        wrong.push_back(word);
        wrong.back().erase(i, 1);
        if (i == 0) continue;
        wrong.push_back(word);
        std::swap(wrong.back()[i - 1], wrong.back()[i]);
    }
    return wrong;
}

std::vector<Candidate> candidates() {
    std::vector<Candidate> all;
    for (const std::string& word : knownWords()) all.emplace_back(word, place::anywhere);
    return all;
}

using Mistakes = std::vector<std::string> (*)(const std::string&);

// At most so many percent of the sure suggestions may be wrong.
double percentFoundFirst(const char* name, Mistakes mistakes, double mostSurelyWrong = 100) {
    const std::vector<Candidate> all = candidates();
    std::set<std::string> known;
    for (const std::string& word : knownWords()) known.insert(LineConvert(word));
    int tried = 0;
    int found = 0;
    int sure = 0;
    int surelyWrong = 0;
    for (const std::string& word : knownWords())
        for (const std::string& typed : mistakes(word)) {
            if (known.contains(LineConvert(typed))) continue;  // right, or another word that is right
            const Suggestion suggestion = suggestFor(typed, all);
            const bool right = !suggestion.empty() && suggestion.words[0] == word;
            ++tried;
            found += right ? 1 : 0;
            sure += suggestion.sure ? 1 : 0;
            surelyWrong += suggestion.sure && !right ? 1 : 0;
            if (!right && std::getenv("TOLVAN_SHOW") != nullptr)
                std::printf("  %s for %s: %s\n", typed.c_str(), word.c_str(),
                            suggestion.empty() ? "-" : suggestion.words[0].c_str());
        }
    const double percent = 100.0 * found / tried;
    std::printf("%s: %d mistakes, right word first %.1f %%, sure %.1f %%, sure and wrong %d\n", name, tried, percent,
                100.0 * sure / tried, surelyWrong);
    EXPECT_LE(100.0 * surelyWrong, mostSurelyWrong * sure) << name;
    return percent;
}

TEST(Spelling, findsTheRightWordFirst) {
    EXPECT_GE(percentFoundFirst("one sound mistake", oneSoundMistake, 0.5), 97);
    EXPECT_GE(percentFoundFirst("several sound mistakes", severalSoundMistakes, 0.5), 97);
    EXPECT_GE(percentFoundFirst("letters lost or swapped", lostOrSwappedLetters), 94);
}

TEST(Spelling, leavesOtherWordsAlone) {
    std::vector<std::string> words;
    for (const std::string& word : spellingDictionary()) {
        if (std::string roman = romanOfUnicode(word); roman.size() > 2) words.push_back(std::move(roman));
    }
    if (words.size() < 3000) GTEST_SKIP() << "the Marathi dictionary of aspell is not installed: nothing was measured";
    std::shuffle(words.begin(), words.end(), std::mt19937(1));
    const std::vector<Candidate> all = candidates();
    int tried = 0;
    int matched = 0;
    std::set<std::string> known;
    for (const std::string& word : knownWords()) known.insert(LineConvert(word));
    for (const std::string& word : words) {
        if (known.contains(LineConvert(word))) continue;
        const Suggestion suggestion = suggestFor(word, all);
        matched += suggestion.empty() ? 0 : 1;
        if (!suggestion.empty() && std::getenv("TOLVAN_SHOW") != nullptr)
            std::printf("  %s: %s\n", word.c_str(), suggestion.words[0].c_str());
        if (++tried == 3000) break;
    }
    const double percent = 100.0 * matched / tried;
    std::printf("other words: %d, with a suggestion %.2f %%\n", tried, percent);
    EXPECT_LE(percent, 1.5);
}

}  // namespace
}  // namespace tolvan::guide
