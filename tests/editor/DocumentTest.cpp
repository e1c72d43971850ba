// New, open, save and their questions and failures, by the keys of the commands.
#include "EditorFixture.h"
#include "platform/encoding/Deva.h"

#include <QDir>
#include <QDropEvent>
#include <QMimeData>

#include <csignal>
#include <sys/resource.h>

namespace tolvan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view askBeforeNew = "\\f1he àayaejn saQvlele nahI, te saQvayce ka\\f0?"_deva;
constexpr std::string_view askBeforeOpen = "\\f1he àayaejn saQvlele nahI\\f0.\\f1 te saQvayce ka\\f0?"_deva;
constexpr std::string_view askBeforeClose = "\\f1sXyace àayaejn saQvlele nahI AaheŽ te saQvayce ka\\f0?"_deva;
constexpr std::string_view noSuchFile = "\\f1 magR sapfla nahI\\f0.\\f1 maigtlele àayaejn AaiStTvat nahI \\f0."_deva;

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

TEST_F(DocumentTest, ANewDocumentIsDirtyOnceAfterTyping) {
    EXPECT_EQ(title(), QStringLiteral("Default.tvp"));
    EXPECT_TRUE(editor->document().path().isEmpty());
    type("ab");
    EXPECT_EQ(title(), QStringLiteral("Default.tvp*"));
    EXPECT_EQ(editor->windowTitle(), QStringLiteral("Default.tvp* - Tolvan Basic"));
}

TEST_F(DocumentTest, SavingAndReopeningAddsOneLineEndEachTime) {
    type("dAkhav 1");
    user.files = {path("a.tvp")};
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(contentOf(path("a.tvp")), QByteArray("\r\ndAkhav 1\r\n"));
    EXPECT_EQ(title(), QStringLiteral("a.tvp"));
    for (const char* behind : {"\r\n", "\r\n\r\n"}) {
        EXPECT_TRUE(editor->OpenFile(path("a.tvp")));
        EXPECT_EQ(title(), QStringLiteral("a.tvp"));
        EXPECT_EQ(roman(), std::string("dAkhav 1").append(behind));
        press(Qt::Key_S, Qt::ControlModifier);
    }
    EXPECT_EQ(user.asked.size(), 1U);
    EXPECT_EQ(user.asked[0].title, QStringLiteral("Save Tolvan Program As..."));
}

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

TEST_F(DocumentTest, ALargeFileOpensAndSaves) {
    QByteArray text;
    while (text.size() < 1024 * 1024) text += "dAkhav \"he\", (saMkhyA + 1)\r\n";
    writeFile("large.tvp", "c\r\n" + text);
    ASSERT_TRUE(editor->OpenFile(path("large.tvp")));
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(contentOf(path("large.tvp")), "c\r\n" + text + "\r\n");
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

TEST_F(DocumentTest, AnUnchangedTextIsNotAskedFor) {
    writeFile("a.tvp", "\r\nx");
    ASSERT_TRUE(editor->OpenFile(path("a.tvp")));
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(roman(), "");
    EXPECT_EQ(title(), QStringLiteral("Default.tvp"));
    EXPECT_TRUE(editor->document().path().isEmpty());
    EXPECT_TRUE(editor->close());
    EXPECT_THAT(user.told, IsEmpty());
}

TEST_F(DocumentTest, FilesThatCannotBeOpenedChangeNothing) {
    const std::string notReadable = "hI )a#l %\"fta AalI nahI";
    writeFile("empty.tvp", "");
    writeFile("oneline.tvp", "no line end");
    QDir(folder.path()).mkdir(QStringLiteral("folder.tvp"));
    type("abc");
    for (const char* name : {"missing.tvp", "folder.tvp"}) {
        EXPECT_FALSE(editor->OpenFile(path(name)));
        EXPECT_THAT(user.takeTold(), ElementsAre(std::string(noSuchFile))) << name;
    }
    for (const char* name : {"empty.tvp", "oneline.tvp"}) {
        EXPECT_FALSE(editor->OpenFile(path(name)));
        EXPECT_THAT(user.takeTold(), ElementsAre(testing::HasSubstr(notReadable))) << name;
    }
    user.files = {QString()};
    EXPECT_FALSE(editor->OpenFile({}));
    EXPECT_EQ(roman(), "abc");
    EXPECT_EQ(title(), QStringLiteral("Default.tvp*"));
    EXPECT_EQ(setting("MRU", "mru1"), QString());
}

// As long as it lives no file can grow beyond some bytes, as on a disk that is full.
class FullDisk {
  public:
    FullDisk() {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit few{4, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &few);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, oldHandler_);
    }

  private:
    rlimit before_{};
    void (*oldHandler_)(int) = std::signal(SIGXFSZ, SIG_IGN);  // a write fails instead
};

TEST_F(DocumentTest, AFullDiskKeepsTheOldFileAndTheDirtyMark) {
    writeFile("a.tvp", "caption\r\nabc\r\n");
    ASSERT_TRUE(editor->OpenFile(path("a.tvp")));
    type("x");
    {
        const FullDisk full;
        press(Qt::Key_S, Qt::ControlModifier);
    }
    EXPECT_THAT(user.takeTold(), testing::SizeIs(1));
    EXPECT_EQ(contentOf(path("a.tvp")), QByteArray("caption\r\nabc\r\n"));
    EXPECT_EQ(title(), QStringLiteral("a.tvp*"));
}

