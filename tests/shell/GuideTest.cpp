// The guide for teachers: its examples run, and what it says of the spelling is so.
#include "editor/panes/LanguageWords.h"
#include "platform/transliteration/Spellings.h"
#include "shell/Examples.h"
#include "transliteration/ReadBack.h"

#include <fstream>
#include <gtest/gtest.h>
#include <regex>

namespace tolvan {
namespace {

std::vector<std::string> guideLines() {
    std::ifstream file(TOLVAN_SOURCE_DIR "/docs/guide.md");
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
}

// Indented lines that follow one another are an example.
std::vector<std::vector<std::string>> examples() {
    constexpr std::string_view indent = "    ";
    std::vector<std::vector<std::string>> found;
    bool inside = false;
    for (const std::string& line : guideLines()) {
        const bool isExample = line.starts_with(indent);
        if (isExample && !inside) found.emplace_back();
        if (isExample) found.back().push_back(line.substr(indent.size()));
        inside = isExample;
    }
    return found;
}

TEST(Guide, EveryExampleRunsAndDoesSomething) {
    for (const auto& example : examples()) {
        const ExampleRun run = runExample(example);
        EXPECT_EQ(run.status, 0) << testing::PrintToString(example) << run.output;
        EXPECT_NE(run.output, "") << testing::PrintToString(example);
    }
    EXPECT_GE(examples().size(), 10U);
}

TEST(Guide, HasEveryWordInAnExampleOrATable) {
    for (const LanguageWord& word : languageWords()) EXPECT_TRUE(hasWord(guideLines(), word.roman)) << word.roman;
}

// Wherever Devanagari follows what is typed for it, they are the same: `ch`, `c` च, or | `te` | ते |.
TEST(Guide, ShowsWhatIsTypedAsItComesOut) {
    const std::regex pair("((?:`[A-Za-z ]+`(?:, )?)+)(?: \\| | )((?:[\xE0][\xA4\xA5][\x80-\xBF]|,? )+)");
    const std::regex typed("`([A-Za-z ]+)`");
    std::vector<std::string> seen;
    for (const std::string& line : guideLines()) {
        for (std::sregex_iterator match(line.begin(), line.end(), pair), end; match != end; ++match) {
            const std::string romans = (*match)[1];
            std::istringstream shown((*match)[2]);
            std::u32string last;
            for (std::sregex_iterator word(romans.begin(), romans.end(), typed); word != end; ++word) {
                std::istringstream parts((*word)[1]);
                seen.push_back((*word)[1]);
                for (std::string roman, devanagari; parts >> roman;) {
                    if (shown >> devanagari) last = unicodeOf(devanagari.substr(0, devanagari.find(',')));
                    EXPECT_EQ(composed(soundsOf(roman)), composed(last)) << line;
                }
            }
        }
    }
    for (const Spelling& spelling : spellings) EXPECT_TRUE(hasWord(guideLines(), spelling.roman)) << spelling.roman;
    EXPECT_GT(seen.size(), 120U);
}

}  // namespace
}  // namespace tolvan
