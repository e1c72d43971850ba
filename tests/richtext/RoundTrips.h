// What must hold for any styled text, whether a fuzzer or a random generator made it.
#pragma once

#include "platform/richtext/InternalText.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"

namespace tolvan {

inline bool comesBackFromRtf(const StyledText& text) {
    const RichDocument document = readRtf(writeRtf(text));
    return document.text == text;
}

// Runs, names and text of a document agree.
inline bool isWhole(const RichDocument& document) {
    std::size_t position = 0;
    for (const RichRun& run : document.runs) {
        if (run.length == 0 || run.format.fontName >= document.fontNames.size()) return false;
        const Font font = fontOfName(document.fontNames[run.format.fontName]);
        for (const std::size_t end = position + run.length; position < end; ++position)
            if (position >= document.text.size() || document.text.font(position) != font) return false;
    }
    return position == document.text.size();
}

// Any font but the Devanagari one comes back as Latin.
inline bool comesBackFromInternalText(const StyledText& text) {
    const std::string marked = RomanMark(text);
    StyledText drawn;
    for (const InternalTextRun& run : InternalTextRuns(marked)) {
        if (run.dropped != (run.font == Font::Latin)) return false;
        drawn.append(run.text, run.font);
    }
    if (drawn.text() != text.text() || drawn.text() != plainText(marked)) return false;
    for (std::size_t i = 0; i < text.size(); ++i)
        if ((text.font(i) == Font::Devanagari) != (drawn.font(i) == Font::Devanagari)) return false;
    return RomanMark(drawn) == marked;
}

}  // namespace tolvan
