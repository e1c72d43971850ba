#include "editor/frmEditor.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Dialogs.h"
#include "dialogs/Look.h"
#include "dialogs/WindowFrame.h"
#include "dialogs/frmAbout.h"
#include "editor/CommandBars.h"
#include "editor/Commands.h"
#include "editor/DocumentMessages.h"
#include "editor/EditorStatusBar.h"
#include "editor/FileDialogs.h"
#include "editor/PaneMenus.h"
#include "editor/SpeedSlider.h"
#include "editor/WindowPlace.h"
#include "editor/frmExamples.h"
#include "editor/frmFindReplace.h"
#include "editor/guide/EditorGuide.h"
#include "editor/guide/ProblemPanel.h"
#include "editor/guide/WordCorrection.h"
#include "editor/panes/DevanagariTyping.h"
#include "editor/panes/PaneAids.h"
#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"
#include "editor/panes/RomanInput.h"
#include "editor/steps/EditorSteps.h"
#include "editor/steps/ValuePanel.h"
#include "editor/steps/frmScript.h"
#include "editor/steps/frmTrace.h"
#include "guide/HelpTopics.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/settings/Settings.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "runtime/StopKeysInDialogs.h"
#include "runtime/frmExec.h"
#include "translator/Formatter.h"
#include "translator/UnicodeProgram.h"

#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QListWidget>
#include <QMenuBar>
#include <QMimeData>
#include <QScrollBar>
#include <QSplitter>
#include <QToolBar>
#include <QTreeView>
#include <QUrl>

#include <algorithm>
#include <chrono>

