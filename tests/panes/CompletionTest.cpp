#include "editor/panes/Completion.h"
#include "library/LibraryWords.h"

#include <gmock/gmock.h>

namespace tolvan {
namespace {

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
