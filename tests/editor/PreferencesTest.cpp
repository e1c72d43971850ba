#include "EditorFixture.h"
#include "dialogs/RichTextView.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"
#include "shell/SettingsReader.h"
#include "shell/frmPreferences.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

namespace tolvan {
namespace {

class PreferencesTest : public EditorTest {
  protected:
    PreferencesTest() {
        readPreferences(settings, state);
        showAgain();
    }
    void showAgain() {
        preferences = std::make_unique<frmPreferences>(*editor);
        preferences->show();
        preferences->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(preferences.get()));
    }
    template <class Control>
    Control& control(const char* name) const {
        return *preferences->findChild<Control*>(QLatin1String(name));
    }
    void click(const char* name) const { QTest::mouseClick(&control<QPushButton>(name), Qt::LeftButton); }
    void check(const char* name) const {
        QTest::mouseClick(&control<QCheckBox>(name), Qt::LeftButton, {}, QPoint(6, 10));
    }
    void enterCaption(const char* text) const {
        control<QTabWidget>("SSTab1").setCurrentIndex(1);
        control<QLineEdit>("txtCaption").clear();
        QTest::keyClicks(&control<QLineEdit>("txtCaption"), QLatin1String(text));
    }

    std::unique_ptr<frmPreferences> preferences;
};

TEST_F(PreferencesTest, RunPreferencesAreOnUntilTheyAreSwitchedOff) {
    EXPECT_TRUE(state.SaveBeforeExecute && state.FormatBeforeExecute);
    EXPECT_TRUE(control<QCheckBox>("chkSaveBeforeExecute").isChecked());
    check("chkSaveBeforeExecute");
    EXPECT_TRUE(state.SaveBeforeExecute);
    click("cmdApply");
    EXPECT_TRUE(preferences->isVisible());
    EXPECT_FALSE(state.SaveBeforeExecute);
    EXPECT_TRUE(state.FormatBeforeExecute);
    EXPECT_EQ(setting("Settings", "SaveBeforeExecute"), QStringLiteral("0"));
    EXPECT_EQ(setting("Settings", "FormatBeforeExecute"), QStringLiteral("1"));
    check("chkSaveBeforeExecute");
    click("cmdOK");
    EXPECT_FALSE(preferences->isVisible());
    EXPECT_EQ(setting("Settings", "SaveBeforeExecute"), QStringLiteral("1"));
    EXPECT_TRUE(state.SaveBeforeExecute);
}

TEST_F(PreferencesTest, AQuoteBringsItsSpanUnlessThatIsSwitchedOff) {
    preferences->close();
    toFront();
    type("\"");
    EXPECT_EQ(roman(), "#\"#");
    showAgain();
    check("chkPairQuotes");
    click("cmdOK");
    toFront();
    press(Qt::Key_A, Qt::ControlModifier);
    type("\"");
    EXPECT_EQ(roman(), "\"");
    EXPECT_EQ(setting("Settings", "PairQuotes"), QStringLiteral("0"));
}

TEST_F(PreferencesTest, CancellingChangesNothing) {
    check("chkFormatBeforeExecute");
    enterCaption("navin");
    click("cmdCancel");
    EXPECT_FALSE(preferences->isVisible());
    EXPECT_EQ(setting("Settings", "FormatBeforeExecute"), QString());
    EXPECT_EQ(state.run.ProgramCaption, "");
    EXPECT_EQ(title(), QStringLiteral("Default.tvp"));
}

TEST_F(PreferencesTest, AnotherCaptionMakesTheDocumentDirtyOnce) {
    enterCaption("nAv 1.2");
    EXPECT_EQ(control<RichTextView>("lblCaptionDevnag").text().trimmed(), toQString("nav 1.2"_deva));
    click("cmdApply");
    click("cmdApply");
    EXPECT_EQ(state.run.ProgramCaption, "nAv 1.2");
    EXPECT_EQ(title(), QStringLiteral("Default.tvp*"));
    EXPECT_EQ(editor->windowTitle(), QStringLiteral("Default.tvp* - Tolvan Basic"));
    user.files = {path("a.tvp")};
    editor->FileSave();
    EXPECT_EQ(user.asked.back().name, QStringLiteral("nAv 1.2"));
    EXPECT_EQ(contentOf(path("a.tvp")), QByteArray("nAv 1.2\r\n\r\n"));
}

// A box of one line cannot show every caption; pressing OK must not change one that it cannot show.
TEST_F(PreferencesTest, ACaptionThatWasNotTouchedStays) {
    writeFile("odd.tvp", QByteArray("a\x01\rb\0c\t", 7) + "\r\nx");
    ASSERT_TRUE(editor->OpenFile(path("odd.tvp")));
    const std::string before = state.run.ProgramCaption;
    showAgain();
    click("cmdOK");
    EXPECT_EQ(state.run.ProgramCaption, before);
    EXPECT_EQ(title(), QStringLiteral("odd.tvp"));
}

TEST_F(PreferencesTest, TheRecentFilesAreClearedAfterAQuestion) {
    editor->MruManage(path("a.tvp"));
    user.answers = {0, -1, 1};
    click("cmdClearMRU");
    click("cmdClearMRU");
    EXPECT_EQ(setting("MRU", "mru1"), path("a.tvp"));
    EXPECT_TRUE(editor->commandBars().item("MnuMru1")->isVisible());
    click("cmdClearMRU");
    EXPECT_EQ(setting("MRU", "mru1"), QString());
    EXPECT_FALSE(editor->commandBars().item("MnuMru1")->isVisible());
    EXPECT_EQ(user.told[0], "\\f1nu®yac vaprleLya )a#lI—cI yadI pusaycI ka\\f0?"_deva);
}

TEST(Settings, TextsThatAreYesAndNo) {
    const struct {
        const char* text;
        bool otherwise;
        bool expected;
    } cases[] = {{"1", false, true},     {"True", false, true}, {"true", false, true}, {"0", true, false},
                 {"False", true, false}, {"", true, true},      {"", false, false},    {"perhaps", true, true}};
    for (const auto& [text, otherwise, expected] : cases)
        EXPECT_EQ(readSetting(QLatin1String(text), otherwise), expected) << text;
}

TEST(Settings, AnUnreadableFileGivesTheDefaults) {
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("s.conf")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("\0\xff[Settings\nSaveBeforeExecute", 30));
    file.close();
    const Settings settings(file.fileName());
    EditorState state{.run = {}, .SaveBeforeExecute = false, .FormatBeforeExecute = false};
    readPreferences(settings, state);
    EXPECT_TRUE(state.SaveBeforeExecute && state.FormatBeforeExecute);
}

}  // namespace
}  // namespace tolvan
