// Any characters in any fonts are translated and formatted, and the module has its layout.

#include "platform/encoding/Deva.h"
#include "translator/Formatter.h"
#include "translator/Translator.h"

#include <array>
#include <cstdint>
#include <cstdlib>

namespace tolvan {
namespace {

// Bytes above the Devanagari letters in use stand for what random bytes seldom spell: the marker words.
constexpr auto phrases = std::to_array<std::string_view>({
    "sucna"_deva,   " saQI "_deva,   " te "_deva,      " py¡t "_deva,    "py¡t"_deva,      " pasun "_deva,
    "pasun"_deva,   "re\""_deva,     "Aao"_deva,       " r<gacI "_deva,  "Aayt"_deva,      " r<gace "_deva,
    " kaF"_deva,    " -rlele "_deva, " ib<Ë "_deva,    " vr "_deva,      " r<gaca "_deva,  "iÇJya"_deva,
    " iÇJya "_deva, "vtuR¦"_deva,    " iÇJyace "_deva, " Aaslele "_deva, "%pàayaejn"_deva, "s<pv"_deva,
    "jr "_deva,     "tr"_deva,       "\r\n"_deva,      "nahItr"_deva,
});
constexpr std::uint8_t firstPhrase = 256 - phrases.size();

StyledText anyText(const std::uint8_t* data, std::size_t size) {
    StyledText text;
    Font font = Font::Devanagari;
    for (std::size_t i = 0; i < size; ++i) {
        const char c = static_cast<char>(data[i]);
        if (data[i] >= firstPhrase)
            text.append(phrases[data[i] - firstPhrase], font);
        else if (data[i] < 3)
            font = static_cast<Font>(data[i]);
        else
            text.append(std::string_view(&c, 1), font);
    }
    return text;
}

}  // namespace
}  // namespace tolvan

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tolvan;
    static Translator translator;
    const StyledText program = anyText(data, size);
    const std::string module = translator.Compile(program);
    if (!module.starts_with("Sub Main()\r\n") || module != translator.Compile(program)) std::abort();
    translator.TranslateLine(program);
    if (const std::string once = formatProgram(program.text(), program); formatProgram(once, program) != once)
        std::abort();
    return 0;
}
