// Styled text through rich text and through the internal text form and back; and any bytes as internal text form.
#include "richtext/RoundTrips.h"

#include <cstdint>
#include <cstdlib>

namespace tolvan {
namespace {

// Each character is followed by its font.
StyledText withFonts(std::string_view bytes) {
    StyledText text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        text.append(bytes.substr(i, 1), static_cast<Font>(static_cast<unsigned char>(bytes[i + 1]) % 3));
    return text;
}

}  // namespace
}  // namespace tolvan

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tolvan;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const StyledText text = withFonts(bytes);
    if (!comesBackFromRtf(text)) std::abort();
    if (!comesBackFromInternalText(text)) std::abort();

    std::string plain;
    for (const InternalTextRun& run : InternalTextRuns(bytes)) {
        if (run.text.empty() || (run.dropped && run.font != Font::Latin)) std::abort();
        plain += run.text;
    }
    if (plain != plainText(bytes) || plain.size() > bytes.size()) std::abort();
    return 0;
}
