// The part of frmExec that waits for the user: for a line of input, typed in Roman letters into the input box while the
// tip shows on the console's current line what the letters mean; and for a time to pass.
#include "platform/encoding/Deva.h"
#include "runtime/InputBox.h"
#include "runtime/ProgramRun.h"
#include "runtime/frmExec.h"
#include "runtime/host/InputValue.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <string>

namespace tolvan {

bool frmExec::inputIsVisible() const {
    return !inputBox_->isHidden();
}

std::optional<std::string> frmExec::InputString() {
    beginInput();
    while (inputIsVisible() && run_.IsRunning()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const std::string value = inputValue(inputBox_->roman());
    endInput();
    if (!run_.IsRunning()) return std::nullopt;
    text_.eraseLine();
    text_.printRuns(value);
    return value;
}

void frmExec::Wait(double seconds) {
    if (!(seconds > 0)) return;
    constexpr double longest = 1e15;  // milliseconds; thirty thousand years
    const QDeadlineTimer end(static_cast<qint64>(std::min(std::ceil(seconds * 1000), longest)), Qt::PreciseTimer);
    QTimer alarm;  // ends the wait for events
    alarm.setTimerType(Qt::PreciseTimer);
    while (!end.hasExpired() && run_.IsRunning()) {
        constexpr qint64 longestAlarm = 3'600'000;
        alarm.start(static_cast<int>(std::clamp<qint64>(end.remainingTime(), 1, longestAlarm)));
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
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
