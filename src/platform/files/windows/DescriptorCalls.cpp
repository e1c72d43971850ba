#include "platform/files/Descriptor.h"

#include <algorithm>
#include <cerrno>
#include <io.h>

namespace tolvan {
namespace {

constexpr std::size_t mostAtOnce = std::size_t{1} << 30;  // the calls count in int

unsigned sizeOfCall(std::size_t size) {
    return static_cast<unsigned>(std::min(size, mostAtOnce));
}

}  // namespace

int Descriptor::read(std::string& text, std::size_t size) const {
    const std::size_t start = text.size();
    text.resize(start + size);
    const int count = ::_read(number_, text.data() + start, sizeOfCall(size));
    const int error = count < 0 ? errno : 0;
    text.resize(start + static_cast<std::size_t>(std::max(count, 0)));
    return error;
}

int Descriptor::write(std::string_view bytes) const {
    while (!bytes.empty()) {
        const int count = ::_write(number_, bytes.data(), sizeOfCall(bytes.size()));
        if (count == 0) return withoutReason;
        if (count < 0) return errno;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return 0;
}

int Descriptor::close() {
    const int number = std::exchange(number_, -1);
    return number < 0 || !isOwner_ || ::_close(number) == 0 ? 0 : errno;
}

}  // namespace tolvan
