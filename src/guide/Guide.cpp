#include "guide/Guide.h"

#include "guide/Checks.h"
#include "platform/encoding/Lines.h"

#include <algorithm>

namespace tolvan::guide {
namespace {

// Nobody writes longer lines or programs by hand, and the time of some checks grows faster than the text.
constexpr std::size_t longestLine = 4000;
constexpr std::size_t longestProgram = std::size_t{4} << 20;
constexpr std::ptrdiff_t mostLines = 20000;
constexpr std::size_t mostFindings = 1000;
constexpr std::size_t mostInALine = 2;

// Each correction that is verified costs a check of the whole program.
constexpr std::size_t mostVerified = 20;
constexpr std::size_t mostLinesToVerify = 2000;

bool isTooLarge(std::string_view roman) {
    if (roman.size() > longestProgram || std::count(roman.begin(), roman.end(), '\n') > mostLines) return true;
    for (std::size_t start = 0; start <= roman.size();) {
        const std::size_t end = std::min(roman.find('\n', start), roman.size());
        if (end - start > longestLine) return true;
        start = end + 1;
    }
    return false;
}

// By lines; in a line as they were found, which is by their use.
void keepTheFirst(std::vector<Finding>& findings) {
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding& a, const Finding& b) { return a.line < b.line; });
    std::size_t line = 0;
    std::size_t inLine = 0;
    std::erase_if(findings, [&](const Finding& finding) {
        inLine = finding.line == line ? inLine + 1 : 1;
        line = finding.line;
        return inLine > mostInALine;
    });
    if (findings.size() > mostFindings) findings.resize(mostFindings);
}

std::size_t countLike(const std::vector<Finding>& findings, const Finding& like) {
    return static_cast<std::size_t>(std::count_if(findings.begin(), findings.end(), [&](const Finding& one) {
        return one.kind == like.kind && one.text == like.text;
    }));
}

}  // namespace

std::string corrected(std::string_view roman, const Correction& correction) {
    const auto line = linePlace(roman, correction.line - 1);
    std::string text(roman);
    if (!line || correction.place.from > correction.place.to || correction.place.to > line->size()) return text;
    return text.replace(line->begin + correction.place.from, correction.place.to - correction.place.from,
                        correction.text);
}

std::vector<Finding> Guide::check(std::string_view roman) {
    if (isTooLarge(roman)) return {};
    const std::vector<Finding> all = findAll(roman, store_);
    std::vector<Finding> findings = all;
    keepTheFirst(findings);
    verify(roman, all, findings);
    return findings;
}

std::vector<Finding> Guide::findAll(std::string_view roman, LineStore& store) {
    const Program program(roman, store);
    const Reading reading(program);
    Report report(program);
    for (const Check& check : checks()) {
        report.begin(check.kind, check.weight);
        check.run(reading, report);
    }
    return report.take();
}

// What followed from a mistake and was not said may be said once it is mended, but not more than was said before.
void Guide::verify(std::string_view roman, const std::vector<Finding>& all, std::vector<Finding>& findings) {
    const bool large = static_cast<std::size_t>(std::count(roman.begin(), roman.end(), '\n')) > mostLinesToVerify;
    std::size_t verified = 0;
    LineStore store;
    for (Finding& finding : findings)
        std::erase_if(finding.corrections, [&](const Correction& correction) {
            if (large || ++verified > mostVerified) return false;
            const std::vector<Finding> rest = findAll(corrected(roman, correction), store);
            return rest.size() > all.size() || countLike(rest, finding) >= countLike(all, finding);
        });
}

}  // namespace tolvan::guide
