#include "stub/ExecutableExtent.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace tolvan {
namespace {

// A number of a header: where it stands in its record, and of how many bytes it is.
struct Field {
    std::uint64_t offset;
    std::size_t size;
};

// Reads numbers of a file, the low byte first. After a failure all are 0.
class NumberReader {
  public:
    explicit NumberReader(std::istream& file) : file_(file) {}

    std::uint64_t read(std::uint64_t record, Field field) {
        std::array<char, sizeof(std::uint64_t)> bytes{};
        if (failed_ || record > furthest) return fail();
        file_.clear();
        file_.seekg(static_cast<std::streamoff>(record + field.offset));
        if (!file_.read(bytes.data(), static_cast<std::streamsize>(field.size))) return fail();
        std::uint64_t number = 0;
        for (std::size_t i = field.size; i-- > 0;) number = (number << 8U) | static_cast<unsigned char>(bytes[i]);
        return number;
    }
    std::uint64_t fileSize() {
        file_.clear();
        file_.seekg(0, std::ios::end);
        return static_cast<std::uint64_t>(file_.tellg());
    }
    bool hasFailed() const { return failed_; }

  private:
    static constexpr std::uint64_t furthest = std::uint64_t{1} << 48;  // no file is so long

    std::uint64_t fail() {
        failed_ = true;
        return 0;
    }

