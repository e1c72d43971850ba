// Unsaved text comes back after a crash: a window that is forgotten without a word stands for one that crashed.
#include "EditorFixture.h"
#include "editor/RecoveryFiles.h"

#include <QDir>

namespace tolvan {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class RecoveryTest : public EditorTest {
  protected:
    QStringList copies() const {
        return QDir(settings.folder()).entryList({QStringLiteral("unsaved-*.tvp")}, QDir::Files);
    }
    bool isKept(const QByteArray& text) const {
        for (const QString& copy : copies())
            if (contentOf(settings.folder() + QLatin1Char('/') + copy).contains(text)) return true;
        return false;
    }
    bool becomesKept(const QByteArray& text) const {
        return QTest::qWaitFor([&] { return isKept(text); }, 5000);
    }
    // The next start; the user answers the offers.
    void restart(std::deque<int> answers) {
        editor.reset();
        open();
        user.takeTold();
        user.answers = std::move(answers);
        editor->offerRecovery();
        EXPECT_THAT(user.answers, IsEmpty());
    }
};

TEST_F(RecoveryTest, TextIsBackAfterACrashWithItsFile) {
    writeFile("a.tvp", "nAv\r\nx");
    ASSERT_TRUE(editor->OpenFile(path("a.tvp")));
    EXPECT_THAT(copies(), IsEmpty());
    type("typed ");
    ASSERT_TRUE(becomesKept("typed x"));
    state.run.ProgramCaption.clear();
    restart({1});
    EXPECT_THAT(user.told[0], testing::HasSubstr("a.tvp"));
    EXPECT_EQ(roman(), "typed x");
    EXPECT_EQ(title(), QStringLiteral("a.tvp*"));
    EXPECT_EQ(editor->document().caption(), "nAv");
    editor->FileSave();
    EXPECT_EQ(contentOf(path("a.tvp")), QByteArray("nAv\r\ntyped x\r\n"));
    EXPECT_THAT(copies(), IsEmpty());
    restart({});
    EXPECT_EQ(roman(), "");
}

TEST_F(RecoveryTest, AChangeOnDiskSinceTheCrashIsNoticed) {
    writeFile("a.tvp", "\r\nx");
    ASSERT_TRUE(editor->OpenFile(path("a.tvp")));
    type("typed ");
    ASSERT_TRUE(becomesKept("typed x"));
    writeFile("a.tvp", "\r\nchanged");
    restart({1});
    user.answers = {0};
    editor->FileSave();
    EXPECT_EQ(contentOf(path("a.tvp")), QByteArray("\r\nchanged"));
}

TEST_F(RecoveryTest, DiscardedTextStaysUntilTheNextSave) {
    const std::function<void()> discards[] = {
        [this] { editor->FileNew(); },
        [this] { editor->close(); },
    };
    for (const auto& discard : discards) {
        type("discarded");
        user.answers = {0};
        discard();
        EXPECT_TRUE(isKept("discarded"));
        restart({0});  // still there after another no
        EXPECT_TRUE(isKept("discarded"));
        restart({1});
        EXPECT_EQ(roman(), "discarded");
        user.files = {path("saved.tvp")};
        editor->FileSave();
        EXPECT_THAT(copies(), IsEmpty());
        editor->FileNew();
    }
    type("dropped over");  // by a command that asks no question
    writeFile("b.tvp", "\r\nb");
    editor->OpenFile(path("b.tvp"));
    EXPECT_TRUE(isKept("dropped over"));
}

TEST_F(RecoveryTest, AnEmptiedTextNeverReplacesTheCopy) {
    type("full text");
    ASSERT_TRUE(becomesKept("full text"));
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    QTest::qWait(2500);
    EXPECT_TRUE(isKept("full text"));
    type("new");
    ASSERT_TRUE(becomesKept("new"));
    EXPECT_TRUE(isKept("full text"));
}

TEST_F(RecoveryTest, TheCopyOfALivingWindowIsNotOffered) {
    type("alive");
    ASSERT_TRUE(becomesKept("alive"));
    frmEditor second(state, settings);
    second.offerRecovery();
    EXPECT_THAT(user.told, IsEmpty());
    EXPECT_EQ(second.txtRoman().text(), "");
}

TEST_F(RecoveryTest, DamagedCopiesAreLeftAlone) {
    QDir().mkpath(settings.folder());
    writeFile("settings/unsaved-1.tvp", "anything");
    writeFile("settings/unsaved-2.tvp", "");
    restart({});
    type("typed");
    ASSERT_TRUE(becomesKept("typed"));
    EXPECT_THAT(copies(), SizeIs(3));
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
