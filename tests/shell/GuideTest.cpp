// The guide for teachers: its examples run, and what it says of the spelling is so.
#include "library/LibraryWords.h"
#include "platform/transliteration/Spellings.h"
#include "shell/Examples.h"
#include "support/Folders.h"
#include "translator/LanguageWords.h"
#include "transliteration/ReadBack.h"

#include <QRegularExpression>

#include <fstream>
#include <gtest/gtest.h>

namespace tolvan {
namespace {

std::vector<std::string> guideLines() {
    std::ifstream file(sourceFolder() + "/docs/guide.md");
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
    for (const LibraryWord& word : libraryWords()) EXPECT_TRUE(hasWord(guideLines(), word.roman)) << word.roman;
}

// Wherever Devanagari follows what is typed for it, they are the same: `ch`, `c` च, or | `te` | ते |.
TEST(Guide, ShowsWhatIsTypedAsItComesOut) {
    const QRegularExpression pair(
        QStringLiteral("((?:`[A-Za-z ]+`(?:, )?)+)(?: \\| | )([\\x{900}-\\x{97F}][\\x{900}-\\x{97F}, ]*)"));
    const QRegularExpression notALetter(QStringLiteral("[`, ]+"));
    int words = 0;
    for (const std::string& line : guideLines()) {
        for (const QRegularExpressionMatch& match : pair.globalMatch(QString::fromStdString(line))) {
            const QStringList typed = match.captured(1).split(notALetter, Qt::SkipEmptyParts);
            const QStringList shown = match.captured(2).split(notALetter, Qt::SkipEmptyParts);
            for (qsizetype i = 0; i < typed.size(); ++i, ++words) {
                const QString& devanagari = shown[std::min(i, shown.size() - 1)];  // one for several spellings
                EXPECT_EQ(soundsOf(typed[i].toStdString()), devanagari.toStdString()) << line;
            }
        }
    }
    EXPECT_GT(words, 120);
    for (const Spelling& spelling : spellings) EXPECT_TRUE(hasWord(guideLines(), spelling.roman)) << spelling.roman;
}

}  // namespace
}  // namespace tolvan