    std::istream& file_;
    bool failed_ = false;
};

struct Program {
    std::uint64_t extent = 0;
    std::vector<FilePart> loaded;
};

void include(std::uint64_t start, std::uint64_t size, std::uint64_t& extent) {
    if (size > 0) extent = std::max(extent, start + size);
}

// The layout of ELF files for machines of 64 and of 32 bits; see elf(5).
struct ElfLayout {
    std::uint64_t header;
    Field segmentTable, sectionTable, segmentSize, segmentCount, sectionSize, sectionCount;
    std::uint64_t segment;
    Field segmentOffset, segmentFileSize;
    std::uint64_t section;
    Field sectionOffset, sectionFileSize;
};
constexpr ElfLayout elf64 = {64, {32, 8}, {40, 8}, {54, 2}, {56, 2}, {58, 2}, {60, 2},
                             56, {8, 8},  {32, 8}, 64,      {24, 8}, {32, 8}};
constexpr ElfLayout elf32 = {52, {28, 4}, {32, 4}, {42, 2}, {44, 2}, {46, 2}, {48, 2},
                             32, {4, 4},  {16, 4}, 40,      {16, 4}, {20, 4}};
constexpr Field elfClass = {4, 1};
constexpr Field elfByteOrder = {5, 1};
constexpr Field segmentKind = {0, 4};
constexpr Field sectionKind = {4, 4};
constexpr std::uint64_t loadedSegment = 1;
constexpr std::uint64_t sectionWithoutBytes = 8;

std::optional<Program> readElf(NumberReader& file) {
    const std::uint64_t width = file.read(0, elfClass);
    if ((width != 1 && width != 2) || file.read(0, elfByteOrder) != 1) return std::nullopt;
    const ElfLayout& layout = width == 2 ? elf64 : elf32;
    const std::uint64_t segments = file.read(0, layout.segmentTable);
    const std::uint64_t segmentCount = file.read(0, layout.segmentCount);
    const std::uint64_t sections = file.read(0, layout.sectionTable);
    const std::uint64_t sectionCount = file.read(0, layout.sectionCount);
    if ((segmentCount > 0 && file.read(0, layout.segmentSize) != layout.segment) ||
        (sectionCount > 0 && file.read(0, layout.sectionSize) != layout.section))
        return std::nullopt;
    Program program;
    program.extent =
        std::max({layout.header, segments + segmentCount * layout.segment, sections + sectionCount * layout.section});
    // Where the table of segments stands in its usual place, directly after the header, it is no part of its own.
    const std::uint64_t headers = segments == layout.header ? segments + segmentCount * layout.segment : layout.header;
    for (std::uint64_t i = 0; i < segmentCount && !file.hasFailed(); ++i) {
        const std::uint64_t segment = segments + i * layout.segment;
        const std::uint64_t start = file.read(segment, layout.segmentOffset);
        const std::uint64_t end = start + file.read(segment, layout.segmentFileSize);
        include(start, end - start, program.extent);
        if (file.read(segment, segmentKind) != loadedSegment) continue;
        const std::uint64_t kept = std::max(start, headers);
        if (end < kept) return std::nullopt;
        program.loaded.push_back({kept, end - kept});
    }
    for (std::uint64_t i = 0; i < sectionCount && !file.hasFailed(); ++i) {
        const std::uint64_t section = sections + i * layout.section;
        if (file.read(section, sectionKind) == sectionWithoutBytes) continue;
        include(file.read(section, layout.sectionOffset), file.read(section, layout.sectionFileSize), program.extent);
    }
    return program;
}

// https://learn.microsoft.com/windows/win32/debug/pe-format
constexpr Field peStart = {60, 4};
constexpr Field peMark = {0, 4};
constexpr std::uint64_t peMarkValue = 0x4550;  // "PE" and two zeros
// From the mark on.
constexpr Field peSectionCount = {6, 2};
constexpr Field peSymbols = {12, 4};
constexpr Field peSymbolCount = {16, 4};
constexpr Field peOptionalSize = {20, 2};
constexpr std::uint64_t peHeader = 24;
constexpr std::uint64_t peSymbol = 18;
// Of a section.
constexpr std::uint64_t peSection = 40;
constexpr Field peVirtualSize = {8, 4};
constexpr Field peRawSize = {16, 4};
constexpr Field peRawStart = {20, 4};
constexpr Field peSectionKind = {36, 4};
constexpr std::uint64_t discardable = 0x02000000;

std::optional<Program> readPe(NumberReader& file) {
    const std::uint64_t start = file.read(0, peStart);
    if (file.read(start, peMark) != peMarkValue) return std::nullopt;
    const std::uint64_t sections = start + peHeader + file.read(start, peOptionalSize);
    const std::uint64_t count = file.read(start, peSectionCount);
    Program program;
    program.extent = sections + count * peSection;
    for (std::uint64_t i = 0; i < count && !file.hasFailed(); ++i) {
        const std::uint64_t section = sections + i * peSection;
        const std::uint64_t place = file.read(section, peRawStart);
        const std::uint64_t size = file.read(section, peRawSize);
        include(place, size, program.extent);
        if (size > 0 && (file.read(section, peSectionKind) & discardable) == 0)
            program.loaded.push_back({place, std::min(size, file.read(section, peVirtualSize))});
    }
    // The symbols and, directly behind them, their names, which begin with their size.
    const std::uint64_t symbols = file.read(start, peSymbols);
    if (symbols > 0) {
        const std::uint64_t names = symbols + file.read(start, peSymbolCount) * peSymbol;
        program.extent = std::max(program.extent, names + file.read(names, {0, 4}));
    }
    return program;
}

std::optional<Program> readProgram(std::istream& stream) {
    const std::optional<ProgramSystem> system = systemOfProgram(stream);
    if (!system) return std::nullopt;
    NumberReader file(stream);
    std::optional<Program> program = *system == ProgramSystem::Linux ? readElf(file) : readPe(file);
    if (file.hasFailed() || !program || program->extent > file.fileSize()) return std::nullopt;
    for (const FilePart& part : program->loaded)
        if (part.start + part.size > file.fileSize()) return std::nullopt;
    return program;
}

}  // namespace

std::optional<ProgramSystem> systemOfProgram(std::istream& file) {
    std::array<char, 4> first{};
    file.clear();
    file.seekg(0);
    file.read(first.data(), first.size());
    const std::string_view mark(first.data(), static_cast<std::size_t>(file.gcount()));
    if (mark ==
        "\x7F"
        "ELF")
        return ProgramSystem::Linux;
    if (mark.starts_with("MZ")) return ProgramSystem::Windows;
    return std::nullopt;
}

std::optional<std::uint64_t> executableExtent(std::istream& file) {
    const std::optional<Program> program = readProgram(file);
    return program ? std::optional(program->extent) : std::nullopt;
}

std::optional<std::vector<FilePart>> loadedParts(std::istream& file) {
    const std::optional<Program> program = readProgram(file);
    return program ? std::optional(program->loaded) : std::nullopt;
}

}  // namespace tolvan
