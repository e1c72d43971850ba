#include "platform/transliteration/UnicodeToRoman.h"

#include "platform/encoding/EncodingTable.h"
#include "platform/encoding/Unicode.h"
#include "platform/encoding/Utf8.h"
#include "platform/transliteration/Glyphs.h"
#include "platform/transliteration/MarkRoman.h"
#include "platform/transliteration/RomanReader.h"

#include <array>
#include <vector>

namespace tolvan {
namespace {

constexpr std::size_t soundCount = static_cast<std::size_t>(Sound::NuktaOrSeparator) + 1;
constexpr auto noSound = static_cast<Sound>(soundCount);
constexpr std::size_t consonantCount = static_cast<std::size_t>(Sound::EyelashRa) + 1;

constexpr std::size_t index(Sound sound) {
    return static_cast<std::size_t>(sound);
}

// The spelling of each sound: the first of the table.
constexpr auto romanOfSound = [] {
    std::array<std::string_view, soundCount> romans{};
    for (const Spelling& spelling : spellings)
        if (romans[index(spelling.sound)].empty()) romans[index(spelling.sound)] = spelling.roman;
    return romans;
}();

class Letters {
  public:
    constexpr void append(Sound sound) {
        for (const char letter : romanOfSound[index(sound)]) letters_.at(size_++) = letter;
    }
    constexpr std::string_view text() const { return {letters_.data(), size_}; }

  private:
    std::array<char, 12> letters_{};
    std::size_t size_ = 0;
};

// Whether the spellings of sounds, one after the other, would be read as another sound in the place of the first.
bool misread(Sound first, Sound second, Sound third = noSound) {
    Letters letters;
    for (const Sound sound : {first, second, third})
        if (sound != noSound) letters.append(sound);
    return longestSpelling(letters.text())->length > romanOfSound[index(first)].size();
}

enum class Neighbours : std::uint8_t {
    Apart,     // each is read as it is meant
    Misread,   // something has to separate them
    Doubtful,  // it depends on what comes after them
};

bool beginsSpelling(std::string_view letters) {
    for (const Spelling& spelling : spellings)
        if (spelling.roman.size() > letters.size() && spelling.roman.starts_with(letters)) return true;
    return false;
}

using NeighbourTable = std::array<std::array<Neighbours, soundCount>, soundCount>;

// How the spellings of two sounds are read, one after the other.
Neighbours neighboursOf(Sound first, Sound second) {
    static const NeighbourTable table = [] {
        NeighbourTable made{};
        for (std::size_t i = 0; i < soundCount; ++i)
            for (std::size_t j = 0; j < soundCount; ++j) {
                Letters letters;
                letters.append(static_cast<Sound>(i));
                letters.append(static_cast<Sound>(j));
                made[i][j] = misread(static_cast<Sound>(i), static_cast<Sound>(j)) ? Neighbours::Misread
                             : beginsSpelling(letters.text())                      ? Neighbours::Doubtful
                                                                                   : Neighbours::Apart;
            }
        return made;
    }();
    return table[index(first)][index(second)];
}

enum class Role : std::uint8_t { Unspelled, Consonant, Vowel, Sign, Mark, Virama, Nukta, Digit, Code };

// What a character of the Devanagari block is.
struct Character {
    Role role = Role::Unspelled;
    Sound sound = noSound;
    bool nukta = false;       // the letter has one
    bool beginsMore = false;  // of one of the sequences
    char code = 0;            // of the font, which spells itself; of a digit, the digit
};

// Several characters that are one sound, or, where the sound is none, one code of the font.
struct Sequence {
    std::string text;  // UTF-8
    Sound sound = noSound;
    char code = 0;
};

// Everything that has a Roman spelling, read off the glyphs that spell it.
class SpelledCharacters {
  public:
    SpelledCharacters() {
        addConsonants();
        addVowels();
        addMarks();
        addNuktaLetters();
        of(U'ऍ') = of(U'ॲ');
        addCodes();
        for (const Sequence& sequence : sequences_) of(firstCharacter(sequence.text)).beginsMore = true;
    }

    const Character& operator[](char32_t character) const { return characters_[character - devanagari::first]; }
    const std::vector<Sequence>& sequences() const { return sequences_; }
    // Whether the font has one glyph for the two.
    bool areConjunct(Sound first, Sound second) const { return conjunct_[index(first)][index(second)]; }

