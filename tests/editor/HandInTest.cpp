// Before a program is handed in: it is printed on a sheet, and tried with a task's cases.
#include "EditorFixture.h"
#include "classroom/TarArchive.h"
#include "classroom/Task.h"
#include "editor/frmSheet.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"
#include "platform/richtext/UnicodeText.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTimer>

#include <gmock/gmock.h>

namespace tolvan {
namespace {

class PrintedSheet : public EditorTest {
  protected:
    // Does the command, with the dialog answered by `answer`.
    void print(std::function<void(frmSheet&)> answer) {
        bool shown = false;
        QTimer::singleShot(0, editor.get(), [&] {
            auto* const dialog = qobject_cast<frmSheet*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            shown = true;
            answer(*dialog);
        });
        EXPECT_TRUE(editor->TopMenu_UserCommand("FileSheet"));
        EXPECT_TRUE(shown);
    }
    static QLineEdit& field(frmSheet& dialog, const char* name) {
        return *dialog.findChild<QLineEdit*>(QLatin1String(name));
    }
};

TEST_F(PrintedSheet, HasTheProgramAndItsLastRun) {
    type("dAkhav 5 guNile 5");
    editor->RunStart();
    user.files = {path("sheet.pdf")};
    print([](frmSheet& dialog) {
        QTest::keyClicks(&field(dialog, "txtName"), QStringLiteral("Sita"));
        dialog.findChild<QCheckBox*>(QStringLiteral("chkRoman"))->click();
        QTest::keyClick(&field(dialog, "txtName"), Qt::Key_Return);
    });
    QProcess reader;
    reader.start(QStringLiteral("pdftotext"), {path("sheet.pdf"), QStringLiteral("-")});
    ASSERT_TRUE(reader.waitForFinished()) << "poppler-utils is needed";
    const std::string text = reader.readAllStandardOutput().toStdString();
    for (const char* const part : {"Sita", "दाखव ५ गुणिले ५", "dAkhav 5 guNile 5", "२५"})
        EXPECT_THAT(text, testing::HasSubstr(part));
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("थांबलेले"))) << "what the console says of the end";
    print([](frmSheet& dialog) {
        EXPECT_EQ(field(dialog, "txtName").text(), QStringLiteral("Sita")) << "it is remembered";
        dialog.reject();
    });
    EXPECT_TRUE(user.told.empty());
}

QImage pictureOf(const QString& pdf) {
    QProcess painter;
    painter.start(QStringLiteral("pdftoppm"), {QStringLiteral("-r"), QStringLiteral("50"),
                                               QStringLiteral("-singlefile"), QStringLiteral("-png"), pdf});
    EXPECT_TRUE(painter.waitForFinished()) << "poppler-utils is needed";
    return QImage::fromData(painter.readAllStandardOutput()).convertToFormat(QImage::Format_Grayscale8);
}

TEST_F(PrintedSheet, ComesOutOfThePrinterAsItIsSaved) {
    type("dAkhav #\"#kshetra#\"#");
    editor->RunStart();
    user.files = {path("saved.pdf")};
    print([](frmSheet& dialog) { dialog.findChild<QPushButton*>(QStringLiteral("cmdSave"))->click(); });
    printInto(path("printed.pdf"));
    print([](frmSheet& dialog) { dialog.findChild<QPushButton*>(QStringLiteral("cmdPrint"))->click(); });
    const QImage saved = pictureOf(path("saved.pdf"));
    const QImage printed = pictureOf(path("printed.pdf"));
    ASSERT_GT(saved.width(), 300);
    ASSERT_LE(std::abs(saved.width() - printed.width()), 2);
    int ink = 0;
    int different = 0;
    for (int y = 0; y < std::min(saved.height(), printed.height()); ++y)
        for (int x = 0; x < std::min(saved.width(), printed.width()); ++x) {
            ink += saved.pixelColor(x, y).lightness() < 128 ? 1 : 0;
            different += std::abs(saved.pixelColor(x, y).lightness() - printed.pixelColor(x, y).lightness()) > 160;
        }
    EXPECT_GT(ink, 50);
    EXPECT_LT(different, ink / 2) << "smoothed otherwise, but not elsewhere";
}

using testing::HasSubstr;

class TaskTrial : public EditorTest {
  protected:
    // What is told of the program in the editor, in Unicode; `given` is the task file's content.
    std::string tryWith(const std::string& given) {
        user.files = {writeFile("double.task", QByteArray::fromStdString(given))};
        EXPECT_TRUE(editor->TopMenu_UserCommand("FileCheck"));
        const std::vector<std::string> told = user.takeTold();
        return unicodeOf(readRtf(rtfDocument(told.at(0))).text);
    }
};

TEST_F(TaskTrial, TellsWhichCasesAreRightAndWhy) {
    const std::string task = classroom::writeTar({{"1.in", "4\n"},
                                                  {"1.out", "८\n"},
                                                  {"2.in", "3\n"},
                                                  {"2.out", "उत्तर: 6\n"},
                                                  {"task.ini", "title = दुप्पट (double)\n"}});
    type("ghe A");
    press(Qt::Key_Return);
    type("dAkhav A guNile 2");
    const std::string told = tryWith(task);
    EXPECT_THAT(told, HasSubstr("दुप्पट (double)"));
    EXPECT_THAT(told, HasSubstr("1. बरोबर"));
    EXPECT_THAT(told, HasSubstr("2. चूक"));
    EXPECT_THAT(told, HasSubstr("हवे होते: उत्तर: 6"));
    EXPECT_THAT(told, HasSubstr("छापले: ६"));
    EXPECT_THAT(told, HasSubstr("गुण: १ / २"));
    EXPECT_EQ(roman(), "ghe A\r\ndAkhav A guNile 2") << "the program stays";
    EXPECT_EQ(user.asked.back().suffix, QStringLiteral("task"));
}

TEST_F(TaskTrial, SaysWhatIsNoTask) {
    type("dAkhav 1");
    EXPECT_THAT(tryWith("no archive"), HasSubstr("हा प्रश्न नाही"));
    user.files = {QString()};
    EXPECT_TRUE(editor->TopMenu_UserCommand("FileCheck"));
    EXPECT_TRUE(user.told.empty()) << "the user chose no file";
}

}  // namespace
}  // namespace tolvan
