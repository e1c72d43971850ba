#include "platform/files/PathLookup.h"

#include "platform/encoding/Ascii.h"
#include "platform/files/EntryNamed.h"

#include <algorithm>

namespace tolvan {

std::string forwardSlashes(std::string_view path) {
    std::string result(path);
    std::replace(result.begin(), result.end(), '\\', '/');
    return result;
}

std::string findPath(std::string_view path) {
    std::size_t start = rootLength(path);
    std::string found(path.substr(0, start));  // what is known to exist so far, with the slashes after it
    if (start > 1 && found[1] == ':') found[0] = upperLetter(found[0]);
    while (start < path.size()) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        const std::size_t next = std::min(path.find_first_not_of('/', end), path.size());
        std::string name(path.substr(start, end - start));
        if (!name.empty()) {
            std::optional<std::string> entry = entryNamed(found, name);
            if (!entry) return found.append(path.substr(start));
            name = *std::move(entry);
        }
        found.append(name).append(path.substr(end, next - end));
        start = next;
    }
    return found;
}

}  // namespace tolvan
