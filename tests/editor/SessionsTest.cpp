// Sessions of a user with the editor: what is done by keys and mouse, and what must then be seen. They stand in
// sessions.cases.
#include "EditorFixture.h"
#include "dialogs/RichTextView.h"
#include "editor/panes/CompletionList.h"
#include "platform/fonts/FontEncoding.h"
#include "shell/SettingsReader.h"
#include "shell/frmPreferences.h"
#include "support/Cases.h"

#include <QClipboard>
#include <QDir>
#include <QLineEdit>
#include <QTabWidget>

#include <algorithm>
#include <map>

namespace tolvan {
namespace {

bool canBeReadByOthers([[maybe_unused]] const QString& file) {
#ifdef _WIN32  // where the user's folder keeps others out
    return false;
#else
    return (QFile::permissions(file) & (QFile::ReadGroup | QFile::ReadOther)) != 0;
#endif
}

bool canBeFollowed([[maybe_unused]] const Section& session) {
#ifdef _WIN32  // where names of files have no stars
    return !session.title.starts_with("A star in the name");
#else
    return true;
#endif
}

class SessionTest : public EditorTest, public testing::WithParamInterface<Section> {
  protected:
    SessionTest() {
        readPreferences(settings, state);
        QDir::setCurrent(folder.path());
    }
    ~SessionTest() override { QDir::setCurrent(QDir::rootPath()); }

    void follow(const std::string& line) {
        SCOPED_TRACE(line);
        constexpr std::string_view then = " ⇒ ";
        if (line.starts_with("= ")) return expect(line.substr(2));
        const std::size_t end = line.find(then);
        forEachPart(line.substr(0, end),
                    [this](const std::string& what, const std::string& rest) { known(deeds_, what)(rest); });
        if (end != std::string::npos) expect(line.substr(end + then.size()));
    }

  private:
    using Deed = std::function<void(const std::string&)>;
    using View = std::function<std::string(const std::string&)>;

    // Calls `part(word that says what, what stands behind it)`.
    template <class Part>
    static void forEachPart(const std::string& line, const Part& part) {
        constexpr std::string_view separator = " ; ";
        for (std::size_t start = 0, end = 0; end != std::string::npos; start = end + separator.size()) {
            end = line.find(separator, start);
            const std::string words = line.substr(start, end - start);
            part(beforeBlank(words), bytesOf(words.substr(std::min(words.find(' '), words.size() - 1) + 1)));
        }
    }
    void expect(const std::string& views) {
        forEachPart(views, [this](const std::string& what, const std::string& rest) {
            const View& view = known(views_, what);
            if (what == "file" || what == "shown" || what == "label" || what == "field")
                EXPECT_EQ(view(beforeBlank(rest)), behindBlank(rest)) << what;
            else
                EXPECT_EQ(view(rest), rest) << what;
        });
    }
    template <class Table>
    static const typename Table::mapped_type& known(const Table& table, const std::string& what) {
        const auto found = table.find(what);
        if (found == table.end()) throw std::runtime_error("a session has no word " + what);
        return found->second;
    }
    static std::string beforeBlank(const std::string& text) { return text.substr(0, text.find(' ')); }
    static std::string behindBlank(const std::string& text) {
        return text.substr(std::min(text.find(' '), text.size() - 1) + 1);
    }
    // By its name, in any window.
    template <class Control = QWidget>
    static Control& control(const std::string& name) {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* found = window->findChild<Control*>(QString::fromStdString(name)); found) return *found;
        throw std::runtime_error("no control " + name);
    }
    static void enter(const std::string& name, const std::string& text) {
        control<QLineEdit>(name).clear();
        QTest::keyClicks(&control<QLineEdit>(name), toQString(text));
    }
    void showPreferences() {
        preferences_ = std::make_unique<frmPreferences>(*editor);
        preferences_->show();
        preferences_->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(preferences_.get()));
    }
    // The next start finds what the old window left.
    void crash() {
        editor.reset();
        open();
        state.run.ProgramCaption.clear();
    }
    QStringList copies() const {
        return QDir(settings.folder()).entryList({QStringLiteral("unsaved-*.tvp")}, QDir::Files);
    }
    // Of a program, or "... unsaved" for its discarded texts; the newest first.
    QStringList oldVersions(const std::string& which) const {
        const bool discarded = which.ends_with(" unsaved");
        QDir versions(settings.folder() + QStringLiteral("/old-versions"));
        const QString program = QString::fromStdString(beforeBlank(which)) + u'*';
        QStringList files;
        for (const QString& name : versions.entryList({program}, QDir::Dirs | QDir::NoDotAndDotDot)) {
            const QDir copies(versions.filePath(name));
            for (const QString& copy : copies.entryList(QDir::Files, QDir::Name | QDir::Reversed))
                if (copy.contains(QStringLiteral("unsaved")) == discarded) files += copies.filePath(copy);
        }
        return files;
    }
    bool isKept(const std::string& text) const {
        const auto holds = [&](const QString& copy) {
            const QString file = settings.folder() + u'/' + copy;
            if (!contentOf(file).contains(QByteArray::fromStdString(text))) return false;
            EXPECT_FALSE(canBeReadByOthers(file)) << copy.toStdString();
            return true;
        };
        const QStringList all = copies();
        return std::any_of(all.begin(), all.end(), holds);
    }
    CompletionList& suggestions() const { return *editor->findChild<CompletionList*>(); }
    std::string recentFiles() const {
        std::string names;
        for (const char* slot : {"MnuMru1", "MnuMru2", "MnuMru3", "MnuMru4"})
            if (const QAction* item = editor->commandBars().item(slot); item->isVisible())
                names.append(names.empty() ? "" : " ").append(QFileInfo(item->text()).fileName().toStdString());
        EXPECT_EQ(editor->commandBars().item("mnuSeperator4")->isVisible(), !names.empty());
        return names;
    }

