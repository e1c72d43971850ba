// A display as a picture in a page (SVG): figures as such, text as text.
#pragma once

#include "classroom/Results.h"

#include <string>
#include <string_view>

namespace tolvan::classroom {

// The text safe between and within the marks of a page.
std::string escaped(std::string_view utf8);

// What stands within an svg element whose view box is the display.
std::string svgOf(const Screen& screen);

}  // namespace tolvan::classroom
