#include "library/LibraryWords.h"

#include "platform/transliteration/ReplaceRomanChars.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <string>

namespace tolvan {
namespace {

// Arguments that are texts become numbers, or raise 13, by CDbl and the like; what is out of range raises 5.
constexpr auto table = std::to_array<LibraryWord>({
    {{"phAsA", "ek te dilelyA aMkAparyaMt koNatIhI saMkhyA", "a random whole number from 1 to n"},
     "n",
     "% = library.RandomNumber(n)",
     "phAsA(6)"},
    {{"bAkI", "pahilyA saMkhyelA dusarIne bhAgUn uralelI bAkI", "remainder of a divided by b"},
     "a, b",
     "% = a mod b",
     "bAkI(7, 2)"},
    {{"bhAgAkAr", "pahilyA saMkhyelA dusarIne bhAgUn yeNArA pUrN bhAgAkAr", "whole quotient of a by b"},
     "a, b",
     "% = a \\ b",
     "bhAgAkAr(7, 2)"},
    {{"pUrNAMk", "saMkhyA kiMvA tichyAkhAlachI pUrN saMkhyA", "the whole number at or below x"},
     "x",
     "% = int(cdbl(x))",
     "pUrNAMk(2.7)"},
    {{"javaLachA", "saMkhyechyA javaLachI pUrN saMkhyA", "the nearest whole number; halves away from zero"},
     "x",
     "x = cdbl(x)\n% = sgn(x) * int(abs(x) + 0.5)",
     "javaLachA(2.5)"},
    {{"kevalamUlya", "chinhAshivAy saMkhyA", "absolute value"}, "x", "% = abs(cdbl(x))", "kevalamUlya(0 - 5)"},
    {{"vargamUL", "saMkhyeche vargamUL", "square root"}, "x", "% = sqr(x)", "vargamUL(16)"},
    {{"ghAt", "pahilyA saMkhyechA dusarI itakA ghAt", "a to the power of b"}, "a, b", "% = a ^ b", "ghAt(2, 10)"},
    {{"sAin", "aMshAMtIl konAche sAin", "sine of x degrees"}, "x", "% = library.Sine(x)", "sAin(30)"},
    {{"kosAin", "aMshAMtIl konAche kosAin", "cosine of x degrees"}, "x", "% = library.Sine(90 - x)", "kosAin(60)"},
    {{"pAy", "vartuLAchA parIgh bhAgile vyAs", "pi"}, "", "% = 4 * atn(1)", "pAy"},
    {{"akShare", "majakurAt kitI akShare Ahet", "how many letters a text has"},
     "t",
     "% = library.LetterCount(t)",
     "akShare(#\"#kamaL#\"#)"},
    {{"akShar", "majakurAtIl dilelyA kramAMkAche akShar", "the n-th letter of a text"},
     "t, n",
     "% = library.LetterPart(t, n, 1)",
     "akShar(#\"#kamaL#\"#, 2)"},
    {{"tukaDA", "dilelyA kramAMkApAsUn itakI akShare", "k letters of a text from the n-th on"},
     "t, n, k",
     "% = library.LetterPart(t, n, k)",
     "tukaDA(#\"#kamaL#\"#, 1, 2)"},
    {{"shodh", "dusarA majakUr pahilyAt kitavyA akSharAvar Ahe nasel tar shUnya",
      "position of x in t by letters, or 0"},
     "t, x",
     "% = library.LetterFind(t, x)",
     "shodh(#\"#kamaL#\"#, #\"#ma#\"#)"},
    {{"badal", "majakurAt dusaRyAchyA jAgI tisarA majakUr", "t with y in the place of x"},
     "t, x, y",
     "% = library.LetterReplace(t, x, y)",
     "badal(#\"#kamaL#\"#, #\"#ka#\"#, #\"#vi#\"#)"},
    {{"ulaT", "majakUr ulaTyA kramAne", "a text backwards by letters"},
     "t",
     "% = library.LetterReverse(t)",
     "ulaT(#\"#kamaL#\"#)"},
    {{"vishrAMtI", "itake sekaMd thAMbA", "wait s seconds"},
     "s",
     "library.Wait s",
     "vishrAMtI 2",
     LibraryWord::Kind::Command},
    {{"veL", "AtAchI veL", "the time, as a text"}, "", "% = library.TimeText", "veL"},
    {{"tArIkh", "AjachI tArIkh", "the date, as a text"}, "", "% = library.DateText", "tArIkh"},
    {{"sekaMd", "prAyojan surU jhAlyApAsUn kitI sekaMd jhAle", "seconds since the program started"},
     "",
     "% = library.SecondsRunning",
     "sekaMd"},
    {{"kaL", "dAbalelI puDhachI kaL dAbalI nasel tar rikAmA majakUr",
      "the next key that was pressed, or an empty text"},
     "",
     "% = library.PressedKey",
     "kaL"},
    {{"lAl", "lAl raMg", "red"}, "", "% = rgb(255, 0, 0)", "lAl"},
    {{"hiravA", "hiravA raMg", "green"}, "", "% = rgb(0, 160, 0)", "hiravA"},
    {{"hiravyA", "hiravA raMg", "green"}, "", "% = rgb(0, 160, 0)", "hiravyA"},
    {{"niLA", "niLA raMg", "blue"}, "", "% = rgb(0, 90, 255)", "niLA"},
    {{"niLyA", "niLA raMg", "blue"}, "", "% = rgb(0, 90, 255)", "niLyA"},
    {{"pivaLA", "pivaLA raMg", "yellow"}, "", "% = rgb(255, 220, 0)", "pivaLA"},
    {{"pivaLyA", "pivaLA raMg", "yellow"}, "", "% = rgb(255, 220, 0)", "pivaLyA"},
    {{"kALA", "kALA raMg", "black"}, "", "% = rgb(0, 0, 0)", "kALA"},
    {{"kALyA", "kALA raMg", "black"}, "", "% = rgb(0, 0, 0)", "kALyA"},
    {{"pAMDharA", "pAMDharA raMg", "white"}, "", "% = rgb(255, 255, 255)", "pAMDharA"},
    {{"pAMDhaRyA", "pAMDharA raMg", "white"}, "", "% = rgb(255, 255, 255)", "pAMDhaRyA"},
    {{"nAriMgI", "nAriMgI raMg", "orange"}, "", "% = rgb(255, 140, 0)", "nAriMgI"},
    {{"jAMbhaLA", "jAMbhaLA raMg", "purple"}, "", "% = rgb(140, 60, 200)", "jAMbhaLA"},
    {{"jAMbhaLyA", "jAMbhaLA raMg", "purple"}, "", "% = rgb(140, 60, 200)", "jAMbhaLyA"},
    {{"gulAbI", "gulAbI raMg", "pink"}, "", "% = rgb(255, 105, 180)", "gulAbI"},
    {{"tapakirI", "tapakirI raMg", "brown"}, "", "% = rgb(140, 80, 30)", "tapakirI"},
    {{"karaDA", "karaDA raMg", "grey"}, "", "% = rgb(128, 128, 128)", "karaDA"},
    {{"karaDyA", "karaDA raMg", "grey"}, "", "% = rgb(128, 128, 128)", "karaDyA"},
    {{"AkAshI", "AkAshI raMg", "sky blue"}, "", "% = rgb(90, 190, 255)", "AkAshI"},
});

}  // namespace

std::span<const LibraryWord> libraryWords() {
    return table;
}

const LibraryWord* findLibraryWord(std::string_view name) {
    static const auto byName = [] {
        std::map<std::string, const LibraryWord*, std::less<>> words;
        for (const LibraryWord& row : table) words.emplace(LineConvert(row.roman), &row);
        return words;
    }();
    const auto found = byName.find(name);
    return found == byName.end() ? nullptr : found->second;
}

std::size_t parameterCount(const LibraryWord& word) {
    if (word.parameters.empty()) return 0;
    return static_cast<std::size_t>(std::count(word.parameters.begin(), word.parameters.end(), ',')) + 1;
}

}  // namespace tolvan
