// The commands of the editor that run a program.
#include "dialogs/Dialogs.h"
#include "dialogs/WindowFrame.h"
#include "editor/CommandBars.h"
#include "editor/DocumentMessages.h"
#include "editor/EditorStatusBar.h"
#include "editor/FileDialogs.h"
#include "editor/PrintPages.h"
#include "editor/TaskTrial.h"
#include "editor/WholeFile.h"
#include "editor/frmEditor.h"
#include "editor/frmSheet.h"
#include "editor/guide/EditorGuide.h"
#include "editor/guide/ProblemPanel.h"
#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"
#include "editor/steps/EditorSteps.h"
#include "library/AddLibrary.h"
#include "platform/encoding/Deva.h"
#include "platform/richtext/InternalText.h"
#include "runtime/DataFiles.h"
#include "runtime/frmExec.h"
#include "translator/ProgramFile.h"
#include "translator/Translator.h"

#include <QApplication>
#include <QFileInfo>

#include <algorithm>

namespace tolvan {

frmExec& frmEditor::console() {
    if (!console_) console_ = std::make_unique<frmExec>(state_.run, this);
    return *console_;
}

void frmEditor::unloadConsole() {
    if (!isRunning()) console_.reset();
}

void frmEditor::startRun() {
    if (isRunning()) return;
    if (state_.SaveBeforeExecute && !document_.saveBeforeRun()) return;
    if (state_.FormatBeforeExecute) EditFormat();
    guide_->checkNow();
    CompileAndExecute(txtProgram_->text());
}

std::string frmEditor::Compile(StyledView program) {
    statusBar_->showProgress(1);
    statusBar_->showMessage("àayaejn tyar krt Aahe"_deva);
    std::string module = translator_.Compile(
        program, [this](const CompileProgress& progress) { statusBar_->showProgress(progressWidth(progress)); });
    txtProgram_->select(txtProgram_->selectionStart(), 0);
    Timer1_Tick();
    statusBar_->hideProgress();
    return module;
}

void frmEditor::CompileAndExecute(StyledView program) {
    if (isRunning()) return;
    guide_->setRunFailure(std::nullopt);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    std::string module = addLibrary(Compile(program), translator_.variables());
    QApplication::restoreOverrideCursor();
    console().show();
    console().raise();
    console().activateWindow();
    console().setFiles(dataFilesOf(document_.path()));
    steps_->begin(console(), {std::move(module), moduleLines(), scriptWords(translator_.variables())});
    console().execute(steps_->program().module, steps_->program().lines);
    steps_->end();
    if (state_.run.hasDelayed(*this)) close();
}

void frmEditor::FileCheck() {
    if (isRunning()) return;
    const QString near = !taskFile_.isEmpty() ? taskFile_ : document_.path();
    const QString folder = near.isEmpty() ? startFolder() : QFileInfo(near).absolutePath();
    const QString chosen = askOpenFile(
        {QStringLiteral("प्रश्नाची फाइल उघड..."), QStringLiteral("तोलवन बेसिक प्रश्न"), QStringLiteral("task"), folder, {}});
    if (chosen.isEmpty()) return;
    taskFile_ = chosen;
    statusBar_->showMessage("tpas calU Aahe"_deva);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const std::string told = tryWithTask(chosen, writeProgramFile(document_.caption(), romanText()));
    QApplication::restoreOverrideCursor();
    Timer1_Tick();
    ShowMessage(told);
}

// The last run is what the console still has of it.
void frmEditor::FileSheet() {
    if (isRunning()) return;
    std::optional<AskedSheet> asked = askSheet(settings_, this);
    if (!asked) return;
    Sheet& sheet = asked->sheet;
    sheet.caption = document_.caption();
    sheet.roman = romanText();
    if (asked->withRun && console_) {
        for (const std::string& line : console_->printedLines()) sheet.printed.push_back(styledText(line));
        sheet.picture = console_->drawnPicture();
    }
    const QFileInfo file(document_.path());
    if (asked->toPrinter) {
        PaintedPages pages(sheetSize);
        addSheet(sheet, pages);
        return printPages(pages, file.fileName(), this);
    }
    const QString folder = document_.path().isEmpty() ? startFolder() : file.absolutePath();
    const QString name = document_.path().isEmpty() ? QString() : file.completeBaseName();
    const QString chosen =
        askSaveFile({QStringLiteral("PDF साठव..."), QStringLiteral("PDF"), QStringLiteral("pdf"), folder, name});
    if (chosen.isEmpty()) return;
    PdfDocument document(sheetSize);
    addSheet(sheet, document);
    if (!replaceFile(chosen, document.bytes(file.fileName().toUtf8()))) ShowMessage(messages::notSaved(chosen));
}

// The names are those of the program that ran; the text is locked until it has ended.
void frmEditor::runFailed(int line, const script::ErrorReport& error) {
    const StyledText program = txtProgram_->text();
    const auto wordOf = [this](std::string_view scriptName) { return steps_->program().wordOf(scriptName); };
    guide::RunFailure failure = guide::runFailure(error, line, program, wordOf);
    if (error.column > 0) {
        const auto from = static_cast<std::size_t>(error.column - 1);
        const std::size_t to = std::max(static_cast<std::size_t>(error.endColumn), from + 2) - 1;
        if (const auto place = translator_.placeInProgram(program, error.line, {from, to}))
            failure.program = {place->from, place->to};
    }
    guide_->setRunFailure(failure);
}

void frmEditor::RunEnd() {
    state_.run.stop();
}

void frmEditor::ViewOutput() {
    StyledText caption(state_.run.ProgramCaption, Font::Latin);
    caption.append("Tolbasic Output... ", Font::Latin);
    console().findChild<WindowFrame*>()->setTitle(caption);
    console().show();
}

}  // namespace tolvan
