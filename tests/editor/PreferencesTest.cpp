#include "EditorFixture.h"
#include "shell/SettingsReader.h"
#include "shell/frmPreferences.h"

#include <QCheckBox>

namespace tolvan {
namespace {

TEST_F(EditorTest, RunPreferencesAreOnUntilTheyAreSwitchedOff) {
    readPreferences(settings, state);
    EXPECT_TRUE(state.SaveBeforeExecute && state.FormatBeforeExecute);
    frmPreferences preferences(*editor);
    preferences.show();
    auto& save = *preferences.findChild<QCheckBox*>(QStringLiteral("chkSaveBeforeExecute"));
    const auto click = [&](const char* name) {
        QTest::mouseClick(preferences.findChild<QWidget*>(QLatin1String(name)), Qt::LeftButton);
    };
    EXPECT_TRUE(save.isChecked());
    QTest::mouseClick(&save, Qt::LeftButton, {}, QPoint(6, 10));
    EXPECT_TRUE(state.SaveBeforeExecute);
    click("cmdApply");
    EXPECT_TRUE(preferences.isVisible());
    EXPECT_FALSE(state.SaveBeforeExecute);
    EXPECT_TRUE(state.FormatBeforeExecute);
    EXPECT_EQ(setting("Settings", "SaveBeforeExecute"), QStringLiteral("0"));
    EXPECT_EQ(setting("Settings", "FormatBeforeExecute"), QStringLiteral("1"));
    QTest::mouseClick(&save, Qt::LeftButton, {}, QPoint(6, 10));
    click("cmdOK");
    EXPECT_FALSE(preferences.isVisible());
    EXPECT_TRUE(state.SaveBeforeExecute);
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
