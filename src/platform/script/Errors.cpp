#include "platform/script/Errors.h"

#include <algorithm>
#include <array>

namespace tolvan::script {

namespace {

constexpr auto rows = [] {
    // clang-format off
    auto all = std::to_array<ErrorRow>({
#define X(name, number, text) {number, ErrorOrigin::Runtime, text},
        TOLVAN_RUNTIME_ERRORS(X)
#undef X
#define X(name, number, text) {number, ErrorOrigin::Files, text},
        TOLVAN_FILE_ERRORS(X)
#undef X
#define X(name, number, text) {number, ErrorOrigin::Syntax, text},
        TOLVAN_SYNTAX_ERRORS(X)
#undef X
#define X(number, text) {number, ErrorOrigin::Other, text},
        TOLVAN_OTHER_ERRORS(X)
#undef X
    });
    // clang-format on
    std::ranges::sort(all, {}, &ErrorRow::number);
    return all;
}();
static_assert(std::ranges::adjacent_find(rows, {}, &ErrorRow::number) == rows.end(),
              "a number stands in one list only");

}  // namespace

std::span<const ErrorRow> errorRows() {
    return rows;
}

std::string_view errorText(int number) {
    const auto row = std::ranges::lower_bound(rows, number, {}, &ErrorRow::number);
    return row != rows.end() && row->number == number ? row->text : "Unknown runtime error";
}

}  // namespace tolvan::script
