// The commands of the editor that go through a running program.
#include "dialogs/Dialogs.h"
#include "editor/CommandBars.h"
#include "editor/Commands.h"
#include "editor/DocumentMessages.h"
#include "editor/EditorStatusBar.h"
#include "editor/FileDialogs.h"
#include "editor/PrintPages.h"
#include "editor/SpeedSlider.h"
#include "editor/WholeFile.h"
#include "editor/WindowPlace.h"
#include "editor/frmEditor.h"
#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"
#include "editor/steps/EditorSteps.h"
#include "editor/steps/ValuePanel.h"
#include "editor/steps/frmPass.h"
#include "editor/steps/frmScript.h"
#include "editor/steps/frmTrace.h"
#include "library/AddLibrary.h"
#include "platform/encoding/Deva.h"
#include "platform/settings/Settings.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "runtime/frmExec.h"
#include "sheet/Sheet.h"
#include "sheet/TableSheet.h"

#include <QAction>
#include <QFileInfo>
#include <QKeyEvent>
#include <QSplitter>
#include <QTextBlock>
#include <QToolBar>

#include <chrono>
#include <utility>

namespace tolvan {
namespace {

using namespace std::chrono_literals;

const QString section = QStringLiteral("Settings");
const QString valuesKey = QStringLiteral("ShowValues");
const QString speedKey = QStringLiteral("StepSpeed");

constexpr std::string_view breakPointSet = "yewe wa<ba Qevla"_deva;
constexpr std::string_view breakPointTaken = "yewla wa<ba kaFla"_deva;

QString askTraceFile(const QString& program, const QString& title, const QString& ending) {
    const QFileInfo file(program);
    return askSaveFile({title, ending.toUpper(), ending, program.isEmpty() ? startFolder() : file.absolutePath(),
                        program.isEmpty() ? QString() : file.completeBaseName()});
}

}  // namespace

void frmEditor::setUpSteps() {
    steps_ = std::make_unique<EditorSteps>(*txtRoman_, *txtProgram_, *values_);
    values_->hide();
    bars_->item("ViewValues")->setCheckable(true);
    bars_->toolBar()->addWidget(speed_);
    if (const int speed = settings_.GetSetting(section, speedKey).toInt(); speed > 0) speed_->setValue(speed);
    connect(speed_, &QSlider::valueChanged, this, [this](int speed) {
        settings_.SaveSetting(section, speedKey, QString::number(speed));
        if (steps_->control().speed() > 0) steps_->control().setSpeed(speed);
    });
    connect(steps_.get(), &EditorSteps::moved, this, &frmEditor::stepsMoved);
    connect(steps_.get(), &EditorSteps::phaseChanged, this, &frmEditor::stepsPhaseChanged);
    connect(&steps_->breakPoints(), &BreakPoints::passWanted, this, &frmEditor::askPass);
    connect(values_, &ValuePanel::closed, this, &frmEditor::ViewValues);
}

void frmEditor::runChanged() {
    txtRoman_->setLocked(isRunning());
    areTogether_ = areTogether_ && isRunning();
    isSeen_ = isSeen_ && isRunning();
    if (!isRunning()) bars_->makeRoomForRun(false);
    enableCommands();
    if (isRunning() && trace_ != nullptr && trace_->isVisible()) showWindowsTogether();
}

// What would change the text is greyed while a program runs.
void frmEditor::enableCommands() {
    const bool isStanding = steps_->phase() == EditorSteps::Phase::Standing;
    const bool isOnTheWay = state_.run.IsRunning() && !isStanding;
    for (const Menu& menu : editorMenus())
        for (const MenuItem& item : menu.items)
            if (item.whileRunning == WhileRunning::Greyed) bars_->setEnabled(item.key, !isRunning());
    bars_->setEnabled("EditUndo", !isRunning() && txtRoman_->document()->isUndoAvailable());
    bars_->setEnabled("EditRedo", !isRunning() && txtRoman_->document()->isRedoAvailable());
    bars_->setEnabled("RunStart", !state_.run.IsRunning());
    bars_->setEnabled("RunEnd", state_.run.IsRunning());
    bars_->setEnabled("RunGoOn", isStanding || (isOnTheWay && steps_->isSlow()));
    bars_->setEnabled("RunPause", isOnTheWay);
    for (const char* key : {"RunStepInto", "RunToHere", "RunSlowly"})
        bars_->setEnabled(key, !isRunning() || isStanding);
    bars_->setEnabled("RunSlowly", !isRunning() || state_.run.IsRunning());
    for (const char* key : {"RunStepOver", "RunStepOut"}) bars_->setEnabled(key, isStanding);
    bars_->setKeys(isRunning(), isStanding);
}

void frmEditor::RunStart() {
    if (isRunning()) return;
    steps_->control().setSpeed(0);
    steps_->control().goOn();  // not to a line, as a command said whose run did not begin
    startRun();
}

// At full speed, and with the keyboard in the program's window: it may read keys.
void frmEditor::RunGoOn() {
    steps_->control().setSpeed(0);
    steps_->control().goOn();
    if (isRunning() && console_) console_->activateWindow();
    enableCommands();
}

void frmEditor::RunPause() {
    steps_->control().pause();
}

void frmEditor::RunStepInto() {
    steps_->control().setSpeed(0);
    steps_->control().stepInto();
    startRun();
}

void frmEditor::RunStepOver() {
    steps_->control().setSpeed(0);
    steps_->control().stepOver();
}

void frmEditor::RunStepOut() {
    steps_->control().setSpeed(0);
    steps_->control().stepOut();
}

void frmEditor::RunToHere() {
    steps_->control().setSpeed(0);
    steps_->control().runTo(txtRoman_->currentLine());
    startRun();
}

void frmEditor::RunSlowly() {
    steps_->control().setSpeed(speed_->value());
    steps_->control().goOn();
    startRun();
    enableCommands();
}

void frmEditor::RunBreakPoint() {
    const bool isSet = steps_->breakPoints().toggle(txtRoman_->currentLine());
    statusBar_->showMessage(isSet ? breakPointSet : breakPointTaken);
    timer1_.start();
}

void frmEditor::RunBreakPointAt() {
    askPass(txtRoman_->currentLine());
}

void frmEditor::askPass(int line) {
    BreakPoints& points = steps_->breakPoints();
    const auto known = points.lines().find(line);
    frmPass dialog(line, known == points.lines().end() ? 0 : known->second, this);
    if (dialog.exec() == QDialog::Accepted) points.set(line, dialog.pass());
}

void frmEditor::ViewValues() {
    const bool shown = values_->isHidden();
    settings_.SaveSetting(section, valuesKey, settingText(shown));
    showValues(shown);
}

void frmEditor::showValues(bool shown) {
    values_->setVisible(shown);
    if (!shown) return;
    // Shared out in this proportion, once the splitter knows of its new part.
    QMetaObject::invokeMethod(
        work_,
        [this] {
            work_->setSizes({3000, 2000});
        },
        Qt::QueuedConnection);
    bars_->item("ViewValues")->setChecked(shown);
}

frmTrace& frmEditor::traceWindow() {
    if (trace_ != nullptr) return *trace_;
    trace_ = new frmTrace(
        *steps_, [this](const QKeyEvent& key) { return takesRunKey(key); }, this);
    connect(trace_, &frmTrace::csvWanted, this, &frmEditor::saveTraceAsCsv);
    connect(trace_, &frmTrace::printWanted, this, &frmEditor::printTrace);
    connect(trace_, &frmTrace::pdfWanted, this, &frmEditor::saveTraceAsPdf);
    return *trace_;
}

void frmEditor::ViewTrace() {
    traceWindow().show();
    traceWindow().raise();
    traceWindow().activateWindow();
}

void frmEditor::saveTraceAsCsv() {
    const QString path = askTraceFile(document_.path(), QStringLiteral("CSV साठव..."), QStringLiteral("csv"));
    if (path.isEmpty()) return;
    if (!replaceFile(path, QByteArray::fromStdString(traceWindow().text(true)))) ShowMessage(messages::notSaved(path));
}

void frmEditor::addTraceTo(SheetPages& pages) {
    addTable(traceWindow().sheet(StyledText(ReplaceRomanChars(document_.caption()), Font::Devanagari)), pages);
}

void frmEditor::printTrace() {
    PaintedPages pages(sheetSize);
    addTraceTo(pages);
    printPages(pages, QFileInfo(document_.path()).fileName(), &traceWindow());
}

void frmEditor::saveTraceAsPdf() {
    const QString path = askTraceFile(document_.path(), QStringLiteral("PDF साठव..."), QStringLiteral("pdf"));
    if (path.isEmpty()) return;
    PdfDocument document(sheetSize);
    addTraceTo(document);
    if (!replaceFile(path, document.bytes(QFileInfo(path).fileName().toUtf8()))) ShowMessage(messages::notSaved(path));
}

void frmEditor::ViewScript() {
    if (script_ == nullptr) {
        script_ = new frmScript([this](const QKeyEvent& key) { return takesRunKey(key); }, this);
        connect(script_, &frmScript::lineChosen, this, [this](int line) { goToLine(line); });
        connect(txtRoman_, &TextPane::caretMoved, script_, [this] { script_->showLine(txtRoman_->currentLine()); });
        connect(txtRoman_, &TextPane::stepLineChanged, script_,
                [this] { script_->setStepLine(txtRoman_->stepLine()); });
        scriptTimer_.setSingleShot(true);
        scriptTimer_.setInterval(300ms);
        connect(&scriptTimer_, &QTimer::timeout, this, &frmEditor::fillScript);
        connect(txtRoman_->document(), &QTextDocument::contentsChange, &scriptTimer_, qOverload<>(&QTimer::start));
    }
    script_->QWidget::show();
    fillScript();
    script_->raise();
    script_->activateWindow();
}

void frmEditor::fillScript() {
    if (script_ == nullptr || !script_->isVisible()) return;
    const StyledText text = txtProgram_->text();
    script_->show(runnableProgram(text), text);
    script_->showLine(txtRoman_->currentLine());
}

void frmEditor::goToLine(int line) {
    const QTextBlock block = txtRoman_->document()->findBlockByNumber(line - 1);
    if (block.isValid()) txtRoman_->setTextCursor(QTextCursor(block));
}

// The program is seen at a line.
void frmEditor::stepsMoved() {
    if (!isRunning()) return;
    if (!areTogether_) showWindowsTogether();
    const bool isStanding = steps_->control().state() == StepControl::State::Standing;
    const bool wasSeen = std::exchange(isSeen_, true);
    if ((isStanding || !wasSeen) && trace_ != nullptr && trace_->isVisible()) raiseOver(*trace_, *console_);
    if (!isStanding) return;
    Timer1_Tick();
    if (isActiveWindow())
        txtRoman_->setFocus();
    else if (trace_ == nullptr || !trace_->isActiveWindow())
        bringBack();
    goToLine(steps_->control().line());
}

void frmEditor::showWindowsTogether() {
    areTogether_ = true;
    placeTogether(*this, *console_, trace_ != nullptr && trace_->isVisible() ? trace_ : nullptr);
    if (readSetting(settings_.GetSetting(section, valuesKey), true)) showValues(true);
    bars_->makeRoomForRun(true);
}

void frmEditor::stepsPhaseChanged() {
    enableCommands();
    Timer1_Tick();
}

bool frmEditor::takesRunKey(const QKeyEvent& key) {
    const QByteArray command = bars_->commandOf(QKeySequence(key.keyCombination()));
    return command.startsWith("Run") && TopMenu_UserCommand(command);
}

}  // namespace tolvan
