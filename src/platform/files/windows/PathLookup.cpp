#include "platform/files/PathLookup.h"

#include "platform/files/EntryNamed.h"
#include "platform/files/FilePath.h"
#include "platform/files/windows/FileNames.h"
#include "platform/files/windows/SystemPath.h"

#include <filesystem>

namespace tolvan {
namespace {

using windows::Handle;

// Where a file or folder really is, whatever links lead to it; nothing if it is not there.
std::optional<std::string> finalPath(const std::string& path) {
    const std::optional<std::wstring> place = windows::systemPath(path);
    if (!place) return std::nullopt;
    constexpr DWORD everybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const Handle file(::CreateFileW(place->c_str(), FILE_READ_ATTRIBUTES, everybody, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file.isOpen()) return std::nullopt;
    std::wstring final(MAX_PATH, L'\0');
    for (;;) {
        const DWORD size = ::GetFinalPathNameByHandleW(file.get(), final.data(), static_cast<DWORD>(final.size()),
                                                       FILE_NAME_NORMALIZED | VOLUME_NAME_DOS);
        if (size == 0) return std::nullopt;
        const bool fits = size < final.size();
        final.resize(size);
        if (fits) return findPath(windows::ownPath(final));
    }
}

}  // namespace

std::size_t rootLength(std::string_view path) {
    return windows::rootLength(path);
}

bool isFromRoot(std::string_view path) {
    const std::size_t root = windows::rootLength(path);
    return root > 1 && (path[root - 1] == '/' || path.starts_with("//"));
}

std::optional<std::string> entryNamed(const std::string& folder, const std::string& name) {
    if (name == "." || name == "..") return name;
    const std::optional<std::wstring> place = windows::systemPath(folder + name);
    if (!place) return std::nullopt;
    WIN32_FIND_DATAW entry{};
    const HANDLE search = ::FindFirstFileW(place->c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return std::nullopt;
    ::FindClose(search);
    return windows::narrowText(entry.cFileName);
}

std::string realPath(const std::string& path) {
    std::error_code failure;
    const std::filesystem::path absolute = std::filesystem::absolute(filePath(path), failure).lexically_normal();
    const std::string whole = absolute.generic_string();
    const std::size_t root = windows::rootLength(whole);
    for (std::size_t end = whole.size(); end > root; end = whole.rfind('/', end - 1)) {
        if (end == std::string::npos) break;
        if (std::optional<std::string> found = finalPath(whole.substr(0, end)))
            return (found->ends_with('/') && end < whole.size() ? found->substr(0, found->size() - 1) : *found) +
                   whole.substr(end);
    }
    return whole;
}

bool isHiddenIn(const std::string& folder, std::string_view pathInFolder) {
    for (std::size_t start = 0; start < pathInFolder.size();) {
        const std::size_t end = std::min(pathInFolder.find('/', start), pathInFolder.size());
        const auto place = windows::systemPath(folder + std::string(pathInFolder.substr(0, end)));
        const DWORD attributes = place ? ::GetFileAttributesW(place->c_str()) : INVALID_FILE_ATTRIBUTES;
        const bool isMarked = attributes != INVALID_FILE_ATTRIBUTES &&
                              (attributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0;
        if (isMarked || pathInFolder[start] == '.') return true;
        start = end + 1;
    }
    return false;
}

bool runsByName(std::string_view name) {
    return windows::runsByName(name);
}

}  // namespace tolvan
