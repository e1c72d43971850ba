#include "stub/RuntimeSeal.h"

#include "stub/ExecutableExtent.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>

namespace tolvan {
namespace {

// FNV-1a, eight bytes at a time; the last ones are filled up with zeros.
std::uint64_t addTo(std::uint64_t sum, std::string_view bytes) {
    constexpr std::uint64_t prime = 0x100000001B3;
    for (std::size_t i = 0; i < bytes.size(); i += sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + i, std::min(sizeof word, bytes.size() - i));
        sum = (sum ^ word) * prime;
        sum ^= sum >> 32U;
    }
    return sum;
}

}  // namespace

std::optional<RuntimeCheck> checkRuntime(std::istream& file, std::string_view mark) {
    const std::optional<std::vector<FilePart>> parts = loadedParts(file);
    if (!parts) return std::nullopt;
    std::uint64_t sum = 0xCBF29CE484222325;
    std::optional<std::uint64_t> place;
    for (const FilePart& part : *parts) {
        std::string bytes(part.size, '\0');
        file.seekg(static_cast<std::streamoff>(part.start));
        if (!file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) return std::nullopt;
        if (const std::size_t found = bytes.find(mark); found != std::string::npos) {
            const std::size_t checksum = found + offsetof(RuntimeSeal, checksum);
            if (place || checksum + sizeof sum > bytes.size()) return std::nullopt;
            bytes.replace(checksum, sizeof sum, sizeof sum, '\0');
            place = part.start + checksum;
        }
        sum = addTo(sum, bytes);
    }
    if (!place) return std::nullopt;
    return RuntimeCheck{sum, *place};
}

}  // namespace tolvan
