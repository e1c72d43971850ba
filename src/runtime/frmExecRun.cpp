// The part of frmExec that runs a program, from the compiled script to the end messages or the marked line.
#include "platform/encoding/Deva.h"
#include "runtime/ConsoleReader.h"
#include "runtime/MarkFailingLine.h"
#include "runtime/MessageStrip.h"
#include "runtime/ProgramMarker.h"
#include "runtime/ProgramRun.h"
#include "runtime/ScrollBack.h"
#include "runtime/frmExec.h"
#include "runtime/host/RunModule.h"
#include "runtime/host/StepControl.h"
#include "translator/ModuleLines.h"

#include <algorithm>
#include <string>
#include <vector>

namespace tolvan {

void frmExec::execute(std::string_view module, const ModuleLines& lines) {
    if (!run_.begin()) return;
    hasFailed_ = false;
    updateTitle();
    prepareDisplay();
    executor_.setRecording(nullptr);
    executor_.setWatched(steps_ != nullptr);
    if (steps_ != nullptr) steps_->begin(executor_, lines);
    const script::ErrorReport error = runModule(executor_, parentForm_, module);
    if (steps_ != nullptr) steps_->end();
    showPresent();
    const bool stays = error.number == 0 || goesOnAfter(error, lines);
    if (stays) printEnd();
    run_.end();
    if (!stays || run_.hasDelayed(*this)) CloseForm();
}

void frmExec::prepareDisplay() {
    keys_.clear();
    log_.stop();
    hasStood_ = false;
    lastPause_ = {};
    scrollBack_->leave();
    strip_->hide();
    text_.reset();
    reader_->printed();
    printedByProgram_ = 0;
    hasDrawn_ = false;
}

// Marks the line of an error in the editor. Returns true when the end messages are to be printed, false when the
// console is to close. A program that was stopped comes here, too, since its poll raises an error; the state of the run
// tells it from one that failed, and only that is asked about.
bool frmExec::goesOnAfter(const script::ErrorReport& error, const ModuleLines& lines) {
    run_.ErrorLine = errorLineOf(error.line);
    const int known = lines.programLine(error.line);
    const int line = known > 0 ? known : run_.ErrorLine + 1;
    hasFailed_ = hasFailed_ || run_.IsRunning();
    const bool goesOn = run_.IsRunning() && askToGoOn(error.number, line);
    if (editor_ != nullptr) markFailingLine(*editor_, line - 1);
    if (editor_ != nullptr && hasFailed_) editor_->runFailed(line, error);
    return goesOn;
}

// What the program has drawn must stay: then the messages are shown in a strip below.
void frmExec::printEnd() {
    printedByProgram_ = text_.lines().end();
    const std::vector<std::string> messages = {std::string("he àayaejn wa<blele Aahe"_deva),
                                               std::string("b<d kr\\{yasaQI kae[tehI bq[ daba"_deva)};
    if (hasDrawn_) {
        strip_->tell(messages);
        return reader_->printed();
    }
    PrintString(" ");
    PrintString(" ");
    for (const std::string& message : messages) PrintString(message);
}

std::vector<std::string> frmExec::printedLines() const {
    const PrintedLines& lines = text_.lines();
    std::vector<std::string> printed;
    for (std::size_t line = lines.begin(); line < std::min(lines.end(), printedByProgram_); ++line)
        printed.push_back(lines[line]);
    return printed;
}

}  // namespace tolvan
