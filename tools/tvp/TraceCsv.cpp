#include "tvp/TraceCsv.h"

#include "platform/encoding/Ascii.h"
#include "platform/encoding/Unicode.h"
#include "platform/richtext/UnicodeText.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "translator/Blanks.h"

#include <algorithm>
#include <numeric>

namespace tolvan {
namespace {

void appendField(std::string_view field, std::string& row) {
    if (!row.empty()) row += ',';
    if (field.find_first_of(",\"\r\n") == std::string_view::npos) {
        row += field;
        return;
    }
    row += '"';
    for (const char c : field) {
        if (c == '"') row += '"';
        row += c;
    }
    row += '"';
}

std::vector<std::string> unicodeLines(StyledView program) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start <= program.size();) {
        const std::size_t end = std::min(program.text().find(lineEnd, start), program.size());
        lines.push_back(unicodeOf(trimBlanks(program.substr(start, end - start))));
        start = end + lineEnd.size();
    }
    return lines;
}

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
    const std::vector<std::string> lines = unicodeLines(program);
    const std::vector<std::size_t> columns = chosenColumns(table, words);
    std::string head = "line,text";
    for (const std::size_t column : columns) appendField(table.columns()[column].unicodeTitle(), head);
    output.writeLine(head);
    for (std::uint64_t row = table.firstRow(); row < table.endRow() && output.failure() == 0; ++row) {
        const int line = table.programLine(row);
        const auto index = static_cast<std::size_t>(line);
        std::string text = std::to_string(line);
        appendField(index >= 1 && index <= lines.size() ? lines[index - 1] : "", text);
        for (const TraceTable::Cell& cell : table.cells(row, columns))
            appendField(unicodeOfInternalText(cell.text), text);
        output.writeLine(text);
    }
}

}  // namespace tolvan
