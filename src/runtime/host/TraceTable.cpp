#include "runtime/host/TraceTable.h"

#include "platform/encoding/Unicode.h"
#include "platform/richtext/UnicodeText.h"

#include <algorithm>

namespace tolvan {

std::string TraceTable::Column::unicodeTitle() const {
    return unicodeOfInternalText(internalTitle());
}

std::string TraceTable::Column::internalTitle() const {
    return function.empty() ? word : function + "{: }" + word;
}

const std::vector<TraceTable::Column>& TraceTable::columns() {
    const auto& procedures = recording_.procedures();
    for (std::size_t i = std::max<std::size_t>(knownProcedures_, 1); i < procedures.size(); ++i) {
        const std::string function = program_.wordOf(procedures[i].name);
        for (std::size_t place = 0; place < procedures[i].variables.size(); ++place) {
            std::string word = program_.wordOf(procedures[i].variables[place]);
            if (!word.empty()) columns_.push_back({std::move(word), function, i, place});
        }
    }
    knownProcedures_ = procedures.size();
    return columns_;
}

const script::Value* TraceTable::find(std::uint64_t row, const Column& column, std::size_t& level) {
    recording_.goTo(row);
    level = recording_.levelOf(column.procedure);
    return level == script::Recording::nowhere ? nullptr : &recording_.value(level, column.place);
}

std::vector<TraceTable::Cell> TraceTable::cells(std::uint64_t row, std::span<const std::size_t> columns) {
    std::vector<Cell> cells;
    for (const std::size_t number : columns) {
        const Column& column = this->columns()[number];
        Cell& cell = cells.emplace_back();
        std::size_t level = 0;
        const script::Value* const value = find(row, column, level);
        if (value == nullptr) continue;
        cell.text = text_.of(*value);
        cell.isChanged = recording_.isChanged(level, column.place);
    }
    return cells;
}

std::vector<ValueTable::Element> TraceTable::elements(std::uint64_t row, std::size_t column, std::size_t first,
                                                      std::size_t most) {
    std::vector<ValueTable::Element> list;
    std::size_t level = 0;
    const std::size_t place = columns()[column].place;
    const script::Value* const value = find(row, columns()[column], level);
    if (value == nullptr || !value->is(script::Type::Array)) return list;
    const script::ArrayCell& array = *value->array();
    for (std::size_t i = first; i < array.size && i - first < most; ++i)
        list.push_back({ValueText::indexesOf(array, i), ValueTable::kindOf(array.items[i]), text_.of(array.items[i]),
                        recording_.isElementChanged(level, place, static_cast<std::uint32_t>(i))});
    return list;
}

TraceTable::Moment TraceTable::moment(std::uint64_t row) {
    Moment moment;
    const auto add = [&](bool ofFunctions) {
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const Column& column = columns_[i];
            std::size_t level = 0;
            const script::Value* const value =
                column.function.empty() == ofFunctions ? nullptr : find(row, column, level);
            if (value == nullptr) continue;
            const std::size_t elements = value->is(script::Type::Array) ? value->array()->size : 0;
            moment.values.push_back({column.word, column.function, ValueTable::kindOf(*value), text_.of(*value),
                                     recording_.isChanged(level, column.place), elements, level,
                                     recording_.depth() - level});
            moment.columns.push_back(i);
        }
    };
    columns();
    add(true);
    add(false);
    return moment;
}

std::size_t TraceTable::elementCount(std::uint64_t row, std::size_t column) {
    std::size_t level = 0;
    const script::Value* const value = find(row, columns()[column], level);
    return value != nullptr && value->is(script::Type::Array) ? value->array()->size : 0;
}

}  // namespace tolvan
