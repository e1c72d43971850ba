#include "library/LibraryWords.h"
#include "platform/encoding/Unicode.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "support/Folders.h"
#include "translator/Keywords.h"
#include "translator/LanguageWords.h"
#include "translator/ProgramText.h"
#include "translator/Translator.h"

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <set>
#include <sstream>

namespace tolvan {
namespace {

std::string page() {
    const auto devanagari = [](std::string_view roman) { return unicodeOfCodes(LineConvert(roman)); };
    std::ostringstream page;
    page << "# The words of the language\n\n"
            "<!-- Written by the tests of the panes from the tables in src/translator/LanguageWords.cpp and "
            "src/library/LibraryWords.cpp; a change here is lost. -->\n\n"
            "| typed | shown | what it does | in English | standard spelling, where it differs "
            "|\n|---|---|---|---|---|\n";
    for (const LanguageWord& word : languageWords())
        page << "| `" << word.roman << "` | " << devanagari(word.roman) << " | " << devanagari(word.meaning) << " | "
             << word.english << " | " << devanagari(word.standard) << " |\n";
    page << "\n# The words of the library\n\n"
            "A program may use them as names of its own: one that it sets, declares, reads into, counts with or "
            "defines is "
            "an ordinary name in all of the program.\n\n"
            "| typed | shown | what it does | in English | for example |\n|---|---|---|---|---|\n";
    for (const LibraryWord& word : libraryWords())
        page << "| `" << word.roman << "` | " << devanagari(word.roman) << " | " << devanagari(word.meaning) << " | "
             << word.english << " | `" << word.usage << "` |\n";
    return page.str();
}

TEST(LanguageWords, areAllKeywordsAndNoneTwice) {
    std::set<std::string> words;
    for (const LanguageWord& word : languageWords())
        EXPECT_TRUE(words.insert(LineConvert(word.roman)).second) << word.roman;
    for (const Keyword& keyword : keywords()) EXPECT_THAT(words, testing::Contains(std::string(keyword.word)));
    EXPECT_THAT(words, testing::Contains(std::string(words::comment)));
}

// No word of these statements becomes a variable of the script, but for the one that counts.
TEST(LanguageWords, haveAMeaningInTheirStatements) {
    std::string typed;
    for (const char* statement :
         {"1 sAThI 1 te 10 paryaMt", "(1) paryaMt regh Akh", "(1) pAsun (2) paryaMt raMgAchI (3) regh Akh",
          "(1) pAsun (2) paryaMt raMgAche (3) bharalele Ayat kADh", "(1) var raMgAchA (2) biMdU kADh",
          "(1) pAsun (2) trijyA bharalele vartuL kADh", "(1) pAsun (2) trijyAche raMgAche (2) vartuL kADh",
          "(1) pAsun (2) trijyA Asalele raMgAche (2) vartuL kADh", "suchanA"}) {
        typed.append(statement) += ' ';
        Translator translator;
        const std::string script = translator.TranslateLine(ProgramText(statement));
        Translator untouched;
        if (typed.ends_with("10 paryaMt ")) untouched.MapIdentifier("1");
        EXPECT_EQ(translator.GetNextVariable(), untouched.GetNextVariable()) << statement << ": " << script;
    }
    for (const LanguageWord& word : languageWords()) {
        if (keywordScript(LineConvert(word.roman))) continue;
        EXPECT_NE(typed.find(std::string(word.roman) + ' '), std::string::npos) << word.roman;
    }
}

TEST(LanguageWords, areOnTheirPage) {
    const std::string name = sourceFolder() + "/docs/words.md";
    std::ifstream file(name);
    std::ostringstream present;
    present << file.rdbuf();
    const std::string expected = page();
    if (present.str() == expected) return;
    const std::filesystem::path fresh = std::filesystem::path(testing::TempDir()) / "words.md";
    std::ofstream(fresh) << expected;
    FAIL() << "docs/words.md is not what the table says; put " << fresh << " in its place";
}

}  // namespace
}  // namespace tolvan
