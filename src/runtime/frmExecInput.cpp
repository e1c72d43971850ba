// The part of frmExec that asks for a line of input: it is typed in Roman letters into the input box, while the tip
// shows on the console's current line what the letters mean.
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
    beginInput();
    while (inputIsVisible() && state_.IsRunning) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const std::string value = inputValue(inputBox_->roman());
    endInput();
    if (!state_.IsRunning) return std::nullopt;
    text_.eraseLine();
    text_.printRuns(value);
    return value;
}

void frmExec::beginInput() {
    inputBox_->clear();
    inputBox_->show();
    inputBoxTip_->show();
    placeInput();
    inputBox_->setFocus();
}

void frmExec::endInput() {
    inputBox_->hide();
    inputBox_->clear();
    inputBoxTip_->hide();
    inputBoxTip_->Cls();
    display_->setFocus();
}

// Also when the display got another size meanwhile: the input line stays one that can be seen.
void frmExec::placeInput() {
    text_.makeRoom(ConsoleText::Room::ForInput);
    inputBoxTip_->move(qRound(ConsoleText::leftMargin), qRound(display_->CurrentY));
    inputChanged();
}

void frmExec::inputChanged() {
    if (!inputIsVisible()) return;
    const int mostWidth = display_->width() - inputBoxTip_->x();
    inputBoxTip_->resize(mostWidth, qRound(std::ceil(text_.LineHeight())));
    inputBoxTip_->Cls();
    text_.drawRuns(*inputBoxTip_, std::string("*a{: }"_deva) + inputValue(inputBox_->roman()));
    inputBoxTip_->resize(std::clamp(qRound(std::ceil(inputBoxTip_->CurrentX)), 1, mostWidth), inputBoxTip_->height());

    inputBox_->fitText(mostWidth);
    const bool upperHalf = display_->CurrentY < display_->ScaleHeight() / 2;
    inputBox_->move(inputBoxTip_->x(),
                    upperHalf ? inputBoxTip_->y() + inputBoxTip_->height() : inputBoxTip_->y() - inputBox_->height());
}

void frmExec::inputEntered() {
    inputBoxTip_->hide();
    inputBox_->hide();
}

void frmExec::focusInput() {
    if (inputIsVisible()) inputBox_->setFocus();
}

// Not at once: whoever takes the keyboard is still about to.
void frmExec::inputLostFocus() {
    if (keepInputFocus_) QMetaObject::invokeMethod(this, &frmExec::focusInput, Qt::QueuedConnection);
}

}  // namespace tolvan
