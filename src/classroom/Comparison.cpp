#include "classroom/Comparison.h"

#include "platform/encoding/Ascii.h"
#include "platform/encoding/Unicode.h"
#include "platform/encoding/Utf8.h"
#include "platform/richtext/UnicodeText.h"
#include "translator/UnicodeProgram.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tolvan::classroom {
namespace {

constexpr std::size_t lettersAround = 40;  // shown before and after a difference
constexpr std::size_t mostDifferent = 120;
constexpr std::size_t mostLines = 200'000;

bool isBlank(char32_t c) {
    return c == U' ' || c == U'\t' || c == 0x00A0;
}
bool isDigit32(char32_t c) {
    return c >= U'0' && c <= U'9';
}

char32_t latinDigit(char32_t c) {
    return c >= U'०' && c <= U'९' ? U'0' + (c - U'०') : c;
}

std::u32string charactersOf(std::string_view utf8) {
    std::u32string characters;
    while (!utf8.empty()) characters += takeCharacter(utf8);
    return characters;
}

std::string utf8Of(std::u32string_view characters) {
    std::string utf8;
    for (const char32_t c : characters) appendUtf8(c, utf8);
    return utf8;
}

// Appends a character as normal form C has it. Joiners cannot be seen and are left out, and of the two characters for
// candra e one is taken.
void appendComposed(char32_t c, std::u32string& text) {
    if (c == devanagari::joiner || c == devanagari::nonJoiner) return;
    if (c == U'ऍ') c = U'ॲ';
    for (const NuktaLetter& letter : nuktaLetters) {
        if (c == letter.withNukta && !letter.composed) {
            text += letter.letter;
            text += devanagari::nukta;
            return;
        }
        if (c == devanagari::nukta && !text.empty() && text.back() == letter.letter && letter.composed) {
            text.back() = letter.withNukta;
            return;
        }
    }
    if (const auto whole = text.empty() ? std::nullopt : composedVowel(text.back(), c))
        text.back() = *whole == U'ऍ' ? U'ॲ' : *whole;
    else
        text += c;
}

// A line in normal form C, without blanks at its ends; each character keeps its place.
std::u32string composed(std::string_view utf8) {
    std::u32string text;
    for (const char32_t c : charactersOf(utf8)) appendComposed(isBlank(c) ? U' ' : c, text);
    while (!text.empty() && text.back() == U' ') text.pop_back();
    text.erase(0, std::min(text.find_first_not_of(U' '), text.size()));
    return text;
}

std::u32string withSpaces(std::u32string_view text, Exactness::Spaces spaces) {
    std::u32string kept;
    for (const char32_t c : text) {
        const bool drops =
            c == U' ' && (spaces == Exactness::Spaces::Ignored || (!kept.empty() && kept.back() == U' '));
        if (spaces == Exactness::Spaces::Exact || !drops) kept += c;
    }
    return kept;
}

// What of a line is compared: lines that count as equal have equal keys. Only where some digits after the point count,
// different keys may be equal, too.
std::u32string keyOf(std::string_view line, const Exactness& exactness) {
    std::u32string key = withSpaces(composed(line), exactness.spaces);
    if (exactness.sameNumerals) std::transform(key.begin(), key.end(), key.begin(), latinDigit);
    return key;
}

// A number at the front, without sign; nothing if there is none.
std::optional<double> takeNumber(std::u32string_view& text) {
    std::string digits;
    for (std::size_t i = 0; i < text.size() && digits.size() < 300; ++i) {
        const char32_t c = latinDigit(text[i]);
        const bool isPoint = c == U'.' && digits.find('.') == std::string::npos && !digits.empty() &&
                             i + 1 < text.size() && isDigit32(latinDigit(text[i + 1]));
        if (!isDigit32(c) && !isPoint) break;
        digits += static_cast<char>(c);
    }
    if (digits.empty()) return std::nullopt;
    text.remove_prefix(digits.size());
    return std::strtod(digits.c_str(), nullptr);
}

bool sameWithDigits(std::u32string_view a, std::u32string_view b, int digits) {
    const double most = 0.5 * std::pow(10, -digits) * (1 + 1e-9);
    while (!a.empty() && !b.empty()) {
        const std::optional<double> left = takeNumber(a);
        const std::optional<double> right = takeNumber(b);
        if (left.has_value() != right.has_value()) return false;
        if (left && std::abs(*left - *right) > most) return false;
        if (left) continue;
        if (a.front() != b.front()) return false;
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
    return a.empty() && b.empty();
}

bool sameKeys(const std::u32string& a, const std::u32string& b, const Exactness& exactness) {
    return a == b || (exactness.digits && sameWithDigits(a, b, *exactness.digits));
}

// Signs stand on the letter before them, and a letter after a virama belongs to it.
bool continuesLetter(char32_t before, char32_t c) {
    const bool isSign = (c >= 0x0900 && c <= 0x0903) || (c >= 0x093A && c <= 0x094F && c != 0x093D) ||
                        (c >= 0x0951 && c <= 0x0957) || c == 0x0962 || c == 0x0963;
    return isSign || (before == devanagari::virama && isDevanagari(c));
}

bool isLetterStart(const std::u32string& text, std::size_t place) {
    return place == 0 || place >= text.size() || !continuesLetter(text[place - 1], text[place]);
}

Excerpt excerptOf(const std::u32string& text, std::size_t same, std::size_t sameBehind) {
    std::size_t from = same;
    while (!isLetterStart(text, from)) --from;
    std::size_t to = text.size() - sameBehind;
    while (!isLetterStart(text, to)) ++to;
    std::size_t begin = from > lettersAround ? from - lettersAround : 0;
    while (!isLetterStart(text, begin)) --begin;
    std::size_t end = std::min({to + lettersAround, from + mostDifferent + lettersAround, text.size()});
    while (!isLetterStart(text, end)) ++end;
    const std::size_t seen = std::min(to, end);
    const std::u32string_view all = text;
    return {begin, utf8Of(all.substr(begin, from - begin)), utf8Of(all.substr(from, seen - from)),
            utf8Of(all.substr(seen, end - seen)), text.size() - end};
}

// A whole line, as far as it is shown.
Excerpt wholeLine(std::string_view line) {
    const std::u32string text = composed(line);
    return excerptOf(text, 0, 0);
}

std::size_t blanksAt(const std::u32string& text, std::size_t place) {
    while (place > 0 && place <= text.size() && text[place - 1] == U' ') --place;
    const std::size_t end = std::min(text.find_first_not_of(U' ', place), text.size());
    return end - std::min(place, end);
}

Difference::Reason reasonOf(const std::u32string& a, const std::u32string& b) {
    const auto without = [](std::u32string text, auto change) {
        std::transform(text.begin(), text.end(), text.begin(), change);
        return text;
    };
    if (withSpaces(a, Exactness::Spaces::Ignored) == withSpaces(b, Exactness::Spaces::Ignored))
        return Difference::Reason::Blanks;
    if (without(a, latinDigit) == without(b, latinDigit)) return Difference::Reason::Numerals;
    const auto small = [](char32_t c) {
        return c < 128 ? static_cast<char32_t>(lowerLetter(static_cast<char>(c))) : c;
    };
    return without(a, small) == without(b, small) ? Difference::Reason::Capitals : Difference::Reason::Letters;
}

// How two lines that do not agree are shown: what they have in common at both ends, and what stands between.
void showLine(std::string_view expectedLine, std::string_view printedLine, const Exactness& exactness,
              Difference& difference) {
    // Where blanks do not count, they are not shown as what differs.
    const auto spaces =
        exactness.spaces == Exactness::Spaces::Exact ? Exactness::Spaces::Exact : Exactness::Spaces::Runs;
    const std::u32string expected = withSpaces(composed(expectedLine), spaces);
    const std::u32string printed = withSpaces(composed(printedLine), spaces);
    const auto equal = [&](char32_t a, char32_t b) {
        return exactness.sameNumerals ? latinDigit(a) == latinDigit(b) : a == b;
    };
    const std::size_t shorter = std::min(expected.size(), printed.size());
    std::size_t same = 0;
    while (same < shorter && equal(expected[same], printed[same])) ++same;
    std::size_t sameEnd = 0;
    while (sameEnd < shorter - same &&
           equal(expected[expected.size() - 1 - sameEnd], printed[printed.size() - 1 - sameEnd]))
        ++sameEnd;
    difference.reason = reasonOf(expected, printed);
    if (difference.reason == Difference::Reason::Blanks) {
        difference.expectedBlanks = blanksAt(expected, same);
        difference.printedBlanks = blanksAt(printed, same);
    }
    difference.expected = excerptOf(expected, same, sameEnd);
    difference.printed = excerptOf(printed, same, sameEnd);
}

using Keys = std::vector<std::u32string>;

Keys keysOf(const Lines& lines, const Exactness& exactness) {
    Keys keys;
    for (const std::string& line : lines) keys.push_back(keyOf(line, exactness));
    while (!keys.empty() && keys.back().empty()) keys.pop_back();
    return keys;
}

// A line that one list lacks, whatever the order, and one that it has too much.
std::optional<Difference> compareInAnyOrder(const Lines& expected, const Lines& printed, const Exactness& exactness) {
    const auto sorted = [&](const Lines& lines) {
        std::vector<std::pair<std::u32string, std::size_t>> keys;
        for (const std::u32string& key : keysOf(lines, exactness)) keys.emplace_back(key, keys.size());
        std::sort(keys.begin(), keys.end());
        return keys;
    };
    const auto wanted = sorted(expected);
    const auto given = sorted(printed);
    std::size_t missing = wanted.size();  // the first of the expected lines that is not there
    std::size_t surplus = given.size();
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < wanted.size() || j < given.size()) {
        if (i < wanted.size() && j < given.size() && sameKeys(wanted[i].first, given[j].first, exactness)) {
            ++i;
            ++j;
        } else if (j == given.size() || (i < wanted.size() && wanted[i].first < given[j].first)) {
            missing = std::min(missing, wanted[i++].second);
        } else {
            surplus = std::min(surplus, given[j++].second);
        }
    }
    if (missing == wanted.size() && surplus == given.size()) return std::nullopt;
    Difference difference;
    difference.kind = missing == wanted.size() ? Difference::Kind::TooMany : Difference::Kind::Order;
    difference.line = (missing == wanted.size() ? surplus : missing) + 1;
    difference.count = given.size() > wanted.size() ? given.size() - wanted.size() : 0;
    if (missing != wanted.size()) difference.expected = wholeLine(expected[missing]);
    if (surplus != given.size()) difference.printed = wholeLine(printed[surplus]);
    return difference;
}

void writeExcerpt(PackWriter& pack, const Excerpt& excerpt) {
    pack.number(static_cast<std::int64_t>(excerpt.leftOutBefore));
    for (const std::string* const part : {&excerpt.before, &excerpt.different, &excerpt.after}) pack.text(*part);
    pack.number(static_cast<std::int64_t>(excerpt.leftOutAfter));
}

Excerpt readExcerpt(PackReader& pack) {
    Excerpt excerpt;
    excerpt.leftOutBefore = static_cast<std::size_t>(pack.number());
    for (std::string* const part : {&excerpt.before, &excerpt.different, &excerpt.after}) *part = pack.text();
    excerpt.leftOutAfter = static_cast<std::size_t>(pack.number());
    return excerpt;
}

Lines linesOf(std::string_view text) {
    Lines lines;
    while (!text.empty() && lines.size() < mostLines) lines.emplace_back(takeLine(text).text);
    return lines;
}

enum class Questions : std::uint8_t { Kept, WithoutAlways, WithoutAll };

Lines linesOf(const std::vector<PrintedLine>& printed, Questions questions) {
    Lines lines;
    for (const PrintedLine& line : printed) {
        const bool drops = (questions == Questions::WithoutAll && line.kind != PrintedLine::Kind::Told) ||
                           (questions == Questions::WithoutAlways && line.kind == PrintedLine::Kind::AlwaysAsked);
        if (!drops) lines.push_back(line.text);
    }
    return lines;
}

}  // namespace

