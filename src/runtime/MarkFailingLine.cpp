#include "runtime/MarkFailingLine.h"

#include "platform/encoding/Ascii.h"
#include "runtime/ProgramMarker.h"

#include <cmath>
#include <string>

namespace tolvan {
std::int32_t errorLineOf(int scriptLine) {
    return static_cast<std::int32_t>(std::nearbyint(scriptLine / 2.0 - 1));
}

LineSpan spanOfLine(std::string_view text, std::int32_t line) {
    const std::string lines = std::string(text).append(lineEnd);
    std::size_t start = 0;
    for (std::int32_t i = 0; i < line; ++i) {
        const std::size_t end = lines.find(lineEnd, start);
        start = end == std::string::npos ? 0 : end + lineEnd.size();
    }
    const std::size_t end = lines.find(lineEnd, start);
    return {start, end == std::string::npos ? lines.size() : end + 1 - start};
}

void markFailingLine(ProgramMarker& editor, std::int32_t line) {
    const LineSpan program = spanOfLine(editor.programText(), line);
    const LineSpan roman = spanOfLine(editor.romanText(), line);
    editor.selectProgram(program.start, program.length);
    editor.selectRoman(roman.start, roman.length);
}

}  // namespace tolvan
