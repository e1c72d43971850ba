#include "BoxUser.h"
#include "dialogs/Dialogs.h"
#include "dialogs/frmAbout.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tolvan {
namespace {

struct Told : DialogAnswers {
    void ShowMessage(std::string_view text) override { message = text; }
    std::string message;
};

// The system-information tool is looked for in the program path alone.
class AboutBox : public testing::Test {
  protected:
    AboutBox() : path_(qgetenv("PATH")) { qputenv("PATH", folder_.path().toLocal8Bit()); }
    ~AboutBox() override { qputenv("PATH", path_); }

    std::string pressSystemInformation() {
        Told told;
        const ReplacedDialogs replaced(told);
        BoxUser user([](QDialog& box) {
            clickOn(control(box, "cmdSysInfo"));
            EXPECT_TRUE(box.isVisible());
            press(box, Qt::Key_Escape);
        });
        showAbout(nullptr);
        EXPECT_TRUE(user.acted());
        return told.message;
    }

    QTemporaryDir folder_;

  private:
    QByteArray path_;
};

TEST_F(AboutBox, WithoutAToolItSaysSo) {
    EXPECT_EQ(pressSystemInformation(), "\\f0 System Information Is Unavailable At This Time");
}

#ifdef Q_OS_LINUX
TEST_F(AboutBox, StartsTheToolThatIsInstalled) {
    const QString started = folder_.filePath(QStringLiteral("started"));
    QFile tool(folder_.filePath(QStringLiteral("hardinfo")));
    ASSERT_TRUE(tool.open(QIODevice::WriteOnly));
    tool.write("#!/bin/sh\n: > " + started.toLocal8Bit() + "\n");
    tool.close();
    tool.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_EQ(pressSystemInformation(), "");
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(started); }));
}
#endif

TEST_F(AboutBox, EnterClosesIt) {
    BoxUser user([](QDialog& box) { press(box, Qt::Key_Return); });
    showAbout(nullptr);
    EXPECT_TRUE(user.acted());
}

}  // namespace
}  // namespace tolvan
