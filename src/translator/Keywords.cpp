#include "translator/Keywords.h"

#include <algorithm>
#include <array>

namespace tolvan {
namespace {

// "NEXT '" and "FileCLOSE '" end in an apostrophe: what follows them on the line (the loop variable, as a rule) becomes
// a script comment.
constexpr auto table = std::to_array<Keyword>({
    {"kaera"_deva, "parentform.ClearScreen"},
    {"daov"_deva, "parentform.PrintString"},
    {"\"e"_deva, "parentform.InputString"},
    {"lhan"_deva, "<"},
    {"maeQa"_deva, ">"},
    {words::ifWord, "IF"},
    {words::thenWord, "THEN"},
    {words::elseWord, "ELSE"},
    {"nahItrjr"_deva, "ELSEIF"},
    {words::end, "END"},
    {words::next, "NEXT '"},
    {words::whileWord, "WHILE"},
    {"taevr"_deva, ""},
    {words::wend, "WEND"},
    {"Aai["_deva, "AND"},
    {"nahI"_deva, "NOT"},
    {"ik<va"_deva, "OR"},
    {"braebr"_deva, "="},
    {"imtI"_deva, "DIM"},
    {"Aixk"_deva, "+"},
    {"vja"_deva, "-"},
    {"gui[le"_deva, "*"},
    {"-aigle"_deva, "/"},
    {"%\"f"_deva, "parentform.FileOPEN"},
    {"A<ikk"_deva, "CDBL"},
    {"zaiBdk"_deva, "CSTR"},
    {"r<g"_deva, "RGB"},
    {"é<dI"_deva, "DisplayWidth"},
    {"%<cI"_deva, "DisplayHeight"},
    {"la<bI"_deva, "DisplayHeight"},
    {words::function, "Function"},
    {"vac{yasaQI"_deva, "1"},
    {"ilih{yasaQI"_deva, "2"},
    {"jaef{yasaQI"_deva, "3"},
    {"b<d"_deva, "parentform.FileCLOSE '"},
    {"ilhI"_deva, "parentform.FileWRITE"},
    {"vac"_deva, "parentform.FileINPUT"},
    {")a#l<t"_deva, "parentform.EndOfFile"},
    {"wa<b"_deva, "parentform.StopExecution"},
});

}  // namespace

std::span<const Keyword> keywords() {
    return table;
}

std::optional<std::string_view> keywordScript(std::string_view word) {
    const auto* found = std::find_if(table.begin(), table.end(), [&](const Keyword& row) { return row.word == word; });
    if (found == table.end()) return std::nullopt;
    return found->script;
}

}  // namespace tolvan
