#include "platform/encoding/EncodingTable.h"

#include <algorithm>
#include <utility>

namespace tolvan {
namespace {

// The text of encoding.tsv, which the build puts into a string literal.
constexpr std::string_view tableText =
#include "EncodingTable.inc"
    ;

constexpr auto kindNames = std::to_array<std::pair<std::string_view, GlyphKind>>({
    {"unused", GlyphKind::Unused},
    {"blank", GlyphKind::Blank},
    {"consonant", GlyphKind::Consonant},
    {"conjunct", GlyphKind::Conjunct},
    {"syllable", GlyphKind::Syllable},
    {"half", GlyphKind::Half},
    {"form", GlyphKind::Form},
    {"reph", GlyphKind::Reph},
    {"sign", GlyphKind::Sign},
    {"sign-before", GlyphKind::SignBefore},
    {"mark", GlyphKind::Mark},
    {"vowel", GlyphKind::Vowel},
    {"digit", GlyphKind::Digit},
    {"other", GlyphKind::Other},
});

consteval GlyphKind kindOf(std::string_view name) {
    for (const auto& [known, kind] : kindNames)
        if (known == name) return kind;
    throw "a kind that the table of codes may not have";
}

// Cuts the front of `text` off, up to `end`, which goes too.
consteval std::string_view cut(std::string_view& text, char end) {
    const std::size_t length = std::min(text.find(end), text.size());
    const std::string_view front = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    return front;
}

consteval std::size_t numberOf(std::string_view digits) {
    std::size_t number = 0;
    for (const char digit : digits) number = number * 10 + static_cast<std::size_t>(digit - '0');
    return number;
}

constexpr std::string_view logotypeKind = "logotype";

struct Table {
    std::array<EncodingRow, 256> rows{};
    std::array<char, 16> logotypeCodes{};
    std::size_t logotypeLength = 0;
    std::string_view logotypeDraws;
};

consteval Table readTable() {
    Table table;
    std::string_view rest = tableText;
    cut(rest, '\n');  // the names of the columns
    while (!rest.empty()) {
        std::string_view line = cut(rest, '\n');
        std::string_view codes = cut(line, '\t');
        cut(line, '\t');  // the code in hexadecimal digits
        cut(line, '\t');  // its windows-1252 character
        const std::string_view kind = cut(line, '\t');
        const std::string_view draws = cut(line, '\t');
        if (kind == logotypeKind) {
            while (!codes.empty())
                table.logotypeCodes.at(table.logotypeLength++) = static_cast<char>(numberOf(cut(codes, ' ')));
            table.logotypeDraws = draws;
        } else {
            table.rows.at(numberOf(codes)) = {kindOf(kind), draws, line};
        }
    }
    return table;
}

constexpr Table table = readTable();
constexpr Logotype productName{{table.logotypeCodes.data(), table.logotypeLength}, table.logotypeDraws};
static_assert(!productName.draws.empty());

}  // namespace

const std::array<EncodingRow, 256>& encodingTable() {
    return table.rows;
}

const Logotype& logotype() {
    return productName;
}

}  // namespace tolvan
