#include "runtime/host/ValueTable.h"

#include "runtime/host/InputValue.h"

#include <algorithm>

namespace tolvan {
namespace {

using script::Type;
// Tells two values of a variable from each other where the shown text does not: all of a text, all of an array.
std::size_t fingerprint(const script::Value& value) {
    if (value.is(Type::String)) return std::hash<std::string_view>{}(value.view());
    std::size_t print = value.isOneOf(bits(Type::Double, Type::Date, Type::Currency))
                            ? std::hash<std::int64_t>{}(value.as.c)
                        : value.isOneOf(bits(Type::Empty, Type::Null, Type::Array, Type::Object))
                            ? 0
                            : std::hash<std::int32_t>{}(value.as.i);
    if (value.is(Type::Array))
        for (const script::Value& element : value.array()->elements())
            print = print * 31 + (element.is(Type::Array) ? element.array()->size : fingerprint(element)) + element.tag;
    return print;
}

}  // namespace

ValueTable::Kind ValueTable::kindOf(const script::Value& value) {
    if (value.is(Type::Empty)) return Kind::NoValue;
    if (value.is(Type::String)) return Kind::Text;
    if (value.is(Type::Boolean)) return Kind::Truth;
    if (value.is(Type::Date)) return Kind::Date;
    if (value.is(Type::Array)) return Kind::Array;
    const bool isNumber =
        value.isOneOf(bits(Type::Byte, Type::Integer, Type::Long, Type::Single, Type::Double, Type::Currency));
    return isNumber ? Kind::Number : Kind::Other;
}

const std::vector<ValueTable::Row>& ValueTable::read(std::size_t mostLevels) {
    const script::Inspection inspection = executor_.inspect();
    rows_.clear();
    names_.clear();
    decltype(last_) now;
    const std::size_t depth = inspection.depth();
    for (std::size_t level = 0; level < depth; ++level) {
        if (level >= mostLevels) level = depth - 1;
        const std::string function = program_.wordOf(inspection.procedure(level));
        for (const script::InspectedVariable& variable : inspection.variables(level)) {
            std::string word = program_.wordOf(variable.name);
            if (word.empty()) continue;
            Row row;
            row.word = std::move(word);
            row.function = function;
            row.kind = kindOf(variable.value);
            row.text = text_.of(variable.value);
            row.level = level;
            row.depth = depth - level;
            if (row.kind == Kind::Array) row.elements = variable.value.array()->size;
            const std::pair place(depth - level, variable.name);
            const auto& seen = now[place] = {inspection.procedure(level) + row.text, fingerprint(variable.value)};
            const auto before = last_.find(place);
            row.isChanged = before != last_.end() ? before->second != seen : row.kind != Kind::NoValue;
            rows_.push_back(std::move(row));
            names_.push_back(variable.name);
        }
    }
    last_ = std::move(now);
    return rows_;
}

std::vector<ValueTable::Element> ValueTable::elements(std::size_t row, std::size_t first, std::size_t most) const {
    std::vector<Element> list;
    if (row >= rows_.size() || rows_[row].kind != Kind::Array) return list;
    for (const script::InspectedVariable& variable : executor_.inspect().variables(rows_[row].level)) {
        if (variable.name != names_[row] || !variable.value.is(Type::Array)) continue;
        const script::ArrayCell& array = *variable.value.array();
        for (std::size_t i = first; i < array.size && i - first < most; ++i)
            list.push_back({ValueText::indexesOf(array, i), kindOf(array.items[i]), text_.of(array.items[i])});
    }
    return list;
}

bool ValueTable::assign(std::size_t row, std::span<const std::uint32_t> indexes, std::string_view roman) {
    if (row >= rows_.size() || (rows_[row].kind == Kind::Array) == indexes.empty()) return false;
    return executor_.inspect().assign(rows_[row].level, names_[row], indexes, script::Value::text(inputValue(roman)));
}

std::string ValueTable::textOf(std::string_view word, std::string_view function) {
    const script::Inspection inspection = executor_.inspect();
    std::size_t level = 0;
    while (level < inspection.depth() && program_.wordOf(inspection.procedure(level)) != function) ++level;
    if (level == inspection.depth()) return {};
    for (const script::InspectedVariable& variable : inspection.variables(level))
        if (program_.wordOf(variable.name) == word) return text_.of(variable.value);
    return {};
}

}  // namespace tolvan
