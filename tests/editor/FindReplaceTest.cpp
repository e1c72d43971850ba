#include "EditorFixture.h"
#include "editor/FindText.h"
#include "editor/frmFindReplace.h"

#include <QAbstractButton>

namespace tolvan {
namespace {

TEST_F(EditorTest, ALockedTextIsFoundInButNotReplaced) {
    type("ab ab");
    press(Qt::Key_F, Qt::ControlModifier);
    auto& dialog = *editor->findChild<frmFindReplace*>();
    EXPECT_FALSE(dialog.isModal());
    QTest::keyClicks(dialog.findChild<QWidget*>(QStringLiteral("txtFind")), QStringLiteral("ab"));
    editor->txtRoman().setLocked(true);
    for (const char* name : {"cmdReplaceAll", "cmdReplace", "cmdReplace"})
        QTest::mouseClick(dialog.findChild<QWidget*>(QLatin1String(name)), Qt::LeftButton);
    EXPECT_EQ(roman(), "ab ab");
}

TEST(FindText, Edges) {
    EXPECT_EQ(findForwards("abc", "", 0, LetterCase::Exact), std::nullopt);
    EXPECT_EQ(findForwards("abc", "c", 99, LetterCase::Exact), std::nullopt);
    EXPECT_EQ(findForwards("aXxb", "xX", 0, LetterCase::Same), (FoundText{1, 2}));
    EXPECT_EQ(findBackwards("aaa", "aa", 2, LetterCase::Exact), (FoundText{0, 2}));
    EXPECT_EQ(findBackwards("aaa", "aa", 99, LetterCase::Same), (FoundText{1, 2}));
    EXPECT_EQ(replaceAll("aaaa", "aa", "a"), "aa");
}

}  // namespace
}  // namespace tolvan
