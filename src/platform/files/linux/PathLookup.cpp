#include "platform/files/PathLookup.h"

#include "platform/encoding/Ascii.h"
#include "platform/files/EntryNamed.h"

#include <filesystem>
#include <sys/stat.h>
#include <system_error>

namespace tolvan {
namespace {

namespace fs = std::filesystem;

bool exists(const std::string& path) {
    struct stat entry {};
    return ::lstat(path.c_str(), &entry) == 0;
}

std::optional<std::string> entryLike(const std::string& folder, std::string_view name) {
    std::optional<std::string> found;
    std::error_code failure;
    for (fs::directory_iterator entry(folder.empty() ? "." : folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        const std::string candidate = entry->path().filename().string();
        if (sameButForCase(candidate, name) && (!found || candidate < *found)) found = candidate;
    }
    return found;
}

}  // namespace

std::size_t rootLength(std::string_view) {
    return 0;
}

std::optional<std::string> entryNamed(const std::string& folder, const std::string& name) {
    return exists(folder + name) ? name : entryLike(folder, name);
}

bool isFromRoot(std::string_view path) {
    return path.starts_with('/');
}

std::string realPath(const std::string& path) {
    std::error_code failure;
    const fs::path absolute = fs::absolute(path, failure).lexically_normal();
    const fs::path real = fs::weakly_canonical(absolute, failure);
    return (failure ? absolute : real).string();
}

bool isHiddenIn(const std::string&, std::string_view pathInFolder) {
    return pathInFolder.starts_with('.') || pathInFolder.find("/.") != std::string_view::npos;
}

bool runsByName(std::string_view) {
    return false;
}

}  // namespace tolvan
