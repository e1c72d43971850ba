// A whole editor window with a folder of its own for settings and files, and a user whose answers are given beforehand.
#pragma once

#include "dialogs/Dialogs.h"
#include "editor/CommandBars.h"
#include "editor/FileDialogs.h"
#include "editor/frmEditor.h"
#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"
#include "platform/settings/Settings.h"

#include <QFile>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include <deque>
#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace tolvan {

// A question that was not expected fails the test; its answer is cancel.
class ScriptedUser : public DialogAnswers, public FileAnswers {
  public:
    std::deque<int> answers;         // to questions: 1 yes, 0 no, -1 cancel
    std::deque<bool> errorAnswers;   // to errors of a program: whether it goes on
    std::deque<QString> files;       // chosen in file dialogs, empty to cancel
    std::vector<std::string> told;   // messages, questions
    std::vector<FileRequest> asked;  // of file dialogs

    void ShowMessage(std::string_view text) override { told.emplace_back(text); }
    int AskQuestion(std::string_view text) override {
        told.emplace_back(text);
        return next(answers, -1);
    }
    bool ShowError(std::int32_t, int) override { return next(errorAnswers, false); }
    QString askOpenFile(const FileRequest& request) override { return file(request); }
    QString askSaveFile(const FileRequest& request) override { return file(request); }

    std::vector<std::string> takeTold() { return std::exchange(told, {}); }

  private:
    template <class Answer>
    static Answer next(std::deque<Answer>& prepared, Answer otherwise) {
        if (prepared.empty()) {
            ADD_FAILURE() << "an unexpected question";
            return otherwise;
        }
        const Answer answer = prepared.front();
        prepared.pop_front();
        return answer;
    }
    QString file(const FileRequest& request) {
        asked.push_back(request);
        return next(files, QString());
    }
};

class EditorTest : public testing::Test {
  protected:
    EditorTest() { open(); }

    // A window as of another start of the application.
    void open() {
        editor = std::make_unique<frmEditor>(state, settings, services);
        editor->show();
        toFront();
    }
    void toFront() const {
        editor->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(editor.get()));
    }

    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }

    QString writeFile(const char* name, const QByteArray& content) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        return file.fileName();
    }
    static QByteArray contentOf(const QString& file) {
        QFile opened(file);
        EXPECT_TRUE(opened.open(QIODevice::ReadOnly)) << qPrintable(file);
        return opened.readAll();
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(editor->windowHandle(), key, modifiers);
    }
    void type(const char* text) const { QTest::keyClicks(&editor->txtRoman(), QLatin1String(text)); }
    std::string roman() const { return editor->txtRoman().text(); }
    QString title() const { return editor->document().title(); }
    QString panel(const char* name) const { return editor->findChild<QLabel*>(QLatin1String(name))->text(); }
    QString setting(const char* section, const char* key) const {
        return settings.GetSetting(QLatin1String(section), QLatin1String(key));
    }

    QTemporaryDir folder;
    Settings settings{folder.filePath(QStringLiteral("settings/Tolbasic.conf"))};
    EditorState state{.run = {}, .SaveBeforeExecute = false, .FormatBeforeExecute = false};
    EditorServices services;
    ScriptedUser user;
    ReplacedDialogs dialogs{user};
    ReplacedFileDialogs fileDialogs{user};
    std::unique_ptr<frmEditor> editor;
};

}  // namespace tolvan
