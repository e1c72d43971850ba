#include "runtime/host/FileError.h"

#include "platform/files/FileEntry.h"

#include <cerrno>

namespace tolvan {

FileError fileError(int number) {
    switch (number) {
        case 0:
            return FileError::None;
        case ENOENT:
        case ENOTDIR:
            return FileError::PathNotFound;
        case EACCES:
        case EPERM:
            return FileError::PermissionDenied;
        case ENOSPC:
#ifdef EDQUOT
        case EDQUOT:
#endif
        case EFBIG:
            return FileError::DiskFull;
        case EMFILE:
        case ENFILE:
            return FileError::TooManyFiles;
        case ENAMETOOLONG:
        case EILSEQ:
        case EINVAL:
            return FileError::BadNameOrNumber;
        case EISDIR:
        case ELOOP:
        case ENXIO:
        case EROFS:
        case ETXTBSY:
            return FileError::PathAccess;
        default:
            return FileError::DeviceError;
    }
}

FileError openFileError(int number, const std::string& path) {
    if (number != ENOENT) return fileError(number);
    const std::size_t slash = path.rfind('/');
    const bool folderExists = slash == std::string::npos || isFolder(path.substr(0, slash + 1));
    return folderExists ? FileError::NotFound : FileError::PathNotFound;
}

}  // namespace tolvan
