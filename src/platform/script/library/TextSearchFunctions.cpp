// InStr, InStrB, InStrRev, Replace.
#include "platform/script/library/FunctionArguments.h"
#include "platform/script/library/Searcher.h"

#include <cstring>
#include <limits>

namespace tolvan::script {

namespace {

Value positionOf(std::size_t found) {
    return Value::longInteger(found == Searcher::notFound ? 0 : static_cast<std::int32_t>(found + 1));
}

// A position counted from 1; raises 5 below.
std::size_t startAt(Context& context, const Value& argument) {
    return static_cast<std::size_t>(longWithin(context, argument, 1, std::numeric_limits<std::int32_t>::max()));
}

// InStr([start, ]text, wanted[, compare]): three arguments begin with the start.
Value inStr(Context& context, ArgumentList arguments) {
    std::size_t start = 1;
    if (arguments.size() > 2) {
        if (isGiven(arguments, 0)) start = startAt(context, arguments[0]);
        arguments = arguments.subspan(1);
    }
    const Comparison comparison = comparisonAt(context, arguments, 2);
    if (settle(context, arguments[0]).is(Type::Null) || settle(context, arguments[1]).is(Type::Null))
        return Value::null();
    Value keepText;
    Value keepWanted;
    const std::string_view text = toTextView(context, arguments[0], keepText);
    const std::string_view wanted = toTextView(context, arguments[1], keepWanted);
    if (start > text.size()) return Value::longInteger(0);
    return positionOf(Searcher(context, wanted, comparison).find(text, start - 1));
}

// InStrRev(text, wanted[, start[, compare]]): what is found ends at the start or before.
Value inStrRev(Context& context, ArgumentList arguments) {
    const bool fromEnd = longOr(context, arguments, 2, -1) == -1;
    const std::size_t start = fromEnd ? 0 : startAt(context, arguments[2]);
    const Comparison comparison = comparisonAt(context, arguments, 3);
    if (settle(context, arguments[0]).is(Type::Null) || settle(context, arguments[1]).is(Type::Null))
        return Value::null();
    Value keepText;
    Value keepWanted;
    std::string_view text = toTextView(context, arguments[0], keepText);
    const std::string_view wanted = toTextView(context, arguments[1], keepWanted);
    if (text.empty() || start > text.size()) return Value::longInteger(0);
    if (!fromEnd) text = text.substr(0, start);
    if (wanted.empty()) return Value::longInteger(static_cast<std::int32_t>(text.size()));
    return positionOf(Searcher(context, wanted, comparison).findLast(text));
}

// Calls visit(position) for at most `limit` (negative: all) places of the wanted text, none overlapping another.
template <class Visit>
void forEachFound(const Searcher& searcher, std::string_view text, std::size_t step, std::int32_t limit, Visit visit) {
    std::size_t from = 0;
    for (; limit != 0; --limit) {
        const std::size_t found = searcher.find(text, from);
        if (found == Searcher::notFound) return;
        visit(found);
        from = found + step;
    }
}

// Looks twice, first to learn the length of the result.
Value replaceAll(Context& context, const Searcher& searcher, std::string_view text, std::size_t step,
                 std::string_view replacement, std::int32_t limit) {
    std::size_t count = 0;
    forEachFound(searcher, text, step, limit, [&](std::size_t) { ++count; });
    // Below 2^31 * 2^31.
    const std::size_t length = text.size() - count * step + count * replacement.size();
    char* out = nullptr;
    Value replaced = newText(context, length, out);
    std::size_t copied = 0;
    const auto copy = [&](std::string_view part) {
        std::memcpy(out, part.data(), part.size());
        out += part.size();
    };
    forEachFound(searcher, text, step, limit, [&](std::size_t found) {
        copy(text.substr(copied, found - copied));
        copy(replacement);
        copied = found + step;
    });
    copy(text.substr(copied));
    return replaced;
}

// Replace(text, wanted, replacement[, start[, count[, compare]]]). What stands before the start is not in the result.
Value replace(Context& context, ArgumentList arguments) {
    Value text = toText(context, arguments[0]);
    Value keepWanted;
    Value keepReplacement;
    const std::string_view wanted = toTextView(context, arguments[1], keepWanted);
    const std::string_view replacement = toTextView(context, arguments[2], keepReplacement);
    const std::size_t start = isGiven(arguments, 3) ? startAt(context, arguments[3]) : 1;
    const std::int32_t limit = longOr(context, arguments, 4, -1);
    if (limit < -1) raise(errors::invalidCall);
    const Comparison comparison = comparisonAt(context, arguments, 5);
    if (start > text.view().size()) return context.text({});
    const std::string_view rest = text.view().substr(start - 1);
    const Searcher searcher(context, wanted, comparison);
    if (wanted.empty() || limit == 0 || searcher.find(rest, 0) == Searcher::notFound)
        return partOf(context, text, start - 1, rest.size());
    return replaceAll(context, searcher, rest, wanted.size(), replacement, limit);
}

constexpr Builtin functions[] = {
    {"InStr", 2, 4, inStr},
    {"InStrB", 2, 4, inStr},
    {"InStrRev", 2, 4, inStrRev},
    {"Replace", 3, 6, replace},
};

}  // namespace

std::span<const Builtin> textSearchFunctions() {
    return functions;
}

}  // namespace tolvan::script
