#include "Panes.h"
#include "editor/panes/CompletionList.h"

#include <QSignalSpy>

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
    EXPECT_THAT(spellings("Ak"), ElementsAre("Akh"));
    EXPECT_THAT(spellings("va"), ElementsAre("vajA", "vartuL", "var", "vAchaNyAsAThI", "vAch"));
    EXPECT_THAT(spellings("vA"), ElementsAre("vAchaNyAsAThI", "vAch", "vajA", "vartuL", "var"));
    EXPECT_THAT(spellings("lihee"), ElementsAre("lihiNyAsAThI", "lihI"));
    for (const char* none : {"zzz", "kk", "nn"}) EXPECT_THAT(spellings(none), ElementsAre()) << none;
    EXPECT_EQ(spellings("").size(), languageWords().size());
}

class CompletionTest : public Panes {
  protected:
    void SetUp() override { ASSERT_TRUE(QTest::qWaitForWindowActive(&window)); }

    bool isOpen() { return aids.completion().isOpen(); }
    CompletionList& list() { return *roman.findChild<CompletionList*>(); }
};

TEST_F(CompletionTest, comesAfterTwoLettersAndLeavesEnterAlone) {
    type("p");
    EXPECT_FALSE(isOpen());
    type("u");
    EXPECT_TRUE(isOpen());
    press(Qt::Key_Return);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(roman.text(), "pu\r\n");

    type("da");
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(roman.text(), "pu\r\ndAkhav");
    EXPECT_FALSE(isOpen());
    roman.undo();
    EXPECT_EQ(roman.text(), "pu\r\nda") << "one step";

    type("k");
    EXPECT_TRUE(isOpen());
    press(Qt::Key_Tab);
    EXPECT_EQ(roman.line(1), "dAkhav");
    type(" kar");
    EXPECT_FALSE(isOpen()) << "the only word is there";
    type(" #ka");
    EXPECT_FALSE(isOpen()) << "in a span there are no words of the language";

    roman.setText("");
    type("tr");
    press(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(roman.text(), "tr");
    aids.completion().setAutomatic(false);
    type("i");
    EXPECT_FALSE(isOpen());
}

TEST_F(CompletionTest, comesAtControlSpace) {
    press(Qt::Key_Space, Qt::ControlModifier);
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(list().rowCount(), static_cast<int>(languageWords().size()));
    press(Qt::Key_PageDown);
    press(Qt::Key_Down);
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    const std::string expected(list().word(6).roman);
    press(Qt::Key_Return);
    EXPECT_EQ(roman.text(), expected);

    roman.setText("(tri) ka");
    roman.select(4, 0);
    press(Qt::Key_Space, Qt::ControlModifier);
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(list().rowCount(), 2);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::NoModifier,
                      list().visualItemRect(list().item(1, 2)).center());
    EXPECT_EQ(roman.text(), "(trijyAche) ka");

    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_FALSE(isOpen()) << "the word is there";
    roman.select(0, 0);
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_TRUE(isOpen());
    program.setFocus();
    EXPECT_FALSE(isOpen());
}

}  // namespace
}  // namespace tolvan
