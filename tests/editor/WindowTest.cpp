// The window itself: menus, toolbar, shortcuts, panes, status bar, and the commands by real keys and clicks.
#include "EditorFixture.h"
#include "editor/Commands.h"
#include "editor/EditorStatusBar.h"
#include "editor/FindText.h"
#include "editor/WindowPlace.h"
#include "editor/frmFindReplace.h"
#include "editor/panes/ProgramBox.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "support/DrawnTexts.h"
#include "support/Examples.h"
#include "translator/ProgramFile.h"
#include "translator/Translator.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QHelpEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSplitter>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

namespace tolvan {
namespace {

class WindowTest : public EditorTest {
  protected:
    QToolButton& button(const char* key) const {
        return *editor->commandBars().toolBar()->findChild<QToolButton*>(QLatin1String(key));
    }
    QMenu* menu(int index) const { return editor->commandBars().menuBar()->actions().at(index)->menu(); }
    void setClipboard(const char* text) const { QApplication::clipboard()->setText(QLatin1String(text)); }
    static QString clipboard() { return QApplication::clipboard()->text(); }
};

TEST_F(WindowTest, EveryKeyOfTheTablesIsACommand) {
    std::vector<std::string> keys;
    for (const Menu& each : editorMenus())
        for (const MenuItem& item : each.items)
            if (item.caption != "-") keys.emplace_back(item.key);
    for (const ToolButton& each : toolButtons())
        if (each.key) keys.emplace_back(each.key);
    for (const Shortcut& each : shortcuts()) keys.emplace_back(each.key);
    for (const std::string& key : keys) {
        if (std::string_view(key).starts_with(toolBarPrefix)) continue;
        EXPECT_GE(editor->metaObject()->indexOfSlot((key + "()").c_str()), 0) << key;
    }
    EXPECT_FALSE(editor->TopMenu_UserCommand("NoSuchCommand"));
}

TEST_F(WindowTest, UnicodeComesInAndGoesOut) {
    type("a ");
    QApplication::clipboard()->setText(QStringLiteral("दाखव \"ॐ হো\""));
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(roman(), "a dAkhav #\" \"#");
    EXPECT_EQ(editor->findChild<QLabel*>(QStringLiteral("panel2"))->accessibleName(),
              QStringLiteral("ही चिन्हे इथे लिहिता येत नाहीत: ॐহো"));
    editor->TopMenu_UserCommand("EditCopyDevanagari");
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("अ दाखव \" \""));
    editor->txtProgram().selectAll();
    editor->txtProgram().copy();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("अ दाखव \" \""));
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->html().contains(QStringLiteral(">दाखव</span>")));
    EXPECT_TRUE(user.told.empty());
}

TEST_F(WindowTest, AnEmptyDocumentSaysWhatToDo) {
    QWidget& viewport = *editor->txtRoman().viewport();
    const auto texts = [&] { return DrawnTexts(viewport).texts.size(); };
    EXPECT_GT(texts(), 6U);
    type("k");
    EXPECT_EQ(texts(), 1U);
    press(Qt::Key_Backspace);
    EXPECT_GT(texts(), 6U);
}

// The examples are found where they stand in the source tree; here they are picked by keys.
TEST_F(WindowTest, AnExampleIsPickedByItsPictureAndOpenedAsACopy) {
    QString picked;
    QTimer::singleShot(0, editor.get(), [&picked] {
        QWidget* const dialog = QApplication::activeModalWidget();
        auto* const list = dialog->findChild<QListWidget*>(QStringLiteral("lstExamples"));
        EXPECT_EQ(static_cast<std::size_t>(list->count()), exampleNames().size());
        for (int i = 0; i < list->count(); ++i) EXPECT_FALSE(list->item(i)->icon().isNull()) << i;
        dialog->grab().save(QDir::tempPath() + QStringLiteral("/examples.png"));
        QTest::keyClick(list, Qt::Key_Right);
        picked = list->currentItem()->text();
        QTest::keyClick(list, Qt::Key_Enter);
    });
    editor->FileExamples();
    const ProgramFile expected = readProgramFile(tolvan::contentOf(exampleProgram(exampleNames()[1])));
    EXPECT_EQ(roman(), expected.roman);
    EXPECT_EQ(toFontEncoded(picked), ReplaceRomanChars(expected.caption));
    EXPECT_EQ(editor->document().path(), QString());
    EXPECT_EQ(title(), EditorDocument::newTitle);
}

