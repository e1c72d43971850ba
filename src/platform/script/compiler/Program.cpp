#include "platform/script/compiler/Program.h"

#include <algorithm>

namespace tolvan::script {

namespace {

auto markBehind(const std::vector<LineMark>& lines, std::uint32_t pc) {
    return std::upper_bound(lines.begin(), lines.end(), pc,
                            [](std::uint32_t at, const LineMark& mark) { return at < mark.pc; });
}

}  // namespace

std::uint32_t Procedure::lineAt(std::uint32_t pc) const {
    const auto behind = markBehind(lines, pc);
    return behind == lines.begin() ? 0 : (behind - 1)->line;
}

std::uint32_t Procedure::statementAfter(std::uint32_t pc) const {
    const auto behind = markBehind(lines, pc);
    return behind == lines.end() ? static_cast<std::uint32_t>(code.size() - 1) : behind->pc;
}

}  // namespace tolvan::script
