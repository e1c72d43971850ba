#include "editor/EditorDocument.h"

#include "dialogs/Dialogs.h"
#include "editor/DocumentMessages.h"
#include "editor/FileDialogs.h"
#include "editor/WholeFile.h"
#include "platform/fonts/FontEncoding.h"
#include "translator/ProgramFile.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QScopedValueRollback>

namespace tolvan {
namespace {

constexpr QLatin1Char dirtyMark('*');

FileRequest programFileRequest(const QString& title) {
    return {title, QStringLiteral("Tolvan Basic Program"), QStringLiteral("tvp"), startFolder(), {}};
}

QByteArray fingerprintOf(const QByteArray& content) {
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256);
}

}  // namespace

const QString EditorDocument::newTitle = QStringLiteral("Default.tvp");

EditorDocument::EditorDocument(DocumentText& text, std::string& caption)
    : text_(text), caption_(caption), title_(newTitle) {}

bool EditorDocument::isDirty() const {
    return title_.contains(dirtyMark);
}

void EditorDocument::setCaption(std::string_view caption) {
    if (caption_ == caption) return;
    caption_ = caption;
    markDirty();
}

void EditorDocument::markDirty() {
    if (!title_.endsWith(dirtyMark)) setTitle(title_ + dirtyMark);
}

void EditorDocument::clearDirtyMark() {
    if (title_.endsWith(dirtyMark)) setTitle(title_.chopped(1));
}

void EditorDocument::setTitle(const QString& title) {
    title_ = title;
    emit titleChanged();
}

bool EditorDocument::mayGo(std::string_view question) {
    if (!isDirty()) return true;
    switch (AskQuestion(question)) {
        case 1:
            return FileSave();
        case 0:
            return true;
        default:
            return false;
    }
}

bool EditorDocument::mayClose() {
    if (!mayGo(messages::saveBeforeClose)) return false;
    if (isDirty()) emit discarding();
    return true;
}

bool EditorDocument::FileNew() {
    const QScopedValueRollback loading(loading_, true);
    if (!mayGo(messages::saveBeforeNew)) return false;
    replaceBy({}, {});
    fingerprint_.clear();
    setTitle(newTitle);
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
    FileRequest request = programFileRequest(QStringLiteral("Open Tolvan Program..."));
    if (!openFolder_.isEmpty()) request.folder = openFolder_;
    const QString chosen = askOpenFile(request);
    return !chosen.isEmpty() && load(chosen);
}

bool EditorDocument::load(const QString& path) {
    const QFileInfo file(path);
    if (!file.isFile()) {
        ShowMessage(messages::noSuchFile);
        return false;
    }
    const std::optional<QByteArray> content = readWholeFile(path);
    const ProgramFile program = readProgramFile(content.value_or(QByteArray()).toStdString());
    if (program.problem != ProgramFile::Problem::None) {
        ShowMessage(messages::notReadable(path));
        return false;
    }
    replaceBy(file.absoluteFilePath(), program.roman);
    caption_ = program.caption;
    fingerprint_ = fingerprintOf(*content);
    setTitle(file.fileName());
    emit filed(path_);
    return true;
}

void EditorDocument::replaceBy(const QString& path, std::string_view text) {
    if (isDirty()) emit discarding();
    text_.setRomanText(text);
    path_ = path;
}

void EditorDocument::takeUp(const UnsavedText& unsaved) {
    replaceBy(unsaved.path, unsaved.text);
    caption_ = unsaved.caption;
    fingerprint_ = unsaved.fingerprint;
    setTitle((path_.isEmpty() ? newTitle : QFileInfo(path_).fileName()) + dirtyMark);
}

UnsavedText EditorDocument::unsaved() const {
    return {path_, fingerprint_, caption_, text_.romanText()};
}

bool EditorDocument::FileSave() {
    return path_.isEmpty() ? FileSaveAs() : saveTo(path_);
}

bool EditorDocument::FileSaveAs() {
    FileRequest request = programFileRequest(QStringLiteral("Save Tolvan Program As..."));
    request.name = toQString(caption_);
    const QString chosen = askSaveFile(request);
    if (chosen.isEmpty() || !saveTo(chosen)) return false;
    const QFileInfo file(chosen);
    path_ = file.absoluteFilePath();
    setTitle(file.fileName());
    return true;
}

// The fingerprint is of the whole content, since two savings within the clock's resolution differ in nothing else.
bool EditorDocument::changedOnDisk(const QString& path) const {
    if (path != path_ || fingerprint_.isEmpty()) return false;
    const std::optional<QByteArray> content = readWholeFile(path);
    return content && fingerprintOf(*content) != fingerprint_;
}

void EditorDocument::saveBeforeRun() {
    if (path_.isEmpty() || !QFileInfo::exists(path_))
        FileSaveAs();
    else if (isDirty() || changedOnDisk(path_))
        saveTo(path_);
    else
        write(path_);
}

bool EditorDocument::saveTo(const QString& path) {
    if (changedOnDisk(path) && AskQuestion(messages::changedOnDisk) != 1) return false;
    if (write(path)) return true;
    ShowMessage(messages::notSaved(path));
    return false;
}

bool EditorDocument::write(const QString& path) {
    const QByteArray content = QByteArray::fromStdString(writeProgramFile(caption_, text_.romanText()));
    if (!replaceFile(path, content)) return false;
    fingerprint_ = fingerprintOf(content);
    clearDirtyMark();
    emit saved();
    emit filed(QFileInfo(path).absoluteFilePath());
    return true;
}

}  // namespace tolvan
