// The sheet that is handed in on paper, from the File menu.
#include "EditorFixture.h"
#include "editor/frmSheet.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QProcess>
#include <QTimer>

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

}  // namespace
}  // namespace tolvan
