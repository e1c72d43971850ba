// Any bytes are transliterated; words of known spellings are read back as the sounds that they stand for.
#include "platform/transliteration/Convert.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "transliteration/ReadBack.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tolvan;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);

    const std::string_view piece = bytes.substr(0, maxConvertLength);
    const std::string encoded = convert(piece);
    if (encoded.size() > 3 * piece.size()) std::abort();
    // Pieces with a blank between them do not touch each other.
    for (std::size_t blank = piece.find(' '); blank != std::string_view::npos; blank = piece.find(' ', blank + 1))
        if (convert(piece.substr(0, blank)) + " " + convert(piece.substr(blank + 1)) != encoded) std::abort();
    if (piece.find("\r\n") == std::string_view::npos && piece.size() <= maxConvertLength - 3 &&
        ReplaceRomanChars(piece) != encoded)
        std::abort();
    ReplaceRomanChars(bytes);

    std::string roman;
    for (const char character : bytes) {
        const std::string_view spelling = anySpelling(static_cast<unsigned char>(character));
        if (roman.size() + spelling.size() > maxConvertLength) break;
        roman += spelling;
    }
    if (withoutJoiners(unicodeOfCodes(convert(roman))) != soundsOf(roman)) std::abort();
    return 0;
}
