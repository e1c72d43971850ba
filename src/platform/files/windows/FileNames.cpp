#include "platform/files/windows/FileNames.h"

#include "platform/encoding/Ascii.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace tolvan::windows {
namespace {

constexpr std::string_view slashes = "/\\";

constexpr std::array<std::string_view, 7> devices = {"aux", "clock$", "con", "conin$", "conout$", "nul", "prn"};

// What may follow "com" and "lpt"; the last three are the raised digits.
constexpr std::array<std::string_view, 13> ports = {"0", "1", "2", "3",        "4",        "5",       "6",
                                                    "7", "8", "9", "\xC2\xB9", "\xC2\xB2", "\xC2\xB3"};

constexpr std::array<std::string_view, 27> runEndings = {
    "bat", "chm", "cmd", "com", "cpl", "dll", "exe", "gadget", "hta", "inf", "jar", "js",  "jse", "lnk",
    "msc", "msi", "msp", "ocx", "pif", "ps1", "reg", "scr",    "sys", "url", "vbe", "vbs", "wsf"};

template <std::size_t count>
bool isOneOf(const std::array<std::string_view, count>& list, std::string_view text) {
    return std::find(list.begin(), list.end(), text) != list.end();
}

bool isDevice(std::string_view name) {
    std::string stem = lowerCase(name.substr(0, name.find('.')));
    stem.erase(stem.find_last_not_of(' ') + 1);
    const bool isPort = stem.starts_with("com") || stem.starts_with("lpt");
    return isOneOf(devices, stem) || (isPort && isOneOf(ports, std::string_view(stem).substr(3)));
}

constexpr std::size_t longestName = 255;

// Each character begins with a byte that does not continue another; one of four bytes counts twice.
std::size_t sizeInUtf16(std::string_view text) {
    return static_cast<std::size_t>(std::accumulate(text.begin(), text.end(), 0, [](int sum, char c) {
        const auto byte = static_cast<unsigned char>(c);
        return sum + (byte >= 0xF0 ? 2 : (byte & 0xC0U) == 0x80 ? 0 : 1);
    }));
}

bool isKept(char c) {
    return static_cast<unsigned char>(c) < ' ' || std::string_view("<>:\"/\\|?*").find(c) != std::string_view::npos;
}

// Behind the slashes that stand there.
std::size_t pastSlashes(std::string_view path, std::size_t start) {
    return std::min(path.find_first_not_of(slashes, start), path.size());
}

std::size_t endOfName(std::string_view path, std::size_t start) {
    return std::min(path.find_first_of(slashes, start), path.size());
}

bool isSlash(std::string_view path, std::size_t place) {
    return place < path.size() && slashes.find(path[place]) != std::string_view::npos;
}

}  // namespace

bool isFileName(std::string_view name) {
    return !name.empty() && sizeInUtf16(name) <= longestName && !name.ends_with(' ') && !name.ends_with('.') &&
           std::none_of(name.begin(), name.end(), isKept) && !isDevice(name);
}

std::size_t rootLength(std::string_view path) {
    if (path.size() >= 2 && isLetter(path[0]) && path[1] == ':') return isSlash(path, 2) ? pastSlashes(path, 2) : 2;
    if (!isSlash(path, 0) || !isSlash(path, 1)) return pastSlashes(path, 0);
    const std::size_t share = pastSlashes(path, endOfName(path, 2));
    return pastSlashes(path, endOfName(path, share));
}

bool isPath(std::string_view path) {
    const std::size_t root = rootLength(path);
    const std::string_view server = path.substr(std::min<std::size_t>(2, root), 1);
    if (isSlash(path, 0) && isSlash(path, 1) && (server == "." || server == "?")) return false;
    for (std::size_t start = root; start < path.size(); start = pastSlashes(path, endOfName(path, start))) {
        const std::string_view name = path.substr(start, endOfName(path, start) - start);
        if (name != "." && name != ".." && !isFileName(name)) return false;
    }
    return true;
}

bool runsByName(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    return dot != std::string_view::npos && isOneOf(runEndings, lowerCase(name.substr(dot + 1)));
}

}  // namespace tolvan::windows
