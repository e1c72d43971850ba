// The colours of the two panes, beside those of dialogs/Look.h. All are readable on white paper and on the band of the
// caret's line.
#pragma once

#include "dialogs/Look.h"

#include <QColor>

namespace tolvan::pane_colours {

inline constexpr QColor caretLine{0xF1, 0xF5, 0xFB};
inline constexpr QColor numbersBackground{0xF7, 0xF6, 0xF3};

inline constexpr QColor keyword{0x1F, 0x4E, 0x9E};
inline constexpr QColor libraryWord{0x6A, 0x3D, 0x9A};
inline constexpr QColor number{0x8A, 0x4B, 0x08};
inline constexpr QColor literal{0x1B, 0x6E, 0x3C};
inline constexpr QColor comment = look::dimText;

inline constexpr QColor flash{0xFF, 0xE3, 0x8A};

inline constexpr QColor error{0xC9, 0x3A, 0x32};
inline constexpr QColor advice{0x5B, 0x7D, 0xB1};

}  // namespace tolvan::pane_colours
