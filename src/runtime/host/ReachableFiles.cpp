#include "runtime/host/ReachableFiles.h"

#include "platform/encoding/Ascii.h"
#include "platform/files/FileEntry.h"
#include "platform/files/FilePath.h"
#include "platform/files/OpenFile.h"
#include "platform/files/PathLookup.h"

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tolvan {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t block = 4096;  // bytes that the smallest file takes on most disks

// The file is emptied later, when it is known what it is.
FileUse useOf(DataFileMode mode) {
    if (mode == DataFileMode::Read) return FileUse::Read;
    return mode == DataFileMode::Append ? FileUse::Append : FileUse::Write;
}

bool isNamedAsProgram(const std::string& path) {
    const std::string suffix = lowerCase(filePath(path).extension().string());
    return suffix == ".tvp" || suffix == ".exe" || runsByName(path);
}

bool isDevice(const FileEntry& entry) {
    return entry.kind == FileEntry::Kind::CharacterDevice || entry.kind == FileEntry::Kind::BlockDevice;
}

// A file that has been opened and may be used. A pipe could hang the program or end it; a folder has no lines.
FileError prepare(const Descriptor& file, const FileEntry& entry, DataFileMode mode) {
    if (entry.kind == FileEntry::Kind::CharacterDevice) return FileError::None;
    if (entry.kind != FileEntry::Kind::File) return FileError::PathAccess;
    return mode == DataFileMode::Write ? fileError(emptyFile(file)) : FileError::None;
}

}  // namespace

ReachableFiles::ReachableFiles(const std::string& folder, Reach reach) : folder_(realPath(folder)), reach_(reach) {
    if (!folder_.ends_with('/')) folder_ += '/';
}

FileError ReachableFiles::open(const std::string& name, DataFileMode mode, Descriptor& file) {
    if (reach_ == Reach::Nothing) return FileError::PermissionDenied;
    const fs::path wanted = (filePath(folder_) / filePath(forwardSlashes(name))).lexically_normal();
    if (wanted == folder_ || wanted / "" == folder_) return FileError::PathAccess;
    const std::string path = findPath(wanted.generic_string());
    const bool isOwn = reach_ == Reach::Folder && path.starts_with(folder_) &&
                       !isHiddenIn(folder_, path.substr(folder_.size())) &&
                       (mode == DataFileMode::Read || !isNamedAsProgram(path));
    if (mode != DataFileMode::Read && !takeSpace(block)) return FileError::DiskFull;
    const FileError error = isOwn ? openOwn(path, mode, file) : openOther(path, mode, file);
    if (error != FileError::None) file.close();
    return error;
}

FileError ReachableFiles::openOwn(const std::string& path, DataFileMode mode, Descriptor& file) {
    std::error_code ignored;
    if (mode != DataFileMode::Read) fs::create_directories(filePath(folder_), ignored);
    file = openBeneath(folder_, path.substr(folder_.size()), useOf(mode));
    if (!file.isOpen())
        return errno == ELOOP || errno == EXDEV ? openOther(path, mode, file) : openFileError(errno, path);
    const std::optional<FileEntry> entry = entryOf(file);
    if (!entry) return fileError(errno);
    const bool isProgramOrShared = entry->mayRun || entry->hasOtherNames;
    const bool needsConsent = isDevice(*entry) || (mode != DataFileMode::Read && isProgramOrShared);
    return needsConsent ? openOther(path, mode, file) : prepare(file, *entry, mode);
}

FileError ReachableFiles::openOther(const std::string& path, DataFileMode mode, Descriptor& file) {
    const std::string real = realPath(path);
    if (reach_ != Reach::Everything && !hasConsent(real, mode != DataFileMode::Read))
        return FileError::PermissionDenied;
    file = openFile(real, useOf(mode), Links::Refuse);
    const std::optional<FileEntry> entry = file.isOpen() ? entryOf(file) : std::nullopt;
    return entry ? prepare(file, *entry, mode) : openFileError(errno, real);
}

bool ReachableFiles::takeSpace(std::uint64_t bytes) {
    if (bytes > space_) return false;
    space_ -= bytes;
    return true;
}

bool ReachableFiles::hasConsent(const std::string& path, bool writing) {
    const auto [answer, isNew] = answers_.try_emplace({path, writing}, false);
    if (isNew) answer->second = consent_ && consent_(path, writing);
    return answer->second;
}

}  // namespace tolvan
