#include "classroom/ReportTexts.h"
#include "classroom/Reports.h"

namespace tolvan::classroom {
namespace {

// As RFC 4180 has it. A cell that a spreadsheet would take for a formula begins with an apostrophe.
std::string cell(const std::string& text) {
    constexpr std::string_view formulas = "=+-@\t\r";
    const bool isFormula = !text.empty() && formulas.find(text[0]) != std::string_view::npos;
    std::string safe = isFormula ? "'" + text : text;
    if (safe.find_first_of(",\"\r\n") == std::string::npos) return safe;
    std::string quoted = "\"";
    for (const char c : safe) quoted.append(c == '"' ? 2U : 1U, c);
    return quoted + '"';
}

}  // namespace

std::string csvReport(const ClassResult& result) {
    std::string text = "name,points,max,";
    for (const CaseHead& head : result.cases) text += cell(head.name) + ',';
    text += "alike\r\n";
    for (const HandInResult& handIn : result.handIns) {
        text += cell(handIn.name) + ',' + shownPoints(handIn.points, Language::English) + ',' +
                shownPoints(result.most, Language::English) + ',';
        for (const CaseResult& one : handIn.cases) text += codeOf(one) + ',';
        text += (handIn.group == 0 ? "" : std::to_string(handIn.group)) + "\r\n";
    }
    return text;
}

}  // namespace tolvan::classroom
