#include "tvp/Output.h"

#include <cerrno>
#include <unistd.h>

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
    while (!bytes.empty() && failure_ == 0) {
        const ssize_t count = ::write(descriptor_, bytes.data(), bytes.size());
        if (count >= 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
        else if (errno != EINTR)
            failure_ = errno;
    }
}

}  // namespace tolvan
