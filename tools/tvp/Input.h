// Files and standard input of the command line.
#pragma once

#include "platform/files/Descriptor.h"

#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace tolvan {

// A file could not be read, or its content is not what the command takes; for the user, in English.
struct InputFailure {
    std::string message;
};

// In bytes; what is larger is taken for something else than a program.
inline constexpr std::size_t largestInput = std::size_t{64} << 20;

// All bytes of an ordinary file, or of standard input for "-". A name is looked up as it was typed, then without regard
// to case and with "\" as "/". Throws InputFailure.
std::string readInput(const std::string& name);

// Standard input, or another text, line by line.
class LineReader {
  public:
    LineReader() : input_(Descriptor::standard(STDIN_FILENO)) {}
    explicit LineReader(std::string text) : buffer_(std::move(text)) {}

    // The next line without its line end (LF or CR LF); nothing at the end of the input.
    std::optional<std::string> next();

  private:
    bool fill();

    Descriptor input_;
    std::string buffer_;
    std::size_t position_ = 0;
};

}  // namespace tolvan
