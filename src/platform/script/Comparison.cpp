// Comparison. See Operators.h for the rules between numbers and texts. Among numbers: a Double beside a Single is
// rounded to Single, a Single or Double beside a Currency to Currency (where it fits); everything else compares by
// value.
#include "platform/script/Conversions.h"
#include "platform/script/Operands.h"
#include "platform/script/Operators.h"

#include <cmath>

namespace tolvan::script {

namespace {

template <class Number>
Order order(Number left, Number right) {
    if (left < right) return Order::Less;
    return left > right ? Order::Greater : Order::Equal;
}

Order orderOfTexts(std::string_view left, std::string_view right) {
    return order(left.compare(right), 0);
}

Order orderOfCurrencies(Context& context, const Value& left, const Value& right) {
    // Beyond the range of Currency the rounding that it asks for makes no difference.
    constexpr double beyond = 9.2e14;
    const double leftNumber = toDouble(context, left);
    const double rightNumber = toDouble(context, right);
    if (std::abs(leftNumber) > beyond || std::abs(rightNumber) > beyond) {
        if (left.is(Type::Currency) && right.is(Type::Currency)) return order(left.as.c, right.as.c);
        return order(leftNumber, rightNumber);
    }
    return order(toCurrency(context, left), toCurrency(context, right));
}

// Of numbers and Empty.
Order orderOfNumbers(Context& context, const Operands& operands) {
    const Value& left = operands.left;
    const Value& right = operands.right;
    if (operands.has(Type::Currency)) return orderOfCurrencies(context, left, right);
    const double leftNumber = toDouble(context, left);
    const double rightNumber = toDouble(context, right);
    if (operands.types() == bits(Type::Single, Type::Double))
        return order(static_cast<float>(leftNumber), static_cast<float>(rightNumber));
    return order(leftNumber, rightNumber);
}

// The number of a text that is compared with a literal number, Boolean or date.
double readLike(Context& context, const Value& literal, const Value& text) {
    if (literal.is(Type::Date)) return toDate(context, text);
    if (literal.is(Type::Boolean)) {
        const auto word = textAsBoolean(context, text.view());
        if (word) return *word ? -1 : 0;
    }
    return toDouble(context, text);
}

// Of a number on the left and a text on the right; `literal` says which of the two is one.
Order orderOfNumberAndText(Context& context, const Value& number, const Value& text, Literal literal) {
    if (literal == Literal::Neither) return Order::Less;
    if (literal == Literal::Left) return order(toDouble(context, number), readLike(context, number, text));
    Value keep;
    return orderOfTexts(toTextView(context, number, keep), text.view());
}

Order reversed(Order order) {
    if (order == Order::Less) return Order::Greater;
    return order == Order::Greater ? Order::Less : order;
}

Literal reversed(Literal literal) {
    if (literal == Literal::Left) return Literal::Right;
    return literal == Literal::Right ? Literal::Left : literal;
}

}  // namespace

Order compare(Context& context, const Value& left, const Value& right, Literal literal) {
    const Operands operands(context, left, right);
    if (operands.hasNull()) return Order::Null;
    if (!operands.has(Type::String)) return orderOfNumbers(context, operands);
    const bool leftText = operands.left.is(Type::String);
    const bool rightText = operands.right.is(Type::String);
    if (leftText && rightText) return orderOfTexts(operands.left.view(), operands.right.view());
    if (operands.left.is(Type::Empty)) return orderOfTexts({}, operands.right.view());
    if (operands.right.is(Type::Empty)) return orderOfTexts(operands.left.view(), {});
    if (rightText) return orderOfNumberAndText(context, operands.left, operands.right, literal);
    return reversed(orderOfNumberAndText(context, operands.right, operands.left, reversed(literal)));
}

}  // namespace tolvan::script
