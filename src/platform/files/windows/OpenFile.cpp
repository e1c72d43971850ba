#include "platform/files/OpenFile.h"

#include "platform/files/windows/FileNames.h"
#include "platform/files/windows/SystemPath.h"

#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <io.h>
#include <vector>

namespace tolvan {
namespace {

using windows::Handle;

constexpr DWORD everybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

DWORD accessOf(FileUse use) {
    if (use == FileUse::Read) return GENERIC_READ;
    // Without the right to write elsewhere, the system itself writes at the end.
    if (use == FileUse::Append) return FILE_APPEND_DATA | FILE_READ_ATTRIBUTES | SYNCHRONIZE;
    return GENERIC_WRITE | FILE_READ_ATTRIBUTES;
}

DWORD creationOf(FileUse use) {
    if (use == FileUse::Read) return OPEN_EXISTING;
    return use == FileUse::Create ? CREATE_NEW : OPEN_ALWAYS;
}

bool isFolderAt(const std::wstring& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// The file itself, also if it is a link.
Handle openItself(const std::wstring& path, FileUse use) {
    constexpr DWORD flags = FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT;
    Handle file(::CreateFileW(path.c_str(), accessOf(use), everybody, nullptr, creationOf(use), flags, nullptr));
    if (!file.isOpen()) errno = isFolderAt(path) ? EISDIR : windows::lastErrorNumber();
    return file;
}

Handle openTarget(const std::wstring& path, FileUse use) {
    Handle file(::CreateFileW(path.c_str(), accessOf(use), everybody, nullptr, creationOf(use), FILE_ATTRIBUTE_NORMAL,
                              nullptr));
    if (!file.isOpen()) errno = isFolderAt(path) ? EISDIR : windows::lastErrorNumber();
    return file;
}

enum class Target : std::uint8_t { Itself, Stored, Elsewhere };

// What has a tag is a link (of either kind), or a file whose content the system gets from somewhere, as of a folder in
// the cloud.
Target targetOf(const Handle& file) {
    FILE_ATTRIBUTE_TAG_INFO info{};
    if (::GetFileInformationByHandleEx(file.get(), FileAttributeTagInfo, &info, sizeof info) == 0)
        return Target::Itself;
    if ((info.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return Target::Itself;
    return IsReparseTagNameSurrogate(info.ReparseTag) ? Target::Elsewhere : Target::Stored;
}

Descriptor descriptorOf(Handle file, FileUse use) {
    if (!file.isOpen()) return Descriptor();
    if (use == FileUse::Replace && (::SetEndOfFile(file.get()) == 0)) {
        errno = windows::lastErrorNumber();
        return Descriptor();
    }
    const int flags =
        _O_BINARY | _O_NOINHERIT | (use == FileUse::Append ? _O_APPEND : 0) | (use == FileUse::Read ? _O_RDONLY : 0);
    const int number = ::_open_osfhandle(reinterpret_cast<std::intptr_t>(file.get()), flags);
    if (number >= 0) file.release();
    return Descriptor(number);
}

Descriptor failure(int error) {
    errno = error;
    return Descriptor();
}

Handle openUnlessLink(const std::wstring& path, FileUse use) {
    Handle file = openItself(path, use);
    if (!file.isOpen()) return file;
    const Target target = targetOf(file);
    if (target == Target::Itself) return file;
    if (target == Target::Stored) return openTarget(path, use);  // `file` keeps it from being exchanged
    file.close();
    errno = ELOOP;
    return file;
}

// Keeps the folder in its place for as long as it is open: the right to list it, shared with nobody who would rename
// it.
Handle holdFolder(const std::wstring& path) {
    constexpr DWORD flags = FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT;
    Handle folder(::CreateFileW(path.c_str(), FILE_LIST_DIRECTORY, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                OPEN_EXISTING, flags, nullptr));
    if (!folder.isOpen()) {
        errno = windows::lastErrorNumber();
    } else if (targetOf(folder) == Target::Elsewhere) {
        folder.close();
        errno = ELOOP;
    } else if (!isFolderAt(path)) {
        folder.close();
        errno = ENOTDIR;
    }
    return folder;
}

}  // namespace

Descriptor openFile(const std::string& path, FileUse use, Links links, unsigned) {
    const std::optional<std::wstring> place = windows::systemPath(path);
    if (!place) return Descriptor();
    return descriptorOf(links == Links::Refuse ? openUnlessLink(*place, use) : openTarget(*place, use), use);
}

Descriptor openBeneath(const std::string& folder, const std::string& path, FileUse use) {
    if (path.empty() || windows::rootLength(path) > 0) return failure(EXDEV);
    if (!windows::isPath(path)) return failure(EINVAL);
    std::optional<std::wstring> place = windows::systemPath(folder);
    if (!place) return Descriptor();
    std::vector<Handle> held;
    for (std::string_view rest = path;;) {
        const std::size_t slash = rest.find('/');
        const std::string_view name = rest.substr(0, slash);
        if (name == "..") return failure(EXDEV);
        if (!name.empty() && name != ".") {
            if (!place->ends_with(L'\\')) *place += L'\\';
            *place += windows::wideText(name).value_or(L"?");
        }
        if (slash == std::string_view::npos) return descriptorOf(openUnlessLink(*place, use), use);
        held.push_back(holdFolder(*place));
        if (!held.back().isOpen()) return Descriptor();
        rest.remove_prefix(slash + 1);
    }
}

}  // namespace tolvan
