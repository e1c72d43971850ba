// A line of input: typed in Roman letters into the input box, while its tip shows on the console's current line what it
// means.
#include "platform/encoding/Deva.h"
#include "runtime/InputBox.h"
#include "runtime/frmExec.h"
#include "runtime/host/InputValue.h"

#include <QCoreApplication>

#include <algorithm>
#include <string>

namespace tolvan {

bool frmExec::inputIsVisible() const {
    return !inputBox_->isHidden();
}

std::optional<std::string> frmExec::InputString() {
    inputBox_->clear();
    showInput();
    while (inputIsVisible() && state_.IsRunning) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const std::string value = InputValue(inputBox_->roman());
    const bool typed = state_.IsRunning;
    hideInput();
    if (!typed) return std::nullopt;
    display_->CurrentY = inputTop_;
    text_.eraseLine();
    text_.printRuns(value);
    return value;
}

void frmExec::showInput() {
    placeInput();
    inputChanged();
    inputBoxTip_->show();
    inputBox_->show();
    inputBox_->setFocus();
}

void frmExec::hideInput() {
    inputBox_->hide();
    inputBoxTip_->hide();
    inputBox_->clear();
    inputBoxTip_->Cls();
    display_->setFocus();
}

// The tip stands on the input line; the box below it in the upper half of the display, above it in the lower.
void frmExec::placeInput() {
    text_.makeRoom(ConsoleText::Room::ForInput);
    inputTop_ = display_->CurrentY;
    const QRectF line(ConsoleText::leftMargin, inputTop_, display_->ScaleWidth() - ConsoleText::leftMargin, text_.LineHeight());
}

}  // namespace tolvan
