// Expressions of the script language and what they give, for tables of tests.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace tolvan::testing {

// "Integer 5", "String abc", "Null", "Empty", "Array [a] [b]", or "error 13". The engine is a fresh one.
std::string outcome(std::string_view expression);

struct ExpressionRow {
    std::string_view expression;
    std::string_view outcome;
};

void expectAll(std::initializer_list<ExpressionRow> rows);

}  // namespace tolvan::testing