namespace tolvan {
namespace {

using namespace std::chrono_literals;

constexpr auto timer1Interval = 1500ms;
constexpr auto recoveryInterval = 2s;

constexpr std::string_view readyText = "tolvn beisk tyar Aahe"_deva;
constexpr std::string_view notKeptText = "n saQvleLya bdla<cI àt Qevta AalI nahI"_deva;
constexpr std::string_view lineText = "Aae¦ "_deva;
constexpr std::string_view runsNextText = " Aata calel"_deva;
constexpr std::string_view workingText = "q<k leon sué Aahe"_deva;
constexpr std::string_view runningText = "àayaejn suê Astana bdl krta yet nahI"_deva;
constexpr std::string_view pastedInPartText = "mjkªr )ar maeQa AsLyane suévatIcI 10 lao A]re \"etlI"_deva;

// A program in Unicode may also be a plain text file.
bool isProgramFile(const QString& path) {
    return path.endsWith(QLatin1String(".tvp"), Qt::CaseInsensitive) ||
           path.endsWith(QLatin1String(".txt"), Qt::CaseInsensitive);
}

}  // namespace

frmEditor::frmEditor(EditorState& state, Settings& settings, EditorServices services)
    : state_(state),
      settings_(settings),
      services_(std::move(services)),
      frame_(new WindowFrame(*this, WindowFrame::Kind::Resizable)),
      bars_(new CommandBars(*this)),
      work_(new QSplitter(Qt::Vertical, this)),
      splitter_(new QSplitter(work_)),
      txtRoman_(new RomanBox(splitter_)),
      txtProgram_(new ProgramBox(splitter_)),
      values_(new ValuePanel(work_)),
      speed_(new SpeedSlider(this)),
      statusBar_(new EditorStatusBar(this)),
      problems_(new ProblemPanel(this)),
      document_(*this, state.run.ProgramCaption),
      recentFiles_(settings),
      recovery_(settings.folder()),
      oldVersions_(settings.folder() + QStringLiteral("/old-versions")) {
    setObjectName(QStringLiteral("frmEditor"));
    txtRoman_->setObjectName(QStringLiteral("txtRoman"));
    txtProgram_->setObjectName(QStringLiteral("txtProgram"));
    txtRoman_->setAccessibleName(accessible::unicode("raemn A]rat àayaejn"_deva));
    txtProgram_->setAccessibleName(accessible::unicode("devnagrIt àayaejn"_deva));
    setAcceptDrops(true);
    setUpLayout();
    connectPanes();
    setUpSteps();
    connectDocument();
    connect(&state_.run, &ProgramRun::stateChanged, this, &frmEditor::runChanged);
    connect(bars_, &CommandBars::chosen, this, &frmEditor::TopMenu_UserCommand);
    connect(bars_, &CommandBars::described, statusBar_, &EditorStatusBar::showDescription);
    Timer1_Tick();
    statusBar_->showLine(txtRoman_->currentLine());
    setHelpFile({});
    enableCommands();
    MruManage({});
    refreshCaption();
    restoreWindow(settings_, *this, *splitter_);
    txtRoman_->setFocus();
}

frmEditor::~frmEditor() = default;

void frmEditor::setUpLayout() {
    splitter_->setObjectName(QStringLiteral("splPanes"));
    splitter_->setChildrenCollapsible(false);
    splitter_->setHandleWidth(look::em(0.3));
    work_->setChildrenCollapsible(false);
    work_->setHandleWidth(look::em(0.3));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(bars_->menuBar());
    layout->addWidget(bars_->toolBar());
    layout->addWidget(work_, 1);
    layout->addWidget(problems_);
    layout->addWidget(statusBar_);
}

void frmEditor::connectPanes() {
    auto* const input = new RomanInput(*txtRoman_, *txtProgram_);
    input->setParent(this);
    connect(input, &RomanInput::programChanged, this, &frmEditor::textChanged);
    connect(input, &RomanInput::programChanged, statusBar_,
            [this, input] { statusBar_->showLeftOut(input->leftOut()); });
    aids_ = std::make_unique<PaneAids>(*txtRoman_, *txtProgram_, *input);
    wordCorrection_ = std::make_unique<WordCorrection>(*txtRoman_);
    guide_ = std::make_unique<EditorGuide>(*txtRoman_, *txtProgram_, *input, *problems_);
    connect(guide_.get(), &EditorGuide::saidAtCaret, statusBar_, &EditorStatusBar::showText);
    addPaneMenus(*txtRoman_, *txtProgram_, *bars_);
    aids_->zoom().setZoom(rememberedZoom(settings_));
    connect(&aids_->zoom(), &ZoomTogether::zoomChanged, this,
            [this](int percent) { rememberZoom(settings_, percent); });
    applyPreferences();
    connect(txtRoman_, &TextPane::caretMoved, this, [this] { statusBar_->showLine(txtRoman_->currentLine()); });
    const auto showRefused = [this](const std::u32string& characters) {
        statusBar_->showRefused(characters);
        timer1_.start();
    };
    connect(txtRoman_, &RomanBox::characterRefused, this,
            [showRefused](char32_t character) { showRefused(std::u32string(1, character)); });
    connect(txtRoman_, &RomanBox::charactersLeftOut, this, showRefused);
    connect(&document_, &EditorDocument::charactersLeftOut, this, showRefused);
    const auto showForAWhile = [this](std::string_view text) {
        statusBar_->showMessage(text);
        timer1_.start();
    };
    connect(txtRoman_, &RomanBox::typedWhileLocked, this, [showForAWhile] { showForAWhile(runningText); });
    connect(txtRoman_, &RomanBox::pastedInPart, this, [showForAWhile] { showForAWhile(pastedInPartText); });
    for (const auto available : {&QPlainTextEdit::undoAvailable, &QPlainTextEdit::redoAvailable})
        connect(txtRoman_, available, this, &frmEditor::enableCommands);
    timer1_.setInterval(timer1Interval);
    timer1_.setSingleShot(true);
    connect(&timer1_, &QTimer::timeout, this, &frmEditor::Timer1_Tick);
}

void frmEditor::connectDocument() {
    connect(&document_, &EditorDocument::titleChanged, this, &frmEditor::refreshCaption);
    connect(&document_, &EditorDocument::filed, this, &frmEditor::MruManage);
    connect(&document_, &EditorDocument::discarding, this, &frmEditor::keepDiscarded);
    const auto keepVersion = [this](const QString& path) { oldVersions_.keepSaved(path); };
    connect(&document_, &EditorDocument::replacing, this, keepVersion);  // another program may have written it
    connect(&document_, &EditorDocument::saved, this, keepVersion);
    connect(&document_, &EditorDocument::saved, this, [this] {
        recoveryTimer_.stop();
        isUnkept_ = false;
        recovery_.removeAll();
    });
    recoveryTimer_.setInterval(recoveryInterval);
    recoveryTimer_.setSingleShot(true);
    connect(&recoveryTimer_, &QTimer::timeout, this, &frmEditor::keepUnsaved);
}

void frmEditor::applyPreferences() {
    aids_->completion().setAutomatic(state_.SuggestWords);
    aids_->quoteSpans().setEnabled(state_.PairQuotes);
    guide_->setEnabled(state_.ShowProblems);
    wordCorrection_->setEnabled(state_.MendWords);
}

void frmEditor::refreshCaption() {
    frame_->setTitle(StyledText("tolvn beisk   "_deva, Font::Devanagari), document_.title());
}

void frmEditor::textChanged() {
    timer1_.start();
    guide_->setRunFailure(std::nullopt);
    statusBar_->showMessage(workingText);
    document_.setTextChanged(txtRoman_->document()->isModified());
    statusBar_->showLine(txtRoman_->currentLine());
    if (document_.isDirty() && !recoveryTimer_.isActive()) recoveryTimer_.start();
}

void frmEditor::Timer1_Tick() {
    if (!isUnkept_ && steps_->phase() == EditorSteps::Phase::Standing)
        return statusBar_->showMessage(std::string(lineText) + std::to_string(steps_->control().line()) +
                                       std::string(runsNextText));
    statusBar_->showMessage(isUnkept_ ? notKeptText : readyText);
}

// A copy that cannot be written is tried again, and the status bar says so meanwhile.
void frmEditor::keepUnsaved() {
    const bool wasUnkept = isUnkept_;
    isUnkept_ = document_.isDirty() && !recovery_.keep(document_.unsaved());
    if (isUnkept_) recoveryTimer_.start();
    if (isUnkept_ || wasUnkept) Timer1_Tick();
}

// Keeps the discarded text, and what was set aside before it, as old versions; the next start need not offer it.
void frmEditor::keepDiscarded() {
    recoveryTimer_.stop();
    bool kept = !document_.isDirty() || oldVersions_.keepDiscarded(document_.unsaved());
    for (const UnsavedText& text : recovery_.texts()) kept = oldVersions_.keepDiscarded(text) && kept;
    if (kept) return recovery_.removeAll();
    keepUnsaved();
    recovery_.setAside();
}

// "No" discards the texts: they become old versions. After a cancel the next start asks again.
void frmEditor::offerRecovery() {
    const std::vector<UnsavedText> left = recovery_.takeLeft();
    if (left.empty()) return;
    QStringList titles;
    for (const UnsavedText& text : left) titles.append(text.path.isEmpty() ? EditorDocument::newTitle : text.path);
    const Answer answer = AskQuestion(messages::takeUpUnsaved(titles));
    if (answer == Answer::Yes) {
        recovery_.takeUpFirst();
        document_.takeUp(left.front());
    } else if (answer == Answer::No) {
        bool kept = true;
        for (auto text = left.rbegin(); text != left.rend(); ++text) kept = oldVersions_.keepDiscarded(*text) && kept;
        if (kept) recovery_.removeLeft();
    }
}

std::string frmEditor::programText() const {
    return txtProgram_->text().text();
}

std::string frmEditor::romanText() const {
    return txtRoman_->text();
}

void frmEditor::setRomanText(std::string_view text) {
    steps_->breakPoints().clear();
    txtRoman_->setText(text);
}

void frmEditor::replaceRomanText(std::string_view text) {
    txtRoman_->replaceText(text);
}

void frmEditor::setChanged(bool changed) {
    txtRoman_->document()->setModified(changed);
}

void frmEditor::selectProgram(std::size_t start, std::size_t length) {
    txtProgram_->select(start, length);
}

// The caret is at the end of the line; of a long one the start is to be seen. A window that was never shown has panes
// of no width, and would open with all its text out of sight.
void frmEditor::selectRoman(std::size_t start, std::size_t length) {
    txtRoman_->mark(start, length);
    for (const TextPane* pane : {static_cast<TextPane*>(txtRoman_), static_cast<TextPane*>(txtProgram_)})
        pane->horizontalScrollBar()->setValue(0);
}

void frmEditor::bringBack() {
    if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    txtRoman_->setFocus();
}

bool frmEditor::TopMenu_UserCommand(const QByteArray& key) {
    if (key.startsWith(toolBarPrefix.data())) {
        toggleToolBar(key);
        return true;
    }
    aids_->devanagari().finish();
    return QMetaObject::invokeMethod(this, key.constData());
}

void frmEditor::toggleToolBar(const QByteArray& key) {
    const bool shown = bars_->toggleToolBar(key);
    settings_.SaveSetting(QStringLiteral("Settings"), QString::fromLatin1(key), settingText(shown));
}

bool frmEditor::OpenFile(const QString& path) {
    return document_.OpenFile(path);
}

void frmEditor::MruManage(const QString& path) {
    recentFiles_.add(path);
    bars_->showRecentFiles(recentFiles_);
    const QFileInfo last(QFileInfo(recentFiles_.path(1)).absolutePath());
    const bool any = !recentFiles_.path(1).isEmpty() && last.isDir();
    document_.setFolders(any                          ? last.filePath()
                         : examplesFolder().isEmpty() ? startFolder()
                                                      : examplesFolder(),
                         any && last.isWritable() ? last.filePath() : startFolder());
}

void frmEditor::FileNew() {
    document_.FileNew();
}
void frmEditor::FileOpen() {
    document_.FileOpen();
}
// A copy, so that the example stays as it is.
void frmEditor::FileExamples() {
    const QString example = askExample(examplesFolder(), this);
    if (!example.isEmpty()) document_.OpenCopy(example);
}
void frmEditor::FileSave() {
    document_.FileSave();
}
void frmEditor::FileSaveAs() {
    document_.FileSaveAs();
}
void frmEditor::FileOldVersions() {
    const QString all = oldVersions_.folder();
    const QString own = oldVersions_.folderOf(document_.path());
    document_.OpenOldVersion(QFileInfo(own).isDir() ? own : all, own);
}
void frmEditor::FileSaveUnicode() {
    document_.FileSaveUnicode();
}
void frmEditor::FilePreferences() {
    if (services_.filePreferences) services_.filePreferences(*this);
}
void frmEditor::FileMakeEXE() {
    if (services_.fileMakeExe) services_.fileMakeExe(*this);
}
void frmEditor::FileExit() {
    close();
}

void frmEditor::openRecent(int slot) {
    document_.OpenRecent(recentFiles_.path(slot));
}
void frmEditor::MnuMru1() {
    openRecent(1);
}
void frmEditor::MnuMru2() {
    openRecent(2);
}
void frmEditor::MnuMru3() {
    openRecent(3);
}
void frmEditor::MnuMru4() {
    openRecent(4);
}

void frmEditor::EditUndo() {
    txtRoman_->undo();
}
void frmEditor::EditRedo() {
    txtRoman_->redo();
}
void frmEditor::EditCut() {
    txtRoman_->cut();
}
void frmEditor::EditCopy() {
    txtRoman_->copy();
}
void frmEditor::EditCopyDevanagari() {
    const std::string selected = txtRoman_->selectedText();
    QApplication::clipboard()->setText(
        QString::fromStdString(unicodeOfProgram(selected.empty() ? txtRoman_->text() : selected)));
}
void frmEditor::EditPaste() {
    txtRoman_->paste();
}
void frmEditor::EditSelectAll() {
    txtRoman_->selectAll();
}

frmFindReplace& frmEditor::findReplace() {
    if (findReplace_ == nullptr) {
        findReplace_ = new frmFindReplace(*txtRoman_, this);
        connect(findReplace_, &frmFindReplace::noted, statusBar_, &EditorStatusBar::showDescription);
    }
    return *findReplace_;
}
void frmEditor::EditFind() {
    findReplace().bringUp();
}
void frmEditor::EditReplace() {
    findReplace().bringUp();
}
void frmEditor::EditFindNext() {
    findReplace().findNext();
}

void frmEditor::EditFormat() {
    const std::string roman = romanText();
    if (roman.find_first_not_of(' ') == std::string::npos) return;
    txtRoman_->replaceText(formatProgram(roman, txtProgram_->text()));
}

void frmEditor::EditSuggest() {
    aids_->completion().open();
}

void frmEditor::EditNextProblem() {
    guide_->goToNext();
}
void frmEditor::EditMend() {
    guide_->mend();
}

void frmEditor::ViewNextPane() {
    std::vector<QWidget*> panes{txtRoman_, txtProgram_};
    if (values_->isVisible()) panes.push_back(&values_->view());
    if (problems_->isVisible()) panes.push_back(&problems_->list());
    const auto now = std::find_if(panes.begin(), panes.end(), [](const QWidget* pane) { return pane->hasFocus(); });
    const auto next = static_cast<std::size_t>(now - panes.begin() + 1) % panes.size();
    (now == panes.end() ? txtRoman_ : panes[next])->setFocus(Qt::ShortcutFocusReason);
}

void frmEditor::ViewZoomIn() {
    aids_->zoom().zoomIn();
}
void frmEditor::ViewZoomOut() {
    aids_->zoom().zoomOut();
}
void frmEditor::ViewZoomNormal() {
    aids_->zoom().setZoom(100);
}

void frmEditor::setHelpFile(const QString& path) {
    helpFile_ = path;
    bars_->setEnabled("HelpHelp", !path.isEmpty());
}

// That of the finding, or else of the word.
std::string frmEditor::helpTopicAtCaret() const {
    if (txtProgram_->hasFocus()) return txtProgram_->wordAtCaret();
    const std::string_view finding = guide::helpTopic(guide_->currentKind());
    return LineConvert(finding.empty() ? txtRoman_->wordAtCaret() : std::string(finding));
}

void frmEditor::HelpHelp() {
    if (helpFile_.isEmpty()) return;
    const QString topic = toQString(helpTopicAtCaret());
    if (!services_.showHelp || !services_.showHelp(helpFile_, topic)) ShowMessage(messages::helpFailed());
}

void frmEditor::HelpAbout() {
    const StopKeysInDialogs stopKeys(state_.run);
    showAbout(this);
}

void frmEditor::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls() && !isRunning()) event->acceptProposedAction();
}

