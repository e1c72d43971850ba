// Unsaved text that comes back after a crash; see also sessions.cases.
#include "EditorFixture.h"
#include "editor/RecoveryFiles.h"

#include <QDateTime>
#include <QDir>

namespace tolvan {
namespace {

TEST_F(EditorTest, TheUnsavedTextOfALivingWindowIsNotOffered) {
    type("alive");
    const QDir copies(settings.folder());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !copies.entryList({QStringLiteral("unsaved-*.tvp")}).isEmpty(); }));
    frmEditor second(state, settings);
    second.offerRecovery();
    EXPECT_THAT(user.told, testing::IsEmpty());
    EXPECT_EQ(second.txtRoman().text(), "");
}

TEST(Recovery, UnreadableCopiesGoWhenTheyAreOld) {
    const QTemporaryDir folder;
    for (const char* name : {"/unsaved-1.tvp", "/unsaved-2.tvp"}) {
        QFile file(folder.path() + QLatin1String(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        const int days = name[9] == '1' ? 29 : 32;
        EXPECT_TRUE(file.setFileTime(QDateTime::currentDateTime().addDays(-days), QFileDevice::FileModificationTime));
    }
    EXPECT_TRUE(RecoveryFiles(folder.path()).takeLeft().empty());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("unsaved-1.tvp")});
}

TEST(Recovery, ACopyHoldsAnyText) {
    UnsavedText unsaved{QStringLiteral("/a b/\u0905\n%.tvp"), QByteArray("\0\n\xff", 3), "caption", {}};
    for (int byte = 255; byte >= 0; --byte) unsaved.text += static_cast<char>(byte);
    unsaved.text += "\r\n\r\n";
    unsaved.text.erase(unsaved.text.find('\n'), 1);  // a bare line feed is read as a line end
    const auto read = readRecovery(writeRecovery(unsaved));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->path, unsaved.path);
    EXPECT_EQ(read->fingerprint, unsaved.fingerprint);
    EXPECT_EQ(read->caption, unsaved.caption);
    EXPECT_EQ(read->text, unsaved.text);
}

}  // namespace
}  // namespace tolvan
