#include "platform/files/OpenFile.h"

#include "platform/files/linux/OpenBeneathByNames.h"

#include <cerrno>
#include <fcntl.h>
#include <linux/openat2.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace tolvan {
namespace {

constexpr unsigned permissionsBeneath = 0666;  // of a new file, less the user's mask

int flagsOf(FileUse use) {
    constexpr int always = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    switch (use) {
        case FileUse::Read:
            break;
        case FileUse::Write:
            return always | O_WRONLY | O_CREAT;
        case FileUse::Append:
            return always | O_WRONLY | O_CREAT | O_APPEND;
        case FileUse::Replace:
            return always | O_WRONLY | O_CREAT | O_TRUNC;
        case FileUse::Create:
            return always | O_WRONLY | O_CREAT | O_EXCL;
    }
    return always | O_RDONLY;
}

Descriptor openFolder(const std::string& folder) {
    return Descriptor(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

bool isLink(const Descriptor& place) {
    struct stat entry {};
    return place.isOpen() && ::fstat(place.number(), &entry) == 0 && S_ISLNK(entry.st_mode);
}

Descriptor failure(int error) {
    errno = error;
    return Descriptor();
}

}  // namespace

Descriptor openFile(const std::string& path, FileUse use, Links links, unsigned permissions) {
    const int noLinks = links == Links::Refuse ? O_NOFOLLOW : 0;
    return Descriptor(::open(path.c_str(), flagsOf(use) | noLinks, permissions));
}

Descriptor openBeneath(const std::string& folder, const std::string& path, FileUse use) {
    const Descriptor start = openFolder(folder);
    if (!start.isOpen()) return Descriptor();
    struct open_how how {};
    how.flags = static_cast<unsigned>(flagsOf(use));
    how.mode = (how.flags & O_CREAT) != 0 ? permissionsBeneath : 0;
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS;
    const long number = ::syscall(SYS_openat2, start.number(), path.c_str(), &how, sizeof how);
    if (number < 0 && (errno == ENOSYS || errno == EPERM)) return openBeneathByNames(folder, path, use);
    return Descriptor(static_cast<int>(number));
}

Descriptor openBeneathByNames(const std::string& folder, const std::string& path, FileUse use) {
    if (path.starts_with('/')) return failure(EXDEV);
    Descriptor place = openFolder(folder);
    for (std::string_view rest = path; place.isOpen();) {
        const std::size_t slash = rest.find('/');
        const std::string name(rest.substr(0, slash));
        if (name == "..") return failure(EXDEV);
        if (slash == std::string_view::npos)
            return Descriptor(::openat(place.number(), name.c_str(), flagsOf(use) | O_NOFOLLOW, permissionsBeneath));
        place = Descriptor(::openat(place.number(), name.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
        if (isLink(place)) return failure(ELOOP);
        rest.remove_prefix(slash + 1);
    }
    return Descriptor();
}

}  // namespace tolvan