// Opening may ask the user: done later, so that the application from which the file was dragged need not wait.
void frmEditor::dropEvent(QDropEvent* event) {
    QStringList paths;
    for (const QUrl& url : event->mimeData()->urls())
        paths.append(url.isLocalFile() ? url.toLocalFile() : url.toString());
    if (paths.isEmpty() || isRunning()) return;
    event->acceptProposedAction();
    QMetaObject::invokeMethod(
        this, [this, paths] { openDropped(paths); }, Qt::QueuedConnection);
}

void frmEditor::openDropped(const QStringList& paths) {
    if (paths.size() > 1)
        ShowMessage(messages::tooManyFiles);
    else if (!isProgramFile(paths.constFirst()))
        ShowMessage(messages::otherKind(paths.constFirst()));
    else
        OpenFile(paths.constFirst());
}

void frmEditor::closeEvent(QCloseEvent* event) {
    if (state_.run.delaysClosing(*this)) return event->ignore();
    if (!state_.Closing && !document_.mayClose()) {
        event->ignore();
        return;
    }
    if (state_.Closing) keepUnsaved();  // no one has been asked
    recoveryTimer_.stop();
    rememberWindow(settings_, *this, *splitter_);
    for (QWidget* window :
         {static_cast<QWidget*>(findReplace_), static_cast<QWidget*>(trace_), static_cast<QWidget*>(script_)})
        if (window != nullptr) window->close();
    if (console_) console_->close();
    event->accept();
    if (!state_.Closing && services_.shutDown) services_.shutDown();
}

}  // namespace tolvan
