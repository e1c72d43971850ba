#include "tvp/Limits.h"

#include "platform/encoding/Ascii.h"
#include "platform/files/FilePath.h"

#include <charconv>
#include <filesystem>
#include <system_error>

namespace tolvan {
namespace {

namespace fs = std::filesystem;

// A number that is not negative; what follows it is left in `text`.
std::optional<double> takeNumber(std::string_view& text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    if (error != std::errc() || text.starts_with('-')) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

}  // namespace

std::optional<std::uint64_t> readBytes(std::string_view text) {
    constexpr std::string_view units = "kmg";
    constexpr double largest = 1e18;
    const std::optional<double> number = takeNumber(text);
    if (!number || text.size() > 1) return std::nullopt;
    double bytes = *number;
    if (text.size() == 1) {
        const std::size_t unit = units.find(lowerLetter(text[0]));
        if (unit == std::string_view::npos) return std::nullopt;
        for (std::size_t i = 0; i <= unit; ++i) bytes *= 1024;
    }
    if (!(bytes <= largest)) return std::nullopt;
    return static_cast<std::uint64_t>(bytes);
}

std::optional<std::uint64_t> readMilliseconds(std::string_view text) {
    constexpr double longest = 1e9;
    const std::optional<double> seconds = takeNumber(text);
    if (!seconds || !text.empty() || !(*seconds >= 0.001 && *seconds <= longest)) return std::nullopt;
    return static_cast<std::uint64_t>(*seconds * 1000);
}

ReachableFiles Limits::filesOf(const std::string& programFile) const {
    using Reach = ReachableFiles::Reach;
    if (files != "own" && files != "none" && files != "all") return ReachableFiles(files);
    const fs::path folder = programFile == "-" ? fs::path() : filePath(programFile).parent_path();
    const Reach reach = files == "own" ? Reach::Folder : files == "none" ? Reach::Nothing : Reach::Everything;
    return ReachableFiles(folder.empty() ? "." : folder.generic_string(), reach);
}

}  // namespace tolvan
