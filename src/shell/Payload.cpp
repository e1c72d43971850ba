#include "shell/Payload.h"

#include "platform/encoding/Ascii.h"
#include "shell/Scrambling.h"

namespace tolvan {
namespace {

constexpr std::string_view marker = "Checksum OK. Continue with execution.";
constexpr std::string_view moduleBegin = "Sub Main()";
constexpr std::string_view mainEnd = "\r\nEnd Sub";

// The text up to the first line end, which is taken away with it; nothing if there is none.
std::optional<std::string_view> takeCrLfLine(std::string_view& text) {
    const std::size_t end = text.find(lineEnd);
    if (end == std::string_view::npos) return std::nullopt;
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end + lineEnd.size());
    return line;
}

bool isWholeModule(std::string_view module) {
    return module.starts_with(moduleBegin) && module.find(mainEnd) != std::string_view::npos;
}

}  // namespace

std::string buildPayload(const Payload& payload) {
    const std::string_view caption = std::string_view(payload.caption).substr(0, payload.caption.find(lineEnd));
    std::string plain;
    plain.append(marker).append(lineEnd).append(caption).append(lineEnd).append(payload.module);
    return scramble(plain);
}

std::optional<Payload> readPayload(std::string_view scrambled) {
    const std::string plain = unscramble(scrambled);
    std::string_view rest = plain;
    const auto first = takeCrLfLine(rest);
    if (first != marker) return std::nullopt;
    const auto caption = takeCrLfLine(rest);
    if (!caption || !isWholeModule(rest)) return std::nullopt;
    return Payload{std::string(*caption), std::string(rest)};
}

}  // namespace tolvan
