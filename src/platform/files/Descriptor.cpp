#include "platform/files/Descriptor.h"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace tolvan {
namespace {

constexpr std::size_t pieceSize = std::size_t{256} << 10;

// How much to read at once: an ordinary file fits whole, with one byte more that shows its end.
std::size_t firstPiece(int number, std::size_t most) {
    struct stat entry {};
    const bool isFile = ::fstat(number, &entry) == 0 && S_ISREG(entry.st_mode) && entry.st_size > 0;
    return std::min(isFile ? static_cast<std::size_t>(entry.st_size) : pieceSize, most) + 1;
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

int Descriptor::read(std::string& text, std::size_t size) const {
    const std::size_t start = text.size();
    text.resize(start + size);
    ssize_t count = -1;
    do {
        count = ::read(number_, text.data() + start, size);
    } while (count < 0 && errno == EINTR);
    const int error = count < 0 ? errno : 0;
    text.resize(start + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return error;
}

int Descriptor::readAll(std::string& text, std::size_t most) const {
    const std::size_t start = text.size();
    for (std::size_t piece = firstPiece(number_, most);; piece = pieceSize) {
        const std::size_t before = text.size();
        if (const int error = read(text, piece); error != 0) return error;
        if (text.size() - start > most) return EFBIG;
        if (text.size() == before) return 0;
    }
}

int Descriptor::write(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t count = ::write(number_, bytes.data(), bytes.size());
        if (count == 0) return withoutReason;
        if (count < 0 && errno != EINTR) return errno;
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return 0;
}

int Descriptor::close() {
    const int number = std::exchange(number_, -1);
    if (number < 0 || !isOwner_ || ::close(number) == 0 || errno == EINTR) return 0;
    return errno;
}

}  // namespace tolvan
