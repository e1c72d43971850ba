#include "dialogs/LookColours.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tolvan::look {
namespace {

constexpr QColor rgb(int value) {
    return {value >> 16, value >> 8 & 0xFF, value & 0xFF};
}

constexpr Colours table[] = {
    {
        .background = rgb(0xFBFAF8),
        .paper = rgb(0xFFFFFF),
        .footer = rgb(0xF1EFEB),
        .accentLight = rgb(0xDFE9F7),
        .caretLine = rgb(0xF1F5FB),
        .numbers = rgb(0xF7F6F3),
        .captionActive = rgb(0xDDE6F3),
        .captionInactive = rgb(0xEFEEEB),
        .flash = rgb(0xFFE38A),
        .stepLine = rgb(0xFFF4C2),
        .text = rgb(0x22262E),
        .dimText = rgb(0x5F646E),
        .greyedText = rgb(0x80838A),
        .accent = rgb(0x245AA8),
        .textOnAccent = rgb(0xFFFFFF),
        .closeHover = rgb(0xC93A32),
        .textOnClose = rgb(0xFFFFFF),
        .keyword = rgb(0x1F4E9E),
        .wordOfLibrary = rgb(0x6A3D9A),
        .number = rgb(0x8A4B08),
        .literal = rgb(0x1B6E3C),
        .comment = rgb(0x5F646E),
        .line = rgb(0xD5D1CA),
        .frameActive = rgb(0x6F8FBC),
        .frameInactive = rgb(0xC4C2BC),
        .focus = rgb(0x245AA8),
        .error = rgb(0xC93A32),
        .advice = rgb(0x5B7DB1),
        .warning = rgb(0xA85808),
        .board = rgb(0x23493C),
        .boardChosen = rgb(0x315F4F),
        .boardLine = rgb(0x557A6B),
        .chalk = rgb(0xF7F5EA),
        .dimChalk = rgb(0xD3DFD6),
        .newChalk = rgb(0xFFE38A),
    },
    {
        .background = rgb(0x1E2126),
        .paper = rgb(0x17191D),
        .footer = rgb(0x262A30),
        .accentLight = rgb(0x2B3A50),
        .caretLine = rgb(0x232A35),
        .numbers = rgb(0x1B1E22),
        .captionActive = rgb(0x2A3648),
        .captionInactive = rgb(0x25282D),
        .flash = rgb(0x5C4A12),
        .stepLine = rgb(0x3A330F),
        .text = rgb(0xE6E8EB),
        .dimText = rgb(0xB0B6BF),
        .greyedText = rgb(0x868D97),
        .accent = rgb(0x8AB7F7),
        .textOnAccent = rgb(0x10151C),
        .closeHover = rgb(0xC93A32),
        .textOnClose = rgb(0xFFFFFF),
        .keyword = rgb(0x8AB4F8),
        .wordOfLibrary = rgb(0xC9A9F7),
        .number = rgb(0xF0B070),
        .literal = rgb(0x7FD39A),
        .comment = rgb(0xB0B6BF),
        .line = rgb(0x3C424B),
        .frameActive = rgb(0x5B7FB5),
        .frameInactive = rgb(0x454B54),
        .focus = rgb(0x8AB7F7),
        .error = rgb(0xFF7B72),
        .advice = rgb(0x7FA3D6),
        .warning = rgb(0xE5A445),
        .board = rgb(0x17302A),
        .boardChosen = rgb(0x27483F),
        .boardLine = rgb(0x3E5A51),
        .chalk = rgb(0xE9EEE8),
        .dimChalk = rgb(0xB9C9C0),
        .newChalk = rgb(0xF5D76E),
    },
    {
        .background = rgb(0x000000),
        .paper = rgb(0x000000),
        .footer = rgb(0x000000),
        .accentLight = rgb(0x00345E),
        .caretLine = rgb(0x1A1A1A),
        .numbers = rgb(0x000000),
        .captionActive = rgb(0x00264D),
        .captionInactive = rgb(0x000000),
        .flash = rgb(0x4A3C00),
        .stepLine = rgb(0x3A3000),
        .text = rgb(0xFFFFFF),
        .dimText = rgb(0xE4E4E4),
        .greyedText = rgb(0x9C9C9C),
        .accent = rgb(0xFFD84A),
        .textOnAccent = rgb(0x000000),
        .closeHover = rgb(0xA8001C),
        .textOnClose = rgb(0xFFFFFF),
        .keyword = rgb(0x8FDCFF),
        .wordOfLibrary = rgb(0xE2C8FF),
        .number = rgb(0xFFCB80),
        .literal = rgb(0x94FFA2),
        .comment = rgb(0xE4E4E4),
        .line = rgb(0xFFFFFF),
        .frameActive = rgb(0xFFFFFF),
        .frameInactive = rgb(0xB0B0B0),
        .focus = rgb(0xFFD84A),
        .error = rgb(0xFF8A80),
        .advice = rgb(0x8FC7FF),
        .warning = rgb(0xFFB300),
        .board = rgb(0x000000),
        .boardChosen = rgb(0x00345E),
        .boardLine = rgb(0xFFFFFF),
        .chalk = rgb(0xFFFFFF),
        .dimChalk = rgb(0xE4E4E4),
        .newChalk = rgb(0xFFD84A),
    },
};

double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

}  // namespace

const Colours& coloursOf(Kind kind) {
    return table[static_cast<std::size_t>(kind)];
}

double contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace tolvan::look
