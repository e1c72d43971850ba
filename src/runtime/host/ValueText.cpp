#include "runtime/host/ValueText.h"

#include "platform/richtext/InternalText.h"
#include "platform/script/Conversions.h"
#include "platform/script/ScriptError.h"
#include "runtime/host/NumberText.h"

namespace tolvan {
namespace {

constexpr std::string_view dots = "{\x85}";

std::string cut(std::string_view text) {
    return RomanMark(styledText(text.substr(0, ValueText::longestText))).append(dots);
}

}  // namespace

ValueText::ValueText() {
    static const NumberText numberText;
    context_.setTextForm(&numberText);
}

std::string ValueText::simple(const script::Value& value) {
    using script::Type;
    if (value.isOneOf(bits(Type::Empty, Type::Null, Type::Object, Type::Error))) return {};
    if (value.is(Type::Array)) return std::string("{(").append("\x85").append(")}");
    script::Value keep;
    const std::string_view text = toTextView(context_, value, keep);
    return text.size() > longestText ? cut(text) : std::string(text);
}

std::string ValueText::of(const script::Value& value) {
    if (!value.is(script::Type::Array)) return simple(value);
    const script::ArrayCell& array = *value.array();
    if (array.size == 0) return "{()}";
    std::size_t elementsLeft = mostElements;
    std::string text;
    appendElements(array, 0, 0, elementsLeft, text);
    return text;
}

// The last index runs fastest, as one reads it: A(0, 0), A(0, 1), ... `number`: of the element with the indexes that
// are fixed so far, all others 0.
void ValueText::appendElements(const script::ArrayCell& array, std::size_t dimension, std::size_t number,
                               std::size_t& elementsLeft, std::string& text) {
    if (dimension == array.rank) {
        --elementsLeft;
        text += simple(array.items[number]);
        return;
    }
    std::size_t stride = 1;
    for (std::size_t i = 0; i < dimension; ++i) stride *= array.extents[i];
    text += "{(}";
    for (std::uint32_t index = 0; index < array.extents[dimension]; ++index) {
        if (index != 0) text += "{; }";
        if (elementsLeft == 0) {
            text += dots;
            break;
        }
        appendElements(array, dimension + 1, number + index * stride, elementsLeft, text);
    }
    text += "{)}";
}

std::vector<std::uint32_t> ValueText::indexesOf(const script::ArrayCell& array, std::size_t number) {
    std::vector<std::uint32_t> indexes;
    for (std::size_t i = 0; i < array.rank; ++i) {
        indexes.push_back(static_cast<std::uint32_t>(number % array.extents[i]));
        number /= array.extents[i];
    }
    return indexes;
}

}  // namespace tolvan
