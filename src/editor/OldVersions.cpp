#include "editor/OldVersions.h"

#include "editor/WholeFile.h"
#include "translator/ProgramFile.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tolvan {
namespace {

// The ends of the names of both kinds.
const QString saved = QStringLiteral(".tvp");
const QString discarded = QStringLiteral(" unsaved.tvp");

constexpr auto ownerOnly = QFile::ReadOwner | QFile::WriteOwner;

// The newest first: a name begins with its time.
QFileInfoList copiesIn(const QDir& folder, const QString& kind) {
    QFileInfoList copies = folder.entryInfoList({QLatin1Char('*') + kind}, QDir::Files, QDir::Name | QDir::Reversed);
    if (kind == saved) copies.removeIf([](const QFileInfo& copy) { return copy.fileName().endsWith(discarded); });
    return copies;
}

QString newCopy(const QDir& folder, const QString& kind) {
    QDateTime time = QDateTime::currentDateTime();
    const auto name = [&] { return time.toString(QStringLiteral("yyyy-MM-dd HH.mm.ss.zzz")) + kind; };
    while (folder.exists(name())) time = time.addMSecs(1);
    return folder.filePath(name());
}

}  // namespace

QString OldVersions::folder() const {
    QDir().mkpath(folder_);
    QFile::setPermissions(folder_, ownerOnly | QFile::ExeOwner);
    return folder_;
}

// Files of one name in different folders are different programs.
QString OldVersions::folderOf(const QString& path) const {
    if (path.isEmpty()) return folder_ + QStringLiteral("/Default");
    const QFileInfo file(path);
    const QByteArray hash =
        QCryptographicHash::hash(file.absoluteFilePath().toUtf8(), QCryptographicHash::Sha256).toHex().left(8);
    return QStringLiteral("%1/%2-%3").arg(folder_, file.completeBaseName(), QString::fromLatin1(hash));
}

void OldVersions::keepSaved(const QString& path) {
    if (const std::optional<QByteArray> content = readWholeFile(path)) keep(path, *content, saved);
}

bool OldVersions::keepDiscarded(const UnsavedText& unsaved) {
    if (unsaved.text.find_first_not_of(" \r\n") == std::string::npos) return true;
    return keep(unsaved.path, QByteArray::fromStdString(writeProgramFile(unsaved.caption, unsaved.text)), discarded);
}

bool OldVersions::keep(const QString& path, const QByteArray& content, const QString& kind) {
    const QDir programFolder(folderOf(path));
    const QFileInfoList copies = copiesIn(programFolder, kind);
    if (!copies.isEmpty() && readWholeFile(copies.constFirst().filePath()) == content) return true;
    const QString copy = newCopy(programFolder, kind);
    if (folder().isEmpty() || !programFolder.mkpath(QStringLiteral(".")) || !replaceFile(copy, content)) return false;
    QFile::setPermissions(copy, ownerOnly);
    if (kind == saved)
        for (const QFileInfo& old : copies.mid(mostSaved - 1)) QFile::remove(old.filePath());
    if (!std::exchange(swept_, true)) removeOld();
    return true;
}

void OldVersions::removeOld() {
    const QDateTime oldest = QDateTime::currentDateTime().addDays(-mostDays);
    for (const QString& name : QDir(folder_).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QDir programFolder(folder_ + QLatin1Char('/') + name);
        for (const QFileInfo& copy : programFolder.entryInfoList({QStringLiteral("*.tvp")}, QDir::Files))
            if (copy.lastModified() < oldest) QFile::remove(copy.filePath());
        QDir().rmdir(programFolder.path());  // if nothing is left in it
    }
}

}  // namespace tolvan