    std::unique_ptr<frmPreferences> preferences_;
    const std::map<std::string, Deed> deeds_ = {
        {"type", [this](const std::string& text) { type(text.c_str()); }},
        {"press",
         [this](const std::string& keys) {
             const QKeyCombination key = QKeySequence(QString::fromStdString(keys))[0];
             press(key.key(), key.keyboardModifiers());
         }},
        {"select",
         [this](const std::string& span) {
             editor->txtRoman().select(std::stoul(beforeBlank(span)), std::stoul(behindBlank(span)));
         }},
        {"write",
         [this](const std::string& file) {
             writeFile(beforeBlank(file).c_str(), QByteArray::fromStdString(behindBlank(file)));
         }},
        {"folder", [this](const std::string& name) { QDir(folder.path()).mkdir(QString::fromStdString(name)); }},
        {"remove", [](const std::string& name) { QFile::remove(QString::fromStdString(name)); }},
        {"open", [this](const std::string& name) { editor->OpenFile(path(name.c_str())); }},
        {"command", [this](const std::string& key) { EXPECT_TRUE(editor->TopMenu_UserCommand(key.c_str())); }},
        {"answer", [this](const std::string& answer) { user.answers.push_back(std::stoi(answer)); }},
        {"choose",
         [this](const std::string& name) {
             if (name.starts_with("old "))
                 user.files.push_back(oldVersions(name.substr(4)).value(0));
             else
                 user.files.push_back(name.empty() ? QString() : path(name.c_str()));
         }},
        {"restart", [this](const std::string&) { open(); }},
        {"crash", [this](const std::string&) { crash(); }},
        {"recover", [this](const std::string&) { editor->offerRecovery(); }},
        {"wait", [](const std::string& milliseconds) { QTest::qWait(std::stoi(milliseconds)); }},
        {"front", [this](const std::string&) { toFront(); }},
        {"preferences", [this](const std::string&) { showPreferences(); }},
        {"click", [](const std::string& name) { QTest::mouseClick(&control(name), Qt::LeftButton); }},
        {"key",
         [](const std::string& what) {
             const QKeyCombination key = QKeySequence(QString::fromStdString(behindBlank(what)))[0];
             QTest::keyClick(control(beforeBlank(what)).window()->windowHandle(), key.key(), key.keyboardModifiers());
         }},
        {"tick",
         [](const std::string& name) {
             QTest::mouseClick(&control(name), Qt::LeftButton, {}, {6, 10});
         }},
        {"pick",
         [this](const std::string& row) {
             CompletionList& list = suggestions();
             const QRect item = list.visualItemRect(list.item(std::stoi(row), 2));
             QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, item.center());
         }},
        {"clipboard", [](const std::string& text) { QApplication::clipboard()->setText(toQString(text)); }},
        {"page", [](const std::string& page) { control<QTabWidget>("SSTab1").setCurrentIndex(std::stoi(page)); }},
        {"enter", [](const std::string& text) { enter(beforeBlank(text), behindBlank(text)); }},
    };
    const std::map<std::string, View> views_ = {
        {"text", [this](const std::string&) { return roman(); }},
        {"title", [this](const std::string&) { return title().toStdString(); }},
        {"caption", [this](const std::string&) { return state.run.ProgramCaption; }},
        {"selection",
         [this](const std::string&) {
             const RomanBox& box = editor->txtRoman();
             return std::to_string(box.selectionStart()) + " " + std::to_string(box.selectionLength());
         }},
        {"told",
         [this](const std::string&) {
             std::string told;
             for (const std::string& text : user.takeTold()) told += text;
             const std::string here = folder.path().toStdString() + "/";
             if (const std::size_t found = told.find(here); found != std::string::npos) told.erase(found, here.size());
             return told;
         }},
        {"suggestions",
         [this](const std::string&) {
             return suggestions().isVisible() ? std::to_string(suggestions().rowCount()) : "none";
         }},
        {"clipboard", [](const std::string&) { return toFontEncoded(QApplication::clipboard()->text()); }},
        {"panel1", [this](const std::string&) { return toFontEncoded(panel("panel1")); }},
        {"panel3", [this](const std::string&) { return toFontEncoded(panel("panel3")); }},
        {"label", [](const std::string& name) { return toFontEncoded(control<QLabel>(name).text()); }},
        {"field", [](const std::string& name) { return toFontEncoded(control<QLineEdit>(name).text()); }},
        // The work comes to an end by itself, a moment after the last key.
        {"panel2",
         [this](const std::string& expected) {
             const auto shown = [this] { return toFontEncoded(panel("panel2")); };
             return QTest::qWaitFor([&] { return shown() == expected; }, 5000) ? expected : shown();
         }},
        {"asked", [this](const std::string&) { return std::to_string(user.takeTold().size()); }},
        {"old",
         [this](const std::string& words) {
             // Up to the texts, which begin with their caption's line.
             const std::string which = words.substr(0, std::min(words.find(" \r"), words.size()));
             std::string texts;
             for (const QString& copy : oldVersions(which))
                 texts.append(texts.empty() ? " " : "|").append(contentOf(copy).toStdString());
             return which + texts;
         }},
        {"copies", [this](const std::string&) { return std::to_string(copies().size()); }},
        {"kept",
         [this](const std::string& text) {
             return QTest::qWaitFor([&] { return isKept(text); }, 5000) ? text : "not " + text;
         }},
        {"recent", [this](const std::string&) { return recentFiles(); }},
        {"visible", [](const std::string& name) { return control(name).isVisible() ? name : name + " is not"; }},
        {"hidden", [](const std::string& name) { return control(name).isVisible() ? name + " is not" : name; }},
        {"shown", [](const std::string& name) { return toFontEncoded(control<RichTextView>(name).text().trimmed()); }},
        {"file", [this](const std::string& name) { return contentOf(path(name.c_str())).toStdString(); }},
        {"setting",
         [this](const std::string& words) {
             const QStringList names = QString::fromStdString(words).split(u' ');
             return words.substr(0, words.find(' ', words.find(' ') + 1)) + " " +
                    settings.GetSetting(names.at(0), names.at(1)).toStdString();
         }},
    };
};

TEST_P(SessionTest, ShowsWhatItShould) {
    if (!canBeFollowed(GetParam())) GTEST_SKIP();
    for (const std::string& line : GetParam().lines)
        if (!line.empty()) follow(line);
    EXPECT_TRUE(user.answers.empty() && user.files.empty()) << "questions that were not asked";
    EXPECT_THAT(user.told, testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(, SessionTest, testing::ValuesIn(sectionsOf("editor/sessions.cases")),
                         [](const auto& test) { return test.param.testName(); });

TEST(Settings, TextsThatAreYesAndNo) {
    const struct {
        const char* text;
        bool otherwise;
        bool expected;
    } cases[] = {{"-1", false, true},   {"1", false, true}, {"True", false, true},
                 {"true", false, true}, {"0", true, false}, {"False", true, false},
                 {"", true, true},      {"", false, false}, {"perhaps", true, true}};
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
