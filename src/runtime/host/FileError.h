// Why a file operation failed, by the numbers of the script language, which users are told.
#pragma once

#include "platform/script/Errors.h"

#include <cstdint>
#include <string>

namespace tolvan {

enum class FileError : std::uint8_t {
    None = 0,
    InvalidCall = script::errors::invalidCall,              // a name that is no text, a mode that is no number below 4
    OutOfStringSpace = script::errors::outOfStringSpace,    // a line longer than `ProgramDataFile::longestLine`
    BadNameOrNumber = script::errors::badFileNameOrNumber,  // an impossible name, or no file is open
    NotFound = script::errors::fileNotFound,
    BadMode = script::errors::badFileMode,  // reading a file opened for writing, or the other way round
    AlreadyOpen = script::errors::fileAlreadyOpen,
    DeviceError = script::errors::deviceError,
    DiskFull = script::errors::diskFull,
    PastEnd = script::errors::inputPastEnd,
    TooManyFiles = script::errors::tooManyFiles,
    PermissionDenied = script::errors::permissionDenied,
    PathAccess = script::errors::pathAccess,  // a folder, or something else that is no place for a file
    PathNotFound = script::errors::pathNotFound,
};

// What an errno value means; 0 is no error.
FileError fileError(int number);

// The same for a file that could not be opened: a missing file is not found; with its folder missing too, the path is
// not.
FileError openFileError(int number, const std::string& path);

}  // namespace tolvan
