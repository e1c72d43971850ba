#include "tvp/Input.h"

#include "platform/files/PathLookup.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tolvan {
namespace {

constexpr std::size_t pieceSize = std::size_t{256} << 10;

// At most as many bytes as fit into `size`; 0 at the end, below 0 on a failure.
ssize_t readPiece(int descriptor, char* bytes, std::size_t size) {
    for (;;) {
        const ssize_t count = ::read(descriptor, bytes, size);
        if (count >= 0 || errno != EINTR) return count;
    }
}

InputFailure cannotRead(const std::string& name, int error) {
    return {"cannot read " + name + ": " + std::strerror(error)};
}

std::string readAll(int descriptor, const std::string& name) {
    std::string content;
    struct stat entry {};
    if (::fstat(descriptor, &entry) == 0 && S_ISREG(entry.st_mode))
        content.reserve(static_cast<std::size_t>(entry.st_size) + pieceSize);
    for (;;) {
        const std::size_t size = content.size();
        content.resize(size + pieceSize);
        const ssize_t count = readPiece(descriptor, content.data() + size, pieceSize);
        content.resize(size + static_cast<std::size_t>(count > 0 ? count : 0));
        if (count < 0) throw cannotRead(name, errno);
        if (count == 0) return content;
    }
}

}  // namespace

std::string readInput(const std::string& name) {
    if (name == "-") return readAll(STDIN_FILENO, "standard input");
    int descriptor = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0 && errno == ENOENT)
        descriptor = ::open(findPath(forwardSlashes(name)).c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) throw cannotRead(name, errno);
    try {
        std::string content = readAll(descriptor, name);
        ::close(descriptor);
        return content;
    } catch (...) {
        ::close(descriptor);
        throw;
    }
}

std::optional<std::string> LineReader::next() {
    for (std::size_t searched = position_;;) {
        const std::size_t lineEnd = buffer_.find('\n', searched);
        if (lineEnd != std::string::npos) {
            std::string line = buffer_.substr(position_, lineEnd - position_);
            position_ = lineEnd + 1;
            if (line.ends_with('\r')) line.pop_back();
            return line;
        }
        searched = buffer_.size() - position_;
        if (fill()) continue;
        if (position_ == buffer_.size()) return std::nullopt;
        return buffer_.substr(std::exchange(position_, buffer_.size()));
    }
}

// Drops what was read and gets a further piece; false at the end of the input or when it cannot be read.
bool LineReader::fill() {
    buffer_.erase(0, std::exchange(position_, 0));
    const std::size_t size = buffer_.size();
    buffer_.resize(size + pieceSize);
    const ssize_t count = readPiece(STDIN_FILENO, buffer_.data() + size, pieceSize);
    buffer_.resize(size + static_cast<std::size_t>(count > 0 ? count : 0));
    return count > 0;
}

}  // namespace tolvan
