#include "classroom/ReportTexts.h"

#include "platform/encoding/Ascii.h"
#include "platform/encoding/Utf8.h"
#include "platform/script/Errors.h"

#include <array>
#include <cstdio>

namespace tolvan::classroom {
namespace {

constexpr Text verdicts[] = {
    {"बरोबर", "right"},
    {"चूक", "wrong"},
    {"ओळ {0}: गडबड {1}", "error {1} line {0}"},
    {"वेळ संपली", "time"},
    {"छपाई जास्त", "output"},
    {"स्मृती जास्त", "memory"},
    {"फाइलींची मर्यादा", "files"},
    {"वाचता येत नाही", "unreadable"},
};

constexpr Text problems[] = {
    {"", ""},
    {"फाइल वाचता आली नाही.", "The file cannot be read."},
    {"ही दुसऱ्या फाइलीकडे नेणारी जोडणी आहे.", "It is a link to another file."},
    {"ही साधी फाइल नाही.", "It is no ordinary file."},
    {"फाइल फार मोठी आहे.", "The file is too large."},
    {"फाइल रिकामी आहे.", "The file is empty."},
    {"फाइलीत प्रायोजन नाही.", "There is no program in the file."},
};

std::string sentenceOf(const Difference& difference, Language language) {
    using Kind = Difference::Kind;
    using Reason = Difference::Reason;
    const std::string line = shownNumber(difference.line, language);
    const std::string count = shownNumber(difference.count, language);
    if (difference.kind == Kind::TooFew) return filled(texts::tooFew, language, {line, count});
    if (difference.kind == Kind::TooMany) return filled(texts::tooMany, language, {line, count});
    if (difference.kind == Kind::Order) return filled(texts::missingLine, language, {});
    if (difference.kind == Kind::Drawing) return filled(texts::otherPicture, language, {});
    if (difference.reason == Reason::Numerals) return filled(texts::onlyNumerals, language, {line});
    if (difference.reason == Reason::Capitals) return filled(texts::onlyCapitals, language, {line});
    if (difference.reason == Reason::Letters) return filled(texts::otherLine, language, {line});
    return filled(
        texts::onlyBlanks, language,
        {line, shownNumber(difference.expectedBlanks, language), shownNumber(difference.printedBlanks, language)});
}

}  // namespace

std::vector<std::string> sentencesOf(const CaseResult& result, Language language) {
    std::vector<std::string> sentences;
    const auto say = [&](Text text, std::initializer_list<std::string> values = {}) {
        sentences.push_back(filled(text, language, values));
    };
    const std::string line = shownNumber(static_cast<std::size_t>(result.line), language);
    if (result.verdict == Verdict::Error || result.verdict == Verdict::Files) {
        const bool isEnglish = language == Language::English && !result.english.empty();
        say(texts::line, {line, isEnglish ? result.english : result.message});
    }
    if (result.verdict == Verdict::Time) say(result.line == 0 ? texts::timeOver : texts::timeOverAt, {line});
    if (result.verdict == Verdict::Time && result.hurried) say(texts::hurried);
    if (result.verdict == Verdict::Output) say(texts::tooMuchPrinted);
    if (result.verdict == Verdict::Memory) say(texts::tooMuchMemory);
    if (result.verdict == Verdict::Files)
        say(result.number == script::errors::permissionDenied ? texts::otherFiles : texts::tooMuchWritten);
    if (result.difference) sentences.push_back(sentenceOf(*result.difference, language));
    return sentences;
}

std::string shownDigits(std::string_view number, Language language) {
    if (language == Language::English) return std::string(number);
    std::string shown;
    constexpr std::u32string_view digits = U"०१२३४५६७८९";
    for (const char c : number) {
        if (isDigit(c))
            appendUtf8(digits[static_cast<std::size_t>(c - '0')], shown);
        else
            shown += c;
    }
    return shown;
}

std::string filled(Text text, Language language, std::initializer_list<std::string> values) {
    std::string result(text.in(language));
    std::size_t number = 0;
    for (const std::string& value : values) {
        const std::string mark = "{" + std::to_string(number++) + "}";
        if (const std::size_t place = result.find(mark); place != std::string::npos)
            result.replace(place, mark.size(), value);
    }
    return result;
}

std::string shownNumber(std::size_t number, Language language) {
    return shownDigits(std::to_string(number), language);
}

std::string shownPoints(double points, Language language) {
    std::array<char, 32> digits{};
    std::snprintf(digits.data(), digits.size(), "%.10g", points);
    return shownDigits(digits.data(), language);
}

std::string shownVerdict(const CaseResult& result, Language language) {
    return filled(verdicts[static_cast<std::size_t>(result.verdict)], language,
                  {shownNumber(static_cast<std::size_t>(result.line), language),
                   shownNumber(static_cast<std::size_t>(result.number), language)});
}

std::string_view shownProblem(HandInContent::Problem problem, Language language) {
    return problems[static_cast<std::size_t>(problem)].in(language);
}

std::string_view shownMissing(Wall wall, Language language) {
    return (wall == Wall::Files ? texts::noFileWall : texts::noCallWall).in(language);
}

}  // namespace tolvan::classroom
