#include "editor/EditorDocument.h"

#include "dialogs/Dialogs.h"
#include "editor/DocumentMessages.h"
#include "editor/FileDialogs.h"
#include "editor/WholeFile.h"
#include "platform/encoding/Unicode.h"
#include "platform/fonts/FontEncoding.h"
#include "translator/ProgramFile.h"
#include "translator/UnicodeProgram.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QScopedValueRollback>

namespace tolvan {
namespace {

constexpr QLatin1Char dirtyMark('*');

FileRequest programFileRequest(const QString& title, const QString& folder) {
    return {title, QStringLiteral("Tolvan Basic Program"), QStringLiteral("tvp"), folder, {}};
}

QByteArray fingerprintOf(const QByteArray& content) {
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256);
}

}  // namespace

const QString EditorDocument::newTitle = QStringLiteral("Default.tvp");

EditorDocument::EditorDocument(DocumentText& text, std::string& caption)
    : text_(text), caption_(caption), name_(newTitle) {}

QString EditorDocument::title() const {
    return isDirty() ? name_ + dirtyMark : name_;
}

void EditorDocument::setCaption(std::string_view caption) {
    if (caption_ == caption) return;
    caption_ = caption;
    captionChanged_ = true;
    emit titleChanged();
}

void EditorDocument::setTextChanged(bool changed) {
    const bool before = isDirty();
    textChanged_ = changed;
    if (before != isDirty()) emit titleChanged();
}

void EditorDocument::setState(const QString& name, bool textChanged) {
    name_ = name;
    captionChanged_ = false;
    textChanged_ = textChanged;
    text_.setChanged(textChanged);
    emit titleChanged();
}

bool EditorDocument::mayGo(std::string_view question) {
    if (!isDirty()) return true;
    switch (AskQuestion(question)) {
        case Answer::Yes:
            return FileSave();
        case Answer::No:
            return true;
        case Answer::Cancel:
            break;
    }
    return false;
}

bool EditorDocument::mayClose() {
    if (!mayGo(messages::saveBeforeClose)) return false;
    emit discarding();
    return true;
}

void EditorDocument::setFolders(const QString& forOpening, const QString& forSaving) {
    openFolder_ = forOpening;
    saveFolder_ = forSaving;
}

bool EditorDocument::FileNew() {
    const QScopedValueRollback loading(loading_, true);
    if (!mayGo(messages::saveBeforeNew)) return false;
    emit discarding();
    replaceBy({}, {});
    caption_.clear();
    fingerprint_.clear();
    setState(newTitle, false);
    return true;
}

bool EditorDocument::FileOpen() {
    const QScopedValueRollback loading(loading_, true);
    return mayGo(messages::saveBeforeOpen) && OpenFile({});
}

bool EditorDocument::OpenRecent(const QString& path) {
    const QScopedValueRollback loading(loading_, true);
    return mayGo(messages::saveBeforeOpen) && OpenFile(path);
}

bool EditorDocument::OpenFile(const QString& path) {
    if (!path.trimmed().isEmpty()) return load(path);
    const QString folder = path_.isEmpty() ? openFolder_ : QFileInfo(path_).absolutePath();
    const QString chosen = askOpenFile(programFileRequest(QStringLiteral("Open Tolvan Program..."), folder));
    return !chosen.isEmpty() && load(chosen);
}

void EditorDocument::OpenOldVersion(const QString& folder, const QString& own) {
    const QString chosen = askOpenFile(programFileRequest(QStringLiteral("जुनी आवृत्ती उघड..."), folder));
    if (chosen.isEmpty()) return;
    const std::optional<ProgramContent> old = read(chosen);
    if (!old) return;
    if (!path_.isEmpty() && QFileInfo(chosen).absolutePath() == QFileInfo(own).absoluteFilePath()) {
        text_.replaceRomanText(old->program.roman);
        setCaption(old->program.caption);
    } else if (mayGo(messages::saveBeforeOpen)) {
        emit discarding();
        takeUp({{}, {}, old->program.caption, old->program.roman});
    }
}

bool EditorDocument::OpenCopy(const QString& path) {
    const QScopedValueRollback loading(loading_, true);
    if (!mayGo(messages::saveBeforeOpen)) return false;
    const std::optional<ProgramContent> copy = read(path);
    if (!copy) return false;
    emit discarding();
    replaceBy({}, copy->program.roman);
    caption_ = copy->program.caption;
    fingerprint_.clear();
    setState(newTitle, false);
    return true;
}

