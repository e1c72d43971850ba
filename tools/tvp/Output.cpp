#include "tvp/Output.h"

namespace tolvan {

constexpr std::size_t pieceSize = std::size_t{64} << 10;

void Output::write(std::string_view bytes) {
    if (waiting_.size() + bytes.size() > pieceSize) flush();
    if (bytes.size() > pieceSize)
        writeThrough(bytes);
    else
        waiting_ += bytes;
}

void Output::writeLine(std::string_view line) {
    write(line);
    write("\n");
}

void Output::flush() {
    writeThrough(waiting_);
    waiting_.clear();
}

void Output::writeThrough(std::string_view bytes) {
    if (failure_ == 0) failure_ = descriptor_.write(bytes);
}

}  // namespace tolvan
