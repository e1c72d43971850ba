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

constexpr std::size_t pieceSize = std::size_t{64} << 10;

InputFailure cannotRead(const std::string& name, int error) {
    return {"cannot read " + name + ": " + std::strerror(error)};
}

Descriptor openInput(const std::string& name) {
    if (name == "-") return Descriptor::standard(STDIN_FILENO);
    constexpr int flags = O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;  // a pipe without writer is not waited for
    Descriptor file(::open(name.c_str(), flags));
    if (!file.isOpen() && errno == ENOENT) file = Descriptor(::open(findPath(forwardSlashes(name)).c_str(), flags));
    if (!file.isOpen()) throw cannotRead(name, errno);
    struct stat entry {};
    if (::fstat(file.number(), &entry) != 0) throw cannotRead(name, errno);
    if (S_ISDIR(entry.st_mode)) throw cannotRead(name, EISDIR);
    if (!S_ISREG(entry.st_mode)) throw InputFailure{"cannot read " + name + ": it is no ordinary file"};
    return file;
}

}  // namespace

std::string readInput(const std::string& name) {
    const Descriptor file = openInput(name);
    std::string content;
    if (const int error = file.readAll(content, largestInput); error != 0)
        throw cannotRead(name == "-" ? "standard input" : name, error);
    return content;
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
    if (!input_.isOpen()) return false;
    const std::size_t size = buffer_.size();
    static_cast<void>(input_.read(buffer_, pieceSize));
    return buffer_.size() > size;
}

}  // namespace tolvan
