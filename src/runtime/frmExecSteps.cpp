// The part of frmExec that lets a program be gone through line by line, and that shows how the console looked earlier.
#include "platform/encoding/Deva.h"
#include "runtime/MessageStrip.h"
#include "runtime/ProgramRun.h"
#include "runtime/frmExec.h"
#include "runtime/host/StepControl.h"

#include <QCoreApplication>

#include <cmath>

namespace tolvan {

void frmExec::setSteps(StepControl* steps) {
    steps_ = steps;
    parentForm_.setSteps(steps);
}

void frmExec::record(script::Recording& recording) {
    recording.clear();
    recording.setOutputCount(parentForm_.callCount());
    executor_.setRecording(&recording);
    log_.begin(*display_, *parentForm_.callCount());
}

// What the program has drawn is seen while it stands, and keys and the mouse work as always.
bool frmExec::StandStill(double mostSeconds) {
    hasStood_ = true;
    display_->ShowNow();
    if (!run_.IsRunning()) return false;
    if (std::isfinite(mostSeconds))
        waitForEvents(mostSeconds);
    else
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return run_.IsRunning();
}

void frmExec::keep(ConsoleLog::Call call) {
    if (!log_.isKept()) return;
    call.number = *parentForm_.callCount();
    log_.add(*display_, std::move(call));
}

void frmExec::bringForward() {
    raise();
    activateWindow();
}

bool frmExec::showMoment(std::uint64_t calls) {
    past_->setGeometry(display_->rect());
    const bool isKnown = log_.draw(calls, *past_, pastText_);
    past_->show();
    past_->raise();
    pastStrip_->tell({std::string("ha magaeva Aahe{:} teVha Ase idst haete"_deva)});
    return isKnown;
}

void frmExec::showPresent() {
    past_->hide();
}

}  // namespace tolvan
