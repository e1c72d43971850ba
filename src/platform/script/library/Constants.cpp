#include "platform/script/Builtin.h"

#include <limits>
#include <vector>

namespace tolvan::script {

namespace {

struct NumberRow {
    std::string_view name;
    std::int32_t number;
};

constexpr NumberRow numberRows[] = {
    // Colours
    {"vbBlack", 0x000000},
    {"vbRed", 0x0000ff},
    {"vbGreen", 0x00ff00},
    {"vbYellow", 0x00ffff},
    {"vbBlue", 0xff0000},
    {"vbMagenta", 0xff00ff},
    {"vbCyan", 0xffff00},
    {"vbWhite", 0xffffff},
    // Comparison
    {"vbBinaryCompare", 0},
    {"vbTextCompare", 1},
    {"vbDatabaseCompare", 2},
    // Dates
    {"vbUseSystem", 0},
    {"vbUseSystemDayOfWeek", 0},
    {"vbSunday", 1},
    {"vbMonday", 2},
    {"vbTuesday", 3},
    {"vbWednesday", 4},
    {"vbThursday", 5},
    {"vbFriday", 6},
    {"vbSaturday", 7},
    {"vbFirstJan1", 1},
    {"vbFirstFourDays", 2},
    {"vbFirstFullWeek", 3},
    {"vbGeneralDate", 0},
    {"vbLongDate", 1},
    {"vbShortDate", 2},
    {"vbLongTime", 3},
    {"vbShortTime", 4},
    // Errors
    {"vbObjectError", -2147221504},
    // Message boxes
    {"vbOKOnly", 0},
    {"vbOKCancel", 1},
    {"vbAbortRetryIgnore", 2},
    {"vbYesNoCancel", 3},
    {"vbYesNo", 4},
    {"vbRetryCancel", 5},
    {"vbCritical", 16},
    {"vbQuestion", 32},
    {"vbExclamation", 48},
    {"vbInformation", 64},
    {"vbDefaultButton1", 0},
    {"vbDefaultButton2", 256},
    {"vbDefaultButton3", 512},
    {"vbDefaultButton4", 768},
    {"vbApplicationModal", 0},
    {"vbSystemModal", 4096},
    {"vbMsgBoxHelpButton", 16384},
    {"vbMsgBoxSetForeground", 65536},
    {"vbMsgBoxRight", 524288},
    {"vbMsgBoxRtlReading", 1048576},
    {"vbOK", 1},
    {"vbCancel", 2},
    {"vbAbort", 3},
    {"vbRetry", 4},
    {"vbIgnore", 5},
    {"vbYes", 6},
    {"vbNo", 7},
    // Tristate
    {"vbUseDefault", -2},
    {"vbTrue", -1},
    {"vbFalse", 0},
    // VarType
    {"vbEmpty", 0},
    {"vbNull", 1},
    {"vbInteger", 2},
    {"vbLong", 3},
    {"vbSingle", 4},
    {"vbDouble", 5},
    {"vbCurrency", 6},
    {"vbDate", 7},
    {"vbString", 8},
    {"vbObject", 9},
    {"vbError", 10},
    {"vbBoolean", 11},
    {"vbVariant", 12},
    {"vbDataObject", 13},
    {"vbDecimal", 14},
    {"vbByte", 17},
    {"vbArray", 8192},
};

struct TextRow {
    std::string_view name;
    std::string_view text;
};

constexpr TextRow textRows[] = {
    {"vbCr", "\r"},       {"vbCrLf", "\r\n"},    {"vbFormFeed", "\f"},
    {"vbLf", "\n"},       {"vbNewLine", "\r\n"}, {"vbNullChar", {"\0", 1}},
    {"vbNullString", ""}, {"vbTab", "\t"},       {"vbVerticalTab", "\v"},
};

// As a literal in a script would be.
Value wholeNumber(std::int32_t number) {
    const auto narrow = static_cast<std::int16_t>(number);
    return narrow == number ? Value::integer(narrow) : Value::longInteger(number);
}

}  // namespace

std::span<const BuiltinConstant> builtinConstants() {
    static const std::vector<BuiltinConstant> all = [] {
        std::vector<BuiltinConstant> rows;
        for (const NumberRow& row : numberRows) rows.push_back({row.name, wholeNumber(row.number)});
        for (const TextRow& row : textRows) rows.push_back({row.name, Value::text(row.text)});
        return rows;
    }();
    return all;
}

}  // namespace tolvan::script
