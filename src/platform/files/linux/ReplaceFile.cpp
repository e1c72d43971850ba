#include "platform/files/ReplaceFile.h"

#include "platform/files/Descriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace tolvan {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view unfinishedPrefix = ".tolvan-saving-";

// Where the links lead, even if nothing is there yet.
fs::path linkTarget(fs::path path) {
    constexpr int mostLinks = 40;  // as the kernel follows
    std::error_code failure;
    for (int i = 0; i < mostLinks && fs::is_symlink(path, failure); ++i) {
        const fs::path target = fs::read_symlink(path, failure);
        if (failure) break;
        path = path.parent_path() / target;
    }
    return path;
}

// A file system that has no fsync is no failure.
int sync(const Descriptor& file) {
    if (::fsync(file.number()) == 0 || errno == EINVAL || errno == ENOSYS || errno == ENOTSUP) return 0;
    return errno;
}

// The file beside the target that is written first. Gone at the end, unless it was put in its place.
class Unfinished {
  public:
    // Locked against removeUnfinishedSaves, where the file system has locks.
    int create(const fs::path& folder, mode_t permissions) {
        for (int number = 1;; ++number) {
            path_ =
                folder / (std::string(unfinishedPrefix) + std::to_string(::getpid()) + '-' + std::to_string(number));
            file_ = Descriptor(::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, permissions));
            if (!file_.isOpen() && errno == EEXIST) continue;
            if (!file_.isOpen()) return errno;
            exists_ = true;
            ::flock(file_.number(), LOCK_EX | LOCK_NB);
            return 0;
        }
    }
    ~Unfinished() {
        if (exists_) ::unlink(path_.c_str());
    }

    int write(std::string_view content, std::optional<mode_t> permissions) {
        if (permissions && ::fchmod(file_.number(), *permissions) != 0) return errno;
        if (const int error = file_.write(content); error != 0) return error;
        return sync(file_);
    }

    int putInPlace(const fs::path& target) {
        if (::rename(path_.c_str(), target.c_str()) != 0) return errno;
        exists_ = false;
        return file_.close();
    }

  private:
    fs::path path_;
    Descriptor file_;
    bool exists_ = false;
};

int syncFolder(const fs::path& folder) {
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return descriptor.isOpen() ? sync(descriptor) : 0;
}

// The permissions of the file that is there; none if there is no file. An error if it may not be replaced.
int readPermissions(const fs::path& target, std::optional<mode_t>& permissions) {
    struct stat entry {};
    if (::stat(target.c_str(), &entry) != 0) return errno == ENOENT ? 0 : errno;
    if (S_ISDIR(entry.st_mode)) return EISDIR;
    if (!S_ISREG(entry.st_mode)) return EINVAL;
    permissions = entry.st_mode & 07777U;
    return ::access(target.c_str(), W_OK) == 0 ? 0 : errno;
}

}  // namespace

int replaceFile(const std::string& path, std::string_view content, unsigned permissions) {
    const fs::path target = linkTarget(path);
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    std::optional<mode_t> present;
    if (const int error = readPermissions(target, present); error != 0) return error;
    Unfinished unfinished;
    if (const int error = unfinished.create(folder, present.value_or(permissions) & 0777U); error != 0) return error;
    if (const int error = unfinished.write(content, present); error != 0) return error;
    if (const int error = unfinished.putInPlace(target); error != 0) return error;
    return syncFolder(folder);
}

void removeUnfinishedSaves(const std::string& folder) {
    std::error_code failure;
    for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end; entry.increment(failure)) {
        if (!entry->path().filename().string().starts_with(unfinishedPrefix)) continue;
        const Descriptor file(::open(entry->path().c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        if (file.isOpen() && ::flock(file.number(), LOCK_EX | LOCK_NB) == 0) ::unlink(entry->path().c_str());
    }
}

}  // namespace tolvan
