#include "editor/PaneMenus.h"

#include "editor/CommandBars.h"
#include "editor/EditorMenu.h"
#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"

#include <QAction>

namespace tolvan {
namespace {

constexpr const char* romanItems[] = {"EditUndo", "EditRedo",           "mnuSeperator5", "EditCut",
                                      "EditCopy", "EditCopyDevanagari", "EditPaste",     "EditSelectAll"};

EditorMenu& addMenu(TextPane& pane) {
    auto* menu = new EditorMenu(&pane);
    menu->setObjectName(QStringLiteral("menu"));
    QObject::connect(&pane, &QWidget::customContextMenuRequested, menu,
                     [&pane, menu](QPoint at) { menu->popup(pane.viewport()->mapToGlobal(at)); });
    return *menu;
}

// The commands of that name act on the Roman text; here the same is done with the program text.
template <class Does>
QAction* addItem(EditorMenu& menu, const QAction& like, Does does) {
    QAction* item = menu.addAction(like.icon(), like.text());
    item->setIconVisibleInMenu(true);
    QObject::connect(item, &QAction::triggered, &menu, does);
    return item;
}

}  // namespace

void addPaneMenus(RomanBox& roman, ProgramBox& program, const CommandBars& bars) {
    EditorMenu& romanMenu = addMenu(roman);
    for (const char* key : romanItems) romanMenu.addAction(bars.item(key));

    EditorMenu& programMenu = addMenu(program);
    QAction* copy = addItem(programMenu, *bars.item("EditCopy"), [&program] { program.copy(); });
    addItem(programMenu, *bars.item("EditSelectAll"), [&program] { program.selectAll(); });
    QObject::connect(&programMenu, &QMenu::aboutToShow, copy,
                     [&program, copy] { copy->setEnabled(program.selectionLength() > 0); });
}

}  // namespace tolvan
