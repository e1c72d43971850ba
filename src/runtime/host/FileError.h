// Why a file operation failed, in the numbering of the script language, by which users are told.
#pragma once

#include <cstdint>
#include <string>

namespace tolvan {

enum class FileError : std::uint8_t {
    None = 0,
    InvalidCall = 5,        // a name that is no text, a mode that is no number below 4
    OutOfStringSpace = 14,  // a line longer than `ProgramDataFile::longestLine`
    BadNameOrNumber = 52,   // an impossible name, or no file is open
    NotFound = 53,
    BadMode = 54,  // reading a file opened for writing, or the other way round
    AlreadyOpen = 55,
    DeviceError = 57,
    DiskFull = 61,
    PastEnd = 62,
    TooManyFiles = 67,
    PermissionDenied = 70,
    PathAccess = 75,  // a folder, or something else that is no place for a file
    PathNotFound = 76,
};

// What an errno value means.
FileError fileError(int number);

// The same for a file that could not be opened: a missing file is not found; with its folder missing too, the path is
// not.
FileError openFileError(int number, const std::string& path);

}  // namespace tolvan
