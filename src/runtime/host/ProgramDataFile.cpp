#include "runtime/host/ProgramDataFile.h"

#include "platform/encoding/Ascii.h"
#include "platform/encoding/Unicode.h"
#include "platform/richtext/InternalText.h"
#include "translator/Blanks.h"

namespace tolvan {
namespace {

constexpr std::size_t readAhead = std::size_t{64} << 10;

}  // namespace

std::string plainFileName(std::string_view internalText) {
    std::string name;
    appendUnicodeOfLatin(plainText(internalText), name);
    return name;
}

FileError ProgramDataFile::open(ReachableFiles& files, std::string_view name, Mode mode) {
    if (isOpen()) return FileError::AlreadyOpen;
    const std::string plain = plainFileName(trimBlanks(name));
    if (plain.empty() || plain.find('\0') != std::string::npos) return FileError::BadNameOrNumber;
    mode_ = mode;
    return files.open(plain, mode, file_);
}

FileError ProgramDataFile::close() {
    buffer_.clear();
    position_ = 0;
    return fileError(file_.close());
}

FileError ProgramDataFile::readLine(std::string& line) {
    if (const FileError error = checkOpen(true); error != FileError::None) return error;
    line.clear();
    for (;;) {
        const std::size_t lineFeed = unread().find('\n');
        line.append(unread().substr(0, lineFeed));
        if (line.size() > longestLine) return FileError::OutOfStringSpace;
        if (lineFeed != std::string_view::npos) {
            position_ += lineFeed + 1;
            if (line.ends_with('\r')) line.pop_back();
            return FileError::None;
        }
        if (const FileError error = fill(); error != FileError::None) return error;
        if (unread().empty()) return line.empty() ? FileError::PastEnd : FileError::None;
    }
}

FileError ProgramDataFile::writeLine(std::string_view text) {
    if (const FileError error = checkOpen(false); error != FileError::None) return error;
    return fileError(file_.write(std::string(text).append(lineEnd)));
}

FileError ProgramDataFile::atEnd(bool& end) {
    if (!isOpen()) return FileError::BadNameOrNumber;
    end = true;
    if (mode_ != Mode::Read) return FileError::None;
    if (unread().empty())
        if (const FileError error = fill(); error != FileError::None) return error;
    end = unread().empty();
    return FileError::None;
}

FileError ProgramDataFile::checkOpen(bool reading) const {
    if (!isOpen()) return FileError::BadNameOrNumber;
    return (mode_ == Mode::Read) == reading ? FileError::None : FileError::BadMode;
}

// Replaces the read-ahead, which has been used up; it stays empty at the end of the file.
FileError ProgramDataFile::fill() {
    position_ = 0;
    buffer_.clear();
    return fileError(file_.read(buffer_, readAhead));
}

}  // namespace tolvan