TEST_F(WindowTest, WhatReadsAsNothingIsNamed) {
    auto& description = *editor->findChild<QLabel*>(QStringLiteral("panel3"));
    const auto shown = [&] {
        std::string texts;
        for (const auto& [font, text] : DrawnTexts(description).texts)
            texts += (font + u':' + text + u' ').toStdString();
        return texts;
    };
    type("jXa #X# X");
    EXPECT_THAT(shown(), testing::StartsWith("Liberation Serif:X Tolvan Devanagari:"));
    type("a");
    EXPECT_EQ(shown(), "");
}

TEST_F(WindowTest, TheKeyboardReachesMenusAndPanes) {
    press(Qt::Key_F10);
    QTest::keyClick(QApplication::activePopupWidget() ? QApplication::activePopupWidget() : editor->focusWidget(),
                    Qt::Key_Escape);
    const struct {
        Qt::Key key;
        int menu;
    } accessKeys[] = {{Qt::Key_F, 0}, {Qt::Key_E, 1}, {Qt::Key_V, 2}, {Qt::Key_R, 3}, {Qt::Key_H, 4}};
    for (const auto& [key, index] : accessKeys) {
        press(key, Qt::AltModifier);
        EXPECT_EQ(QApplication::activePopupWidget(), menu(index)) << index;
        EXPECT_EQ(panel("panel3"), toQString(editorMenus()[static_cast<std::size_t>(index)].description));
        menu(index)->close();
    }
    EXPECT_EQ(panel("panel3"), QString());

    type("ek");
    press(Qt::Key_E, Qt::AltModifier);
    QTest::keyClick(menu(1), Qt::Key_Down);  // to undo, unless it is chosen already
    if (menu(1)->activeAction() != menu(1)->actions().constFirst()) QTest::keyClick(menu(1), Qt::Key_Home);
    QTest::keyClick(menu(1), Qt::Key_Return);
    EXPECT_NE(roman(), "ek");

    editor->txtRoman().setFocus();
    press(Qt::Key_F6);
    EXPECT_TRUE(editor->txtProgram().hasFocus());
    press(Qt::Key_F6);
    EXPECT_TRUE(editor->txtRoman().hasFocus());
}

TEST_F(WindowTest, ToolTipsAreDrawnInDevanagari) {
    for (const ToolButton& each : toolButtons()) {
        if (each.key == nullptr) continue;
        QToolButton& pointedAt = button(each.key);
        QHelpEvent help(QEvent::ToolTip, {3, 3}, pointedAt.mapToGlobal(QPoint(3, 3)));
        QApplication::sendEvent(&pointedAt, &help);
        const QWidgetList windows = QApplication::topLevelWidgets();
        const auto tip = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
            return window->isVisible() && window->inherits("QTipLabel");
        });
        ASSERT_NE(tip, windows.end()) << each.key;
        EXPECT_THAT(DrawnTexts(**tip).texts,
                    testing::ElementsAre(std::pair(QStringLiteral("Tolvan Devanagari"), toQString(each.toolTip))));
    }
}

