// Array, LBound, UBound, Join, Split, Filter.
#include "platform/script/ArrayCell.h"
#include "platform/script/library/FunctionArguments.h"
#include "platform/script/library/Searcher.h"

#include <cstring>
#include <limits>

namespace tolvan::script {

namespace {

Value array(Context& context, ArgumentList arguments) {
    ArrayCell* cell = ArrayCell::createList(context.heap(), arguments.size());
    for (std::size_t i = 0; i < arguments.size(); ++i) cell->items[i] = std::move(arguments[i]);
    return Value::adopt(cell);
}

// The elements in the dimension that the second argument counts from 1.
std::uint32_t extentOf(Context& context, ArgumentList arguments) {
    const Value& value = settle(context, arguments[0]);
    if (!value.is(Type::Array)) raise(errors::typeMismatch);
    const std::int32_t dimension = longOr(context, arguments, 1, 1);
    if (dimension < 1 || dimension > value.array()->rank) raise(errors::subscript);
    return value.array()->extents[dimension - 1];
}

Value lBound(Context& context, ArgumentList arguments) {
    extentOf(context, arguments);
    return Value::longInteger(0);
}

Value uBound(Context& context, ArgumentList arguments) {
    return Value::longInteger(static_cast<std::int32_t>(std::int64_t{extentOf(context, arguments)} - 1));
}

char* append(char* out, std::string_view text) {
    std::memcpy(out, text.data(), text.size());
    return out + text.size();
}

// A list's element as text; Null is "" there, as it is for "&".
Value elementText(Context& context, const Value& element) {
    return element.is(Type::Null) ? context.text({}) : toText(context, element);
}

// Elements that are no texts are turned into texts once, at the place where they stand in a list of the same length.
Value join(Context& context, ArgumentList arguments) {
    const auto elements = listArgument(context, arguments[0]);
    Value keepDelimiter;
    const std::string_view delimiter =
        isGiven(arguments, 1) ? toTextView(context, arguments[1], keepDelimiter) : std::string_view(" ");
    if (elements.empty()) return context.text({});

    const Value texts = Value::adopt(ArrayCell::createList(context.heap(), elements.size()));
    std::size_t length = delimiter.size() * (elements.size() - 1);
    for (std::size_t i = 0; i < elements.size(); ++i) {
        texts.array()->items[i] = elementText(context, elements[i]);
        length += texts.array()->items[i].view().size();
    }
    char* out = nullptr;
    Value joined = newText(context, length, out);
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (i > 0) out = append(out, delimiter);
        out = append(out, texts.array()->items[i].view());
    }
    return joined;
}

// A list that grows to its length at its end; 1-dimensional.
class ListBuilder {
  public:
    explicit ListBuilder(Context& context)
        : context_(context), list_(Value::adopt(ArrayCell::createList(context.heap(), 0))) {}

    void add(Value value) {
        if (count_ == list_.array()->size) grow();
        list_.array()->items[count_++] = std::move(value);
    }

    Value take() {
        if (list_.array()->size != count_) resize(count_);
        return std::move(list_);
    }

  private:
    void grow() { resize(count_ < 8 ? 8 : count_ * 2); }
    void resize(std::size_t size) {
        Value larger = Value::adopt(ArrayCell::createList(context_.heap(), size));
        for (std::size_t i = 0; i < count_; ++i) larger.array()->items[i].swap(list_.array()->items[i]);
        list_ = std::move(larger);
    }

    Context& context_;
    Value list_;
    std::size_t count_ = 0;
};

// Split(text[, delimiter[, count[, compare]]])
Value split(Context& context, ArgumentList arguments) {
    arguments[0] = toText(context, arguments[0]);
    const std::string_view text = arguments[0].view();
    Value keepDelimiter;
    const std::string_view delimiter =
        isGiven(arguments, 1) ? toTextView(context, arguments[1], keepDelimiter) : std::string_view(" ");
    const std::int32_t limit = longOr(context, arguments, 2, -1);
    if (limit < -1) raise(errors::invalidCall);
    const Comparison comparison = comparisonAt(context, arguments, 3);

    ListBuilder parts(context);
    if (text.empty() || limit == 0) return parts.take();
    const Searcher searcher(context, delimiter, comparison);
    std::size_t from = 0;
    for (std::int32_t left = limit; left != 1 && !delimiter.empty(); --left) {
        const std::size_t found = searcher.find(text, from);
        if (found == Searcher::notFound) break;
        parts.add(context.text(text.substr(from, found - from)));
        from = found + delimiter.size();
    }
    parts.add(partOf(context, arguments[0], from, Searcher::notFound));
    return parts.take();
}

// Filter(list, text[, include[, compare]])
Value filter(Context& context, ArgumentList arguments) {
    const auto elements = listArgument(context, arguments[0]);
    Value keep;
    const std::string_view wanted = toTextView(context, arguments[1], keep);
    const bool include = booleanOr(context, arguments, 2, true);
    const Searcher searcher(context, wanted, comparisonAt(context, arguments, 3));
    ListBuilder kept(context);
    for (const Value& element : elements) {
        Value text = elementText(context, element);
        if ((searcher.find(text.view(), 0) != Searcher::notFound) == include) kept.add(std::move(text));
    }
    return kept.take();
}

constexpr Builtin functions[] = {
    {"Array", 0, Builtin::anyCount, array},
    {"Filter", 2, 4, filter},
    {"Join", 1, 2, join},
    {"LBound", 1, 2, lBound},
    {"Split", 1, 4, split},
    {"UBound", 1, 2, uBound},
};

}  // namespace

std::span<const Builtin> arrayFunctions() {
    return functions;
}

}  // namespace tolvan::script