  private:
    Character& of(char32_t character) { return characters_.at(character - devanagari::first); }

    void addLetter(Role role, Sound sound, std::string_view glyphs) {
        const std::string text = unicodeOfCodes(glyphs);
        std::string_view rest = text;
        if (text.empty()) return;
        const char32_t character = takeCharacter(rest);
        if (rest.empty())
            of(character) = {.role = role, .sound = sound};
        else
            sequences_.push_back({text, sound, 0});
    }

    void addConsonants() {
        for (std::size_t i = 0; i < consonantGlyphs.size(); ++i) {
            if (i < consonantCount)
                addLetter(Role::Consonant, static_cast<Sound>(i), consonantGlyphs[i].full);
            else
                addConjunct(consonantGlyphs[i].consonants);
        }
    }

    void addConjunct(std::string_view consonants) {
        const SpelledSound first = longestSpelling(consonants).value();
        const SpelledSound second = longestSpelling(consonants.substr(first.length)).value();
        if (first.length + second.length == consonants.size())
            conjunct_[index(first.sound)][index(second.sound)] = true;
    }

    void addVowels() {
        for (const VowelGlyphs& vowel : vowelGlyphs) {
            addLetter(Role::Vowel, vowel.sound, vowel.independent);
            addLetter(Role::Sign, vowel.sound, vowel.sign);
        }
    }

    void addMarks() {
        addLetter(Role::Mark, Sound::Anusvara, glyph::anusvara);
        addLetter(Role::Mark, Sound::Candrabindu, glyph::candrabindu);
        addLetter(Role::Mark, Sound::Visarga, glyph::visarga);
        addLetter(Role::Virama, Sound::Virama, glyph::virama);
        addLetter(Role::Nukta, Sound::NuktaOrSeparator, glyph::nukta);
    }

    void addNuktaLetters() {
        for (const NuktaLetter& letter : nuktaLetters) {
            Character& whole = of(letter.withNukta);
            if (whole.role != Role::Unspelled) continue;  // the eyelash ra
            whole = of(letter.letter);
            whole.nukta = true;
        }
    }

    // What else the font can draw. `convert` copies codes that are no letters of the Roman alphabet.
    void addCodes() {
        const auto& rows = encodingTable();
        for (std::size_t code = 0; code < rows.size(); ++code) {
            std::string_view rest = rows[code].draws;
            if (rest.empty() || (code < 128 && isSpelled(static_cast<char>(code)))) continue;
            const char32_t character = takeCharacter(rest);
            if (!isDevanagari(character)) continue;
            if (rest.empty())
                addCode(of(character), rows[code], static_cast<char>(code));
            else if (rows[code].kind == GlyphKind::Syllable && of(lastCharacter(rest)).role != Role::Sign)
                sequences_.push_back({std::string(rows[code].draws), noSound, static_cast<char>(code)});
        }
    }

    static void addCode(Character& character, const EncodingRow& row, char code) {
        const bool unknown = character.role == Role::Unspelled || (character.role == Role::Code && row.note.empty());
        if (!unknown) return;
        character.role = row.kind == GlyphKind::Digit ? Role::Digit : Role::Code;
        character.code = code;
    }

    static bool isSpelled(char code) { return longestSpelling({&code, 1}).has_value(); }

    static char32_t lastCharacter(std::string_view text) {
        char32_t character = 0;
        while (!text.empty()) character = takeCharacter(text);
        return character;
    }

    std::array<Character, devanagari::last - devanagari::first + 1> characters_;
    std::vector<Sequence> sequences_;
    std::array<std::array<bool, consonantCount>, consonantCount> conjunct_{};
};

class RomanWriter {
  public:
    RomanWriter(RomanUse use, std::u32string* unspelled) : use_(use), unspelled_(unspelled) {}

    std::string write(std::string_view utf8) {
        roman_.reserve(utf8.size() + utf8.size() / 8);
        rest_ = utf8;
        while (!rest_.empty()) {
            if (isInBlock(rest_))
                takeDevanagari();
            else if (afterDevanagari_ && isJoiner(rest_))
                takeJoiner();
            else
                copyForeign();
        }
        endSyllable();
        return std::move(roman_);
    }

