// Everything is reached by the keyboard: menus and dialogs by letters, controls by Tab, the parts of the window by F6.
#include "EditorFixture.h"
#include "dialogs/Accessibility.h"
#include "editor/Commands.h"
#include "editor/frmFindReplace.h"
#include "editor/frmSheet.h"
#include "platform/transliteration/UnicodeToRoman.h"
#include "shell/frmPreferences.h"

#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>

namespace tolvan {
namespace {

using Keyboard = EditorTest;

Qt::Key letterOf(const QString& unicode) {
    const std::string roman = romanOfUnicode(unicode.toStdString());
    return static_cast<Qt::Key>(std::toupper(roman.at(roman.find_first_not_of(". "))));
}

TEST_F(Keyboard, OpensEveryMenuAndReachesEveryItem) {
    auto* const bar = editor->findChild<QMenuBar*>();
    std::set<std::string> keys;
    for (std::size_t number = 0; number < editorMenus().size(); ++number) {
        const Menu& menu = editorMenus()[number];
        EXPECT_TRUE(keys.insert(menu.accessKey).second) << menu.accessKey;
        toFront();
        press(static_cast<Qt::Key>(menu.accessKey[0]), Qt::AltModifier);
        QMenu* const shown = bar->actions()[static_cast<int>(number)]->menu();
        EXPECT_TRUE(shown->isVisible()) << menu.key;
        shown->close();
        bar->setActiveAction(nullptr);
        for (QAction* item : shown->actions()) {
            if (item->isSeparator() || !item->isVisible() || !item->isEnabled() || item->text().startsWith(u'&'))
                continue;
            shown->popup({});
            const QSignalBlocker notDone(item);
            bool reached = false;
            for (int presses = 0; presses < 9 && !reached; ++presses) {
                QTest::keyClick(shown, letterOf(accessible::unicode(item->text())));
                reached = !shown->isVisible() || shown->activeAction() == item;
            }
            QCoreApplication::processEvents();  // what is chosen is done by and by
            EXPECT_TRUE(reached) << item->objectName().toStdString();
            shown->close();
        }
    }
}

// The controls that Tab reaches, from the first on.
std::vector<QWidget*> tabOrder(QWidget& window) {
    std::vector<QWidget*> order;
    for (QWidget* at = window.nextInFocusChain(); at != &window; at = at->nextInFocusChain())
        if (at->isVisible() && at->isEnabled() && (at->focusPolicy() & Qt::TabFocus) != 0 &&
            at->focusProxy() == nullptr)
            order.push_back(at);
    return order;
}

void expectReadingOrder(QWidget& window) {
    const std::vector<QWidget*> order = tabOrder(window);
    EXPECT_GE(order.size(), 2U);
    for (std::size_t i = 1; i < order.size(); ++i) {
        const QRect before(order[i - 1]->mapTo(&window, QPoint()), order[i - 1]->size());
        const QRect here(order[i]->mapTo(&window, QPoint()), order[i]->size());
        const bool inRow = here.top() <= before.center().y() && here.bottom() >= before.center().y();
        EXPECT_TRUE(inRow ? here.left() > before.left() : here.top() > before.top())
            << order[i - 1]->objectName().toStdString() << ", " << order[i]->objectName().toStdString();
    }
}

TEST_F(Keyboard, TabFollowsTheEye) {
    frmSheet sheet(settings, editor.get());
    frmPreferences preferences(*editor);
    frmFindReplace find(editor->txtRoman(), editor.get());
    for (QWidget* const dialog :
         {static_cast<QWidget*>(&sheet), static_cast<QWidget*>(&preferences), static_cast<QWidget*>(&find)}) {
        dialog->show();
        auto* const pages = dialog->findChild<QTabWidget*>();
        for (int page = 0; page < (pages != nullptr ? pages->count() : 1); ++page) {
            if (pages != nullptr) pages->setCurrentIndex(page);
            SCOPED_TRACE(dialog->objectName().toStdString() + std::to_string(page));
            expectReadingOrder(*dialog);
        }
    }
}

TEST_F(Keyboard, GoesThroughThePartsOfTheWindowAndMendsFromThePanel) {
    type("dAkhva 1");
    press(Qt::Key_Return);
    auto* const list = editor->findChild<QListWidget*>(QStringLiteral("lstProblems"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return list->isVisible(); }));
    press(Qt::Key_F6);
    EXPECT_TRUE(editor->txtProgram().hasFocus());
    press(Qt::Key_F6);
    ASSERT_TRUE(list->hasFocus());
    press(Qt::Key_F6);
    EXPECT_TRUE(editor->txtRoman().hasFocus());
    for (int i = 0; i < 2; ++i) press(Qt::Key_F6);
    press(Qt::Key_Return);
    EXPECT_TRUE(editor->txtRoman().hasFocus());
    EXPECT_EQ(editor->txtRoman().currentLine(), 1);
    for (int i = 0; i < 2; ++i) press(Qt::Key_F6);
    auto* const mend = editor->findChild<QPushButton*>(QStringLiteral("cmdMend"));
    while (!mend->hasFocus() && !editor->txtRoman().hasFocus()) press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Space);
    EXPECT_EQ(roman(), "dAkhav 1\r\n");
    EXPECT_TRUE(editor->txtRoman().hasFocus());
}

}  // namespace
}  // namespace tolvan
