#include "editor/RecoveryFiles.h"

#include "editor/WholeFile.h"
#include "platform/encoding/Ascii.h"
#include "translator/ProgramFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace tolvan {
namespace {

constexpr char signature[] = "Tolvan Basic unsaved program 1";
// Days that a damaged copy stays, in case somebody can still make something of it.
constexpr int mostDaysUnreadable = 30;
constexpr int mostCopies = 1000;  // of all windows together, so that they cannot fill the disk

QByteArray takeLine(QByteArray& text) {
    const qsizetype end = text.indexOf('\n');
    const QByteArray line = text.left(end);
    text.remove(0, end < 0 ? text.size() : end + 1);
    return line;
}

bool isBlank(const std::string& text) {
    return text.find_first_not_of(" \r\n") == std::string::npos;
}

}  // namespace

// Signature, path and fingerprint, a line each, then a program file.
QByteArray writeRecovery(const UnsavedText& unsaved) {
    QByteArray content(signature);
    content.append('\n').append(unsaved.path.toUtf8().toPercentEncoding("/"));
    content.append('\n').append(unsaved.fingerprint.toHex());
    return content.append('\n').append(QByteArray::fromStdString(writeProgramFile(unsaved.caption, unsaved.text)));
}

std::optional<UnsavedText> readRecovery(const QByteArray& content) {
    QByteArray rest = content;
    const QByteArray head = takeLine(rest);
    const QByteArray path = takeLine(rest);
    const QByteArray fingerprint = takeLine(rest);
    ProgramFile program = readProgramFile(rest.toStdString());
    if (head != signature || program.problem != ProgramFile::Problem::None) return std::nullopt;
    if (program.roman.ends_with(lineEnd)) program.roman.resize(program.roman.size() - lineEnd.size());
    return UnsavedText{QString::fromUtf8(QByteArray::fromPercentEncoding(path)), QByteArray::fromHex(fingerprint),
                       std::move(program.caption), std::move(program.roman)};
}

// Nothing if another window has it. A lock that is left over from a crash is taken over.
std::optional<RecoveryFiles::Copy> RecoveryFiles::lockedCopy(const QString& file) const {
    auto lock = std::make_unique<QLockFile>(file + QLatin1String(".lock"));
    lock->setStaleLockTime(0);
    if (!lock->tryLock(0)) return std::nullopt;
    return Copy{file, std::move(lock)};
}

bool RecoveryFiles::makePresent() {
    if (present_) return true;
    if (!QDir().mkpath(folder_)) return false;
    for (int number = 1; number <= mostCopies && !present_; ++number) {
        const QString file = QStringLiteral("%1/unsaved-%2.tvp").arg(folder_).arg(number);
        if (QFile::exists(file)) continue;
        present_ = lockedCopy(file);
        if (present_ && QFile::exists(file)) present_.reset();  // another window made it between the two checks
    }
    return present_.has_value();
}

bool RecoveryFiles::keep(const UnsavedText& unsaved) {
    if (isBlank(unsaved.text)) {
        setAside();
        return true;
    }
    constexpr unsigned ownerOnly = 0600;
    return makePresent() && replaceFile(present_->file, writeRecovery(unsaved), ownerOnly);
}

void RecoveryFiles::setAside() {
    if (present_) aside_.push_back(std::move(*present_));
    present_.reset();
}

std::vector<UnsavedText> RecoveryFiles::texts() const {
    std::vector<UnsavedText> texts;
    const auto add = [&texts](const Copy& copy) {
        const std::optional<QByteArray> content = readWholeFile(copy.file);
        if (std::optional<UnsavedText> text = content ? readRecovery(*content) : std::nullopt) texts.push_back(*text);
    };
    for (const Copy& copy : aside_) add(copy);
    if (present_) add(*present_);
    return texts;
}

void RecoveryFiles::removeAll() {
    setAside();
    for (const Copy& copy : aside_) QFile::remove(copy.file);
    aside_.clear();
}

std::vector<UnsavedText> RecoveryFiles::takeLeft() {
    std::vector<UnsavedText> texts;
    const QFileInfoList files = QDir(folder_).entryInfoList({QStringLiteral("unsaved-*.tvp")}, QDir::Files, QDir::Time);
    for (const QFileInfo& file : files) {
        const auto isThis = [&](const Copy& copy) { return copy.file == file.filePath(); };
        if (std::any_of(aside_.begin(), aside_.end(), isThis) || (present_ && isThis(*present_))) continue;
        std::optional<Copy> copy = lockedCopy(file.filePath());
        if (!copy) continue;
        const std::optional<QByteArray> content = readWholeFile(copy->file);
        if (std::optional<UnsavedText> unsaved = content ? readRecovery(*content) : std::nullopt) {
            texts.push_back(*std::move(unsaved));
            left_.push_back(*std::move(copy));
        } else if (file.lastModified().daysTo(QDateTime::currentDateTime()) > mostDaysUnreadable) {
            QFile::remove(copy->file);
        }
    }
    return texts;
}

void RecoveryFiles::takeUpFirst() {
    if (left_.empty()) return;
    setAside();
    present_ = std::move(left_.front());
    left_.clear();
}

void RecoveryFiles::removeLeft() {
    for (const Copy& copy : left_) QFile::remove(copy.file);
    left_.clear();
}

}  // namespace tolvan
