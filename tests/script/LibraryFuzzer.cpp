// Calls built-in functions, operators and conversions with arguments of any type made of the fuzzer's bytes. A call may
// raise an error, and must leave no memory after.
#include "platform/script/ArrayCell.h"
#include "platform/script/Builtin.h"
#include "platform/script/Conversions.h"
#include "platform/script/Operators.h"
#include "platform/script/text/DateReading.h"
#include "platform/script/text/DateText.h"
#include "platform/script/text/NumberReading.h"
#include "platform/script/text/NumberWriting.h"

#include <cmath>
#include <cstdlib>
#include <vector>

namespace tolvan {
namespace {

using script::Context;
using script::Value;

class Bytes {
  public:
    Bytes(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}
    bool isEmpty() const { return rest_.empty(); }
    std::uint8_t next() {
        if (rest_.empty()) return 0;
        const auto byte = static_cast<std::uint8_t>(rest_.front());
        rest_.remove_prefix(1);
        return byte;
    }
    template <class Number>
    Number number() {
        Number value{};
        char raw[sizeof value];
        for (char& byte : raw) byte = static_cast<char>(next());
        std::memcpy(&value, raw, sizeof value);
        return value;
    }
    std::string_view text() {
        const std::string_view piece = rest_.substr(0, next() % 32);
        rest_.remove_prefix(std::min(piece.size(), rest_.size()));
        return piece;
    }

  private:
    std::string_view rest_;
};

template <class Number>
Number finite(Number number) {
    return std::isfinite(number) ? number : 0;
}

Value anyValue(Context& context, Bytes& bytes) {
    switch (bytes.next() % 16) {
        case 0:
            return {};
        case 1:
            return Value::null();
        case 2:
            return Value::boolean(bytes.next() % 2 != 0);
        case 3:
            return Value::byte(bytes.next());
        case 4:
            return Value::longInteger(bytes.number<std::int32_t>());
        case 5:
            return Value::single(finite(bytes.number<float>()));
        case 6:
            return Value::number(finite(bytes.number<double>()));
        case 7:
            return Value::currency(bytes.number<std::int64_t>());
        case 8:
            return Value::date(std::fmod(finite(bytes.number<double>()), 657000.0));
        case 9:
            return Value::missing();
        case 10:
            return Value::nothing();
        case 11: {
            Value list = Value::adopt(script::ArrayCell::createList(context.heap(), bytes.next() % 4));
            for (Value& element : list.array()->elements()) element = anyValue(context, bytes);
            return list;
        }
        case 12:
            return Value::integer(static_cast<std::int16_t>(bytes.next() % 8));
        default:
            return context.text(bytes.text());
    }
}

using Operation = Value (*)(Context&, const Value&, const Value&);
constexpr Operation operations[] = {script::add,        script::subtract,     script::multiply,    script::divide,
                                    script::modulo,     script::power,        script::concatenate, script::logicalAnd,
                                    script::logicalImp, script::integerDivide};

Value anyCall(Context& context, Bytes& bytes) {
    const auto functions = script::builtins();
    const std::size_t choice = bytes.next();
    if (choice < std::size(operations))
        return operations[choice](context, anyValue(context, bytes), anyValue(context, bytes));
    const script::Builtin& row = functions[choice % functions.size()];
    std::size_t count = bytes.next() % 7;
    if (count < row.least) count = row.least;
    if (row.most != script::Builtin::anyCount && count > row.most) count = row.most;
    std::vector<Value> arguments;
    for (std::size_t i = 0; i < count; ++i) arguments.push_back(anyValue(context, bytes));
    return row.function(context, arguments);
}

void readText(std::string_view text) {
    const auto days = script::parseDate(text);
    // What can be read can be written, and read again.
    if (days && !script::parseDate(script::plainDate(*days))) std::abort();
    if (script::parseCurrency(text) && !script::parseNumber(text)) std::abort();
}

}  // namespace
}  // namespace tolvan

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tolvan;
    readText({reinterpret_cast<const char*>(data), size});
    script::Context context;
    context.heap().setLimit(std::size_t{1} << 20);
    const std::size_t before = context.heap().used();
    for (Bytes bytes(data, size); !bytes.isEmpty();) {
        try {
            anyCall(context, bytes);
        } catch (const script::ScriptError& error) {
            if (error.number <= 0) std::abort();
        }
        if (context.heap().used() != before) std::abort();
    }
    return 0;
}
