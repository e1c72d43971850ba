// The words of the language in the panes: their list and page, and completion.
#include "editor/panes/Completion.h"
#include "library/LibraryWords.h"
#include "panes/Panes.h"
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

std::vector<std::string> spellings(const char* start) {
    std::vector<std::string> spellings;
    for (const LanguageWord* word : wordsBeginning(start)) spellings.emplace_back(word->roman);
    return spellings;
}

TEST(Completion, findsWordsByTheirFirstLetters) {
    using testing::ElementsAre;
    EXPECT_THAT(spellings("dAk"), ElementsAre("dAkhav"));
    EXPECT_THAT(spellings("dak"), ElementsAre("dAkhav"));
    EXPECT_THAT(spellings("daakh"), ElementsAre("dAkhav"));
    EXPECT_THAT(spellings("RE"), ElementsAre("regh"));
    EXPECT_THAT(spellings("tri"), ElementsAre("trijyA", "trijyAche"));
    EXPECT_THAT(spellings("Ak"), ElementsAre("Akh", "AkAshI", "akShare", "akShar"));
    EXPECT_THAT(spellings("va"), ElementsAre("vajA", "vartuL", "var", "vargamUL", "vAchaNyAsAThI", "vAch"));
    EXPECT_THAT(spellings("vA"), ElementsAre("vAchaNyAsAThI", "vAch", "vajA", "vartuL", "var", "vargamUL"));
    EXPECT_THAT(spellings("lihee"), ElementsAre("lihiNyAsAThI", "lihI"));
    for (const char* none : {"zzz", "kk", "nn"}) EXPECT_THAT(spellings(none), ElementsAre()) << none;
    // And by their sound.
    EXPECT_THAT(spellings("rang"), ElementsAre("raMg", "raMgAchI", "raMgAche", "raMgAchA"));
    EXPECT_THAT(spellings("bindu"), ElementsAre("biMdU"));
    EXPECT_THAT(spellings("sampav"), ElementsAre("saMpav"));
    EXPECT_EQ(spellings("").size(), languageWords().size() + libraryWords().size());
    EXPECT_THAT(spellings("varg"), ElementsAre("vargamUL"));
    EXPECT_THAT(spellings("kar"), ElementsAre("kar"));
    EXPECT_THAT(spellings("fasa"), ElementsAre("phAsA"));
}

}  // namespace
}  // namespace tolvan
