// The machine works out common operands by itself: its results are those of the operators for operands of every type,
// whether they stand in variables or one of them is written out in the script.
#include "platform/script/Executor.h"
#include "platform/script/Operators.h"

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace tolvan::testing {
namespace {

using script::Context;
using script::Literal;
using script::Order;
using script::Type;
using script::Value;

using Operation = Value (*)(Context&, const Value&, const Value&);

struct OperatorRow {
    const char* sign;
    Operation apply;
};

constexpr OperatorRow operatorRows[] = {
    {"+", script::add},          {"-", script::subtract},       {"*", script::multiply},
    {"/", script::divide},       {"\\", script::integerDivide}, {"Mod", script::modulo},
    {"^", script::power},        {"&", script::concatenate},    {"And", script::logicalAnd},
    {"Or", script::logicalOr},   {"Xor", script::logicalXor},   {"Eqv", script::logicalEqv},
    {"Imp", script::logicalImp},
};

struct ComparisonRow {
    const char* sign;
    bool less;
    bool equal;
    bool greater;
};

constexpr ComparisonRow comparisonRows[] = {
    {"=", false, true, false}, {"<>", true, false, true}, {"<", true, false, false},
    {">", false, false, true}, {"<=", true, true, false}, {">=", false, true, true},
};

Value compared(const ComparisonRow& row, Order order) {
    if (order == Order::Null) return Value::null();
    return Value::boolean(order == Order::Less ? row.less : order == Order::Equal ? row.equal : row.greater);
}

class MachineAgreement : public ::testing::Test {
  protected:
    Value anyValue() {
        constexpr std::int32_t edges[] = {
            0, 1, -1, 2, 7, 255, 256, 32767, -32768, 32768, 65536, 2147483647, -2147483647 - 1};
        std::int32_t number = static_cast<std::int32_t>(random());
        if (random() % 2 == 0) number = edges[random() % std::size(edges)];
        switch (random() % 14) {
            case 0:
                return {};
            case 1:
                return Value::null();
            case 2:
                return Value::boolean(number % 2 != 0);
            case 3:
                return Value::byte(static_cast<std::uint8_t>(number));
            case 4:
                return Value::single(static_cast<float>(number) / 8);
            case 5:
                return Value::currency(std::int64_t{number} * 2500);
            case 6:
                return Value::date(number % 100000 / 4.0);
            case 7:
                return Value::text(std::to_string(number));
            case 8:
                return Value::text(random() % 2 == 0 ? "" : "text");
            case 9:
                return Value::number(number);
            case 10:
                return Value::number(std::ldexp(number, static_cast<int>(random() % 2000) - 1000));
            case 11:
                return Value::longInteger(number);
            default:
                return Value::integer(static_cast<std::int16_t>(number));
        }
    }

    std::string shown(const Value& value) {
        std::string text = engine.typeName(value);
        if (value.isOneOf(bits(Type::Double, Type::Date)))
            return text + ' ' + std::to_string(std::bit_cast<std::int64_t>(value.as.d));
        return value.isOneOf(bits(Type::Null, Type::Empty)) ? text : text + ' ' + engine.text(value);
    }

    template <class Calculate>
    std::string expected(Calculate calculate) {
        try {
            return shown(calculate());
        } catch (const script::ScriptError& error) {
            return "error " + std::to_string(error.number);
        }
    }

    std::string ran(const std::string& procedure, std::vector<Value> arguments) {
        Value result;
        if (engine.run(procedure, arguments, &result)) return shown(result);
        return "error " + std::to_string(engine.error().number);
    }

    void define(const std::string& name, const std::string& expression) {
        module += "Function " + name + "(a, b)\n" + name + " = " + expression + "\nEnd Function\n";
    }
    // A function for each operator between these operands, and for each comparison as a condition, which is compiled on
    // its own.
    void defineAll(const std::string& form, const std::string& left, const std::string& right) {
        const auto between = [&](const char* sign) { return left + ' ' + sign + ' ' + right; };
        for (std::size_t i = 0; i < std::size(operatorRows); ++i)
            define("Op" + form + std::to_string(i), between(operatorRows[i].sign));
        for (std::size_t i = 0; i < std::size(comparisonRows); ++i) {
            const std::string name = form + std::to_string(i);
            define("Cmp" + name, between(comparisonRows[i].sign));
            module += "Function If" + name + "(a, b)\nIf" + name + " = False\nIf " + between(comparisonRows[i].sign) +
                      " Then If" + name + " = True\nEnd Function\n";
        }
    }
    // Calls these functions with the arguments, which make the operands `left` and `right`.
    void compareAll(const std::string& form, const std::vector<Value>& arguments, const Value& left, const Value& right,
                    Literal literal) {
        SCOPED_TRACE(shown(left) + " and " + shown(right) + " as " + form);
        for (std::size_t i = 0; i < std::size(operatorRows); ++i)
            ASSERT_EQ(ran("Op" + form + std::to_string(i), arguments),
                      expected([&] { return operatorRows[i].apply(context, left, right); }))
                << operatorRows[i].sign;
        for (std::size_t i = 0; i < std::size(comparisonRows); ++i) {
            const auto order = [&] {
                return compared(comparisonRows[i], script::compare(context, left, right, literal));
            };
            const auto taken = [&] {
                const Value value = order();
                return Value::boolean(value.is(Type::Boolean) && value.isTrue());
            };
            ASSERT_EQ(ran("Cmp" + form + std::to_string(i), arguments), expected(order)) << comparisonRows[i].sign;
            ASSERT_EQ(ran("If" + form + std::to_string(i), arguments), expected(taken)) << comparisonRows[i].sign;
        }
    }

    script::Executor engine;
    Context context;
    std::string module;
    std::mt19937_64 random{7};
};

TEST_F(MachineAgreement, OnVariablesAndLiterals) {
    const std::pair<const char*, Value> literals[] = {
        {"7", Value::integer(7)},          {"0", Value::integer(0)},       {"32767", Value::integer(32767)},
        {"2.5", Value::number(2.5)},       {"\"7\"", Value::text("7")},    {"100000", Value::longInteger(100000)},
        {"\"text\"", Value::text("text")}, {"True", Value::boolean(true)}, {"#1/1/1900#", Value::date(2)}};
    defineAll("V", "a", "b");
    for (std::size_t k = 0; k < std::size(literals); ++k) {
        defineAll("L" + std::to_string(k) + '_', literals[k].first, "a");
        defineAll("R" + std::to_string(k) + '_', "a", literals[k].first);
    }
    define("Minus", "-a");
    define("Inverse", "Not a");
    ASSERT_TRUE(engine.addCode(module)) << engine.error().description;

    for (int round = 0; round < 5000 && !HasFatalFailure(); ++round) {
        const Value a = anyValue();
        const Value b = anyValue();
        compareAll("V", {a, b}, a, b, Literal::Neither);
        const std::size_t k = random() % std::size(literals);
        compareAll("L" + std::to_string(k) + '_', {a, b}, literals[k].second, a, Literal::Left);
        compareAll("R" + std::to_string(k) + '_', {a, b}, a, literals[k].second, Literal::Right);
        ASSERT_EQ(ran("Minus", {a, b}), expected([&] { return script::negate(context, a); })) << shown(a);
        ASSERT_EQ(ran("Inverse", {a, b}), expected([&] { return script::logicalNot(context, a); })) << shown(a);
    }
}

}  // namespace
}  // namespace tolvan::testing
