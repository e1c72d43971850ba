// New, open, save and their questions and failures, by the keys of the commands; unsaved text that comes back.
#include "EditorFixture.h"
#include "editor/RecoveryFiles.h"
#include "platform/encoding/Deva.h"

#include <QDateTime>
#include <QDir>
#include <QDropEvent>
#include <QMimeData>

namespace tolvan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view askBeforeNew = "\\f1he àayaejn saQvlele nahI, te saQvayce ka\\f0?"_deva;
constexpr std::string_view askBeforeOpen = "\\f1he àayaejn saQvlele nahI\\f0.\\f1 te saQvayce ka\\f0?"_deva;
constexpr std::string_view askBeforeClose = "\\f1sXyace àayaejn saQvlele nahI AaheŽ te saQvayce ka\\f0?"_deva;

class DocumentTest : public EditorTest {
  protected:
    void drop(const QList<QUrl>& urls, const QString& text = {}) {
        QMimeData data;
        if (!urls.isEmpty()) data.setUrls(urls);
        if (!text.isEmpty()) data.setText(text);
        QWidget* viewport = editor->txtRoman().viewport();
        const QPoint at(2, 2);
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(viewport, &enter);
        QWidget* target = enter.isAccepted() ? viewport : nullptr;
        if (target == nullptr) {
            QApplication::sendEvent(editor.get(), &enter);
            if (enter.isAccepted()) target = editor.get();
        }
        ASSERT_NE(target, nullptr) << "nothing takes the drop";
        QDropEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(target, &event);
        QApplication::processEvents();
    }
    QUrl url(const char* name) const { return QUrl::fromLocalFile(path(name)); }
};

