// The console: the window in which a program runs, prints, asks and draws.
//
// One thread. While a program runs, the window's events are handled inside CheckForEvents, inside the wait of
// InputString and inside dialogs; what they can do to the program is to stop its run and to hide the input box.
#pragma once

#include "platform/picturebox/PictureBox.h"
#include "platform/script/Executor.h"
#include "runtime/ConsoleLog.h"
#include "runtime/ConsoleSize.h"
#include "runtime/ConsoleText.h"
#include "runtime/KeyQueue.h"
#include "runtime/host/ConsoleObject.h"
#include "runtime/host/ConsoleOperations.h"

#include <QWidget>

#include <chrono>
#include <utility>

class QKeyEvent;

namespace tolvan {

class ConsoleReader;
class InputBox;
class MessageStrip;
class ModuleLines;
class ProgramMarker;
class ProgramRun;
class ScrollBack;
class StepControl;
class WindowFrame;

class frmExec : public QWidget, public ConsoleOperations {
    Q_OBJECT

  public:
    // `run` and `editor` must outlive it. A stand-alone program has no editor.
    explicit frmExec(ProgramRun& run, ProgramMarker* editor = nullptr);
    ~frmExec() override;

    // Runs a script module; returns when it has ended. Nothing while a program runs already. The window should be
    // visible. Closing it in the meantime stops the program; it goes when the program has returned. `lines` says where
    // the module's lines came from; without it, the line of an error is computed from the module's usual layout.
    void execute(std::string_view module, const ModuleLines& lines);

    // How the programs that are run from now on are gone through. Null: at full speed, and nobody looks into them.
    // Must outlive its use.
    void setSteps(StepControl* steps);
    // Of the running program, to look into it while it calls the console.
    script::Executor& executor() { return executor_; }
    bool mayLook() const { return !parentForm_.isWithinStatement(); }
    // From now on until the end of the run everything that the program does is recorded, and what it does to the
    // console is kept. Once in a run; the recording must outlive that.
    void record(script::Recording& recording);
    // Shows the console as it was after so many calls of the recorded run (see ConsoleObject::callCount), over the
    // present one; what came later is seen faintly, if it is wanted. False if that moment is forgotten.
    bool showMoment(std::uint64_t calls, bool withRest);
    void showPresent();

    // The program's calls of the console from the next run on.
    void setTrace(ConsoleObject::Trace trace) { parentForm_.setTrace(std::move(trace)); }
    LibraryObject& scriptLibrary() { return parentForm_.scriptLibrary(); }

    // The data files that the program reaches without a question; see dataFilesOf.
    void setFiles(ReachableFiles files) { parentForm_.setFiles(std::move(files)); }

    void PrintString(std::string_view text) override;
    std::optional<std::string> InputString() override;
    void ClearScreen() override;
    bool CheckForEvents() override;
    void StopExecution() override;
    std::string ReadKey() override { return keys_.take(); }
    void Wait(double seconds) override;
    bool StandStill(double mostSeconds) override;
    void DrawPoint(Point at, std::optional<Colour> colour) override;
    void DrawLine(std::optional<Point> start, Point end, std::optional<Colour> colour) override;
    void DrawBox(std::optional<Point> start, Point end, std::optional<Colour> colour, Fill fill) override;
    void DrawCircle(Point centre, float radius, std::optional<Colour> colour, Fill fill) override;
    float DisplayWidth() const override;
    float DisplayHeight() const override;
    bool MayReachFile(const std::string& path, bool writing) override;
    void FileOpenFailed(int number) override;

    // Commands of the system menu, called by these names.
    Q_INVOKABLE void ShowAbout();
    Q_INVOKABLE void SavePicture();
    Q_INVOKABLE void CopyPicture();
    // Stops the program and closes the window; the editor comes back to the front.
    Q_INVOKABLE void CloseForm();

    // What the last run printed, in internal text form, and how its display looks if it drew on it; else null.
    std::vector<std::string> printedLines() const;
    QImage drawnPicture() { return hasDrawn_ ? display_->ShownImage() : QImage(); }

    // Whether the input box takes the keyboard back when it loses it.
    bool KeepInputFocus() const { return keepInputFocus_; }

  signals:
    // The input box has been shown.
    void asked();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void setUpSystemMenu();
    void setUpControls();
    void updateTitle();

    void prepareDisplay();
    bool goesOnAfter(const script::ErrorReport& error, const ModuleLines& lines);
    bool askToGoOn(int number, int line);
    void printEnd();

    bool keyPressed(QObject* control, const QKeyEvent& key);
    bool isCopied(QObject* control, const QKeyEvent& key) const;
    void displayResized();

    bool inputIsVisible() const;
    void beginInput();
    void endInput();
    void placeInput();
    void inputChanged();
    void inputWasCut();
    void tellAboutLength();
    void tellInNote(std::string_view sentence);
    void inputEntered();
    void focusInput();
    void inputLostFocus();

    void waitForEvents(double mostSeconds);
    void keep(ConsoleLog::Call call);
    void bringForward();

    QColor colourOf(std::optional<Colour> colour) const;
    Point startOf(std::optional<Point> start) const;

    ProgramRun& run_;
    ProgramMarker* editor_;
    WindowFrame* frame_;
    ConsoleSize size_;
    PictureBox* display_;
    ConsoleText text_;
    PictureBox* inputBoxTip_;
    InputBox* inputBox_;
    PictureBox* inputNote_;
    ScrollBack* scrollBack_;
    MessageStrip* strip_;
    KeyQueue keys_;
    std::chrono::steady_clock::time_point lastPause_;  // its end
    PictureBox* past_;                                 // an earlier moment, over the display
    ConsoleText pastText_;
    MessageStrip* pastStrip_;
    ConsoleReader* reader_;
    ConsoleLog log_;
    StepControl* steps_ = nullptr;
    bool hasStood_ = false;             // the program, in this run
    bool hasDrawn_ = false;             // since the display was cleared
    bool hasFailed_ = false;            // the program, and was not only stopped
    std::size_t printedByProgram_ = 0;  // lines, without those that tell its end
    bool keepInputFocus_ = false;
    ConsoleObject parentForm_;
    script::Executor executor_;
};

}  // namespace tolvan
