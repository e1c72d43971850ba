#include "platform/files/PathLookup.h"

#include "platform/encoding/Ascii.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <system_error>

namespace tolvan {
namespace {

namespace fs = std::filesystem;

bool exists(const std::string& path) {
    struct stat entry {};
    return ::lstat(path.c_str(), &entry) == 0;
}

// The entry of `folder` (empty: the working folder) that is `name` without regard to case.
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

std::string forwardSlashes(std::string_view path) {
    std::string result(path);
    std::replace(result.begin(), result.end(), '\\', '/');
    return result;
}

std::string findPath(std::string_view path) {
    std::string found;  // what is known to exist so far, with the slashes after it
    for (std::size_t start = 0; start < path.size();) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        const std::size_t next = std::min(path.find_first_not_of('/', end), path.size());
        std::string name(path.substr(start, end - start));
        if (!name.empty() && !exists(found + name)) {
            const std::optional<std::string> entry = entryLike(found, name);
            if (!entry) return found.append(path.substr(start));
            name = *entry;
        }
        found.append(name).append(path.substr(end, next - end));
        start = next;
    }
    return found;
}

}  // namespace tolvan
