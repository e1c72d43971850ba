#include "platform/script/compiler/Procedure.h"

#include <algorithm>

namespace tolvan::script {

namespace {

auto markAfter(const std::vector<LineMark>& lines, std::uint32_t pc) {
    return std::upper_bound(lines.begin(), lines.end(), pc,
                            [](std::uint32_t at, const LineMark& mark) { return at < mark.pc; });
}

}  // namespace

std::uint32_t Procedure::lineAt(std::uint32_t pc) const {
    const auto after = markAfter(lines, pc);
    return after == lines.begin() ? 0 : (after - 1)->line;
}

std::uint32_t Procedure::statementAfter(std::uint32_t pc) const {
    const auto after = markAfter(lines, pc);
    return after == lines.end() ? static_cast<std::uint32_t>(code.size() - 1) : after->pc;
}

void Procedure::countIn(Heap& heap) {
    // An entry of the map takes about as much as this.
    constexpr std::size_t entry = 48;
    memory = HeapCharge(&heap);
    memory.add(sizeof(Procedure) + code.capacity() * sizeof(Instruction) + constants.capacity() * sizeof(Value) +
               lines.capacity() * sizeof(LineMark) + variableNames.capacity() * sizeof(NameId) +
               registers.size() * entry);
}

}  // namespace tolvan::script
