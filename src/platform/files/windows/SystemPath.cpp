#include "platform/files/windows/SystemPath.h"

#include "platform/files/PathLookup.h"
#include "platform/files/windows/FileNames.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace tolvan::windows {
namespace {

constexpr std::wstring_view longPrefix = L"\\\\?\\";
constexpr std::wstring_view longSharePrefix = L"\\\\?\\UNC\\";

std::wstring fullPath(const std::wstring& path) {
    std::wstring full(path.size() + MAX_PATH, L'\0');
    for (;;) {
        const DWORD size = ::GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
        const bool fits = size < full.size();
        full.resize(size);
        if (fits) return full;
    }
}

}  // namespace

std::optional<std::wstring> wideText(std::string_view text) {
    if (text.empty()) return std::wstring();
    const int size = static_cast<int>(text.size());
    const int count = ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size, nullptr, 0);
    if (count <= 0) return std::nullopt;
    std::wstring wide(static_cast<std::size_t>(count), L'\0');
    ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size, wide.data(), count);
    return wide;
}

std::string narrowText(std::wstring_view text) {
    if (text.empty()) return {};
    const int size = static_cast<int>(text.size());
    const int count = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(std::max(count, 0)), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), size, narrow.data(), count, nullptr, nullptr);
    return narrow;
}

std::optional<std::wstring> systemPath(std::string_view path) {
    const std::optional<std::wstring> wide = wideText(path);
    if (path.empty() || !wide || !isPath(path)) {
        errno = path.empty() ? ENOENT : wide ? EINVAL : EILSEQ;
        return std::nullopt;
    }
    const std::wstring full = fullPath(*wide);
    if (full.starts_with(L"\\\\")) return std::wstring(longSharePrefix).append(full, 2);
    return std::wstring(longPrefix).append(full);
}

std::string ownPath(std::wstring_view path) {
    if (path.starts_with(longSharePrefix))
        return "//" + forwardSlashes(narrowText(path.substr(longSharePrefix.size())));
    if (path.starts_with(longPrefix)) path.remove_prefix(longPrefix.size());
    return forwardSlashes(narrowText(path));
}

int errorNumber(DWORD error) {
    switch (error) {
        case ERROR_SUCCESS:
            return 0;
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
            return ENOENT;
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_DELETE_PENDING:
        case ERROR_NETWORK_ACCESS_DENIED:
            return EACCES;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return ENOSPC;
        case ERROR_TOO_MANY_OPEN_FILES:
            return EMFILE;
        case ERROR_FILENAME_EXCED_RANGE:
            return ENAMETOOLONG;
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
            return EINVAL;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
            return EEXIST;
        case ERROR_DIRECTORY:
            return ENOTDIR;
        case ERROR_WRITE_PROTECT:
            return EROFS;
        case ERROR_NOT_ENOUGH_MEMORY:
        case ERROR_OUTOFMEMORY:
            return ENOMEM;
        default:
            return EIO;
    }
}

int lastErrorNumber() {
    return errorNumber(::GetLastError());
}

Handle& Handle::operator=(Handle&& other) noexcept {
    if (this == &other) return *this;
    close();
    handle_ = other.release();
    return *this;
}

HANDLE Handle::release() {
    return std::exchange(handle_, INVALID_HANDLE_VALUE);
}

void Handle::close() {
    if (isOpen()) ::CloseHandle(release());
}

}  // namespace tolvan::windows
