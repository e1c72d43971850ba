#include "tvp/Input.h"

#include "platform/files/FileEntry.h"
#include "platform/files/OpenFile.h"
#include "platform/files/PathLookup.h"

#include <cerrno>
#include <cstring>
#include <utility>

namespace tolvan {
namespace {

constexpr std::size_t pieceSize = std::size_t{64} << 10;

InputFailure cannotRead(const std::string& name, int error) {
    return {"cannot read " + name + ": " + std::strerror(error)};
}

Descriptor openInput(const std::string& name) {
    if (name == "-") return Descriptor::standard(0);
    Descriptor file = openFile(name, FileUse::Read);
    if (!file.isOpen() && errno == ENOENT) file = openFile(findPath(forwardSlashes(name)), FileUse::Read);
    if (!file.isOpen()) throw cannotRead(name, errno);
    const std::optional<FileEntry> entry = entryOf(file);
    if (!entry) throw cannotRead(name, errno);
    if (entry->kind == FileEntry::Kind::Folder) throw cannotRead(name, EISDIR);
    if (entry->kind != FileEntry::Kind::File) throw InputFailure{"cannot read " + name + ": it is no ordinary file"};
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
