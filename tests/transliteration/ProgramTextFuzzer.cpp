// Any bytes as a program file and as Roman text: marking, transliteration and fonts.
#include "translator/ProgramFile.h"
#include "transliteration/Invariants.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tolvan;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (!isMarkedWell(bytes) || !keepsLatin(bytes) || !linesStandAlone(bytes)) std::abort();

    const ProgramFile file = readProgramFile(bytes);
    if (file.problem == ProgramFile::Problem::None) {
        const ProgramFile again = readProgramFile(writeProgramFile(file.caption, file.roman));
        if (again.caption != file.caption || again.roman != file.roman + "\r\n") std::abort();
    } else if (file.caption != bytes) {
        std::abort();
    }
    StyledText expected = Transliterate(file.roman);
    expected.append(ProgramText("k").view().substr(1));
    if (!file.roman.empty() && ProgramText(file.roman).text() != expected.text()) std::abort();
    return 0;
}
