#include "shell/Payload.h"

#include "platform/encoding/Ascii.h"
#include "shell/Scrambling.h"
#include "translator/ModuleForm.h"

namespace tolvan {
namespace {

constexpr std::string_view marker = "Checksum OK. Continue with execution.";

// The text up to the first line end, which is taken away with it; nothing if there is none.
std::optional<std::string_view> takeCrLfLine(std::string_view& text) {
    const std::size_t end = text.find(lineEnd);
    if (end == std::string_view::npos) return std::nullopt;
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end + lineEnd.size());
    return line;
}

// Whether the main routine is as the translator writes it, up to its end. Functions may follow, those of the
// program and of the library; they have no such form.
bool isWholeModule(std::string_view module) {
    if (takeCrLfLine(module) != module_form::mainBegin) return false;
    for (;;) {
        const auto line = takeCrLfLine(module);
        if (line == module_form::mainEnd) return true;
        if (line != module_form::pollLine || !takeCrLfLine(module)) return false;
    }
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
