#include "shell/ExecutableName.h"

namespace tolvan {

std::optional<std::string> executableName(std::string_view program) {
    constexpr std::string_view ending = ".exe";
    if (program.ends_with(ending)) return std::nullopt;
    return std::string(program.substr(0, program.rfind('.'))).append(ending);
}

}  // namespace tolvan
