// Speed of the road from Roman letters to program text, in bytes of Roman text a second.
#include "platform/encoding/Unicode.h"
#include "platform/richtext/InternalText.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"
#include "platform/transliteration/Convert.h"
#include "platform/transliteration/MarkRoman.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "platform/transliteration/UnicodeToRoman.h"
#include "translator/ProgramText.h"

#include <benchmark/benchmark.h>

namespace tolvan {
namespace {

constexpr std::string_view programLine = "jar (uttar > 10) tar #\"#namaskAr mitrAMno#\"# + shAbdik(saMkhyA) dAkhav\r\n";
constexpr std::string_view proseLine =
    "mahArAShTrAtIl vidyArthyAMnI svataHchyA bhAShet kAryakram lihAvet, hI kalpanA ughaDaXughaD suchalelI nAhI";
constexpr std::string_view clusterLine =
    "svAtaMtrya jyotsnA vaishiShTya uddhvasta rAShTrIya patnyA trijyA dusaRyA kartavya strI lakShmI gallyA";

std::string repeat(std::string_view line, std::size_t size) {
    std::string text;
    while (text.size() < size) text += line;
    return text;
}

void countBytes(benchmark::State& state, std::size_t bytes) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

template <typename Function>
void measure(benchmark::State& state, const std::string& roman, Function function) {
    for (auto iteration : state) benchmark::DoNotOptimize(function(roman));
    countBytes(state, roman.size());
}

void convertPieces(benchmark::State& state, std::string_view line) {
    measure(state, std::string(line), [](std::string_view roman) { return convert(roman); });
}
BENCHMARK_CAPTURE(convertPieces, prose, proseLine);
BENCHMARK_CAPTURE(convertPieces, clusters, clusterLine);

constexpr std::size_t textSize = 1'000'000;

void replaceRomanChars(benchmark::State& state, std::string_view line) {
    measure(state, repeat(std::string(line) + "\r\n", textSize), ReplaceRomanChars);
}
BENCHMARK_CAPTURE(replaceRomanChars, prose, proseLine);
BENCHMARK_CAPTURE(replaceRomanChars, clusters, clusterLine);
BENCHMARK_CAPTURE(replaceRomanChars, oneLetterWithoutVowels, "k");
BENCHMARK_CAPTURE(replaceRomanChars, oneCluster,
                  std::string_view("tRtRtRtRtRtRtRtRtRtRtRtRtRtRtRtRtRtRtRtRtRtRtRtRtRtRtRtR"));

void marking(benchmark::State& state) {
    measure(state, repeat(programLine, textSize), markRoman);
}
BENCHMARK(marking);

void programText(benchmark::State& state) {
    measure(state, repeat(programLine, textSize), ProgramText);
}
BENCHMARK(programText);

// In bytes of program text.
void richTextThereAndBack(benchmark::State& state) {
    const StyledText text = ProgramText(repeat(programLine, textSize));
    for (auto iteration : state) benchmark::DoNotOptimize(readRtf(writeRtf(text)));
    countBytes(state, text.size());
}
BENCHMARK(richTextThereAndBack);

void romanMark(benchmark::State& state) {
    const StyledText text = ProgramText(repeat(programLine, textSize));
    for (auto iteration : state) benchmark::DoNotOptimize(RomanMark(text));
    countBytes(state, text.size());
}
BENCHMARK(romanMark);

// Both ways through the border, in bytes of what comes in.
void codesToUnicode(benchmark::State& state, std::string_view line) {
    measure(state, ReplaceRomanChars(repeat(std::string(line) + "\r\n", textSize)),
            [](std::string_view codes) { return unicodeOfCodes(codes); });
}
BENCHMARK_CAPTURE(codesToUnicode, prose, proseLine);
BENCHMARK_CAPTURE(codesToUnicode, clusters, clusterLine);

void unicodeToRoman(benchmark::State& state, std::string_view line) {
    measure(state, unicodeOfCodes(ReplaceRomanChars(repeat(std::string(line) + "\r\n", textSize))),
            [](std::string_view utf8) { return romanOfUnicode(utf8); });
}
BENCHMARK_CAPTURE(unicodeToRoman, prose, proseLine);
BENCHMARK_CAPTURE(unicodeToRoman, clusters, clusterLine);

}  // namespace
}  // namespace tolvan
