// How fast programs are translated and formatted, and that both stay linear.

#include "platform/encoding/Deva.h"
#include "platform/richtext/InternalText.h"
#include "translator/Formatter.h"
#include "translator/Translator.h"

#include <array>
#include <benchmark/benchmark.h>
#include <string>

namespace tolvan {
namespace {

// What a school program is made of: every statement form, blocks, texts, calculations, comments.
constexpr auto schoolLines = std::to_array<std::string_view>({
    "daov {\"}nmSkar{, }tumce nav {?\"}"_deva,
    "nav {= }\"e {(\"}nav{\")}"_deva,
    "s<Oya {= }A<ikk{(}nav{)} gui[le 12 {+ (}y{ - }3{.}5{)}"_deva,
    "A<k saQI 1 te 10 py¡t"_deva,
    "      jr A<k lhan 5 tr"_deva,
    "            daov zaiBdk{(}A<k{) & \" x \" & }zaiBdk{(}A<k {* }7{)}"_deva,
    "      nahItr"_deva,
    "            {(}0{, }0{)} pasun {(}A<k {* }30{, }40{)} py¡t r<g{(}255{, }0{, }0{)} r<gacI re\" Aao"_deva,
    "      s<pv jr"_deva,
    "puFca A<k"_deva,
    ""_deva,
    "jaevr s<Oya maeQa 0 taevr"_deva,
    "      {(}100{, }100{)} pasun 50 iÇJyace r<g{(}0{, }0{, }255{)} r<gace -rlele vtuR¦ kaF"_deva,
    "      {(}s<Oya{, }20{)} vr r<g{(}0{, }255{, }0{)} r<gaca ib<Ë kaF"_deva,
    "      s<Oya {= }s<Oya vja 1  sucna he kmI haete"_deva,
    "kr"_deva,
});

std::string schoolText(std::size_t lines) {
    std::string text;
    for (std::size_t i = 0; i < lines; ++i) text.append(schoolLines[i % schoolLines.size()]).append("\r\n");
    return text;
}

void bytesAndComplexity(benchmark::State& state, std::size_t bytes) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
    state.SetComplexityN(static_cast<std::int64_t>(bytes));
}

void compile(benchmark::State& state, const std::string& text) {
    const StyledText program = styledText(text);
    Translator translator;
    for (auto _ : state) benchmark::DoNotOptimize(translator.Compile(program));
    bytesAndComplexity(state, program.size());
}

void compileLines(benchmark::State& state) {
    compile(state, schoolText(static_cast<std::size_t>(state.range(0))));
}
BENCHMARK(compileLines)
    ->RangeMultiplier(10)
    ->Range(1'000, 100'000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);

void compileNewNames(benchmark::State& state) {
    std::string text;
    for (std::int64_t i = 0; i < state.range(0); ++i) text.append("x").append(std::to_string(i)).append("{=}1\r\n");
    compile(state, text);
}
BENCHMARK(compileNewNames)
    ->RangeMultiplier(10)
    ->Range(1'000, 100'000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);

// One line, every form inside the next: the deepest nesting that a line of its length can hold.
void compileNestedForms(benchmark::State& state) {
    std::string text;
    while (text.size() < static_cast<std::size_t>(state.range(0))) text += "te ";
    text += "saQI ";
    compile(state, text);
}
BENCHMARK(compileNestedForms)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

void format(benchmark::State& state) {
    const std::string text = schoolText(static_cast<std::size_t>(state.range(0)));
    const StyledText program(text, Font::Devanagari);
    for (auto _ : state) benchmark::DoNotOptimize(formatProgram(text, program));
    bytesAndComplexity(state, text.size());
}
BENCHMARK(format)->RangeMultiplier(10)->Range(1'000, 100'000)->Complexity(benchmark::oN)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tolvan
