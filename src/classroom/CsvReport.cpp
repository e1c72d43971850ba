#include "classroom/ReportTexts.h"
#include "classroom/Reports.h"
#include "platform/encoding/Csv.h"

namespace tolvan::classroom {
namespace {

std::string cell(std::string_view text) {
    return csvValue(text, CsvFor::Spreadsheets);
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
