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
    {"phAsA", "n", "% = library.RandomNumber(n)", "phAsA(6)", "ek te dilelyA aMkAparyaMt koNatIhI saMkhyA",
     "a random whole number from 1 to n"},
    {"bAkI", "a, b", "% = a mod b", "bAkI(7, 2)", "pahilyA saMkhyelA dusarIne bhAgUn urelelI bAkI",
     "remainder of a divided by b"},
    {"bhAgAkAr", "a, b", "% = a \\ b", "bhAgAkAr(7, 2)", "pahilyA saMkhyelA dusarIne bhAgUn yeNArA pUrN bhAgAkAr",
     "whole quotient of a by b"},
    {"pUrNAMk", "x", "% = int(cdbl(x))", "pUrNAMk(2.7)", "saMkhyA kiMvA tichyAkhAlachI pUrN saMkhyA",
     "the whole number at or below x"},
    {"javaLachA", "x", "x = cdbl(x)\n% = sgn(x) * int(abs(x) + 0.5)", "javaLachA(2.5)",
     "saMkhyechyA javaLachI pUrN saMkhyA", "the nearest whole number; halves away from zero"},
    {"kevalamUlya", "x", "% = abs(cdbl(x))", "kevalamUlya(0 - 5)", "chinhAshivAy saMkhyA", "absolute value"},
    {"vargamUL", "x", "% = sqr(x)", "vargamUL(16)", "saMkhyeche vargamUL", "square root"},
    {"ghAt", "a, b", "% = a ^ b", "ghAt(2, 10)", "pahilyA saMkhyechA dusarI itakA ghAt", "a to the power of b"},
    {"sAin", "x", "% = library.Sine(x)", "sAin(30)", "aMshAMtIl konAche sAin", "sine of x degrees"},
    {"kosAin", "x", "% = library.Sine(90 - x)", "kosAin(60)", "aMshAMtIl konAche kosAin", "cosine of x degrees"},
    {"pAy", "", "% = 4 * atn(1)", "pAy", "vartuLAchA parIgh bhAgile vyAs", "pi"},
    {"akShare", "t", "% = library.LetterCount(t)", "akShare(#\"#kamaL#\"#)", "majakurAt kitI akShare Ahet",
     "how many letters a text has"},
    {"akShar", "t, n", "% = library.LetterPart(t, n, 1)", "akShar(#\"#kamaL#\"#, 2)",
     "majakurAtIl dilelyA kramAMkAche akShar", "the n-th letter of a text"},
    {"tukaDA", "t, n, k", "% = library.LetterPart(t, n, k)", "tukaDA(#\"#kamaL#\"#, 1, 2)",
     "dilelyA kramAMkApAsUn itakI akShare", "k letters of a text from the n-th on"},
    {"shodh", "t, x", "% = library.LetterFind(t, x)", "shodh(#\"#kamaL#\"#, #\"#ma#\"#)",
     "dusarA majakUr pahilyAt kitavyA akSharAvar Ahe nasel tar shUnya", "position of x in t by letters, or 0"},
    {"badal", "t, x, y", "% = library.LetterReplace(t, x, y)", "badal(#\"#kamaL#\"#, #\"#ka#\"#, #\"#vi#\"#)",
     "majakurAt dusaRyAchyA jAgI tisarA majakUr", "t with y in the place of x"},
    {"ulaT", "t", "% = library.LetterReverse(t)", "ulaT(#\"#kamaL#\"#)", "majakUr ulaTyA kramAne",
     "a text backwards by letters"},
    {"vishrAMtI", "s", "library.Wait s", "vishrAMtI 2", "itake sekaMd thAMbA", "wait s seconds",
     LibraryWord::Kind::Command},
    {"veL", "", "% = library.TimeText", "veL", "AtAchI veL", "the time, as a text"},
    {"tArIkh", "", "% = library.DateText", "tArIkh", "AjachI tArIkh", "the date, as a text"},
    {"sekaMd", "", "% = library.SecondsRunning", "sekaMd", "prAyojan suru jhAlyApAsUn kitI sekaMd jhAle",
     "seconds since the program started"},
    {"kaL", "", "% = library.PressedKey", "kaL", "shevaTI dAbalelI kaL dAbalI nasel tar rikAmA majakUr",
     "the key pressed since the last look, or an empty text"},
    {"lAl", "", "% = rgb(255, 0, 0)", "lAl", "lAl raMg", "red"},
    {"hiravA", "", "% = rgb(0, 160, 0)", "hiravA", "hiravA raMg", "green"},
    {"hiravyA", "", "% = rgb(0, 160, 0)", "hiravyA", "hiravA raMg", "green"},
    {"niLA", "", "% = rgb(0, 90, 255)", "niLA", "niLA raMg", "blue"},
    {"niLyA", "", "% = rgb(0, 90, 255)", "niLyA", "niLA raMg", "blue"},
    {"pivaLA", "", "% = rgb(255, 220, 0)", "pivaLA", "pivaLA raMg", "yellow"},
    {"pivaLyA", "", "% = rgb(255, 220, 0)", "pivaLyA", "pivaLA raMg", "yellow"},
    {"kALA", "", "% = rgb(0, 0, 0)", "kALA", "kALA raMg", "black"},
    {"kALyA", "", "% = rgb(0, 0, 0)", "kALyA", "kALA raMg", "black"},
    {"pAMDharA", "", "% = rgb(255, 255, 255)", "pAMDharA", "pAMDharA raMg", "white"},
    {"pAMDhaRyA", "", "% = rgb(255, 255, 255)", "pAMDhaRyA", "pAMDharA raMg", "white"},
    {"nAriMgI", "", "% = rgb(255, 140, 0)", "nAriMgI", "nAriMgI raMg", "orange"},
    {"jAMbhaLA", "", "% = rgb(140, 60, 200)", "jAMbhaLA", "jAMbhaLA raMg", "purple"},
    {"jAMbhaLyA", "", "% = rgb(140, 60, 200)", "jAMbhaLyA", "jAMbhaLA raMg", "purple"},
    {"gulAbI", "", "% = rgb(255, 105, 180)", "gulAbI", "gulAbI raMg", "pink"},
    {"tapakirI", "", "% = rgb(140, 80, 30)", "tapakirI", "tapakirI raMg", "brown"},
    {"karaDA", "", "% = rgb(128, 128, 128)", "karaDA", "karaDA raMg", "grey"},
    {"karaDyA", "", "% = rgb(128, 128, 128)", "karaDyA", "karaDA raMg", "grey"},
    {"AkAshI", "", "% = rgb(90, 190, 255)", "AkAshI", "AkAshI raMg", "sky blue"},
});

}  // namespace

std::span<const LibraryWord> libraryWords() {
    return table;
}

const LibraryWord* findLibraryWord(std::string_view name) {
    static const auto byName = [] {
        std::map<std::string, const LibraryWord*, std::less<>> words;
        for (const LibraryWord& row : table) words.emplace(ReplaceRomanChars(row.roman), &row);
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
