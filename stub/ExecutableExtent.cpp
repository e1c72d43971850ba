#include "stub/ExecutableExtent.h"

#include <algorithm>
#include <cstring>
#include <elf.h>
#include <link.h>

namespace tolvan {
namespace {

// The layout of the machine's own word size; see elf(5).
using Header = ElfW(Ehdr);
using Segment = ElfW(Phdr);
using Section = ElfW(Shdr);

constexpr unsigned char ownClass = sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32;

template <class Record>
bool readAt(std::istream& file, std::uint64_t offset, Record& record) {
    file.seekg(static_cast<std::streamoff>(offset));
    return static_cast<bool>(file.read(reinterpret_cast<char*>(&record), sizeof record));
}

std::uint64_t extentOf(const Segment& segment) {
    return segment.p_offset + segment.p_filesz;
}

std::uint64_t extentOf(const Section& section) {
    return section.sh_type == SHT_NOBITS ? 0 : section.sh_offset + section.sh_size;
}

// Raises `extent` to the end of a table of such records and of all that they name.
template <class Record>
bool includeTable(std::istream& file, std::uint64_t offset, unsigned count, std::uint64_t& extent) {
    for (unsigned i = 0; i < count; ++i) {
        Record record;
        const std::uint64_t position = offset + i * sizeof record;
        if (!readAt(file, position, record)) return false;
        extent = std::max({extent, position + sizeof record, extentOf(record)});
    }
    return true;
}

bool readHeader(std::istream& file, Header& header) {
    if (!readAt(file, 0, header)) return false;
    return std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 && header.e_ident[EI_CLASS] == ownClass &&
           (header.e_phnum == 0 || header.e_phentsize == sizeof(Segment)) &&
           (header.e_shnum == 0 || header.e_shentsize == sizeof(Section));
}

// Where the table stands in its usual place, directly after the header.
std::uint64_t endOfSegmentTable(const Header& header) {
    return header.e_phoff == sizeof header ? header.e_phoff + header.e_phnum * sizeof(Segment) : 0;
}

}  // namespace

std::optional<std::uint64_t> executableExtent(std::istream& file) {
    Header header;
    if (!readHeader(file, header)) return std::nullopt;
    std::uint64_t extent = sizeof header;
    if (!includeTable<Segment>(file, header.e_phoff, header.e_phnum, extent)) return std::nullopt;
    if (!includeTable<Section>(file, header.e_shoff, header.e_shnum, extent)) return std::nullopt;
    return extent;
}

std::optional<std::vector<FilePart>> loadedParts(std::istream& file) {
    Header header;
    if (!readHeader(file, header)) return std::nullopt;
    file.seekg(0, std::ios::end);
    const auto fileSize = static_cast<std::uint64_t>(file.tellg());
    const std::uint64_t headersEnd = std::max<std::uint64_t>(sizeof header, endOfSegmentTable(header));
    std::vector<FilePart> parts;
    for (unsigned i = 0; i < header.e_phnum; ++i) {
        Segment segment;
        if (!readAt(file, header.e_phoff + i * sizeof segment, segment)) return std::nullopt;
        if (segment.p_type != PT_LOAD) continue;
        const std::uint64_t start = std::max<std::uint64_t>(segment.p_offset, headersEnd);
        const std::uint64_t end = extentOf(segment);
        if (end < start || end > fileSize) return std::nullopt;
        parts.push_back({start, end - start});
    }
    return parts;
}

}  // namespace tolvan
