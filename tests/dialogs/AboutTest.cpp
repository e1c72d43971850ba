#include "BoxUser.h"
#include "dialogs/frmAbout.h"
#include "support/ScriptedUser.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace tolvan {
namespace {

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

TEST_F(AboutBox, EnterClosesIt) {
    BoxUser user([](QDialog& box) { press(box, Qt::Key_Return); });
    showAbout(nullptr);
    EXPECT_TRUE(user.acted());
}

}  // namespace
}  // namespace tolvan