TEST_F(DocumentTest, EveryByteComesBack) {
    QByteArray text;
    for (int round = 0; round < 2; ++round)
        for (int byte = 0; byte < 256; ++byte)
            if (byte != '\n') text += static_cast<char>(byte);
    text += QByteArray(100000, 'k') + "\r\n" + QByteArray("\0\r\r\n\r", 5);
    for (const QByteArray& caption : {QByteArray("nAv \xe0\x9d"), QByteArray()}) {
        writeFile("bytes.tvp", caption + "\r\n" + text);
        ASSERT_TRUE(editor->OpenFile(path("bytes.tvp")));
        EXPECT_EQ(roman(), text.toStdString());
        press(Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(contentOf(path("bytes.tvp")), caption + "\r\n" + text + "\r\n");
    }
}

// What the three commands that throw text away do for each answer.
TEST_F(DocumentTest, UnsavedTextIsAskedFor) {
    writeFile("other.tvp", "other\r\ntext");
    struct Case {
        const char* command;
        std::string_view question;
        int answer;
        QString saveAs;  // the file chosen for saving
        bool goesOn;
        bool saved;
    };
    const Case cases[] = {
        {"FileNew", askBeforeNew, -1, {}, false, false},
        {"FileNew", askBeforeNew, 0, {}, true, false},
        {"FileNew", askBeforeNew, 1, path("kept.tvp"), true, true},
        {"FileNew", askBeforeNew, 1, {}, false, false},
        {"FileOpen", askBeforeOpen, -1, {}, false, false},
        {"FileOpen", askBeforeOpen, 0, {}, true, false},
        {"FileOpen", askBeforeOpen, 1, path("kept.tvp"), true, true},
        {"FileOpen", askBeforeOpen, 1, {}, false, false},
        {"MnuMru1", askBeforeOpen, -1, {}, false, false},
        {"MnuMru1", askBeforeOpen, 0, {}, true, false},
        {"MnuMru1", askBeforeOpen, 1, {}, false, false},
        {"FileExit", askBeforeClose, -1, {}, false, false},
        {"FileExit", askBeforeClose, 1, {}, false, false},
        {"FileExit", askBeforeClose, 1, path("kept.tvp"), true, true},
        {"FileExit", askBeforeClose, 0, {}, true, false},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(std::string(each.command) + " answered " + std::to_string(each.answer));
        open();
        QFile::remove(path("kept.tvp"));
        editor->MruManage(path("other.tvp"));
        type("abc");
        user.answers = {each.answer};
        user.files.clear();
        if (each.answer == 1) user.files.push_back(each.saveAs);
        if (each.goesOn && std::string_view(each.command) == "FileOpen") user.files.push_back(path("other.tvp"));
        EXPECT_TRUE(editor->TopMenu_UserCommand(each.command));
        EXPECT_THAT(user.takeTold(), ElementsAre(std::string(each.question)));
        EXPECT_TRUE(user.files.empty());
        EXPECT_EQ(QFile::exists(path("kept.tvp")), each.saved);
        if (std::string_view(each.command) == "FileExit")
            EXPECT_NE(editor->isVisible(), each.goesOn);
        else
            EXPECT_NE(roman() == "abc", each.goesOn);
    }
}

TEST_F(DocumentTest, DroppedFilesAndTexts) {
    writeFile("PROG.TVP", "\r\ndropped");
    writeFile("a.tvpx", "\r\nno");
    drop({url("PROG.TVP"), url("a.tvpx")});
    EXPECT_THAT(user.takeTold(), ElementsAre(std::string("\\f1@k pe]a jaSt )a#l AaeFta yet nahIt\\f0."_deva)));
    drop({url("a.tvpx")});
    EXPECT_THAT(user.takeTold(),
                ElementsAre(std::string("\\f1tolvn beiskla ýa àakaracI )a#l %tvpxfta yet nahI\\f0."_deva)));
    EXPECT_EQ(roman(), "");
    type("unsaved");
    drop({url("PROG.TVP")});
    EXPECT_THAT(user.told, IsEmpty());
    EXPECT_EQ(roman(), "dropped");
    EXPECT_EQ(title(), QStringLiteral("PROG.TVP"));
    drop({}, QStringLiteral("ek don\n"));
    EXPECT_EQ(roman(), "ek don\r\ndropped");
    EXPECT_EQ(title(), QStringLiteral("PROG.TVP*"));
}

TEST_F(DocumentTest, OldVersionsGoAfterAMonth) {
    const QDir versions(path("versions"));
    EXPECT_TRUE(OldVersions(versions.path()).keepDiscarded({{}, {}, {}, " \r\n"}));
    EXPECT_TRUE(OldVersions(versions.path()).keepDiscarded({{}, {}, {}, "old"}));
    const QDir untitled(versions.filePath(QStringLiteral("Default")));
    QFile copy(untitled.filePath(untitled.entryList(QDir::Files).value(0)));
    ASSERT_TRUE(copy.open(QIODevice::Append));
    copy.setFileTime(QDateTime::currentDateTime().addDays(-31), QFile::FileModificationTime);
    copy.close();
    EXPECT_TRUE(OldVersions(versions.path()).keepDiscarded({path("b.tvp"), {}, {}, "new"}));
    EXPECT_FALSE(untitled.exists());
    EXPECT_EQ(versions.entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 1);
}

TEST_F(DocumentTest, TheFirstProgramIsLookedForAmongTheExamples) {
    writeFile("a.tvp", "\r\nx");
    user.files = {path("a.tvp"), QString()};
    editor->FileOpen();
    EXPECT_TRUE(QFile::exists(user.asked.back().folder + QStringLiteral("/namaskar.tvp")));
    editor->FileOpen();
    EXPECT_EQ(user.asked.back().folder, folder.path());
    editor->FileNew();
    user.files = {QString(), QString()};
    editor->FileOpen();
    EXPECT_EQ(user.asked.back().folder, folder.path()) << "the one used last";
    editor->FileSaveAs();
    EXPECT_EQ(user.asked.back().folder, folder.path());
    QDir(folder.path()).mkdir(QStringLiteral("of"));
    writeFile("of/b.tvp", "\r\nx");
    editor->OpenFile(path("of/b.tvp"));
    editor->MruManage(path("a.tvp"));
    user.files = {QString()};
    editor->FileSaveAs();
    EXPECT_EQ(user.asked.back().folder, path("of")) << "the document's own";
}

// As the user does it: the menu's item, the name, and what another program reads then.
TEST_F(DocumentTest, IsSavedAsUnicodeText) {
    type("jar 1 = 1 tar");
    press(Qt::Key_Return);
    type("dAkhav \"mI ");
    user.files = {path("program.txt")};
    editor->commandBars().item("FileSaveUnicode")->trigger();
    EXPECT_THAT(contentOf(path("program.txt")).toStdString(), testing::HasSubstr("\nजर १ = १ तर\nदाखव \"मी \n"));
    EXPECT_TRUE(user.files.empty());
    EXPECT_EQ(title(), EditorDocument::newTitle + QLatin1Char('*'));  // a copy: the program is still to be saved
    const QByteArray unicode = contentOf(path("program.txt"));
    EXPECT_TRUE(editor->OpenFile(path("program.txt")));
    user.files = {path("program.tvp")};
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(contentOf(path("program.txt")), unicode) << "Roman text goes into another file";
    EXPECT_TRUE(QFile::exists(path("program.tvp")));
}

// See also sessions.cases.
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
