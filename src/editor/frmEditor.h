// The main window: the Roman text that the user types beside the Devanagari program that it stands for, and every
// command of the environment. A command is a public slot named by its key; menus, the toolbar and shortcuts call it by
// that name, so a new command is a slot here and a row in Commands.cpp.
#pragma once

#include "editor/EditorDocument.h"
#include "editor/EditorState.h"
#include "editor/OldVersions.h"
#include "editor/RecentFiles.h"
#include "editor/RecoveryFiles.h"
#include "platform/richtext/StyledText.h"
#include "runtime/ProgramMarker.h"
#include "translator/Translator.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

class QSplitter;

namespace tolvan {

class CommandBars;
class EditorGuide;
class EditorStatusBar;
class EditorSteps;
class PaneAids;
class ProblemPanel;
class ProgramBox;
class RomanBox;
class Settings;
class SheetPages;
class SpeedSlider;
class ValuePanel;
class WindowFrame;
class WordCorrection;
class frmEditor;
class frmExec;
class frmFindReplace;
class frmScript;
class frmTrace;

// What commands of the editor need of the layer above it. A command without one does nothing.
struct EditorServices {
    std::function<void(frmEditor&)> filePreferences;
    std::function<void(frmEditor&)> fileMakeExe;
    // Shows the help file, opened at the topic of this title if it has one; false if that is not possible.
    std::function<bool(const QString& path, const QString& topic)> showHelp;
    // The window was closed by the user, who has been asked.
    std::function<void()> shutDown;
};

class frmEditor : public QWidget, public ProgramMarker, private DocumentText {
    Q_OBJECT

  public:
    // `state` and `settings` must outlive it.
    frmEditor(EditorState& state, Settings& settings, EditorServices services = {});
    ~frmEditor() override;

    // Path, title, caption of the program and their file commands.
    EditorDocument& document() { return document_; }
    RomanBox& txtRoman() const { return *txtRoman_; }
    ProgramBox& txtProgram() const { return *txtProgram_; }
    ProblemPanel& problems() const { return *problems_; }
    EditorSteps& steps() const { return *steps_; }
    EditorState& state() { return state_; }
    Settings& settings() { return settings_; }

    // Opens a file; an empty path asks for one. No question about unsaved text. True if another document is shown now.
    bool OpenFile(const QString& path);

    // Puts a path at the top of the recent files; an empty one only shows them anew.
    void MruManage(const QString& path);

    // Translates the program, with its progress in the status bar. The text panes keep their place, without selection.
    // Where the module's lines came from is said by moduleLines(), until the next call.
    std::string Compile(StyledView program);
    const ModuleLines& moduleLines() const { return translator_.moduleLines(); }

    // Translates and runs it; returns when the run has ended. Nothing while one runs already.
    void CompileAndExecute(StyledView program);
    bool isRunning() const { return !state_.run.isIdle(); }

    // Takes the console away, with the data file that its program left open. Not while a program runs.
    void unloadConsole();

    // The preferences in the state have changed.
    void applyPreferences();

    // The help command's file; empty: the command is not available.
    void setHelpFile(const QString& path);

    // Writes the recovery copy now.
    void keepUnsaved();
    // Asks whether to open the unsaved text of windows that crashed. For start-up, after show().
    void offerRecovery();

    // Does what a menu item or a toolbar button stands for. False if there is no command of that name.
    bool TopMenu_UserCommand(const QByteArray& key);
    const CommandBars& commandBars() const { return *bars_; }

    std::string programText() const override;
    std::string romanText() const override;
    void selectProgram(std::size_t start, std::size_t length) override;
    void selectRoman(std::size_t start, std::size_t length) override;
    void runFailed(int line, const script::ErrorReport& error) override;
    void bringBack() override;
    bool takesRunKey(const QKeyEvent& key) override;

  public slots:
    void FileNew();
    void FileOpen();
    void FileExamples();
    void FileSave();
    void FileSaveAs();
    void FileOldVersions();
    void FileSaveUnicode();
    void FileCheck();
    void FileSheet();
    void FilePreferences();
    void FileMakeEXE();
    void FileExit();
    void MnuMru1();
    void MnuMru2();
    void MnuMru3();
    void MnuMru4();

    void EditUndo();
    void EditRedo();
    void EditCut();
    void EditCopy();
    void EditCopyDevanagari();
    void EditPaste();
    void EditSelectAll();
    void EditFind();
    void EditReplace();
    void EditFindNext();
    void EditFormat();
    void EditSuggest();
    void EditNextProblem();
    void EditMend();

    void RunStart();
    void RunEnd();
    void RunGoOn();
    void RunPause();
    void RunStepInto();
    void RunStepOver();
    void RunStepOut();
    void RunToHere();
    void RunSlowly();
    void RunBreakPoint();
    void RunBreakPointAt();
    void ViewOutput();
    void ViewValues();
    void ViewTrace();
    void ViewScript();
    void ViewNextPane();
    void ViewZoomIn();
    void ViewZoomOut();
    void ViewZoomNormal();

    void HelpHelp();
    void HelpAbout();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void setRomanText(std::string_view text) override;
    void replaceRomanText(std::string_view text) override;
    void setChanged(bool changed) override;

    void setUpLayout();
    void setUpSteps();
    void connectDocument();
    void connectPanes();

    void refreshCaption();
    void textChanged();
    void Timer1_Tick();
    void keepDiscarded();
    std::string helpTopicAtCaret() const;
    void openDropped(const QStringList& paths);
    void openRecent(int slot);
    void toggleToolBar(const QByteArray& key);

    frmFindReplace& findReplace();
    frmExec& console();
    void runChanged();
    void enableCommands();

    void startRun();
    void stepsMoved();
    void stepsPhaseChanged();
    void showWindowsTogether();
    void askPass(int line);
    void showValues(bool shown);
    frmTrace& traceWindow();
    void saveTraceAsCsv();
    void printTrace();
    void saveTraceAsPdf();
    void addTraceTo(SheetPages& pages);
    void fillScript();
    void goToLine(int line);

    EditorState& state_;
    Settings& settings_;
    EditorServices services_;
    WindowFrame* frame_;
    CommandBars* bars_;
    QSplitter* work_;  // the panes above the values
    QSplitter* splitter_;
    RomanBox* txtRoman_;
    ProgramBox* txtProgram_;
    ValuePanel* values_;
    SpeedSlider* speed_;
    EditorStatusBar* statusBar_;
    ProblemPanel* problems_;
    std::unique_ptr<PaneAids> aids_;
    std::unique_ptr<EditorSteps> steps_;
    bool areTogether_ = false;  // the windows, in this run
    bool isSeen_ = false;       // the program at a line, in this run
    std::unique_ptr<EditorGuide> guide_;
    std::unique_ptr<WordCorrection> wordCorrection_;
    EditorDocument document_;
    RecentFiles recentFiles_;
    RecoveryFiles recovery_;
    OldVersions oldVersions_;
    QTimer timer1_;          // puts the ready text back
    bool isUnkept_ = false;  // the last recovery copy could not be written
    QTimer recoveryTimer_;   // runs while there is unsaved text that is not kept yet
    QString helpFile_;
    QString taskFile_;  // with which a program was tried last
    frmFindReplace* findReplace_ = nullptr;
    frmTrace* trace_ = nullptr;
    frmScript* script_ = nullptr;
    QTimer scriptTimer_;  // the script is made anew when nothing has been typed for a while
    Translator translator_;
    std::unique_ptr<frmExec> console_;
};

}  // namespace tolvan
