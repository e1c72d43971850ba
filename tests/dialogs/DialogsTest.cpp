// The boxes: what they show, how they are answered, and in which language.
#include "BoxUser.h"
#include "dialogs/CaptionBar.h"
#include "dialogs/Dialogs.h"
#include "dialogs/MarathiTexts.h"
#include "dialogs/MessageDialog.h"
#include "dialogs/RichTextView.h"
#include "dialogs/frmAbout.h"
#include "dialogs/frmErrorBox.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"
#include "support/Cases.h"
#include "support/ScriptedUser.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTreeView>

#include <gmock/gmock.h>
#include <memory>

namespace tolvan {
namespace {

// The items of the system menu are reached as on the keyboard: opened, then down to the item.
void closeBySystemMenu(QDialog& box) {
    press(box, Qt::Key_Space, Qt::AltModifier);
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    press(*menu, Qt::Key_Down);
    press(*menu, Qt::Key_Return);
}

BoxUser::Action click(const char* name) {
    return [name](QDialog& box) { clickOn(control(box, name)); };
}

// Does what a line of answers.cases says.
void act(QDialog& box, const std::string& deed) {
    const QStringList words = QString::fromStdString(deed).split(u' ');
    if (words[0] == u"click") return clickOn(control(box, qPrintable(words[1])));
    if (words[0] == u"menu") return closeBySystemMenu(box);
    if (words[0] == u"close") return void(box.close());
    for (const QString& key : words.mid(1)) {
        const QKeyCombination pressed = QKeySequence(key)[0];
        press(box, pressed.key(), pressed.keyboardModifiers());
    }
}

std::string answerOf(const std::string& box) {
    if (box == "AskQuestion") return std::to_string(static_cast<int>(AskQuestion("\\f1te saQvayce kay")));
    if (box == "ShowError") return ShowError(11, 3) ? "1" : "0";
    ShowMessage("Latin");
    return "put away";
}

TEST(Boxes, EveryWayToAnswer) {
    for (const Row& row : rowsOf("dialogs/answers.cases")) {
        BoxUser user([&](QDialog& box) { act(box, row[0]); });
        EXPECT_EQ(answerOf(row.title), row[1]) << row;
        EXPECT_TRUE(user.acted()) << row;
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << row;
    }
}

// What a box shows: its title, message and captions, read from the window.
struct Seen {
    std::string title;
    QString message;
    QStringList captions;
    QSize size;
    bool scrolls = false;
};

template <class Show>
Seen see(const char* messageName, Show show) {
    Seen seen;
    BoxUser user([&](QDialog& box) {
        const auto& view = control<RichTextView>(box, messageName);
        seen.title = control<CaptionBar>(box, "captionBar").title().text();
        seen.message = view.text();
        for (const auto* button : box.findChildren<QPushButton*>()) seen.captions.append(button->text());
        seen.size = box.size();
        seen.scrolls = view.verticalScrollBar()->maximum() > 0;
        press(box, Qt::Key_Escape);
    });
    show();
    EXPECT_TRUE(user.acted());
    return seen;
}

TEST(Boxes, TitlesAndCaptions) {
    const Seen message = see("txtMessage", [] { ShowMessage("x"); });
    EXPECT_EQ(message.title, "tolvn beisk"_deva);
    EXPECT_EQ(message.captions, QStringList{toQString("QIk Aahe")});
    const Seen question = see("txtQuestion", [] { AskQuestion("x"); });
    EXPECT_EQ(question.title, "àZn"_deva);
    EXPECT_EQ(question.captions, (QStringList{toQString("hae"), toQString("nahI"), toQString("rÎ"_deva)}));
    const Seen error = see("txtError", [] { ShowError(11, 1); });
    EXPECT_EQ(error.title, "gfbf"_deva);
    EXPECT_EQ(error.captions, (QStringList{toQString("calu Qev"), toQString("wa<bv")}));
}

TEST(Boxes, CutNoTextOff) {
    BoxUser user([](QDialog& box) {
        const auto& bar = control<CaptionBar>(box, "captionBar");
        EXPECT_GE(bar.width(), bar.sizeHint().width());
        for (const auto* button : box.findChildren<QPushButton*>()) {
            const QSize text = button->fontMetrics().size(Qt::TextSingleLine, button->text());
            EXPECT_GT(button->width(), text.width());
            EXPECT_GE(button->height(), text.height());
            EXPECT_TRUE(box.rect().contains(QRect(button->mapTo(&box, QPoint()), button->size())));
        }
        EXPECT_TRUE(QApplication::primaryScreen()->availableGeometry().contains(box.geometry()));
        press(box, Qt::Key_Escape);
    });
    AskQuestion("x");
    EXPECT_TRUE(user.acted());
}

TEST(ShowError, TellsTheTablesTextOrTheLine) {
    const struct {
        std::int32_t number;
        int line;
        std::string_view message;
    } cases[] = {
        {11, 7, "zuNyne -gakar tolvn beiskla krta yet nahI"_deva},
        {75, 7, ")a#lzI s<pkR sax{yat gfbf"_deva},  // with a brace, which is a letter here
        {1008, 7, "yewe { Aapei]t Aahe"_deva},
        {1009, 7, "yewe } Aapei]t Aahe"_deva},
        {12, 7, "tolvn beiskla Aae¦ 7 Cya vaKyrcne mxe gfbf AaF¦lI Aahe"_deva},
        {12, 0, "tolvn beiskla Aae¦ 0 Cya vaKyrcne mxe gfbf AaF¦lI Aahe"_deva},
        {-2147483647 - 1, -1, "tolvn beiskla Aae¦ -1 Cya vaKyrcne mxe gfbf AaF¦lI Aahe"_deva},
    };
    for (const auto& [number, line, message] : cases)
        EXPECT_EQ(see("txtError", [&, n = number, l = line] { ShowError(n, l); }).message, toQString(message))
            << number;
}

TEST(Boxes, ALongMessageScrollsByKeys) {
    std::string text;
    for (int i = 0; i < 5000; ++i) text += "nahI ";
    BoxUser user([&](QDialog& box) {
        QScrollBar& bar = *control<RichTextView>(box, "txtMessage").verticalScrollBar();
        press(box, Qt::Key_PageDown);
        EXPECT_EQ(bar.value(), bar.pageStep());
        press(box, Qt::Key_End);
        EXPECT_EQ(bar.value(), bar.maximum());
        press(box, Qt::Key_PageUp);
        press(box, Qt::Key_Home);
        EXPECT_EQ(bar.value(), 0);
        press(box, Qt::Key_Return);
    });
    ShowMessage(text);
    EXPECT_TRUE(user.acted());
}

// The Roman letter of its caption with Alt presses a button, as an underlined letter would.
TEST(Boxes, AreAnsweredByLetters) {
    const std::pair<Qt::Key, Answer> keys[] = {
        {Qt::Key_H, Answer::Yes}, {Qt::Key_N, Answer::No}, {Qt::Key_R, Answer::Cancel}};
    for (const auto& [key, answer] : keys) {
        BoxUser user([&](QDialog& box) { press(box, key, Qt::AltModifier); });
        EXPECT_EQ(AskQuestion("\\f1kay"), answer);
        EXPECT_TRUE(user.acted());
    }
}

TEST(Boxes, TheMessageCanBeCopied) {
    BoxUser user([&](QDialog& box) {
        press(box, Qt::Key_C, Qt::ControlModifier);
        press(box, Qt::Key_Escape);
    });
    ShowMessage("\\f1nahI\\f0: a\\\\b");
    EXPECT_TRUE(user.acted());
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("नाही: a\\b"));
}

TEST(Boxes, CloseWhenTheApplicationQuits) {
    Answer answer = Answer::Yes;
    BoxUser user([](QDialog&) { QApplication::quit(); });
    QTimer::singleShot(0, [&] { answer = AskQuestion("x"); });
    QApplication::exec();
    EXPECT_EQ(answer, Answer::No);
    EXPECT_TRUE(user.acted());
}

TEST(Boxes, GoWithTheirParent) {
    auto* parent = new QWidget;
    parent->show();
    parent->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(parent));
    BoxUser user([parent](QDialog& box) {
        EXPECT_EQ(box.parentWidget(), parent);
        delete parent;
    });
    EXPECT_EQ(AskQuestion("x"), Answer::No);
    EXPECT_TRUE(user.acted());
}

