// The part of frmExec that waits for the user: for a line of input, typed in Roman letters into the input box while the
// tip shows on the console's current line what the letters mean; and for a time to pass.
#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"
#include "platform/encoding/Deva.h"
#include "platform/richtext/UnicodeText.h"
#include "runtime/ConsoleReader.h"
#include "runtime/InputBox.h"
#include "runtime/ProgramRun.h"
#include "runtime/ScrollBack.h"
#include "runtime/frmExec.h"
#include "runtime/host/InputValue.h"

#include <QCoreApplication>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <string>

namespace tolvan {

using namespace std::chrono_literals;

bool frmExec::inputIsVisible() const {
    return !inputBox_->isHidden();
}

std::optional<std::string> frmExec::InputString() {
    beginInput();
    while (inputIsVisible() && run_.IsRunning()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    std::string value = inputValue(inputBox_->roman());
    endInput();
    if (!run_.IsRunning()) return std::nullopt;
    if (log_.isKept()) keep({.kind = ConsoleLog::Kind::Input, .text = value});
    text_.eraseLine();
    text_.printRuns(value);
    reader_->printed();
    return value;
}

// The pauses of a loop keep their beat: a little that is done between two of them is part of the second.
void frmExec::Wait(double seconds) {
    if (!(seconds > 0)) return;
    display_->ShowNow();
    constexpr double longest = 1e9;  // thirty years
    const auto now = std::chrono::steady_clock::now();
    const auto start = now - lastPause_ <= 50ms ? lastPause_ : now;
    const auto length = std::chrono::duration<double>(std::min(seconds, longest));
    lastPause_ = start + std::chrono::duration_cast<std::chrono::nanoseconds>(length);
    while (run_.IsRunning()) {
        const std::chrono::duration<double> left = lastPause_ - std::chrono::steady_clock::now();
        if (left.count() <= 0) break;
        waitForEvents(left.count());
    }
}

// Returns after the next event, or after this time.
void frmExec::waitForEvents(double mostSeconds) {
    QTimer alarm;
    alarm.setTimerType(Qt::PreciseTimer);
    constexpr double longestAlarm = 3600;
    alarm.start(static_cast<int>(std::ceil(std::clamp(mostSeconds, 0.001, longestAlarm) * 1000)));
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void frmExec::beginInput() {
    scrollBack_->leave();
    display_->ShowNow();
    if (hasStood_) bringForward();  // the keyboard is in the editor
    inputBox_->clear();
    const QString question = reader_->lastLine().trimmed();
    inputBox_->setAccessibleName(question.isEmpty() ? accessible::unicode("%Är"_deva) : question);
    inputBox_->show();
    inputBoxTip_->show();
    placeInput();
    inputBox_->setFocus();
    emit asked();
}

void frmExec::endInput() {
    inputBox_->hide();
    inputBox_->clear();
    inputBoxTip_->hide();
    inputBoxTip_->Cls();
    inputNote_->hide();
    display_->setFocus();
}

// Places the tip and the input box below what was printed, scrolling where there is too little room. Called again when
// the display gets another size.
void frmExec::placeInput() {
    const int line = qRound(std::ceil(text_.LineHeight()));
    const int note = inputNote_->isHidden() ? 0 : line;
    inputBox_->fitText(display_->width() - qRound(ConsoleText::leftMargin));
    const auto height = static_cast<float>(line + inputBox_->height() + note);
    keep({.kind = ConsoleLog::Kind::Room, .x1 = height});
    text_.makeRoom(height);
    inputBoxTip_->move(qRound(ConsoleText::leftMargin), qRound(display_->CurrentY));
    // On a display that is too low for both, the box still shows.
    inputBox_->move(inputBoxTip_->x(), std::min(inputBoxTip_->y() + line, display_->height() - inputBox_->height()));
    inputNote_->move(inputBoxTip_->x(), inputBox_->geometry().bottom() + 1);
    inputChanged();
}

void frmExec::inputChanged() {
    if (!inputIsVisible()) return;
    const int mostWidth = display_->width() - inputBoxTip_->x();
    inputBoxTip_->resize(mostWidth, qRound(std::ceil(text_.LineHeight())));
    inputBoxTip_->Cls();
    const std::string tip = std::string("*a{: }"_deva) + inputValue(inputBox_->roman());
    text_.drawRuns(*inputBoxTip_, tip);
    inputBoxTip_->setAccessibleName(QString::fromStdString(unicodeOfInternalText(tip)));
    inputBoxTip_->resize(std::clamp(qRound(std::ceil(inputBoxTip_->CurrentX)), 1, mostWidth), inputBoxTip_->height());
    inputBox_->fitText(mostWidth);
    tellAboutLength();
}

void frmExec::inputWasCut() {
    tellInNote(")´ 200 A]re mavtat{.} bakIcI \"etlI nahIt{.}"_deva);
}

// Says that the input has reached its length, and which key still works.
void frmExec::tellAboutLength() {
    if (inputBox_->text().size() > InputBox::mostCharacters)
        tellInNote("Aae¦ oUp la<b Aahe{.} {Delete} dabUn kahI A]re pusa{.}"_deva);
    else if (!inputBox_->isFull())
        inputNote_->hide();
}

void frmExec::tellInNote(std::string_view sentence) {
    const bool isNew = inputNote_->isHidden();
    inputNote_->resize(display_->width() - inputBoxTip_->x(), qRound(std::ceil(text_.LineHeight())));
    inputNote_->Cls();
    inputNote_->setForeground(look::console::note);
    text_.drawRuns(*inputNote_, sentence);
    inputNote_->setAccessibleName(QString::fromStdString(unicodeOfInternalText(sentence)));
    inputNote_->show();
    if (isNew) placeInput();
}

void frmExec::inputEntered() {
    inputBoxTip_->hide();
    inputBox_->hide();
}

void frmExec::focusInput() {
    if (inputIsVisible()) inputBox_->setFocus();
}

// The focus is on its way to another widget while this is called; it is taken back when it has arrived there.
void frmExec::inputLostFocus() {
    if (keepInputFocus_) QMetaObject::invokeMethod(this, &frmExec::focusInput, Qt::QueuedConnection);
}

}  // namespace tolvan
