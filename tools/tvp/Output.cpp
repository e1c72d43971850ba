#include "tvp/Output.h"

#include "platform/encoding/Ascii.h"
#include "platform/encoding/Utf8.h"
#include "platform/process/OwnProgram.h"

namespace tolvan {
namespace {

constexpr std::size_t pieceSize = std::size_t{64} << 10;

bool isControl(char32_t character) {
    return (character < ' ' && character != '\n' && character != '\t') || (character >= 0x7F && character < 0xA0);
}

// The text, in UTF-8 or in 8-bit codes, with "?" for control codes of either.
std::string withoutControls(std::string_view text) {
    std::string shown;
    while (!text.empty()) {
        const std::string_view rest = text;
        const char32_t character = takeCharacter(text);
        const std::string_view bytes = rest.substr(0, rest.size() - text.size());
        const bool is8Bit = bytes.size() == 1;
        const char32_t code = is8Bit ? static_cast<unsigned char>(bytes[0]) : character;
        const bool endsLine = rest.starts_with(lineEnd);
        shown.append(isControl(code) && !endsLine ? "?" : bytes);
    }
    return shown;
}

}  // namespace

Output::Output(int descriptor) : descriptor_(Descriptor::standard(descriptor)), isTerminal_(isTerminal(descriptor)) {}

void Output::write(std::string_view bytes) {
    if (waiting_.size() + bytes.size() > pieceSize) flush();
    if (bytes.size() > pieceSize)
        writeThrough(bytes);
    else
        waiting_ += bytes;
}

void Output::writeLine(std::string_view line) {
    write(line);
    write("\n");
}

void Output::flush() {
    writeThrough(waiting_);
    waiting_.clear();
}

void Output::writeThrough(std::string_view bytes) {
    if (failure_ != 0 || !descriptor_.isOpen()) return;
    failure_ = isTerminal_ ? descriptor_.write(withoutControls(bytes)) : descriptor_.write(bytes);
}

}  // namespace tolvan
