#include "platform/files/FileEntry.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace tolvan {
namespace {

namespace fs = std::filesystem;

FileEntry::Kind kindOf(mode_t mode) {
    using Kind = FileEntry::Kind;
    if (S_ISREG(mode)) return Kind::File;
    if (S_ISDIR(mode)) return Kind::Folder;
    if (S_ISCHR(mode)) return Kind::CharacterDevice;
    return S_ISBLK(mode) ? Kind::BlockDevice : Kind::Other;
}

}  // namespace

std::optional<FileEntry> entryOf(const Descriptor& file) {
    struct stat entry {};
    if (::fstat(file.number(), &entry) != 0) return std::nullopt;
    FileEntry found;
    found.kind = kindOf(entry.st_mode);
    found.mayRun = (entry.st_mode & (S_IXUSR | S_IXGRP | S_IXOTH)) != 0;
    found.hasOtherNames = entry.st_nlink > 1;
    found.size = static_cast<std::uint64_t>(entry.st_size);
    return found;
}

bool isFolder(const std::string& path) {
    struct stat entry {};
    return ::stat(path.c_str(), &entry) == 0 && S_ISDIR(entry.st_mode);
}

int emptyFile(const Descriptor& file) {
    return ::ftruncate(file.number(), 0) == 0 ? 0 : errno;
}

int removeFile(const std::string& path) {
    return ::unlink(path.c_str()) == 0 ? 0 : errno;
}

std::string makeTemporaryFolder(const std::string& name) {
    std::error_code failure;
    const fs::path place = fs::temp_directory_path(failure);
    std::string path = ((failure ? fs::path("/tmp") : place) / (name + "-XXXXXX")).string();
    return ::mkdtemp(path.data()) == nullptr ? std::string() : path;
}

}  // namespace tolvan
