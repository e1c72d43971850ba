#include "runtime/frmExec.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Dialogs.h"
#include "dialogs/WindowFrame.h"
#include "dialogs/frmAbout.h"
#include "platform/encoding/Deva.h"
#include "platform/transliteration/MarkRoman.h"
#include "runtime/ConsoleReader.h"
#include "runtime/DataFiles.h"
#include "runtime/InputBox.h"
#include "runtime/MessageStrip.h"
#include "runtime/ProgramMarker.h"
#include "runtime/ProgramRun.h"
#include "runtime/ScrollBack.h"
#include "runtime/StopKeysInDialogs.h"
#include "translator/Blanks.h"
#include "translator/ProgramText.h"

#include <QApplication>
#include <QCloseEvent>
#include <QVBoxLayout>

namespace tolvan {
namespace {

// Bytes. A statement is not interrupted; with texts of this size it takes so little time that a stop key is felt at
// once.
constexpr std::size_t longestText = std::size_t{16} << 20;

// Bytes of a printed line that are kept for a later look at this moment.
constexpr std::size_t longestLine = std::size_t{16} << 10;

struct SystemItem {
    std::string_view caption;
    const char* command;  // a method of the console
};
constexpr SystemItem systemItems[] = {
    {"icÇ saQv"_deva, "SavePicture"},
    {"icÇacI àt bnv"_deva, "CopyPicture"},
    {"tolvn beisk bÎl"_deva, "ShowAbout"},
};

}  // namespace

frmExec::frmExec(ProgramRun& run, ProgramMarker* editor)
    : run_(run),
      editor_(editor),
      frame_(new WindowFrame(*this, WindowFrame::Kind::Resizable)),
      size_(*this, *frame_),
      display_(new PictureBox(this)),
      text_(*display_),
      inputBoxTip_(new PictureBox(display_)),
      inputBox_(new InputBox(display_)),
      inputNote_(new PictureBox(display_)),
      scrollBack_(new ScrollBack(*display_, text_)),
      strip_(new MessageStrip(*display_)),
      past_(new PictureBox(display_)),
      pastText_(*past_),
      pastStrip_(new MessageStrip(*past_)),
      reader_(new ConsoleReader(*display_, text_, *strip_, scrollBack_, past_)),
      parentForm_(*this) {
    setObjectName(QStringLiteral("frmExec"));
    display_->setObjectName(QStringLiteral("Display"));
    inputBox_->setObjectName(QStringLiteral("InputBox"));
    inputBoxTip_->setObjectName(QStringLiteral("InputBoxTip"));
    inputNote_->setObjectName(QStringLiteral("InputNote"));
    setUpSystemMenu();
    updateTitle();
    display_->setAccessibleName(accessible::unicode("inkal"_deva));
    setUpControls();
    executor_.setTimeout(-1);
    executor_.setLongestText(longestText);
}

frmExec::~frmExec() = default;

void frmExec::setUpSystemMenu() {
    for (const SystemItem& item : systemItems) frame_->systemMenu().addCommand(item.caption, item.command);
    connect(frame_, &WindowFrame::userCommand, this,
            [this](const QByteArray& command) { QMetaObject::invokeMethod(this, command.constData()); });
}

void frmExec::setUpControls() {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(display_);
    setFocusProxy(display_);

    inputBox_->hide();
    past_->setObjectName(QStringLiteral("Past"));
    new ConsoleReader(*past_, pastText_, *pastStrip_);  // the picture owns it, and is to have it before its name
    past_->setAccessibleName(accessible::unicode("magaeva"_deva));
    for (PictureBox* const picture : {inputBoxTip_, inputNote_, past_}) {
        picture->hide();
        picture->setFocusPolicy(Qt::NoFocus);
    }
    connect(inputBox_, &InputBox::textChanged, this, &frmExec::inputChanged);
    connect(inputBox_, &InputBox::wasCut, this, &frmExec::inputWasCut);
    connect(inputBox_, &InputBox::refused, this, [this] { tellInNote("he icNh ilihta yet nahI{.}"_deva); });
    connect(inputBox_, &InputBox::entered, this, &frmExec::inputEntered);
    connect(inputBox_, &InputBox::focusLost, this, &frmExec::inputLostFocus);
    for (QWidget* const watched :
         {static_cast<QWidget*>(display_), static_cast<QWidget*>(inputBox_), static_cast<QWidget*>(inputBoxTip_)})
        watched->installEventFilter(this);
}

// Punctuation of the caption stays Latin, as in the program's own text.
void frmExec::updateTitle() {
    const StyledText caption = Transliterate(markRoman(trimBlanks(run_.ProgramCaption)));
    frame_->setTitle(caption.empty() ? StyledText("tolvn àayaejn"_deva, Font::Devanagari) : caption);
}

void frmExec::PrintString(std::string_view text) {
    if (log_.isKept()) keep({.kind = ConsoleLog::Kind::Print, .text = std::string(text.substr(0, longestLine))});
    text_.PrintString(text);
    reader_->printed();
}

void frmExec::ClearScreen() {
    display_->FinishPicture();
    log_.clear(*parentForm_.callCount());
    text_.ClearScreen();
    hasDrawn_ = false;
}

bool frmExec::CheckForEvents() {
    QCoreApplication::processEvents();
    return run_.IsRunning();
}

void frmExec::StopExecution() {
    run_.stop();
}

bool frmExec::MayReachFile(const std::string& path, bool writing) {
    const StopKeysInDialogs stopKeys(run_);
    return AskConsent(fileQuestion(path, writing)) && run_.IsRunning();
}

// If the program is to stop, an error is raised here, so that it stops in this statement and not before the next one.
void frmExec::FileOpenFailed(int number) {
    if (askToGoOn(number, run_.ErrorLine)) return;
    hasFailed_ = true;
    run_.stop();
    throw script::ScriptError(number);
}

// Gives the keyboard back to the console, even if that had not received it yet when the box came up.
bool frmExec::askToGoOn(int number, int line) {
    const StopKeysInDialogs stopKeys(run_);
    const bool goesOn = ShowError(number, line, this);
    raise();
    activateWindow();
    return goesOn && run_.IsRunning();
}

bool frmExec::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
            return keyPressed(watched, static_cast<QKeyEvent&>(*event));
        case QEvent::FocusIn:
            if (watched == display_) focusInput();
            break;
        case QEvent::MouseButtonPress:
            if (watched == inputBoxTip_) focusInput();
            [[fallthrough]];
        case QEvent::MouseMove:
            if (watched == display_) scrollBack_->mouseMoved(static_cast<QMouseEvent&>(*event));
            break;
        case QEvent::Wheel:
            scrollBack_->wheelTurned(static_cast<QWheelEvent*>(event)->angleDelta().y());
            return true;
        case QEvent::Resize:
            if (watched == display_) displayResized();
            break;
        default:
            break;
    }
    return QWidget::eventFilter(watched, event);
}

