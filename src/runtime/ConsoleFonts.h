// The fonts of the console: large enough to be read from the back of a class.
#pragma once

#include "platform/richtext/StyledText.h"

#include <QFont>

namespace tolvan {

QFont consoleFont(Font font);

}  // namespace tolvan
