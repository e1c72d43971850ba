#include "translator/UnicodeProgram.h"

#include "platform/encoding/Ascii.h"
#include "platform/encoding/Unicode.h"
#include "platform/encoding/Utf8.h"
#include "platform/encoding/Windows1252.h"
#include "platform/richtext/UnicodeText.h"
#include "platform/transliteration/MarkRoman.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "platform/transliteration/UnicodeToRoman.h"
#include "translator/LanguageWords.h"
#include "translator/ProgramText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tolvan {
namespace {

bool hasDevanagari(std::string_view utf8) {
    while (!utf8.empty())
        if (isDevanagari(takeCharacter(utf8))) return true;
    return false;
}

struct TypographicMark {
    char32_t character;
    std::string_view plain;
};
constexpr auto typographicMarks = std::to_array<TypographicMark>({
    {0x00A0, " "},
    {0x2013, "-"},
    {0x2014, "-"},
    {0x2018, "'"},
    {0x2019, "'"},
    {0x201C, "\""},
    {0x201D, "\""},
    {0x201E, "\""},
    {0x2026, "..."},
    {0x2212, "-"},
});

// Writes one line: what must be Latin goes between "#", and what may be either goes with its neighbours.
class RomanLine {
  public:
    explicit RomanLine(std::string& roman) : roman_(roman) {}

    void devanagari(std::string_view roman) {
        if (roman.empty()) return;
        endSpan();
        roman_ += roman;
    }
    void latin(char character) {
        if (!inSpan_) roman_ += '#';
        inSpan_ = true;
        roman_ += undecided_;
        undecided_.clear();
        roman_ += character;
    }
    void either(char character) { (inSpan_ ? undecided_ : roman_) += character; }
    void endSpan() {
        if (inSpan_) roman_ += '#';
        inSpan_ = false;
        roman_ += undecided_;
        undecided_.clear();
    }

  private:
    std::string& roman_;
    bool inSpan_ = false;
    std::string undecided_;
};

class ProgramReader {
  public:
    RomanProgram read(std::string_view utf8) {
        while (true) {
            const std::size_t end = std::min(utf8.find_first_of("\r\n\xE2"), utf8.size());
            if (end < utf8.size() && lineEndAt(utf8, end) == 0) {  // another character that begins like a line end
                line_ += utf8.substr(0, end + 1);
                utf8.remove_prefix(end + 1);
                continue;
            }
            line_ += utf8.substr(0, end);
            takeLine();
            if (end == utf8.size()) return std::move(program_);
            program_.roman += lineEnd;
            utf8.remove_prefix(end + lineEndAt(utf8, end));
        }
    }

  private:
    // The length of the line end there: CR, LF, both, or the separators of Unicode.
    static std::size_t lineEndAt(std::string_view text, std::size_t position) {
        const std::string_view rest = text.substr(position);
        if (rest.starts_with("\r\n")) return 2;
        if (rest.starts_with("\u2028") || rest.starts_with("\u2029")) return 3;
        return rest[0] == '\r' || rest[0] == '\n' ? 1 : 0;
    }

    void takeLine() {
        if (hasDevanagari(line_))
            spellLine();
        else
            copyLine();
        line_.clear();
    }

    void copyLine() {
        for (std::string_view rest = line_; !rest.empty();) {
            const char32_t character = takeCharacter(rest);
            if (const auto code = unicodeToWindows1252(character))
                program_.roman += static_cast<char>(*code);
            else
                leaveOut(character);
        }
    }

    void spellLine() {
        RomanLine line(program_.roman);
        inText_ = false;
        for (std::string_view rest = line_; !rest.empty();) {
            const std::string_view from = rest;
            const char32_t character = takeCharacter(rest);
            if (isDevanagari(character))
                line.devanagari(spellWord(from, rest));
            else if (!isJoiner(character))
                takeOther(character, line);
        }
        line.endSpan();
    }

    // The word at the front of `from`; `rest` is left after it.
    std::string spellWord(std::string_view from, std::string_view& rest) {
        while (!rest.empty()) {
            std::string_view after = rest;
            const char32_t character = takeCharacter(after);
            if (!isDevanagari(character) && !isJoiner(character)) break;
            rest = after;
        }
        std::u32string unspelled;
        std::string roman = romanOfUnicode(from.substr(0, from.size() - rest.size()), RomanUse::Program, &unspelled);
        for (const char32_t character : unspelled) {
            std::string utf8;
            appendUtf8(character, utf8);
            roman.erase(roman.find(utf8), utf8.size());
            leaveOut(character);
        }
        const LanguageWord* const word = findLanguageWord(LineConvert(roman));
        return word != nullptr ? std::string(word->roman) : roman;
    }

    void takeOther(char32_t character, RomanLine& line) {
        if (const std::string_view plain = keyboardMarks(character); !plain.empty()) {
            for (const char mark : plain) takeCode(mark, line);
        } else if (const auto code = unicodeToWindows1252(character); code && character != U'#') {
            takeCode(static_cast<char>(*code), line);
        } else {
            leaveOut(character);
        }
    }

    void takeCode(char code, RomanLine& line) {
        if (code == '"') inText_ = !inText_;
        const bool neutral = code == ' ' || code == '\t' || isRomanPunctuation(code) || (isDigit(code) && !inText_);
        neutral ? line.either(code) : line.latin(code);
    }

    void leaveOut(char32_t character) {
        if (program_.leftOut.find(character) == std::u32string::npos) program_.leftOut += character;
    }

    RomanProgram program_;
    std::string line_;
    bool inText_ = false;  // between quotes
};

std::string utf8OfUtf16(std::string_view bytes, bool bigEndian) {
    std::string utf8;
    char32_t high = 0;  // the first half of a pair
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        const char32_t unit = bigEndian ? char32_t{first} << 8U | second : char32_t{second} << 8U | first;
        const bool isLow = unit >= 0xDC00 && unit <= 0xDFFF;
        if (high != 0 && !isLow) appendUtf8(replacementCharacter, utf8);
        if (unit >= 0xD800 && unit <= 0xDBFF) {
            high = unit;
            continue;
        }
        appendUtf8(high != 0 && isLow ? 0x10000 + ((high - 0xD800) << 10U) + (unit - 0xDC00) : unit, utf8);
        high = 0;
    }
    return utf8;
}

}  // namespace

std::string_view keyboardMarks(char32_t character) {
    const auto* const found = std::find_if(typographicMarks.begin(), typographicMarks.end(),
                                           [&](const TypographicMark& mark) { return mark.character == character; });
    return found == typographicMarks.end() ? std::string_view() : found->plain;
}

RomanProgram romanOfUnicodeProgram(std::string_view utf8) {
    return ProgramReader().read(utf8);
}

std::optional<std::string> unicodeFileText(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) return std::string(bytes.substr(3));
    if (bytes.starts_with("\xFF\xFE")) return utf8OfUtf16(bytes.substr(2), false);
    if (bytes.starts_with("\xFE\xFF")) return utf8OfUtf16(bytes.substr(2), true);
    if (bytes.find('\xE0') != std::string_view::npos && isUtf8(bytes) && hasDevanagari(bytes))
        return std::string(bytes);
    return std::nullopt;
}

bool isStatement(std::string_view roman) {
    const std::string codes = LineConvert(roman);
    return roman.find('=') != std::string_view::npos || isLanguageWord(codes.substr(0, codes.find(' ')));
}

std::string unicodeOfProgram(std::string_view roman) {
    std::string utf8 = unicodeOf(Transliterate(roman));
    std::erase(utf8, '\r');
    return utf8;
}

}  // namespace tolvan
