#include "platform/richtext/Letters.h"

#include "platform/encoding/Deva.h"
#include "platform/richtext/InternalText.h"
#include "platform/transliteration/Glyphs.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tolvan {
namespace {

// What a glyph does in the letter that it belongs to.
enum class Role : std::uint8_t {
    Alone,     // blank, digit, mark: a letter of its own, without signs
    Base,      // consonant, conjunct, vowel: takes signs
    Before,    // the sign of short i, which stands before all its consonants
    Joining,   // stands before its consonant: half form, nukta
    Attached,  // stands after its consonant: sign, mark, ya and ra forms
    Virama,    // the same, and joins a consonant that follows
};

using Roles = std::array<Role, 256>;

constexpr void setRole(Roles& roles, std::string_view codes, Role role) {
    for (const char code : codes) roles[static_cast<unsigned char>(code)] = role;
}

constexpr Roles makeRoles() {
    Roles roles{};
    for (const VowelGlyphs& vowel : vowelGlyphs) {
        setRole(roles, vowel.sign, Role::Attached);
        setRole(roles, vowel.signRight, Role::Attached);
        setRole(roles, vowel.signLow, Role::Attached);
        setRole(roles, vowel.independent.substr(0, 1), Role::Base);  // what follows it is a sign
    }
    for (const ConsonantGlyph& consonant : consonantGlyphs) {
        setRole(roles, consonant.full, Role::Base);
        setRole(roles, consonant.half, Role::Joining);
    }
    for (const SyllableGlyph& syllable : syllableGlyphs) setRole(roles, syllable.glyph, Role::Base);
    for (const std::string_view mark : {glyph::yaForm, glyph::raForm, glyph::reph, glyph::rephAnusvara, glyph::anusvara,
                                        glyph::anusvaraBehindIi, glyph::candrabindu, glyph::visarga})
        setRole(roles, mark, Role::Attached);
    setRole(roles, glyphsOf(Sound::I).sign, Role::Before);
    setRole(roles, glyph::nukta, Role::Joining);
    setRole(roles, glyph::nuktaBeforeDda, Role::Joining);
    setRole(roles, glyph::virama, Role::Virama);
    // Glyphs that the font has and the Roman spelling does not write.
    setRole(roles, "„É`¤¥§"_deva, Role::Base);
    setRole(roles, "¨©°/?"_deva, Role::Attached);
    setRole(roles, "œ"_deva, Role::Virama);
    return roles;
}

constexpr Roles roleOfCode = makeRoles();

Role roleAt(StyledView text, std::size_t position) {
    if (text.font(position) != Font::Devanagari) return Role::Alone;
    return roleOfCode[static_cast<unsigned char>(text[position])];
}

// Whether the glyph goes on the letter whose last glyph is given.
bool continues(Role last, Role next) {
    switch (last) {
        case Role::Alone:
            return false;
        case Role::Base:
        case Role::Attached:
            return next == Role::Attached || next == Role::Virama;
        case Role::Before:
        case Role::Joining:
        case Role::Virama:
            return next != Role::Alone && next != Role::Before;
    }
    return false;
}

StyledText styledText(std::string_view internalText) {
    StyledText text;
    for (const InternalTextRun& run : InternalTextRuns(internalText)) text.append(run.text, run.font);
    return text;
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Digits look alike in both fonts.
bool sameLetter(StyledView a, StyledView b) {
    if (a.text() != b.text()) return false;
    return a.font(0) == b.font(0) || (a.size() == 1 && isDigit(a[0]));
}

}  // namespace

std::vector<StyledView> lettersOf(StyledView text) {
    std::vector<StyledView> letters;
    std::size_t start = 0;
    for (std::size_t i = 1; i <= text.size(); ++i) {
        if (i < text.size() && continues(roleAt(text, i - 1), roleAt(text, i))) continue;
        letters.push_back(text.substr(start, i - start));
        start = i;
    }
    return letters;
}

LetterText::LetterText(std::string_view internalText)
    : text_(styledText(internalText)), letters_(lettersOf(text_.view())) {}

std::string LetterText::part(std::size_t first, std::size_t count) const {
    StyledText part;
    for (std::size_t i = first - 1; i < letters_.size() && count > 0; ++i, --count) part.append(letters_[i]);
    return RomanMark(part);
}

std::string LetterText::backwards() const {
    StyledText backwards;
    for (auto letter = letters_.rbegin(); letter != letters_.rend(); ++letter) backwards.append(*letter);
    return RomanMark(backwards);
}

std::optional<std::size_t> LetterText::findFrom(const LetterText& wanted, std::size_t first) const {
    const auto start = letters_.begin() + static_cast<std::ptrdiff_t>(first - 1);
    const auto found = std::search(start, letters_.end(), wanted.letters_.begin(), wanted.letters_.end(), sameLetter);
    if (found == letters_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - letters_.begin()) + 1;
}

std::string LetterText::replaced(const LetterText& wanted, const LetterText& by) const {
    StyledText replaced;
    std::size_t next = 1;
    if (wanted.count() > 0) {
        while (const auto found = findFrom(wanted, next)) {
            for (; next < *found; ++next) replaced.append(letters_[next - 1]);
            replaced.append(by.text_.view());
            next += wanted.count();
        }
    }
    for (; next <= count(); ++next) replaced.append(letters_[next - 1]);
    return RomanMark(replaced);
}

}  // namespace tolvan