TEST_F(DocumentTest, AFileThatCannotBeWrittenKeepsItsContentAndTheDirtyMark) {
    QDir(folder.path()).mkdir(QStringLiteral("no\\where.tvp"));  // a folder cannot be replaced by a file
    type("abc");
    user.files = {path("no\\where.tvp")};
    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    const std::string doubled = folder.path().toStdString() + "/no\\\\where.tvp";
    EXPECT_THAT(user.takeTold(), ElementsAre(std::string("\\f1tolvn beiskla \\f0"_deva)
                                                 .append(doubled)
                                                 .append(" \\f1hI )a#l saQvta AalI nahI\\f0."_deva)));
    EXPECT_EQ(title(), QStringLiteral("Default.tvp*"));
    EXPECT_TRUE(editor->document().path().isEmpty());

    // Nor is text thrown away that was to be saved.
    user.answers = {1};
    user.files = {path("missing folder/a.tvp")};
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(roman(), "abc");
}

TEST_F(DocumentTest, SavingKeepsPermissionsAndLeavesNothingBeside) {
    writeFile("a.tvp", "\r\nx");
    QFile::setPermissions(path("a.tvp"), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
    const QFile::Permissions before = QFile::permissions(path("a.tvp"));
    ASSERT_TRUE(editor->OpenFile(path("a.tvp")));
    type("y");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(contentOf(path("a.tvp")), QByteArray("\r\nyx\r\n"));
    EXPECT_EQ(QFile::permissions(path("a.tvp")), before);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("a.tvp")});
}

TEST_F(DocumentTest, AChangeOnDiskIsNoticed) {
    writeFile("a.tvp", "\r\nx");
    ASSERT_TRUE(editor->OpenFile(path("a.tvp")));
    frmEditor second(state, settings);
    ASSERT_TRUE(second.OpenFile(path("a.tvp")));
    QTest::keyClicks(&second.txtRoman(), QStringLiteral("second "));
    second.FileSave();
    EXPECT_THAT(user.told, IsEmpty());

    type("first ");
    user.answers = {0, 1};
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(user.takeTold(), testing::SizeIs(1));
    EXPECT_EQ(title(), QStringLiteral("a.tvp*"));
    EXPECT_EQ(contentOf(path("a.tvp")), QByteArray("\r\nsecond x\r\n"));
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(user.takeTold(), testing::SizeIs(1));
    EXPECT_EQ(contentOf(path("a.tvp")), QByteArray("\r\nfirst x\r\n"));

    user.answers = {};
    type("more ");
    press(Qt::Key_S, Qt::ControlModifier);
    QFile::remove(path("a.tvp"));  // a file that is gone is no one's change
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(user.told, IsEmpty());
    EXPECT_EQ(contentOf(path("a.tvp")), QByteArray("\r\nfirst more x\r\n"));
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

TEST_F(DocumentTest, TheFirstProgramIsLookedForAmongTheExamples) {
    writeFile("a.tvp", "\r\nx");
    user.files = {path("a.tvp"), QString()};
    editor->FileOpen();
    EXPECT_TRUE(QFile::exists(user.asked.back().folder + QStringLiteral("/namaskar.tvp")));
    editor->FileOpen();
    EXPECT_EQ(user.asked.back().folder, startFolder());
}

TEST_F(DocumentTest, TheRecentFilesAreKeptAcrossStarts) {
    for (const char* name : {"a.tvp", "b.tvp", "c.tvp", "d.tvp", "e.tvp"}) writeFile(name, "\r\nx");
    const auto shown = [this] {
        QStringList captions;
        for (int slot = 1; slot <= 4; ++slot) {
            const QAction* action = editor->commandBars().item(qPrintable(QStringLiteral("MnuMru%1").arg(slot)));
            if (action->isVisible()) captions += action->text().replace(folder.path() + QLatin1Char('/'), QString());
        }
        EXPECT_EQ(editor->commandBars().item("mnuSeperator4")->isVisible(), !captions.isEmpty());
        return captions.join(QLatin1Char(' '));
    };
    EXPECT_EQ(shown(), QString());
    const struct {
        const char* opened;
        const char* expected;
    } steps[] = {
        {"a.tvp", "&1:a.tvp"},
        {"a.tvp", "&1:a.tvp"},
        {"b.tvp", "&1:b.tvp &2:a.tvp"},
        {"a.tvp", "&1:a.tvp &2:b.tvp"},
        {"c.tvp", "&1:c.tvp &2:a.tvp &3:b.tvp"},
        {"b.tvp", "&1:b.tvp &2:c.tvp &3:a.tvp"},
        {"d.tvp", "&1:d.tvp &2:b.tvp &3:c.tvp &4:a.tvp"},
        {"a.tvp", "&1:a.tvp &2:d.tvp &3:b.tvp &4:c.tvp"},
        {"e.tvp", "&1:e.tvp &2:a.tvp &3:d.tvp &4:b.tvp"},
    };
    for (const auto& [opened, expected] : steps) {
        editor->OpenFile(path(opened));
        EXPECT_EQ(shown(), QLatin1String(expected)) << opened;
    }
    open();
    EXPECT_EQ(shown(), QLatin1String(steps[8].expected));
    QFile::remove(path("d.tvp"));
    editor->MnuMru3();
    EXPECT_THAT(user.takeTold(), ElementsAre(std::string(noSuchFile)));
    EXPECT_EQ(shown(), QLatin1String(steps[8].expected));
    editor->MnuMru4();
    EXPECT_EQ(title(), QStringLiteral("b.tvp"));
    EXPECT_EQ(shown(), QStringLiteral("&1:b.tvp &2:e.tvp &3:a.tvp &4:d.tvp"));
}

}  // namespace
}  // namespace tolvan
