// The part of frmExec that lets a program be gone through line by line, and that shows how the console looked earlier.
#include "platform/encoding/Deva.h"
#include "runtime/MessageStrip.h"
#include "runtime/ProgramRun.h"
#include "runtime/frmExec.h"
#include "runtime/host/StepControl.h"

#include <QCoreApplication>

#include <chrono>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace tolvan {
namespace {

// What only the later one of two pictures has becomes grey in the first. Both have the same size.
bool addFaintly(QImage& picture, const QImage& later) {
    constexpr QRgb ground = qRgb(0, 0, 0);
    constexpr double faint = 0.42;
    bool isMore = false;
    for (int y = 0; y < picture.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(picture.scanLine(y));
        const auto* const laterRow = reinterpret_cast<const QRgb*>(later.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            if (row[x] == laterRow[x] || (row[x] | 0xFF000000U) != ground) continue;
            const int grey = qRound(qGray(laterRow[x]) * faint);
            row[x] = qRgb(grey, grey, grey);
            isMore = true;
        }
    }
    return isMore;
}

}  // namespace

void frmExec::setSteps(StepControl* steps) {
    steps_ = steps;
    parentForm_.setSteps(steps);
}

void frmExec::record(script::Recording& recording) {
    recording.clear();
    recording.setOutputCount(parentForm_.callCount());
    executor_.setRecording(&recording);
    log_.begin(*display_, text_, *parentForm_.callCount());
}

// What the program has drawn is seen while it stands, and keys and the mouse work as always.
bool frmExec::StandStill(double mostSeconds) {
    hasStood_ = true;
    if (std::chrono::duration<double>(mostSeconds) > StepControl::shortestSeen) display_->ShowNow();
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
    log_.add(*display_, text_, std::move(call));
}

void frmExec::bringForward() {
    raise();
    activateWindow();
}

bool frmExec::showMoment(std::uint64_t calls, bool withRest) {
    past_->setGeometry(display_->rect());
    const bool isKnown = log_.draw(calls, *past_, pastText_);
    QImage picture = past_->Image();
    const std::vector<ConsoleText::SeenLine> lines = pastText_.seenLines();
    if (withRest) log_.drawRest(calls, *past_, pastText_);
    std::vector<std::string> sentences{std::string("ha magaeva Aahe{:} teVha Ase idst haete"_deva)};
    if (addFaintly(picture, past_->Image())) sentences.emplace_back("i)ke Aahe te n<tr Aale"_deva);
    pastText_.reset();  // what came later was not yet printed then
    pastText_.setSeenLines(lines);
    past_->SetImage(picture);
    past_->show();
    past_->raise();
    pastStrip_->tell(std::move(sentences));
    return isKnown;
}

void frmExec::showPresent() {
    past_->hide();
}

}  // namespace tolvan
