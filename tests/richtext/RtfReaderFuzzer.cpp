// Any bytes are read as rich text; what was read can be written and read again.
#include "richtext/RoundTrips.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tolvan;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    for (const std::string& rtf : {bytes, "{\\rtf1" + bytes, std::string(RtfHeader()) + bytes + "\\par}"}) {
        const RichDocument document = readRtf(rtf);
        // A number sign can stand for at most two characters.
        if (!isWhole(document) || document.text.size() > 2 * rtf.size()) std::abort();
        if (!comesBackFromRtf(document.text)) std::abort();
    }
    return 0;
}