TEST_F(WindowTest, TheToolbarIsHiddenAndShown) {
    QToolBar* bar = editor->commandBars().toolBar();
    EXPECT_EQ(bar->actions().size(), 23);
    press(Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(bar->isVisible());
    EXPECT_EQ(setting("Settings", "Toolbar_general"), QStringLiteral("False"));
    editor->commandBars().item("Toolbar_general")->trigger();
    EXPECT_TRUE(bar->isVisible());
    EXPECT_TRUE(editor->commandBars().item("Toolbar_general")->isChecked());
    EXPECT_EQ(setting("Settings", "Toolbar_general"), QStringLiteral("True"));
}

TEST_F(WindowTest, SizeAndSplitterAreRemembered) {
    auto& splitter = *editor->findChild<QSplitter*>(QStringLiteral("splPanes"));
    EXPECT_EQ(splitter.widget(0), &editor->txtRoman());
    editor->resize(640, 480);
    QApplication::processEvents();
    const int whole = splitter.sizes()[0] + splitter.sizes()[1];
    splitter.setSizes({whole * 7 / 10, whole * 3 / 10});
    EXPECT_TRUE(editor->close());
    open();
    EXPECT_EQ(editor->size(), QSize(640, 480));
    const QList<int> sizes = editor->findChild<QSplitter*>(QStringLiteral("splPanes"))->sizes();
    EXPECT_NEAR(sizes[0] * 100.0 / (sizes[0] + sizes[1]), 70, 2);
    editor->showMaximized();
    QApplication::processEvents();
    EXPECT_TRUE(editor->close());
    EXPECT_EQ(setting("Settings", "EditorWidth"), QStringLiteral("640"));
}

TEST_F(WindowTest, TheSizeBesideTheConsoleIsNotRemembered) {
    QWidget console;
    console.resize(300, 200);
    console.show();
    const int own = editor->width();
    for (int i = 0; i < 2; ++i) placeTogether(*editor, console);
    EXPECT_LT(editor->width(), own);
    EXPECT_TRUE(editor->close());
    EXPECT_EQ(setting("Settings", "EditorWidth"), QString::number(own));
}

TEST_F(WindowTest, HelpIsThereIfItsFileIs) {
    QString shown;
    QString topic;
    services.showHelp = [&](const QString& file, const QString& at) {
        shown = file;
        topic = at;
        return true;
    };
    open();
    press(Qt::Key_F1);
    EXPECT_EQ(shown, QString());
    editor->setHelpFile(QStringLiteral("/help/Tolbasic.hlp"));
    press(Qt::Key_F1);
    EXPECT_EQ(shown, QStringLiteral("/help/Tolbasic.hlp"));

    const QString adhik = toQString(ReplaceRomanChars("adhik"));
    type("guN = 1 adhik 2");  // the caret may stand within the word, before it or behind it, in either pane
    for (const std::size_t caret : {8U, 10U, 13U}) {
        editor->txtRoman().select(caret, 0);
        press(Qt::Key_F1);
        EXPECT_EQ(topic, adhik) << caret;
    }
    press(Qt::Key_F6);
    editor->txtProgram().select(9, 0);
    press(Qt::Key_F1);
    EXPECT_EQ(topic, adhik);
}

TEST_F(WindowTest, ClosingEndsTheApplicationUnlessItEndsAlready) {
    int shutDowns = 0;
    services.shutDown = [&shutDowns] { ++shutDowns; };
    open();
    type("unsaved");
    user.answers = {-1, 0};
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(editor->isVisible());
    EXPECT_EQ(shutDowns, 0);
    press(Qt::Key_F4, Qt::AltModifier);
    EXPECT_FALSE(editor->isVisible());
    EXPECT_EQ(shutDowns, 1);
    open();
    type("unsaved");
    state.Closing = true;
    EXPECT_TRUE(editor->close());
    EXPECT_EQ(shutDowns, 1);
}

TEST_F(WindowTest, ThePanesHaveMenus) {
    type("dAkhav");
    TextPane* const panes[] = {&editor->txtRoman(), &editor->txtProgram()};
    for (TextPane* pane : panes) {
        setClipboard("");
        pane->selectAll();
        emit pane->customContextMenuRequested({5, 5});
        auto* menu = pane->findChild<QMenu*>(QStringLiteral("menu"));
        ASSERT_TRUE(menu->isVisible());
        for (const QAction* action : menu->actions())
            if (action->text() == toQString("àt"_deva))
                QTest::mouseClick(menu, Qt::LeftButton, {},
                                  menu->actionGeometry(const_cast<QAction*>(action)).center());
        EXPECT_FALSE(menu->isVisible());
        EXPECT_EQ(clipboard(),
                  pane == &editor->txtProgram() ? QStringLiteral("दाखव") : pane->textCursor().selectedText());
    }
}

TEST(ProgressWidth, GrowsByTheSameStepForEachLine) {
    EXPECT_DOUBLE_EQ(progressWidth({0, 422}), 1);
    EXPECT_DOUBLE_EQ(progressWidth({1, 422}), 1.5);
    EXPECT_DOUBLE_EQ(progressWidth({422, 422}), 212);
}

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
    EXPECT_EQ(findForwards("#a#b#c#", "bc", 0, LetterCase::Same), (FoundText{3, 4}));  // the mark before is of the "a"
}

}  // namespace
}  // namespace tolvan
