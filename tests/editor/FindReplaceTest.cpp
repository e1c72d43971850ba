#include "EditorFixture.h"
#include "dialogs/RichTextView.h"
#include "editor/FindText.h"
#include "editor/frmFindReplace.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"

#include <QAbstractButton>
#include <QLineEdit>

namespace tolvan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view notFound = "\\f1zaexayla sa<igtlele zaiBdk sapfle nahI\\f0."_deva;

class FindReplaceTest : public EditorTest {
  protected:
    frmFindReplace& dialog() const { return *editor->findChild<frmFindReplace*>(); }
    template <class Control>
    Control& control(const char* name) const {
        return *dialog().findChild<Control*>(QLatin1String(name));
    }
    void click(const char* name) const { QTest::mouseClick(&control<QAbstractButton>(name), Qt::LeftButton); }
    void choose(const char* name) const {
        QTest::mouseClick(&control<QAbstractButton>(name), Qt::LeftButton, {}, QPoint(6, 10));
    }
    void enter(const char* name, const char* text) const {
        control<QLineEdit>(name).clear();
        QTest::keyClicks(&control<QLineEdit>(name), QLatin1String(text));
    }
    void start(const QByteArray& text) {
        writeFile("a.tvp", "\r\n" + text);
        ASSERT_TRUE(editor->OpenFile(path("a.tvp")));
        press(Qt::Key_F, Qt::ControlModifier);
    }
    std::pair<std::size_t, std::size_t> selection() const {
        return {editor->txtRoman().selectionStart(), editor->txtRoman().selectionLength()};
    }
    static std::pair<std::size_t, std::size_t> at(std::size_t start, std::size_t length) { return {start, length}; }
};

TEST_F(FindReplaceTest, WhatIsTypedIsShownInDevanagari) {
    start("x");
    EXPECT_FALSE(dialog().isModal());
    enter("txtFind", "akShar(1)");
    enter("txtReplace", "shabd");
    EXPECT_EQ(control<RichTextView>("txtFindDevnag").text().trimmed(), toQString("A]r(1)"_deva));
    EXPECT_EQ(control<RichTextView>("txtReplaceDevnag").text().trimmed(), toQString("zBd"_deva));
}

TEST_F(FindReplaceTest, FindsFromTheBeginningFromTheCaretAndBackwards) {
    start("ab AB\r\nab ab");
    enter("txtFind", "ab");
    click("cmdFind");  // from the caret on, then behind what was found
    EXPECT_EQ(selection(), at(0, 2));
    click("cmdFind");
    EXPECT_EQ(selection(), at(7, 2));
    click("cmdFind");
    EXPECT_EQ(selection(), at(10, 2));
    click("cmdFind");
    EXPECT_THAT(user.takeTold(), ElementsAre(std::string(notFound)));
    EXPECT_EQ(selection(), at(10, 2));

    choose("FindWhere2");
    click("cmdFind");
    EXPECT_EQ(selection(), at(7, 2));
    choose("chkSameCase");
    click("cmdFind");
    EXPECT_EQ(selection(), at(3, 2));
    click("cmdFind");
    click("cmdFind");
    EXPECT_THAT(user.takeTold(), ElementsAre(std::string(notFound)));

    editor->txtRoman().select(8, 0);
    choose("FindWhere0");
    click("cmdFind");
    EXPECT_EQ(selection(), at(0, 2));
    choose("FindWhere1");  // anew from the caret, where the selection itself is found
    click("cmdFind");
    EXPECT_EQ(selection(), at(0, 2));
}

TEST_F(FindReplaceTest, TheKeyFindsOnAndTheTextsStay) {
    start("ab ab ab");
    enter("txtFind", "ab");
    click("cmdFind");
    click("cmdExit");
    EXPECT_FALSE(dialog().isVisible());
    toFront();
    press(Qt::Key_F3);
    press(Qt::Key_F3);
    EXPECT_EQ(selection(), at(6, 2));
    press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_EQ(control<QLineEdit>("txtFind").text(), QStringLiteral("ab"));
    QTest::keyClick(dialog().windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(dialog().isVisible());
}

TEST_F(FindReplaceTest, WithoutATextTheKeyAsksForOne) {
    press(Qt::Key_F3);
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_THAT(user.told, IsEmpty());
}

TEST_F(FindReplaceTest, ReplacesTheSelectionAndFindsOn) {
    start("ab ab ab");
    enter("txtFind", "ab");
    enter("txtReplace", "cde");
    click("cmdReplace");  // nothing is selected: it only finds
    EXPECT_EQ(roman(), "ab ab ab");
    click("cmdReplace");
    EXPECT_EQ(roman(), "cde ab ab");
    EXPECT_EQ(selection(), at(4, 2));
    EXPECT_EQ(title(), QStringLiteral("a.tvp*"));
    editor->txtRoman().select(0, 3);  // whatever is selected is replaced
    click("cmdReplace");
    EXPECT_EQ(roman(), "cde ab ab");
    EXPECT_EQ(selection(), at(4, 2));
}

TEST_F(FindReplaceTest, ReplacesAllExactly) {
    start("ab AB aab\r\nab");
    choose("chkSameCase");
    enter("txtFind", "ab");
    enter("txtReplace", "abab");
    click("cmdReplaceAll");
    EXPECT_EQ(roman(), "abab AB aabab\r\nabab");
    EXPECT_EQ(title(), QStringLiteral("a.tvp*"));
    toFront();
    press(Qt::Key_Z, Qt::ControlModifier);  // one step
    EXPECT_EQ(roman(), "ab AB aab\r\nab");
    enter("txtFind", "");
    click("cmdReplaceAll");
    EXPECT_EQ(roman(), "ab AB aab\r\nab");
}

TEST_F(FindReplaceTest, TheDialogMakesWayForWhatItFinds) {
    start("ka\r\nkha\r\nga\r\ngha\r\nNa");
    enter("txtFind", "a");
    const RomanBox& box = editor->txtRoman();
    for (int found = 0; found < 5; ++found) {
        dialog().move(box.mapToGlobal(QPoint()));
        click("cmdFind");
        const QRect caret(box.viewport()->mapToGlobal(box.cursorRect().topLeft()), box.cursorRect().size());
        EXPECT_EQ(selection().second, 1U);
        EXPECT_FALSE(dialog().frameGeometry().intersects(caret)) << "line " << box.currentLine();
    }
}

TEST_F(FindReplaceTest, ALockedTextIsFoundInButNotReplaced) {
    start("ab ab");
    enter("txtFind", "ab");
    editor->txtRoman().setLocked(true);
    click("cmdReplaceAll");
    click("cmdReplace");
    click("cmdReplace");
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
