#include "platform/files/ReplaceFile.h"

#include "platform/files/FilePath.h"
#include "platform/files/windows/SystemPath.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>

namespace tolvan {
namespace {

using windows::Handle;

constexpr std::string_view unfinishedPrefix = ".tolvan-saving-";

std::wstring folderOf(const std::wstring& path) {
    return path.substr(0, path.rfind(L'\\') + 1);
}

// The file beside the target that is written first. Gone at the end, unless it was put in its place.
class Unfinished {
  public:
    // Open for writing to the end, by which removeUnfinishedSaves knows it.
    int create(const std::wstring& folder) {
        for (int number = 1;; ++number) {
            const std::string name =
                std::string(unfinishedPrefix) + std::to_string(::GetCurrentProcessId()) + '-' + std::to_string(number);
            path_ = folder + *windows::wideText(name);
            file_ = Handle(::CreateFileW(path_.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                         nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
            if (file_.isOpen()) return 0;
            const DWORD error = ::GetLastError();
            if (error != ERROR_FILE_EXISTS) return windows::errorNumber(error);
        }
    }
    ~Unfinished() {
        if (!file_.isOpen()) return;
        file_.close();
        ::DeleteFileW(path_.c_str());
    }

    int write(std::string_view content) {
        constexpr std::size_t mostAtOnce = std::size_t{1} << 30;
        while (!content.empty()) {
            DWORD written = 0;
            const auto size = static_cast<DWORD>(std::min(content.size(), mostAtOnce));
            if (::WriteFile(file_.get(), content.data(), size, &written, nullptr) == 0)
                return windows::lastErrorNumber();
            if (written == 0) return ENOSPC;
            content.remove_prefix(written);
        }
        return ::FlushFileBuffers(file_.get()) != 0 ? 0 : windows::lastErrorNumber();
    }

    // The marks, rights and short name of the old file stay with the name where the file system can do that.
    int putInPlace(const std::wstring& target, DWORD attributes) {
        const bool isThere = attributes != INVALID_FILE_ATTRIBUTES;
        constexpr DWORD flags = REPLACEFILE_IGNORE_MERGE_ERRORS | REPLACEFILE_IGNORE_ACL_ERRORS;
        const bool isReplaced =
            isThere && ::ReplaceFileW(target.c_str(), path_.c_str(), nullptr, flags, nullptr, nullptr) != 0;
        if (!isReplaced &&
            ::MoveFileExW(path_.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0)
            return windows::lastErrorNumber();
        file_.close();
        if (isThere) ::SetFileAttributesW(target.c_str(), attributes);
        return 0;
    }

  private:
    std::wstring path_;
    Handle file_;
};

// Where the links lead. A link to nothing is taken for a file of its own.
std::wstring linkTarget(const std::wstring& path) {
    const Handle file(::CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    constexpr DWORD longest = 32768;
    std::wstring target(longest, L'\0');
    const DWORD size =
        file.isOpen() ? ::GetFinalPathNameByHandleW(file.get(), target.data(), longest, FILE_NAME_NORMALIZED) : 0;
    if (size == 0 || size >= longest) return path;
    target.resize(size);
    return target;
}

// What is at the place, and whether it may be written.
int look(const std::wstring& target, DWORD& attributes) {
    attributes = ::GetFileAttributesW(target.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return ::GetLastError() == ERROR_FILE_NOT_FOUND ? 0 : windows::lastErrorNumber();
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return EISDIR;
    if ((attributes & FILE_ATTRIBUTE_DEVICE) != 0) return EINVAL;
    return (attributes & FILE_ATTRIBUTE_READONLY) != 0 ? EACCES : 0;
}

}  // namespace

int replaceFile(const std::string& path, std::string_view content, unsigned) {
    const std::optional<std::wstring> place = windows::systemPath(path);
    if (!place) return errno;
    const std::wstring target = linkTarget(*place);
    DWORD attributes = INVALID_FILE_ATTRIBUTES;
    if (const int error = look(target, attributes); error != 0) return error;
    Unfinished unfinished;
    if (const int error = unfinished.create(folderOf(target)); error != 0) return error;
    if (const int error = unfinished.write(content); error != 0) return error;
    return unfinished.putInPlace(target, attributes);
}

void removeUnfinishedSaves(const std::string& folder) {
    namespace fs = std::filesystem;
    std::error_code failure;
    for (fs::directory_iterator entry(filePath(folder), failure), end; !failure && entry != end;
         entry.increment(failure)) {
        if (!entry->path().filename().string().starts_with(unfinishedPrefix)) continue;
        const std::optional<std::wstring> place = windows::systemPath(entry->path().generic_string());
        // Does not open while somebody has it open for writing.
        if (place)
            Handle(::CreateFileW(place->c_str(), DELETE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                 FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    }
}

}  // namespace tolvan
