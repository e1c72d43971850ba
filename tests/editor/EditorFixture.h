// A whole editor window with a folder of its own for settings and files, and a user whose answers are given beforehand.
#pragma once

#include "editor/CommandBars.h"
#include "editor/FileDialogs.h"
#include "editor/frmEditor.h"
#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"
#include "platform/settings/Settings.h"
#include "support/ScriptedUser.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <deque>
#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace tolvan {

// Of the boxes and the file dialogs.
class EditorUser : public ScriptedUser, public FileAnswers {
  public:
    std::deque<QString> files;       // chosen in file dialogs, empty to cancel
    std::vector<FileRequest> asked;  // of file dialogs

    QString askOpenFile(const FileRequest& request) override { return file(request); }
    QString askSaveFile(const FileRequest& request) override { return file(request); }

  private:
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

    // The next print dialog prints into this file.
    void printInto(const QString& file) const {
        auto* const answerer = new QTimer(editor.get());
        QObject::connect(answerer, &QTimer::timeout, [answerer, file] {
            auto* const dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) return;
            answerer->deleteLater();
            dialog->findChild<QLineEdit*>(QStringLiteral("filename"))->setText(file);
            dialog->accept();
        });
        answerer->start(20);
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
    EditorUser user;
    ReplacedDialogs dialogs{user};
    ReplacedFileDialogs fileDialogs{user};
    std::unique_ptr<frmEditor> editor;
};

}  // namespace tolvan