  private:
    enum class State : std::uint8_t {
        Start,      // nothing to which a mark could be added
        Consonant,  // its vowel has not been written
        Virama,     // after a consonant; nothing has been written for it
        Vowel,
    };
    static constexpr std::size_t characterSize = 3;  // bytes of each character of the block and of each joiner

    // The block is E0 A4 80 to E0 A5 BF.
    static bool isInBlock(std::string_view text) {
        return text.size() >= characterSize && text[0] == '\xE0' && (text[1] == '\xA4' || text[1] == '\xA5') &&
               (static_cast<unsigned char>(text[2]) & 0xC0U) == 0x80;
    }
    static bool isJoiner(std::string_view text) { return text.starts_with("\u200C") || text.starts_with("\u200D"); }
    static char32_t inBlock(std::string_view text) {
        return devanagari::first + ((static_cast<unsigned char>(text[1]) & 1U) << 6U) +
               (static_cast<unsigned char>(text[2]) & 0x3FU);
    }

    void copyForeign() {
        endSyllable();
        std::size_t length = 1;
        while (length < rest_.size() && rest_[length] != '\xE0' && rest_[length] != '\xE2') ++length;
        roman_ += rest_.substr(0, length);
        rest_.remove_prefix(length);
        state_ = State::Start;
        last_ = beforeLast_ = noSound;
        afterDevanagari_ = false;
    }

    void takeDevanagari() {
        const char32_t letter = inBlock(rest_);
        const Character& character = characters_[letter];
        afterDevanagari_ = true;
        if (character.beginsMore && takeSequence()) return;
        rest_.remove_prefix(characterSize);
        switch (character.role) {
            case Role::Consonant:
                takeConsonant(character.sound);
                if (character.nukta) takeNukta(letter);
                break;
            case Role::Vowel:
                endSyllable();
                writeVowel(letter, character.sound);
                break;
            case Role::Sign:
                takeSign(letter, character.sound);
                break;
            case Role::Mark:
                takeMark(letter, character.sound);
                break;
            case Role::Virama:
                takeVirama(letter);
                break;
            case Role::Nukta:
                takeNukta(letter);
                break;
            case Role::Digit:
                writeCode(character.code);
                break;
            case Role::Code:
                takeCode(letter, character.code);
                break;
            case Role::Unspelled:
                takeUnspelled(letter);
        }
    }

    bool takeSequence() {
        for (const Sequence& sequence : characters_.sequences()) {
            if (!rest_.starts_with(sequence.text)) continue;
            if (sequence.sound == noSound && state_ == State::Virama) continue;
            rest_.remove_prefix(sequence.text.size());
            if (sequence.sound == noSound)
                writeCode(sequence.code);
            else
                takeConsonant(sequence.sound);
            return true;
        }
        return false;
    }

    void takeConsonant(Sound sound) {
        if (state_ == State::Consonant) endSyllable();
        if (joinerWaits_ && last_ != noSound && characters_.areConjunct(last_, sound)) endSyllable();
        joinerWaits_ = false;
        loneRa_ = sound == Sound::Ra && state_ != State::Virama;
        writeSound(sound);
        state_ = State::Consonant;
    }

    void takeVirama(char32_t letter) {
        if (state_ == State::Consonant) {
            state_ = State::Virama;
        } else if (state_ == State::Start) {
            takeUnspelled(letter);
        } else {
            endSyllable();
            writeVirama();
        }
    }

    void takeNukta(char32_t letter) {
        if (state_ != State::Consonant && state_ != State::Virama) {
            takeUnspelled(letter);
        } else if (last_ == Sound::Ra) {
            makeEyelash();
        } else if (last_ != Sound::EyelashRa) {
            roman_ += romanOfSound[index(Sound::NuktaOrSeparator)];
            last_ = beforeLast_ = noSound;
        }
    }

    // The ra written last becomes an eyelash ra.
    void makeEyelash() {
        roman_.resize(roman_.size() - romanOfSound[index(Sound::Ra)].size());
        roman_ += romanOfSound[index(Sound::EyelashRa)];
        last_ = Sound::EyelashRa;
    }

    void takeJoiner() {
        const bool nonJoiner = rest_.starts_with("\u200C");
        rest_.remove_prefix(characterSize);
        if (state_ != State::Virama) return;
        if (nonJoiner)
            endSyllable();
        else if (last_ == Sound::Ra && loneRa_)
            makeEyelash();
        else
            joinerWaits_ = true;
    }

