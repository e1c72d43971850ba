#include "classroom/TarArchive.h"

#include "classroom/Task.h"
#include "platform/files/FilePath.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>

namespace tolvan::classroom {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t block = 512;

// A field of an entry's head: numbers are octal digits.
struct Field {
    std::size_t place;
    std::size_t size;
};
constexpr Field name{0, 100};
constexpr Field mode{100, 8};
constexpr Field owner{108, 8};
constexpr Field group{116, 8};
constexpr Field contentSize{124, 12};
constexpr Field modified{136, 12};
constexpr Field checksum{148, 8};
constexpr Field kind{156, 1};
constexpr Field magic{257, 8};
constexpr Field prefix{345, 155};

std::size_t padded(std::size_t size) {
    return (size + block - 1) / block * block;
}

void put(std::string& head, Field field, std::string_view text) {
    head.replace(field.place, std::min(text.size(), field.size), text.substr(0, field.size));
}

void putNumber(std::string& head, Field field, std::size_t number) {
    std::array<char, 24> digits{};
    std::snprintf(digits.data(), digits.size(), "%0*zo", static_cast<int>(field.size) - 1, number);
    put(head, field, digits.data());
}

// The sum of the head's bytes, with blanks in the place of the sum.
std::size_t sumOf(std::string head) {
    head.replace(checksum.place, checksum.size, checksum.size, ' ');
    std::size_t sum = 0;
    for (const char c : head) sum += static_cast<unsigned char>(c);
    return sum;
}

void putName(std::string& head, const std::string& path) {
    if (path.size() <= name.size) return put(head, name, path);
    const std::size_t slash = path.find('/', path.size() - name.size - 1);
    if (slash == std::string::npos || slash > prefix.size) return put(head, name, path.substr(path.size() - name.size));
    put(head, prefix, path.substr(0, slash));
    put(head, name, path.substr(slash + 1));
}

std::string_view get(std::string_view head, Field field) {
    const std::string_view text = head.substr(field.place, field.size);
    return text.substr(0, text.find('\0'));
}

std::optional<std::size_t> getNumber(std::string_view head, Field field) {
    std::size_t number = 0;
    bool hasDigit = false;
    for (const char c : get(head, field)) {
        if (c == ' ') continue;
        if (c < '0' || c > '7') return std::nullopt;
        number = number * 8 + static_cast<std::size_t>(c - '0');
        hasDigit = true;
    }
    return hasDigit ? std::optional(number) : std::nullopt;
}

std::string pathOf(std::string_view head) {
    const std::string_view folder = get(head, prefix);
    const std::string path = (folder.empty() ? "" : std::string(folder) + "/") + std::string(get(head, name));
    return filePath(path).lexically_normal().generic_string();
}

bool staysInside(const fs::path& path) {
    return !path.empty() && path.is_relative() &&
           std::none_of(path.begin(), path.end(), [](const fs::path& part) { return part.string().starts_with('.'); });
}

}  // namespace

std::string writeTar(const std::vector<NamedFile>& files) {
    std::string archive;
    for (const NamedFile& file : files) {
        std::string head(block, '\0');
        putName(head, file.name);
        putNumber(head, mode, 0644);
        putNumber(head, owner, 0);
        putNumber(head, group, 0);
        putNumber(head, contentSize, file.content.size());
        putNumber(head, modified, 0);  // the same files make the same archive
        put(head, kind, "0");
        put(head, magic,
            std::string_view("ustar\0"
                             "00",
                             magic.size));
        putNumber(head, checksum, sumOf(head));
        archive.append(head).append(file.content);
        archive.append(padded(file.content.size()) - file.content.size(), '\0');
    }
    return archive.append(2 * block, '\0');
}

std::optional<std::vector<NamedFile>> readTar(std::string_view bytes) {
    std::vector<NamedFile> files;
    bool isArchive = false;
    while (bytes.size() >= block) {
        const std::string_view head = bytes.substr(0, block);
        if (head.find_first_not_of('\0') == std::string_view::npos) break;
        const auto sum = getNumber(head, checksum);
        const auto size = getNumber(head, contentSize);
        if (!sum || !size || *sum != sumOf(std::string(head)) || *size > bytes.size() - block) return std::nullopt;
        isArchive = true;
        const std::string path = pathOf(head);
        const std::string_view type = get(head, kind);
        if ((type.empty() || type == "0") && staysInside(path))
            files.push_back({path, std::string(bytes.substr(block, *size))});
        bytes.remove_prefix(std::min(bytes.size(), block + padded(*size)));
    }
    return isArchive ? std::optional(std::move(files)) : std::nullopt;
}

}  // namespace tolvan::classroom
