#include "EditorFixture.h"
#include "shell/SettingsReader.h"

namespace tolvan {
namespace {

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
