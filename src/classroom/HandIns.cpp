#include "classroom/HandIns.h"

#include "classroom/Problem.h"
#include "platform/encoding/Ascii.h"
#include "platform/encoding/Utf8.h"
#include "platform/files/FileEntry.h"
#include "platform/files/FilePath.h"
#include "platform/files/OpenFile.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <map>

namespace tolvan::classroom {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t largestHandIn = std::size_t{1} << 20;

bool isHidden(const fs::path& path) {
    return path.filename().string().starts_with('.');
}

// A name in UTF-8 on one line, whatever the bytes of the file's name are.
std::string shownName(const fs::path& path) {
    const std::string bytes = path.generic_string();
    std::string name;
    for (std::string_view rest = bytes; !rest.empty();) {
        const char32_t character = takeCharacter(rest);
        const bool isControl = character < ' ' || (character >= 0x7F && character < 0xA0);
        appendUtf8(isControl ? U' ' : character, name);
    }
    return name;
}

std::vector<fs::path> programsBelow(const fs::path& folder, const fs::path& taskPath) {
    std::vector<fs::path> programs;
    std::error_code failure;
    fs::recursive_directory_iterator place(folder, fs::directory_options::skip_permission_denied, failure);
    for (const fs::recursive_directory_iterator end; !failure && place != end; place.increment(failure)) {
        std::error_code ignored;
        const bool isTask = fs::equivalent(place->path(), taskPath, ignored);
        if (isHidden(place->path()) || isTask) {
            place.disable_recursion_pending();
            continue;
        }
        const bool isFolder = place->is_directory(ignored) && !place->is_symlink(ignored);
        if (!isFolder && sameButForCase(place->path().extension().string(), ".tvp"))
            programs.push_back(place->path().lexically_relative(folder));
    }
    if (failure) {
        const std::string reason = folder.string() + ": " + failure.message();
        throw Problem{"फोल्डर वाचता आले नाही: " + reason, "cannot read the folder " + reason};
    }
    return programs;
}

}  // namespace

std::vector<HandIn> findHandIns(const std::string& folder, const std::string& taskPath) {
    const std::vector<fs::path> programs = programsBelow(filePath(folder), filePath(taskPath));
    std::map<std::string, int> countInFolder;  // of the class's own folders
    for (const fs::path& program : programs) ++countInFolder[program.begin()->string()];
    std::vector<HandIn> handIns;
    for (const fs::path& program : programs) {
        const bool isInFolder = program.has_parent_path();
        const bool isAlone = isInFolder && countInFolder[program.begin()->string()] == 1;
        fs::path name = isAlone ? *program.begin() : program;
        if (!isAlone) name.replace_extension();
        handIns.push_back({shownName(name), (filePath(folder) / program).generic_string()});
    }
    std::sort(handIns.begin(), handIns.end(),
              [](const HandIn& a, const HandIn& b) { return std::pair(a.name, a.path) < std::pair(b.name, b.path); });
    return handIns;
}

HandInContent readHandIn(const HandIn& handIn) {
    using Why = HandInContent::Problem;
    const Descriptor file = openFile(handIn.path, FileUse::Read, Links::Refuse);
    if (!file.isOpen()) return {errno == ELOOP ? Why::IsLink : Why::CannotRead, {}};
    const std::optional<FileEntry> entry = entryOf(file);
    if (!entry) return {Why::CannotRead, {}};
    if (entry->kind != FileEntry::Kind::File) return {Why::NoFile, {}};
    HandInContent content;
    const int error = file.readAll(content.bytes, largestHandIn);
    if (error == EFBIG) return {Why::TooLarge, {}};
    if (error != 0) return {Why::CannotRead, {}};
    if (content.bytes.empty()) content.problem = Why::Empty;
    return content;
}

}  // namespace tolvan::classroom
