// The start-up of the application, what its windows share, and its end.
#pragma once

#include "editor/EditorState.h"
#include "shell/CommandLine.h"
#include "shell/DesktopLook.h"
#include "shell/TerminationSignals.h"
#include "shell/frmSplash.h"

#include <QObject>
#include <QString>

#include <memory>
#include <string>
#include <vector>

namespace tolvan {

class Settings;
class frmEditor;

class mdlMain : public QObject {
    Q_OBJECT

  public:
    explicit mdlMain(Settings& settings);
    ~mdlMain() override;

    // Start-up, in a running event loop: shows the opening picture, checks what is needed, and does what the command
    // line asks for. The application ends when no window is left.
    void Main(const std::vector<std::string>& arguments);

    // The only regular way out: unloads every window without more questions, and ends the application. A program that
    // runs is stopped first.
    void shutDown();

    EditorState& state() { return state_; }
    Settings& settings() { return settings_; }

    // The editor; a fresh, empty, hidden one if there is none.
    frmEditor& editor();
    bool editorIsVisible() const;
    // Must not be called from one of the editor's own methods, nor while a program runs.
    void unloadEditor();

  private:
    CommandLine readCommandLine(const std::vector<std::string>& arguments);
    void useLook();
    void act(const CommandLine& commandLine);
    void showEditor();
    void openAndShow(const QString& file);
    void openAndRun(const QString& file);
    void compile(const std::string& file);
    void endIfNothingIsLeft();

    Settings& settings_;
    EditorState state_;
    QString helpFile_;  // empty: there is none
    std::unique_ptr<frmEditor> editor_;
    TerminationSignals terminationSignals_;
    DesktopLook desktopLook_;
    bool starting_ = true;
};

}  // namespace tolvan