void frmExec::displayResized() {
    if (inputIsVisible()) placeInput();
    strip_->placeAtBottom();
    scrollBack_->setGeometry(display_->rect());
    past_->setGeometry(display_->rect());
}

// Whether the key copies a selection, which stops no program.
bool frmExec::isCopied(QObject* control, const QKeyEvent& key) const {
    return control == inputBox_ && isCtrlC(key) && inputBox_->hasSelectedText();
}

// The window sees every key before its controls do. Returns true for a key that they are not to see.
bool frmExec::keyPressed(QObject* control, const QKeyEvent& key) {
    const bool wasScrolledBack = scrollBack_->isShown();
    if (scrollBack_->keyPressed(key)) return true;
    if (isCopied(control, key)) return false;
    if (isStopKey(key) && run_.IsRunning()) {
        run_.stop();
        return isCtrlC(key);
    }
    if (run_.IsRunning() && editor_ != nullptr && editor_->takesRunKey(key)) return true;
    if (run_.IsRunning() && control != inputBox_ && keys_.add(key)) return true;
    // Repetitions of a held key do not count: Enter held a little too long for the last answer would close the console.
    const bool isTyped = !key.text().isEmpty() && !key.isAutoRepeat();
    if (control == display_ && isTyped && !run_.IsRunning() && !wasScrolledBack) CloseForm();
    return false;
}

void frmExec::keyPressEvent(QKeyEvent* event) {
    if (!keyPressed(this, *event)) QWidget::keyPressEvent(event);
}

void frmExec::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    focusInput();
}

void frmExec::closeEvent(QCloseEvent* event) {
    if (run_.delaysClosing(*this)) return event->ignore();  // the program is in the middle of a call on this window
    size_.remember();
    QWidget::closeEvent(event);
}

void frmExec::CloseForm() {
    run_.stop();
    if (run_.isIdle() && editor_ != nullptr) editor_->bringBack();
    close();
}

void frmExec::ShowAbout() {
    const StopKeysInDialogs stopKeys(run_);
    keepInputFocus_ = false;
    showAbout(this);
    keepInputFocus_ = true;
}

}  // namespace tolvan
