#include "classroom/Pack.h"

#include <cstring>

namespace tolvan::classroom {

void PackReader::fixed(void* value, std::size_t size) {
    isWhole_ = isWhole_ && rest_.size() >= size;
    if (!isWhole_) return;
    std::memcpy(value, rest_.data(), size);
    rest_.remove_prefix(size);
}

std::int64_t PackReader::number() {
    std::int64_t value = 0;
    fixed(&value, sizeof value);
    return value;
}

double PackReader::real() {
    double value = 0;
    fixed(&value, sizeof value);
    return value;
}

std::string PackReader::text() {
    const std::int64_t size = number();
    isWhole_ = isWhole_ && size >= 0 && static_cast<std::uint64_t>(size) <= rest_.size();
    if (!isWhole_) return {};
    std::string value(rest_.substr(0, static_cast<std::size_t>(size)));
    rest_.remove_prefix(value.size());
    return value;
}

}  // namespace tolvan::classroom