void Difference::write(PackWriter& pack) const {
    for (const std::size_t value :
         {static_cast<std::size_t>(kind), static_cast<std::size_t>(reason), line, count, expectedBlanks, printedBlanks})
        pack.number(static_cast<std::int64_t>(value));
    pack.list(before, [&](const std::string& text) { pack.text(text); });
    writeExcerpt(pack, expected);
    writeExcerpt(pack, printed);
}

Difference Difference::read(PackReader& pack) {
    Difference difference;
    difference.kind = pack.choice(Kind::Drawing);
    difference.reason = pack.choice(Reason::Capitals);
    for (std::size_t* const value :
         {&difference.line, &difference.count, &difference.expectedBlanks, &difference.printedBlanks})
        *value = static_cast<std::size_t>(pack.number());
    pack.list(difference.before, [&] { return pack.text(); });
    difference.expected = readExcerpt(pack);
    difference.printed = readExcerpt(pack);
    return difference;
}

std::optional<Difference> compareLines(const Lines& expected, const Lines& printed, const Exactness& exactness) {
    if (exactness.order == Exactness::Order::Any) return compareInAnyOrder(expected, printed, exactness);
    const Keys wanted = keysOf(expected, exactness);
    const Keys given = keysOf(printed, exactness);
    const std::size_t shorter = std::min(wanted.size(), given.size());
    std::size_t same = 0;
    while (same < shorter && sameKeys(wanted[same], given[same], exactness)) ++same;
    if (same == wanted.size() && same == given.size()) return std::nullopt;
    Difference difference;
    difference.line = same + 1;
    for (std::size_t i = same > 2 ? same - 2 : 0; i < same; ++i) {
        const Excerpt line = wholeLine(printed[i]);
        difference.before.push_back(line.different);
    }
    if (same == given.size()) {
        difference.kind = Difference::Kind::TooFew;
        difference.count = wanted.size() - same;
        difference.expected = wholeLine(expected[same]);
    } else if (same == wanted.size()) {
        difference.kind = Difference::Kind::TooMany;
        difference.count = given.size() - same;
        difference.printed = wholeLine(printed[same]);
    } else {
        showLine(expected[same], printed[same], exactness, difference);
    }
    return difference;
}