    void takeSign(char32_t sign, Sound vowel) {
        const auto whole = state_ == State::Vowel ? composedVowel(vowel_, sign) : std::nullopt;
        if (whole) {
            roman_.resize(beforeVowel_);
            writeVowel(*whole, characters_[*whole].sound, before_);
            return;
        }
        // Without a consonant a sign can be written as a vowel only.
        if (state_ != State::Consonant) endSyllable();
        writeVowel(sign, vowel);
    }

    void takeMark(char32_t letter, Sound mark) {
        endSyllable();
        if (state_ != State::Vowel) return takeUnspelled(letter);
        writeSound(mark);
        vowel_ = 0;
    }

    void takeCode(char32_t letter, char code) {
        if (use_ == RomanUse::Program && isRomanPunctuation(code)) return takeUnspelled(letter);
        writeCode(code);
    }

    void takeUnspelled(char32_t letter) {
        endSyllable();
        appendUtf8(letter, roman_);
        if (unspelled_ != nullptr) *unspelled_ += letter;
        state_ = State::Start;
        last_ = beforeLast_ = noSound;
    }

    // A consonant without a vowel has its own a.
    void endSyllable() {
        if (state_ == State::Consonant) writeVowel(0, Sound::A);
        if (state_ == State::Virama) writeVirama();
        joinerWaits_ = false;
    }

    void writeVirama() {
        roman_ += romanOfSound[index(Sound::Virama)];
        state_ = State::Start;
        last_ = beforeLast_ = noSound;
    }

    void writeCode(char code) {
        endSyllable();
        roman_ += code;
        state_ = State::Start;
        last_ = beforeLast_ = noSound;
    }

    void writeVowel(char32_t letter, Sound sound) { writeVowel(letter, sound, {last_, beforeLast_}); }

    struct SoundsBefore {
        Sound last = noSound;
        Sound beforeLast = noSound;
    };
    void writeVowel(char32_t letter, Sound sound, SoundsBefore before) {
        beforeVowel_ = roman_.size();
        before_ = before;
        last_ = before.last;
        beforeLast_ = before.beforeLast;
        writeSound(sound);
        vowel_ = letter;
        state_ = State::Vowel;
    }

    void writeSound(Sound sound) {
        if (last_ != noSound && isMisread(sound)) separate(sound);
        roman_ += romanOfSound[index(sound)];
        beforeLast_ = last_;
        last_ = sound;
    }

    bool isMisread(Sound next) const {
        if (neighboursOf(last_, next) == Neighbours::Misread) return true;
        return beforeLast_ != noSound && neighboursOf(beforeLast_, last_) == Neighbours::Doubtful &&
               misread(beforeLast_, last_, next);
    }

    // Consonants are separated by a virama; after anything else, and after the eyelash ra, the nukta's letter means
    // nothing else.
    void separate(Sound next) {
        const bool inCluster = isConsonant(last_) && isConsonant(next) && last_ != Sound::EyelashRa;
        roman_ += romanOfSound[index(inCluster ? Sound::Virama : Sound::NuktaOrSeparator)];
        last_ = noSound;
    }

    static const SpelledCharacters& spelledCharacters() {
        static const SpelledCharacters characters;
        return characters;
    }

    const SpelledCharacters& characters_ = spelledCharacters();
    RomanUse use_;
    std::u32string* unspelled_;
    std::string_view rest_;
    std::string roman_;
    State state_ = State::Start;
    Sound last_ = noSound;  // written last, as far as what follows could be read together with it
    Sound beforeLast_ = noSound;
    char32_t vowel_ = 0;           // the vowel or sign written last; 0: a consonant's own
    std::size_t beforeVowel_ = 0;  // the length of the Roman text before it, and what was written last then
    SoundsBefore before_;
    bool afterDevanagari_ = false;
    bool loneRa_ = false;       // the consonant written last is a ra at the head of its cluster
    bool joinerWaits_ = false;  // after the virama
};

}  // namespace

std::string romanOfUnicode(std::string_view utf8, RomanUse use, std::u32string* unspelled) {
    return RomanWriter(use, unspelled).write(utf8);
}

}  // namespace tolvan
