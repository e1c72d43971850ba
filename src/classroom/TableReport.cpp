#include "classroom/ReportTexts.h"
#include "classroom/Reports.h"
#include "platform/encoding/Unicode.h"
#include "platform/encoding/Utf8.h"

#include <algorithm>
#include <vector>

namespace tolvan::classroom {
namespace {

// Signs above and below a letter take no place of their own.
bool takesPlace(char32_t c) {
    const bool isSign = (c >= 0x0900 && c <= 0x0902) || c == 0x093A || c == 0x093C || (c >= 0x0941 && c <= 0x0948) ||
                        c == devanagari::virama || (c >= 0x0951 && c <= 0x0957) || c == 0x0962 || c == 0x0963;
    return !isSign && c != devanagari::joiner && c != devanagari::nonJoiner;
}

std::size_t widthOf(std::string_view text) {
    std::size_t width = 0;
    while (!text.empty())
        if (takesPlace(takeCharacter(text))) ++width;
    return width;
}

using Row = std::vector<std::string>;

std::string rowsInColumns(const std::vector<Row>& rows) {
    std::vector<std::size_t> widths(rows[0].size());
    for (const Row& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], widthOf(row[i]));
    std::string text;
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) text += row[i] + std::string(widths[i] - widthOf(row[i]) + 2, ' ');
        text.erase(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}

}  // namespace

std::string tableReport(const ClassResult& result, Language language) {
    Row head{std::string(texts::name.in(language)),
             std::string(texts::points.in(language)) + " / " + shownPoints(result.most, language)};
    for (const CaseHead& one : result.cases) head.push_back(one.name);
    head.emplace_back(texts::alike.in(language));
    std::vector<Row> rows{head};
    for (const HandInResult& handIn : result.handIns) {
        Row& row = rows.emplace_back(Row{handIn.name, shownPoints(handIn.points, language)});
        for (const CaseResult& one : handIn.cases) row.push_back(shownVerdict(one, language));
        row.push_back(handIn.group == 0 ? std::string() : shownNumber(handIn.group, language));
    }
    std::string text = rowsInColumns(rows);
    const std::size_t all = result.handInCount;
    if (result.handIns.size() < all)
        text += filled(texts::stopped, language,
                       {shownNumber(all, language), shownNumber(result.handIns.size(), language)}) +
                '\n';
    for (const Wall wall : result.missing) text.append(shownMissing(wall, language)).append("\n");
    return text;
}

}  // namespace tolvan::classroom
