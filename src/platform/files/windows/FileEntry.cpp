#include "platform/files/FileEntry.h"

#include "platform/files/PathLookup.h"
#include "platform/files/windows/SystemPath.h"

#include <cerrno>
#include <io.h>

namespace tolvan {
namespace {

HANDLE handleOf(const Descriptor& file) {
    return file.isOpen() ? reinterpret_cast<HANDLE>(::_get_osfhandle(file.number())) : INVALID_HANDLE_VALUE;
}

}  // namespace

std::optional<FileEntry> entryOf(const Descriptor& file) {
    const HANDLE handle = handleOf(file);
    if (handle == INVALID_HANDLE_VALUE) {
        errno = EBADF;
        return std::nullopt;
    }
    FileEntry found;
    const DWORD type = ::GetFileType(handle);
    if (type == FILE_TYPE_CHAR) found.kind = FileEntry::Kind::CharacterDevice;
    if (type != FILE_TYPE_DISK) return found;
    BY_HANDLE_FILE_INFORMATION information{};
    if (::GetFileInformationByHandle(handle, &information) == 0) {
        errno = windows::lastErrorNumber();
        return std::nullopt;
    }
    const bool isFolder = (information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    found.kind = isFolder ? FileEntry::Kind::Folder : FileEntry::Kind::File;
    found.hasOtherNames = information.nNumberOfLinks > 1;
    found.size = (std::uint64_t{information.nFileSizeHigh} << 32U) | information.nFileSizeLow;
    return found;
}

bool isFolder(const std::string& path) {
    const std::optional<std::wstring> place = windows::systemPath(path);
    const DWORD attributes = place ? ::GetFileAttributesW(place->c_str()) : INVALID_FILE_ATTRIBUTES;
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

int emptyFile(const Descriptor& file) {
    return ::_chsize_s(file.number(), 0);
}

int removeFile(const std::string& path) {
    const std::optional<std::wstring> place = windows::systemPath(path);
    if (!place) return errno;
    return ::DeleteFileW(place->c_str()) != 0 ? 0 : windows::lastErrorNumber();
}

std::string makeTemporaryFolder(const std::string& name) {
    std::wstring place(MAX_PATH + 1, L'\0');
    place.resize(::GetTempPathW(static_cast<DWORD>(place.size()), place.data()));
    const std::string start = windows::ownPath(place) + name + "-" + std::to_string(::GetCurrentProcessId()) + "-";
    for (ULONGLONG number = ::GetTickCount64();; ++number) {
        const std::string path = start + std::to_string(number);
        const std::optional<std::wstring> folder = windows::systemPath(path);
        if (!folder) return {};
        if (::CreateDirectoryW(folder->c_str(), nullptr) != 0) return path;
        if (::GetLastError() == ERROR_ALREADY_EXISTS) continue;
        errno = windows::lastErrorNumber();
        return {};
    }
}

}  // namespace tolvan
