// The part of frmExec that runs a program, from the compiled script to the end messages or the marked line.
#include "dialogs/frmErrorBox.h"
#include "platform/encoding/Deva.h"
#include "platform/richtext/InternalText.h"
#include "platform/richtext/RtfReader.h"
#include "runtime/MarkFailingLine.h"
#include "runtime/ProgramMarker.h"
#include "runtime/frmExec.h"
#include "runtime/host/ModuleRunner.h"

#include <string>
#include <utility>

namespace tolvan {

void frmExec::execute() {
    if (executing_) return;
    executing_ = true;
    closeWanted_ = false;
    updateTitle();
    prepareDisplay();
    state_.IsRunning = true;
    const std::string module = std::exchange(state_.CompiledScript, {});
    const script::ErrorReport error = runModule(executor_, parentForm_, module);
    const bool goesOn = error.number == 0 || goesOnAfter(error);
    if (goesOn) printEnd();
    state_.IsRunning = false;
    executing_ = false;
    if (!goesOn || closeWanted_) CloseForm();
}

void frmExec::prepareDisplay() {
    keys_.clear();
    display_->Cls();
    display_->PSet(ConsoleText::leftMargin, 0, Qt::black);
}

// After an error: true when the end messages are to be printed, false when the console is to close, with the line
// marked in the editor. A stopped program ends in an error as well, the one that its poll raises; what tells it is
// that it does not run any more.
bool frmExec::goesOnAfter(const script::ErrorReport& error) {
    // Set before the error box is shown, since the box tells it where it has no message for the number.
    state_.ErrorLine = errorLineOf(error.line);
    if (state_.IsRunning && editor_ == nullptr) {
        printError(error);
        return true;
    }
    if (state_.IsRunning && askToGoOn(error.number)) return true;
    if (editor_ != nullptr) markFailingLine(*editor_, state_.ErrorLine);
    return false;
}

// What the error box would tell, and number and line (empty lines of the program are not counted).
void frmExec::printError(const script::ErrorReport& error) {
    const int line = error.line / 2;  // two lines of the module for each line of the program, behind its first one
    PrintString(RomanMark(readRtf(messageDocument(errorMessage(error.number, line))).text));
    PrintString(std::string("gfbf {"_deva)
                    .append(std::to_string(error.number))
                    .append(", }Aae¦ {"_deva)
                    .append(std::to_string(line))
                    .append("}"));
}

void frmExec::printEnd() {
    PrintString(" ");
    PrintString(" ");
    PrintString("he àayaejn wa<blele Aahe"_deva);
    PrintString("b<d kr\\{yasaQI kae[tehI bq[ daba"_deva);
}

}  // namespace tolvan
