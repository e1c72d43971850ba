// The one text file that a running program may have open, number 1 of its language.
//
// Names and records are in internal text form: font-encoded text with Latin runs in braces. Every record reaches the
// file before the call returns, so a failure belongs to the statement that wrote, and what was written before stays.
#pragma once

#include "platform/files/Descriptor.h"
#include "runtime/host/FileError.h"
#include "runtime/host/ReachableFiles.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tolvan {

class ProgramDataFile {
  public:
    using Mode = DataFileMode;
    // Bytes; a line of a device or a damaged file may never end.
    static constexpr std::size_t longestLine = std::size_t{256} << 20;

    // Of the files that the program reaches, the one with this name.
    FileError open(ReachableFiles& files, std::string_view name, Mode mode);
    // Harmless when nothing is open.
    FileError close();
    // The next line without its line end, CR LF or LF; the last one may have none.
    FileError readLine(std::string& line);
    // The text and CR LF.
    FileError writeLine(std::string_view text);
    // Whether nothing is left to read; so in a file opened for writing.
    FileError atEnd(bool& end);

    bool isOpen() const { return file_.isOpen(); }

  private:
    FileError checkOpen(bool reading) const;
    FileError fill();
    std::string_view unread() const { return std::string_view(buffer_).substr(position_); }

    Descriptor file_;
    Mode mode_ = Mode::Read;
    std::string buffer_;  // read ahead
    std::size_t position_ = 0;
};

// The plain name in UTF-8: run marks dropped, "\{" and "\}" as braces, a character above 127 as the one that
// windows-1252 gives its code.
std::string plainFileName(std::string_view internalText);

}  // namespace tolvan
