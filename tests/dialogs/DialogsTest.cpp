#include "BoxUser.h"
#include "dialogs/CaptionBar.h"
#include "dialogs/Dialogs.h"
#include "dialogs/MessageDialog.h"
#include "dialogs/RichTextView.h"
#include "dialogs/frmErrorBox.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"
#include "support/Cases.h"

#include <QClipboard>
#include <QKeySequence>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>

#include <gtest/gtest.h>

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

TEST(Boxes, GrowWithTheTextAndThenScroll) {
    std::string text;
    const auto sizeOf = [&](int words) {
        for (text.clear(); words > 0; --words) text += "\\f1nahI "_deva;
        return see("txtMessage", [&] { ShowMessage(text); });
    };
    const Seen one = sizeOf(1), some = sizeOf(6), more = sizeOf(40), many = sizeOf(5000);
    EXPECT_GT(some.size.width(), one.size.width());
    EXPECT_GT(more.size.height(), some.size.height());
    EXPECT_FALSE(more.scrolls);
    EXPECT_TRUE(many.scrolls);
    const QSize screen = QApplication::primaryScreen()->availableSize();
    EXPECT_LT(many.size.height(), screen.height());
    EXPECT_LT(many.size.width(), screen.width());
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

TEST(Boxes, AreReplacedForAWhile) {
    struct : DialogAnswers {
        Answer AskQuestion(std::string_view text) override { return text == "-"_deva ? Answer::Cancel : Answer::Yes; }
    } canned;
    {
        const ReplacedDialogs replaced(canned);
        EXPECT_EQ(AskQuestion("-"), Answer::Cancel);
    }
    BoxUser user(click("cmdNo"));
    EXPECT_EQ(AskQuestion("-"), Answer::No);
    EXPECT_TRUE(user.acted());
}

}  // namespace
}  // namespace tolvan