// Nothing if it cannot be read; the user has been told.
std::optional<EditorDocument::ProgramContent> EditorDocument::read(const QString& path) {
    if (!QFileInfo(path).isFile()) {
        ShowMessage(messages::noSuchFile);
        return std::nullopt;
    }
    const QByteArray bytes = readWholeFile(path).value_or(QByteArray());
    ProgramFile program = readProgramFile(bytes.toStdString());
    if (program.problem == ProgramFile::Problem::None) return ProgramContent{std::move(program), fingerprintOf(bytes)};
    ShowMessage(messages::notReadable(path));
    return std::nullopt;
}

bool EditorDocument::load(const QString& path) {
    const std::optional<ProgramContent> content = read(path);
    if (!content) return false;
    const QFileInfo file(path);
    emit discarding();
    const ProgramFile& program = content->program;
    // A program in Unicode becomes a document without a file, so that saving does not write Roman text over it.
    replaceBy(program.isUnicode ? QString() : file.absoluteFilePath(), program.roman);
    caption_ = program.caption;
    fingerprint_ = program.isUnicode ? QByteArray() : content->fingerprint;
    setState(file.fileName(), program.isUnicode);
    if (!program.leftOut.empty()) emit charactersLeftOut(program.leftOut);
    emit filed(file.absoluteFilePath());
    return true;
}

void EditorDocument::replaceBy(const QString& path, std::string_view text) {
    text_.setRomanText(text);
    path_ = path;
}

void EditorDocument::takeUp(const UnsavedText& unsaved) {
    replaceBy(unsaved.path, unsaved.text);
    caption_ = unsaved.caption;
    fingerprint_ = unsaved.fingerprint;
    setState(path_.isEmpty() ? newTitle : QFileInfo(path_).fileName(), true);
}

UnsavedText EditorDocument::unsaved() const {
    return {path_, fingerprint_, caption_, text_.romanText()};
}

bool EditorDocument::FileSave() {
    return path_.isEmpty() ? FileSaveAs() : saveTo(path_);
}

bool EditorDocument::FileSaveAs() {
    const QString own = QFileInfo(path_).absolutePath();
    const bool mayWrite = !path_.isEmpty() && QFileInfo(own).isWritable();
    FileRequest request = programFileRequest(QStringLiteral("Save Tolvan Program As..."), mayWrite ? own : saveFolder_);
    request.name = toQString(caption_);
    const QString chosen = askSaveFile(request);
    if (chosen.isEmpty() || !saveTo(chosen)) return false;
    const QFileInfo file(chosen);
    path_ = file.absoluteFilePath();
    setState(file.fileName(), false);
    return true;
}

bool EditorDocument::FileSaveUnicode() {
    const QString folder = path_.isEmpty() ? saveFolder_ : QFileInfo(path_).absolutePath();
    FileRequest request = programFileRequest(QStringLiteral("युनिकोड मजकूर म्हणून साठव"), folder);
    request.kind = QStringLiteral("युनिकोड मजकूर");
    request.suffix = QStringLiteral("txt");
    request.name = toQString(caption_);
    const QString chosen = askSaveFile(request);
    if (chosen.isEmpty()) return false;
    std::string text;
    appendUnicodeOfLatin(caption_, text);
    text += '\n';
    text += unicodeOfProgram(text_.romanText());
    if (replaceFile(chosen, QByteArray::fromStdString(text + '\n'))) return true;
    ShowMessage(messages::notSaved(chosen));
    return false;
}

// The fingerprint is of the whole content, since two saves within the clock's resolution differ in nothing else.
bool EditorDocument::changedOnDisk(const QString& path) const {
    if (path != path_ || fingerprint_.isEmpty()) return false;
    const std::optional<QByteArray> content = readWholeFile(path);
    return content && fingerprintOf(*content) != fingerprint_;
}

bool EditorDocument::saveBeforeRun() {
    if (path_.isEmpty() || !QFileInfo::exists(path_)) return FileSaveAs();
    if (isDirty() || changedOnDisk(path_))
        saveTo(path_);
    else
        write(path_);
    return true;
}

bool EditorDocument::saveTo(const QString& path) {
    if (changedOnDisk(path) && AskQuestion(messages::changedOnDisk) != Answer::Yes) return false;
    if (write(path)) return true;
    ShowMessage(messages::notSaved(path));
    return false;
}

bool EditorDocument::write(const QString& path) {
    const QByteArray content = QByteArray::fromStdString(writeProgramFile(caption_, text_.romanText()));
    if (readWholeFile(path).value_or(content) != content) emit replacing(path);
    if (!replaceFile(path, content)) {
        // What got there all the same is no change by somebody else.
        if (path == path_ && readWholeFile(path) == content) fingerprint_ = fingerprintOf(content);
        return false;
    }
    fingerprint_ = fingerprintOf(content);
    setState(name_, false);
    emit saved(path);
    emit filed(QFileInfo(path).absoluteFilePath());
    return true;
}

}  // namespace tolvan
