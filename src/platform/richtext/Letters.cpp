#include "platform/richtext/Letters.h"

#include "platform/encoding/Ascii.h"
#include "platform/encoding/EncodingTable.h"
#include "platform/richtext/InternalText.h"

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

Role roleOf(const EncodingRow& row) {
    switch (row.kind) {
        case GlyphKind::Consonant:
        case GlyphKind::Conjunct:
        case GlyphKind::Syllable:
        case GlyphKind::Vowel:
            return Role::Base;
        case GlyphKind::Half:
            return Role::Joining;
        case GlyphKind::SignBefore:
            return Role::Before;
        case GlyphKind::Form:
        case GlyphKind::Reph:
        case GlyphKind::Sign:
            return Role::Attached;
        case GlyphKind::Mark:
            if (row.draws == "्") return Role::Virama;
            return row.draws == "़" ? Role::Joining : Role::Attached;
        case GlyphKind::Other:  // the accents stand on a letter
            return row.draws == "॒" || row.draws == "॑" ? Role::Attached : Role::Alone;
        case GlyphKind::Unused:
        case GlyphKind::Blank:
        case GlyphKind::Digit:
            break;
    }
    return Role::Alone;
}

std::array<Role, 256> makeRoles() {
    std::array<Role, 256> roles;
    std::transform(encodingTable().begin(), encodingTable().end(), roles.begin(), roleOf);
    return roles;
}

Role roleAt(StyledView text, std::size_t position) {
    if (text.font(position) != Font::Devanagari) return Role::Alone;
    static const std::array<Role, 256> roles = makeRoles();
    return roles[static_cast<unsigned char>(text[position])];
}

// Whether a glyph of role `next` belongs to the letter whose last glyph has role `last`.
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

// Digits look alike in both fonts.
bool sameLetter(StyledView a, StyledView b) {
    if (a.text() != b.text()) return false;
    return a.font(0) == b.font(0) || (a.size() == 1 && isDigit(a[0]));
}

// How many letters at the front of `wanted` end at `next`, when `matched` of them ended at the letter before it.
std::size_t matchedWith(StyledView next, const std::vector<StyledView>& wanted, const std::vector<std::size_t>& borders,
                        std::size_t matched) {
    while (matched > 0 && (matched == wanted.size() || !sameLetter(next, wanted[matched])))
        matched = borders[matched - 1];
    return sameLetter(next, wanted[matched]) ? matched + 1 : matched;
}

// For each front of `wanted`, the longest shorter one that is also its end (Knuth, Morris and Pratt): by it, a search
// takes no longer for texts that repeat themselves.
std::vector<std::size_t> bordersOf(const std::vector<StyledView>& wanted) {
    std::vector<std::size_t> borders(wanted.size());
    for (std::size_t i = 1; i < wanted.size(); ++i)
        borders[i] = matchedWith(wanted[i], wanted, borders, borders[i - 1]);
    return borders;
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
    if (first > count()) return std::nullopt;
    if (wanted.letters_.empty()) return first;
    const std::vector<std::size_t> borders = bordersOf(wanted.letters_);
    std::size_t matched = 0;
    for (std::size_t i = first - 1; i < count(); ++i) {
        matched = matchedWith(letters_[i], wanted.letters_, borders, matched);
        if (matched == wanted.count()) return i + 2 - matched;
    }
    return std::nullopt;
}

std::optional<std::string> LetterText::replaced(const LetterText& wanted, const LetterText& by,
                                                std::size_t mostCodes) const {
    StyledText replaced;
    std::size_t next = 1;
    if (wanted.count() > 0) {
        while (const auto found = findFrom(wanted, next)) {
            for (; next < *found; ++next) replaced.append(letters_[next - 1]);
            replaced.append(by.text_.view());
            next += wanted.count();
            if (replaced.size() > mostCodes) return std::nullopt;
        }
    }
    for (; next <= count(); ++next) replaced.append(letters_[next - 1]);
    if (replaced.size() > mostCodes) return std::nullopt;
    return RomanMark(replaced);
}

}  // namespace tolvan
