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

// Values and how a script writes them.
struct Written {
    const char* text;
    Value value;
};

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
    // As conditions are compiled on their own.
    void defineCondition(const std::string& name, const std::string& expression) {
        module += "Function " + name + "(a, b)\n" + name + " = False\nIf " + expression + " Then " + name +
                  " = True\nEnd Function\n";
    }

    script::Executor engine;
    Context context;
    std::string module;
    std::mt19937_64 random{7};
};

TEST_F(MachineAgreement, OnVariables) {
    for (std::size_t i = 0; i < std::size(operatorRows); ++i)
        define("Op" + std::to_string(i), std::string("a ") + operatorRows[i].sign + " b");
    for (std::size_t i = 0; i < std::size(comparisonRows); ++i) {
        define("Cmp" + std::to_string(i), std::string("a ") + comparisonRows[i].sign + " b");
        defineCondition("If" + std::to_string(i), std::string("a ") + comparisonRows[i].sign + " b");
    }
    define("Minus", "-a");
    define("Inverse", "Not a");
    ASSERT_TRUE(engine.addCode(module)) << engine.error().description;

    for (int round = 0; round < 5000; ++round) {
        const Value a = anyValue();
        const Value b = anyValue();
        SCOPED_TRACE(shown(a) + " and " + shown(b));
        for (std::size_t i = 0; i < std::size(operatorRows); ++i)
            ASSERT_EQ(ran("Op" + std::to_string(i), {a, b}),
                      expected([&] { return operatorRows[i].apply(context, a, b); }))
                << operatorRows[i].sign;
        for (std::size_t i = 0; i < std::size(comparisonRows); ++i) {
            const auto order = [&] { return compared(comparisonRows[i], script::compare(context, a, b)); };
            ASSERT_EQ(ran("Cmp" + std::to_string(i), {a, b}), expected(order)) << comparisonRows[i].sign;
            const auto taken = [&] {
                const Value value = order();
                return Value::boolean(value.is(Type::Boolean) && value.isTrue());
            };
            ASSERT_EQ(ran("If" + std::to_string(i), {a, b}), expected(taken)) << comparisonRows[i].sign;
        }
        ASSERT_EQ(ran("Minus", {a, b}), expected([&] { return script::negate(context, a); }));
        ASSERT_EQ(ran("Inverse", {a, b}), expected([&] { return script::logicalNot(context, a); }));
    }
}

TEST_F(MachineAgreement, OnLiterals) {
    const Written literals[] = {{"7", Value::integer(7)},          {"0", Value::integer(0)},
                                {"32767", Value::integer(32767)},  {"100000", Value::longInteger(100000)},
                                {"2.5", Value::number(2.5)},       {"\"7\"", Value::text("7")},
                                {"\"text\"", Value::text("text")}, {"True", Value::boolean(true)},
                                {"#1/1/1900#", Value::date(2)}};
    const auto name = [](const char* kind, std::size_t literal, std::size_t row) {
        return kind + std::to_string(literal) + "_" + std::to_string(row);
    };
    for (std::size_t k = 0; k < std::size(literals); ++k) {
        const std::string text = literals[k].text;
        for (std::size_t i = 0; i < std::size(operatorRows); ++i) {
            define(name("Left", k, i), text + ' ' + operatorRows[i].sign + " a");
            define(name("Right", k, i), std::string("a ") + operatorRows[i].sign + ' ' + text);
        }
        for (std::size_t i = 0; i < std::size(comparisonRows); ++i) {
            define(name("CmpLeft", k, i), text + ' ' + comparisonRows[i].sign + " a");
            define(name("CmpRight", k, i), std::string("a ") + comparisonRows[i].sign + ' ' + text);
            defineCondition(name("IfRight", k, i), std::string("a ") + comparisonRows[i].sign + ' ' + text);
        }
    }
    ASSERT_TRUE(engine.addCode(module)) << engine.error().description;

    for (int round = 0; round < 5000; ++round) {
        const Value a = anyValue();
        const std::size_t k = random() % std::size(literals);
        const Value& b = literals[k].value;
        SCOPED_TRACE(shown(a) + " and " + literals[k].text);
        for (std::size_t i = 0; i < std::size(operatorRows); ++i) {
            ASSERT_EQ(ran(name("Left", k, i), {a, a}), expected([&] { return operatorRows[i].apply(context, b, a); }))
                << operatorRows[i].sign;
            ASSERT_EQ(ran(name("Right", k, i), {a, a}), expected([&] { return operatorRows[i].apply(context, a, b); }))
                << operatorRows[i].sign;
        }
        for (std::size_t i = 0; i < std::size(comparisonRows); ++i) {
            const auto order = [&] {
                return compared(comparisonRows[i], script::compare(context, a, b, Literal::Right));
            };
            ASSERT_EQ(ran(name("CmpLeft", k, i), {a, a}), expected([&] {
                          return compared(comparisonRows[i], script::compare(context, b, a, Literal::Left));
                      }))
                << comparisonRows[i].sign;
            ASSERT_EQ(ran(name("CmpRight", k, i), {a, a}), expected(order)) << comparisonRows[i].sign;
            const auto taken = [&] {
                const Value value = order();
                return Value::boolean(value.is(Type::Boolean) && value.isTrue());
            };
            ASSERT_EQ(ran(name("IfRight", k, i), {a, a}), expected(taken)) << comparisonRows[i].sign;
        }
    }
}

}  // namespace
}  // namespace tolvan::testing
