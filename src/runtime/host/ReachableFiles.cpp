#include "runtime/host/ReachableFiles.h"

#include "platform/encoding/Ascii.h"
#include "platform/files/OpenBeneath.h"
#include "platform/files/PathLookup.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tolvan {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t block = 4096;  // bytes that the smallest file takes on most disks

// Opening must not wait, for a terminal say, since the program could not be stopped then. The file is emptied later,
// when it is known what it is.
int openFlags(DataFileMode mode) {
    constexpr int always = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    if (mode == DataFileMode::Read) return always | O_RDONLY;
    return always | O_WRONLY | O_CREAT | (mode == DataFileMode::Append ? O_APPEND : 0);
}

// The path without links and "..", as far as it exists.
std::string realPath(const std::string& path) {
    std::error_code failure;
    const fs::path absolute = fs::absolute(path, failure).lexically_normal();
    const fs::path real = fs::weakly_canonical(absolute, failure);
    return (failure ? absolute : real).string();
}

bool isHidden(const std::string& pathInFolder) {
    return pathInFolder.starts_with('.') || pathInFolder.find("/.") != std::string::npos;
}

bool isNamedAsProgram(const std::string& path) {
    const std::string suffix = lowerCase(fs::path(path).extension().string());
    return suffix == ".tvp" || suffix == ".exe";
}

// A file that can be run, and one that has other names, which may be anywhere.
bool isProgramOrShared(const struct stat& entry) {
    return (entry.st_mode & (S_IXUSR | S_IXGRP | S_IXOTH)) != 0 || entry.st_nlink > 1;
}

bool isDevice(const struct stat& entry) {
    return S_ISCHR(entry.st_mode) || S_ISBLK(entry.st_mode);
}

// A file that has been opened and may be used. A pipe could hang the program or end it; a folder has no lines.
FileError prepare(const Descriptor& file, const struct stat& entry, DataFileMode mode) {
    if (!S_ISREG(entry.st_mode)) return S_ISCHR(entry.st_mode) ? FileError::None : FileError::PathAccess;
    const bool empties = mode == DataFileMode::Write;
    return empties && ::ftruncate(file.number(), 0) != 0 ? fileError(errno) : FileError::None;
}

}  // namespace

ReachableFiles::ReachableFiles(const std::string& folder, Reach reach) : folder_(realPath(folder)), reach_(reach) {
    if (!folder_.ends_with('/')) folder_ += '/';
}

FileError ReachableFiles::open(const std::string& name, DataFileMode mode, Descriptor& file) {
    if (reach_ == Reach::Nothing) return FileError::PermissionDenied;
    const fs::path wanted = (fs::path(folder_) / forwardSlashes(name)).lexically_normal();
    if (wanted == folder_ || wanted / "" == folder_) return FileError::PathAccess;
    const std::string path = findPath(wanted.string());
    const bool isOwn = reach_ == Reach::Folder && path.starts_with(folder_) && !isHidden(path.substr(folder_.size())) &&
                       (mode == DataFileMode::Read || !isNamedAsProgram(path));
    if (mode != DataFileMode::Read && !takeSpace(block)) return FileError::DiskFull;
    const FileError error = isOwn ? openOwn(path, mode, file) : openOther(path, mode, file);
    if (error != FileError::None) file.close();
    return error;
}

FileError ReachableFiles::openOwn(const std::string& path, DataFileMode mode, Descriptor& file) {
    std::error_code ignored;
    if (mode != DataFileMode::Read) fs::create_directories(folder_, ignored);
    file = openBeneath(folder_, path.substr(folder_.size()), openFlags(mode));
    if (!file.isOpen())
        return errno == ELOOP || errno == EXDEV ? openOther(path, mode, file) : openFileError(errno, path);
    struct stat entry {};
    if (::fstat(file.number(), &entry) != 0) return fileError(errno);
    const bool needsConsent = isDevice(entry) || (mode != DataFileMode::Read && isProgramOrShared(entry));
    return needsConsent ? openOther(path, mode, file) : prepare(file, entry, mode);
}

FileError ReachableFiles::openOther(const std::string& path, DataFileMode mode, Descriptor& file) {
    const std::string real = realPath(path);
    if (reach_ != Reach::Everything && !hasConsent(real, mode != DataFileMode::Read))
        return FileError::PermissionDenied;
    file = Descriptor(::open(real.c_str(), openFlags(mode) | O_NOFOLLOW, 0666));
    struct stat entry {};
    if (!file.isOpen() || ::fstat(file.number(), &entry) != 0) return openFileError(errno, real);
    return prepare(file, entry, mode);
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
