#include "platform/files/Descriptor.h"

#include "platform/files/FileEntry.h"

#include <algorithm>
#include <cerrno>

namespace tolvan {
namespace {

constexpr std::size_t pieceSize = std::size_t{256} << 10;

// How much to read at once: an ordinary file fits whole, with one byte more that shows its end.
std::size_t firstPiece(const Descriptor& file, std::size_t most) {
    const std::optional<FileEntry> entry = entryOf(file);
    const bool isFile = entry && entry->kind == FileEntry::Kind::File && entry->size > 0;
    return std::min(isFile ? static_cast<std::size_t>(entry->size) : pieceSize, most) + 1;
}

}  // namespace

Descriptor Descriptor::standard(int number) {
    Descriptor descriptor(number);
    descriptor.isOwner_ = false;
    return descriptor;
}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
    if (this == &other) return *this;
    close();
    number_ = std::exchange(other.number_, -1);
    isOwner_ = std::exchange(other.isOwner_, true);
    return *this;
}

int Descriptor::readAll(std::string& text, std::size_t most) const {
    const std::size_t start = text.size();
    for (std::size_t piece = firstPiece(*this, most);; piece = pieceSize) {
        const std::size_t before = text.size();
        if (const int error = read(text, piece); error != 0) return error;
        if (text.size() - start > most) return EFBIG;
        if (text.size() == before) return 0;
    }
}

}  // namespace tolvan
