#include "dialogs/MarathiTexts.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTreeView>

#include <gtest/gtest.h>
#include <memory>

namespace tolvan {
namespace {

class MarathiTextsTest : public testing::Test {
  protected:
    MarathiTextsTest() { QApplication::installTranslator(&texts); }
    ~MarathiTextsTest() override { QApplication::removeTranslator(&texts); }

    void add(const QString& text) { shown.append(text.section(QLatin1Char('\t'), 0, 0)); }

    MarathiTexts texts;
    QStringList shown;
};

TEST_F(MarathiTextsTest, NothingThatAUserSeesIsEnglish) {
    const QTemporaryDir folder;
    for (const auto mode : {QFileDialog::AcceptOpen, QFileDialog::AcceptSave}) {
        QFileDialog dialog(nullptr, {}, folder.path(), QStringLiteral("(*.1)"));
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setAcceptMode(mode);
        dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
        dialog.show();
        for (const auto* label : dialog.findChildren<QLabel*>()) add(label->text());
        for (const auto* button : dialog.findChildren<QAbstractButton*>()) {
            add(button->text());
            add(button->toolTip());
        }
        const QAbstractItemModel& columns = *dialog.findChild<QTreeView*>()->model();
        for (int column = 0; column < columns.columnCount(); ++column)
            add(columns.headerData(column, Qt::Horizontal).toString());
    }
    QLineEdit field;
    const std::unique_ptr<QMenu> menu(field.createStandardContextMenu());
    for (const QAction* action : menu->actions()) add(action->text());
    EXPECT_GT(shown.size(), 30);
    EXPECT_EQ(shown.filter(QRegularExpression(QStringLiteral("[A-Za-z]"))).join(QLatin1Char('|')), QString());
}

TEST_F(MarathiTextsTest, KeysKeepTheirNames) {
    EXPECT_EQ(QKeySequence(Qt::Key_Back).toString(QKeySequence::NativeText), QStringLiteral("Back"));
}

}  // namespace
}  // namespace tolvan
