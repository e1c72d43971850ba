#include "shell/mdlMain.h"

#include "dialogs/Look.h"
#include "editor/frmEditor.h"
#include "editor/panes/ProgramBox.h"
#include "platform/filenames/FileName.h"
#include "platform/files/PathLookup.h"
#include "platform/fonts/Fonts.h"
#include "platform/settings/Settings.h"
#include "shell/ExecutableName.h"
#include "shell/MakeExe.h"
#include "shell/PlainMessage.h"
#include "shell/SettingsReader.h"
#include "shell/frmPreferences.h"
#include "shell/help/frmHelp.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QTimer>

#include <algorithm>

namespace tolvan {
namespace {

QString findHelpFile() {
    const std::string wanted = fileBytes(QApplication::applicationDirPath()) + "/tolbasic.hlp";
    const QString found = fileName(findPath(wanted));
    return QFileInfo(found).isFile() ? found : QString();
}

}  // namespace

mdlMain::mdlMain(Settings& settings) : settings_(settings) {
    // A box may be the only window for a while; closing it must not end the application.
    QApplication::setQuitOnLastWindowClosed(false);
    connect(qApp, &QGuiApplication::lastWindowClosed, this, &mdlMain::endIfNothingIsLeft, Qt::QueuedConnection);
    connect(&terminationSignals_, &TerminationSignals::received, this, [this] {
        if (editor_) editor_->keepUnsaved();
        shutDown();
    });
    // While a program runs its windows only note that they are to close.
    connect(
        &state_.run, &ProgramRun::stateChanged, this,
        [this] {
            if (state_.Closing && state_.run.isIdle()) shutDown();
        },
        Qt::QueuedConnection);
    connect(&desktopLook_, &DesktopLook::changed, this, [this](look::Kind kind) {
        look::setKindOfDesktop(kind);
        useLook();
    });
}

mdlMain::~mdlMain() = default;

void mdlMain::useLook() {
    look::use(state_.Look.value_or(look::kindOfDesktop()));
}

void mdlMain::Main(const std::vector<std::string>& arguments) {
    state_.Closing = false;
    const Seconds start = secondsSinceMidnight();
    {
        frmSplash splash;
        readPreferences(settings_, state_);
        useLook();
        splash.show();
        splash.repaint();
        if (!hasRequiredFonts(screenFontList())) {
            showFontsRequired();
            return QApplication::exit(EXIT_FAILURE);
        }
        helpFile_ = findHelpFile();
        editor();
        waitForSplash(splash, start);
    }
    act(readCommandLine(arguments));
    starting_ = false;
    endIfNothingIsLeft();
}

CommandLine mdlMain::readCommandLine(const std::vector<std::string>& arguments) {
    CommandLine commandLine = parseCommandLine(
        joinArguments(arguments), {fileBytes(QDir::currentPath()), fileBytes(QApplication::applicationDirPath())});
    for (const CommandLine::Problem problem : commandLine.problems) {
        showPlainMessage(problemText(problem));
        unloadEditor();
    }
    return commandLine;
}

void mdlMain::act(const CommandLine& commandLine) {
    if (commandLine.has("-?")) {
        showPlainMessage(usageText());
        unloadEditor();
    } else if (commandLine.filename.empty()) {
        showEditor();
    } else if (commandLine.has("-run")) {
        openAndRun(fileName(commandLine.filename));
    } else if (!commandLine.has("-compile")) {
        openAndShow(fileName(commandLine.filename));
    } else {
        compile(commandLine.filename);
        unloadEditor();
    }
}

void mdlMain::showEditor() {
    editor().show();
    editor().offerRecovery();
}

void mdlMain::openAndShow(const QString& file) {
    editor().OpenFile(file);
    showEditor();
}

void mdlMain::openAndRun(const QString& file) {
    starting_ = false;  // the program may run for long, and the windows be closed meanwhile
    editor().OpenFile(file);
    editor().CompileAndExecute(editor().txtProgram().text());
}

void mdlMain::compile(const std::string& file) {
    if (const auto executable = executableName(file))
        MakeExe(*this, fileName(file), fileName(*executable));
    else
        showPlainMessage("Unable to write file onto itself. Input File and Output File have same names.");
}

frmEditor& mdlMain::editor() {
    if (editor_) return *editor_;
    EditorServices services;
    services.filePreferences = showPreferences;
    services.shutDown = [this] { shutDown(); };
    services.showHelp = showHelp;
    services.fileMakeExe = [this](frmEditor&) { FileMakeEXE(*this); };
    editor_ = std::make_unique<frmEditor>(state_, settings_, std::move(services));
    editor_->setHelpFile(helpFile_);
    return *editor_;
}

bool mdlMain::editorIsVisible() const {
    return editor_ && editor_->isVisible();
}

void mdlMain::unloadEditor() {
    editor_.reset();
}

void mdlMain::shutDown() {
    state_.Closing = true;
    state_.run.stop();
    QApplication::closeAllWindows();
    QApplication::quit();
}

// After a console is closed, an editor that was never shown cannot be reached by the user.
void mdlMain::endIfNothingIsLeft() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    const bool anyVisible =
        std::any_of(windows.begin(), windows.end(), [](const QWidget* window) { return window->isVisible(); });
    if (!starting_ && !anyVisible) shutDown();
}

}  // namespace tolvan
