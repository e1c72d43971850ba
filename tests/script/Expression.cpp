#include "script/Expression.h"

#include "platform/script/ArrayCell.h"
#include "platform/script/Executor.h"

#include <gtest/gtest.h>

namespace tolvan::testing {

using script::Type;

std::string outcome(std::string_view expression) {
    script::Executor engine;
    script::Value value;
    if (!engine.evaluate(expression, value)) return "error " + std::to_string(engine.error().number);
    if (value.isOneOf(bits(Type::Empty, Type::Null, Type::Object))) return engine.typeName(value);
    if (!value.is(Type::Array)) return engine.typeName(value) + ' ' + engine.text(value);
    std::string list = "Array";
    for (const script::Value& element : value.array()->elements()) list += " [" + engine.text(element) + ']';
    return list;
}

void expectAll(std::initializer_list<ExpressionRow> rows) {
    for (const ExpressionRow& row : rows) EXPECT_EQ(outcome(row.expression), row.outcome) << row.expression;
}

}  // namespace tolvan::testing
