#include "tvp/TraceCsv.h"

#include "platform/encoding/Unicode.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "runtime/host/TraceText.h"
#include "translator/Blanks.h"

#include <algorithm>
#include <numeric>

namespace tolvan {
namespace {

std::vector<std::size_t> chosenColumns(TraceTable& table, const std::vector<std::string>& words) {
    const std::vector<TraceTable::Column>& all = table.columns();
    std::vector<std::size_t> chosen;
    for (const std::string& word : words)
        for (std::size_t i = 0; i < all.size(); ++i)
            if (all[i].word == word) chosen.push_back(i);
    if (!words.empty()) return chosen;
    chosen.resize(all.size());
    std::iota(chosen.begin(), chosen.end(), 0);
    return chosen;
}

}  // namespace

std::vector<std::string> wordsOfList(std::string_view list, const RunnableProgram& program) {
    std::vector<std::string> words;
    for (std::size_t start = 0; start <= list.size();) {
        const std::size_t end = std::min(list.find(',', start), list.size());
        const std::string_view asked = trimBlanks(list.substr(start, end - start));
        const auto found = std::find_if(program.words.begin(), program.words.end(), [&](const auto& row) {
            return unicodeOfCodes(row.second) == asked || row.second == ReplaceRomanChars(asked);
        });
        words.push_back(found == program.words.end() ? std::string() : found->second);
        start = end + 1;
    }
    return words;
}

void writeTraceCsv(TraceTable& table, StyledView program, const std::vector<std::string>& words, Output& output) {
    const std::vector<std::size_t> columns = chosenColumns(table, words);
    const TraceText text(table, program, TraceText::Form::Csv);
    output.writeLine(text.head(columns));
    for (std::uint64_t row = table.firstRow(); row < table.endRow() && output.failure() == 0; ++row)
        output.writeLine(text.row(row, columns));
}

}  // namespace tolvan