TEST(Boxes, OneOverTheOther) {
    BoxUser user([](QDialog& outer) {
        BoxUser inner(click("cmdCancel"));
        EXPECT_EQ(AskQuestion("x"), Answer::Cancel);
        EXPECT_TRUE(inner.acted());
        clickOn(control(outer, "cmdNo"));
    });
    EXPECT_EQ(AskQuestion("x"), Answer::No);
    EXPECT_TRUE(user.acted());
}

// The system-information tool is looked for in the program path alone.
class AboutBox : public testing::Test {
  protected:
    AboutBox() : path_(qgetenv("PATH")) { qputenv("PATH", folder_.path().toLocal8Bit()); }
    ~AboutBox() override { qputenv("PATH", path_); }

    std::vector<std::string> pressSystemInformation() {
        ScriptedUser user;
        const ReplacedDialogs replaced(user);
        BoxUser about([](QDialog& box) {
            clickOn(control(box, "cmdSysInfo"));
            EXPECT_TRUE(box.isVisible());
            press(box, Qt::Key_Escape);
        });
        showAbout(nullptr);
        EXPECT_TRUE(about.acted());
        return user.told;
    }

    QTemporaryDir folder_;

  private:
    QByteArray path_;
};

TEST_F(AboutBox, WithoutAToolItSaysSo) {
    EXPECT_THAT(pressSystemInformation(), testing::ElementsAre("\\f0 System Information Is Unavailable At This Time"));
}

#ifdef Q_OS_LINUX
TEST_F(AboutBox, StartsTheToolThatIsInstalled) {
    const QString started = folder_.filePath(QStringLiteral("started"));
    QFile tool(folder_.filePath(QStringLiteral("hardinfo")));
    ASSERT_TRUE(tool.open(QIODevice::WriteOnly));
    tool.write("#!/bin/sh\n: > " + started.toLocal8Bit() + "\n");
    tool.close();
    tool.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_THAT(pressSystemInformation(), testing::IsEmpty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(started); }));
}
#endif

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

}  // namespace
}  // namespace tolvan