Readings readingsOf(std::string_view file) {
    Readings readings;
    const std::optional<std::string> unicode = unicodeFileText(file);
    if (unicode) return {linesOf(*unicode)};
    // In font codes, or, where it has neither Latin runs nor codes above ASCII, perhaps Latin text as it stands.
    Lines codes = linesOf(file);
    if (isUtf8(file) && file.find('{') == std::string_view::npos) readings.push_back(codes);
    for (std::string& line : codes) line = unicodeOfInternalText(line);
    readings.push_back(std::move(codes));
    return readings;
}

Readings readingsOf(const std::vector<PrintedLine>& printed) {
    return {linesOf(printed, Questions::Kept), linesOf(printed, Questions::WithoutAlways)};
}

std::optional<Difference> comparePrinted(const Readings& expected, const std::vector<PrintedLine>& printed,
                                         const Exactness& exactness) {
    std::optional<Difference> best;
    for (const Questions questions : {Questions::Kept, Questions::WithoutAlways, Questions::WithoutAll}) {
        const Lines lines = linesOf(printed, questions);
        for (const Lines& reading : expected) {
            std::optional<Difference> difference = compareLines(reading, lines, exactness);
            if (!difference) return std::nullopt;
            if (!best || difference->line > best->line) best = std::move(difference);
        }
    }
    return best;
}

}  // namespace tolvan::classroom
