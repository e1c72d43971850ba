#include "platform/script/compiler/Procedure.h"

#include <algorithm>

namespace tolvan::script {

namespace {

template <class Mark>
auto markAfter(const std::vector<Mark>& marks, std::uint32_t pc) {
    return std::upper_bound(marks.begin(), marks.end(), pc,
                            [](std::uint32_t at, const Mark& mark) { return at < mark.pc; });
}

}  // namespace

std::uint32_t Procedure::lineAt(std::uint32_t pc) const {
    const auto after = markAfter(lines, pc);
    return after == lines.begin() ? 0 : (after - 1)->line;
}

Columns Procedure::columnsAt(std::uint32_t pc) const {
    const auto after = markAfter(places, pc);
    return after == places.begin() ? Columns() : (after - 1)->columns;
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
               lines.capacity() * sizeof(LineMark) + places.capacity() * sizeof(PlaceMark) +
               variableNames.capacity() * sizeof(NameId) + registers.size() * entry);
}

}  // namespace tolvan::script
