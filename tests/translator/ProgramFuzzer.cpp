// Any Roman text can be marked, transliterated, translated and formatted.

#include "translator/Formatter.h"
#include "translator/ProgramText.h"
#include "translator/Translator.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view roman(reinterpret_cast<const char*>(data), size);
    const tolvan::StyledText program = tolvan::ProgramText(roman);
    if (!tolvan::Translator().Compile(program).starts_with("Sub Main()\r\n")) std::abort();
    const std::string formatted = tolvan::formatProgram(roman, program);
    if (tolvan::formatProgram(formatted, program) != formatted) std::abort();
    return 0;
}
