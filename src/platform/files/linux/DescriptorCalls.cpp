#include "platform/files/Descriptor.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

namespace tolvan {

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
