// An error of a module's text, found before anything of it runs.
#pragma once

#include "platform/script/Errors.h"

#include <cstdint>

namespace tolvan::script {

// Thrown by lexer, parser and compiler; caught where a module is loaded.
struct SyntaxError {
    Syntax number;
    std::uint32_t line;    // 1-based
    std::uint32_t column;  // 1-based; 0: not known
};

}  // namespace tolvan::script
