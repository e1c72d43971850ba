#include "EditorFixture.h"
#include "editor/FindText.h"
#include "editor/frmFindReplace.h"
#include "support/DrawnTexts.h"

#include <QAbstractButton>

namespace tolvan {
namespace {

class FindReplaceTest : public EditorTest {
  protected:
    // Opens the dialog and types what to find.
    void find(const char* text) {
        press(Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(dialog().findChild<QWidget*>(QStringLiteral("txtFind")), QLatin1String(text));
    }
    frmFindReplace& dialog() const { return *editor->findChild<frmFindReplace*>(); }
    void click(const char* name) const {
        QTest::mouseClick(dialog().findChild<QWidget*>(QLatin1String(name)), Qt::LeftButton);
    }
};

TEST_F(FindReplaceTest, ALockedTextIsFoundInButNotReplaced) {
    type("ab ab");
    find("ab");
    EXPECT_FALSE(dialog().isModal());
    editor->txtRoman().setLocked(true);
    for (const char* name : {"cmdReplaceAll", "cmdReplace", "cmdReplace"}) click(name);
    EXPECT_EQ(roman(), "ab ab");
}

TEST_F(FindReplaceTest, TheDialogMakesWayForWhatItFinds) {
    writeFile("a.tvp", "\r\nka\r\nkha\r\nga\r\ngha\r\nNa");
    ASSERT_TRUE(editor->OpenFile(path("a.tvp")));
    find("a");
    const RomanBox& box = editor->txtRoman();
    for (int found = 0; found < 5; ++found) {
        dialog().move(box.mapToGlobal(QPoint()));
        click("cmdFind");
        const QRect caret(box.viewport()->mapToGlobal(box.cursorRect().topLeft()), box.cursorRect().size());
        EXPECT_EQ(box.selectionLength(), 1U);
        EXPECT_FALSE(dialog().frameGeometry().intersects(caret)) << "line " << box.currentLine();
    }
}

TEST_F(FindReplaceTest, AQuoteIsShownAsAQuote) {
    find("\"ka\"");
    for (const auto& [family, text] : DrawnTexts(*dialog().findChild<QWidget*>(QStringLiteral("txtFindDevnag"))).texts)
        EXPECT_EQ(text.contains(u'"'), family == QLatin1String("Liberation Serif")) << text.toStdString();
}

TEST(FindText, Edges) {
    EXPECT_EQ(findForwards("abc", "", 0, LetterCase::Exact), std::nullopt);
    EXPECT_EQ(findForwards("abc", "c", 99, LetterCase::Exact), std::nullopt);
    EXPECT_EQ(findForwards("aXxb", "xX", 0, LetterCase::Same), (FoundText{1, 2}));
    EXPECT_EQ(findBackwards("aaa", "aa", 2, LetterCase::Exact), (FoundText{0, 2}));
    EXPECT_EQ(findBackwards("aaa", "aa", 99, LetterCase::Same), (FoundText{1, 2}));
    EXPECT_EQ(replaceAll("aaaa", "aa", "a"), "aa");
    EXPECT_EQ(findBackwards("#\"#ka#\"# ka", "\"ka\"", 99, LetterCase::Exact), (FoundText{0, 8}));
    EXPECT_EQ(findBackwards("#\"#ka#\"# ka", "\"ka\"", 7, LetterCase::Exact), std::nullopt);
    EXPECT_EQ(findForwards("#\"#ka#\"# ka", "\"ka\"", 1, LetterCase::Exact), std::nullopt);
    EXPECT_EQ(findForwards("a#B#c", "ABC", 0, LetterCase::Same), (FoundText{0, 5}));
}

}  // namespace
}  // namespace tolvan
