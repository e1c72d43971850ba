#include "shell/help/HelpFile.h"

#include "platform/encoding/Ascii.h"
#include "platform/richtext/InternalText.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"
#include "translator/MessageTable.h"
#include "translator/ProgramText.h"

#include <algorithm>

namespace tolvan {
namespace {

constexpr char titleMark = '=';
constexpr char paragraphMark = '.';
constexpr char exampleMark = '>';
constexpr std::string_view guideTitle = "= ";
constexpr std::string_view guideExample = "    ";

// Calls `line(text)` for each line that is not empty, without its line end.
template <class LineCall>
void forEachLine(std::string_view text, const LineCall& line) {
    while (!text.empty()) {
        const std::string_view found = takeLine(text).text;
        if (!found.empty()) line(found);
    }
}

std::string helpLine(char mark, std::string_view text) {
    return std::string(1, mark).append(text).append(lineEnd);
}

std::string devanagari(std::string_view guide) {
    constexpr std::string_view latinMark = "\\#";
    constexpr char standIn = '\1';
    std::string roman(guide);
    for (std::size_t at = 0; (at = roman.find(latinMark, at)) != std::string::npos;)
        roman.replace(at, latinMark.size(), {'#', standIn, '#'});
    std::string text = RomanMark(Transliterate(roman));
    std::replace(text.begin(), text.end(), standIn, '#');
    return text;
}

}  // namespace

std::vector<HelpTopic> readHelpFile(std::string_view bytes) {
    std::vector<HelpTopic> topics;
    forEachLine(bytes, [&topics](std::string_view line) {
        const std::string text(line.substr(1));
        if (line[0] == titleMark)
            topics.push_back({text, {}, {}});
        else if (!topics.empty() && line[0] == paragraphMark)
            topics.back().paragraphs.push_back(text);
        else if (!topics.empty() && line[0] == exampleMark)
            topics.back().example.push_back(text);
    });
    return topics;
}

std::string buildHelpFile(std::string_view guide) {
    std::string bytes;
    forEachLine(guide, [&bytes](std::string_view line) {
        if (line.starts_with(guideTitle))
            bytes += helpLine(titleMark, devanagari(line.substr(guideTitle.size())));
        else if (line.starts_with(guideExample))
            bytes += helpLine(exampleMark, line.substr(guideExample.size()));
        else
            bytes += helpLine(paragraphMark, devanagari(line));
    });
    return bytes;
}

std::string errorList() {
    constexpr std::int32_t firstWord = 32766;  // from here on the table holds words, no messages
    std::string bytes;
    for (const Message& message : messageTable()) {
        if (message.number < 0 || message.number >= firstWord) continue;
        const std::string fragment = messageFragment(message.number).value_or(std::string());
        const RichDocument text = readRtf(std::string(RtfHeader()).append(fragment).append("\\par}"));
        bytes += helpLine(paragraphMark, "{" + std::to_string(message.number) + ":} " + RomanMark(text.text));
    }
    return bytes;
}

}  // namespace tolvan
