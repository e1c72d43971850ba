#include "translator/LanguageWords.h"

#include "platform/transliteration/ReplaceRomanChars.h"

#include <array>
#include <functional>
#include <map>
#include <string>

namespace tolvan {
namespace {

constexpr auto table = std::to_array<LanguageWord>({
    {"dAkhav", "majakUr kiMvA uttar dAkhavA", "print"},
    {"ghe", "vAparakartyAkaDUn uttar ghyA", "input"},
    {"korA", "khiDakI korI karA", "clear the screen"},
    {"barobar", "donhI bAjU samAn kiMvA nAvAlA kiMmat dyA", "="},
    {"adhik", "berIj karA", "+"},
    {"vajA", "vajAbAkI karA", "-"},
    {"guNile", "guNAkAr karA", "*"},
    {"bhAgile", "bhAgAkAr karA", "/"},
    {"lahAn", "pahilI saMkhyA dusarIpekShA lahAn", "<"},
    {"moThA", "pahilI saMkhyA dusarIpekShA moThI", ">"},
    {"jar", "aT pAhA", "if"},
    {"tar", "aT kharI asel tar puDhIl vidhAne chAlavA", "then"},
    {"nAhItar", "aT khoTI asel tar puDhIl vidhAne chAlavA", "else"},
    {"nAhItarajar", "AdhIchI aT khoTI asel tar hI aT pAhA", "else if", "nAhItar jar"},
    {"saMpav", "jar kiMvA upaprAyojan ithe saMpate", "end"},
    {"ANi", "donhI aTI khaRyA asAvyAt", "and"},
    {"kiMvA", "ek tarI aT kharI asAvI", "or"},
    {"nAhI", "aT khoTI asAvI", "not"},
    {"sAThI", "mojaNIchyA nAvAnaMtar yete", "counted loop: for"},
    {"te", "mojaNIchyA pahilyA ANi shevaTachyA aMkAMmadhye yete", "counted loop: to"},
    {"paryaMt", "mojaNI regh kiMvA Ayat ithe saMpate", "counted loop, line, box: as far as"},
    {"puDhachA", "mojaNIchA puDhachA aMk ghyA", "next"},
    {"jovar", "aT kharI ase paryaMt punhA punhA chAlavA", "while"},
    {"tovar", "jovar naMtarachyA aTIchA shevaT", "after the condition of while"},
    {"kar", "jovarache Avartan ithe saMpate", "end of while"},
    {"thAMb", "prAyojan thAMbavA", "stop"},
    {"suchanA", "vAchakAsAThI TIp jI chAlavalI jAt nAhI", "comment", "sUchanA"},
    {"mitI", "yAdIchI lAMbI TharavA", "dim"},
    {"aMkik", "majakurAchI saMkhyA karA", "text to number"},
    {"shAbdik", "saMkhyechA majakUr karA", "number to text"},
    {"upaprAyojan", "svataHche upaprAyojan banavA", "function"},
    {"regh", "don biMdUMmadhIl regh", "line"},
    {"Akh", "regh kADhA", "draw a line"},
    {"Ayat", "Ayat AkRitI", "box"},
    {"biMdU", "ek biMdU", "point"},
    {"vartuL", "vartuL AkRitI", "circle"},
    {"kADh", "Ayat biMdU kiMvA vartuL kADhA", "draw a box, point or circle"},
    {"pAsun", "AkRitI ithUn surU hote", "line, box, circle: from", "pAsUn"},
    {"var", "biMdU ithe kADhA", "point: on"},
    {"trijyA", "vartuLAchI trijyA", "circle: radius"},
    {"trijyAche", "vartuLAchI trijyA jyAnaMtar raMg yeto", "circle: of radius, before a colour"},
    {"Asalele", "vartuLAchyA raMgAAdhI yete", "circle: before a colour", "asalele"},
    {"raMg", "lAl hiravA ANi niLA yAMpAsUn raMg banavA", "colour of red, green and blue"},
    {"raMgAchI", "reghechA raMg", "line: of colour"},
    {"raMgAche", "AyatAchA kiMvA vartuLAchA raMg", "box, circle: of colour"},
    {"raMgAchA", "biMdUchA raMg", "point: of colour"},
    {"bharalele", "AkRitI raMgAne bharA", "box, circle: filled"},
    {"ruMdI", "khiDakIchI ruMdI", "width of the screen"},
    {"uMchI", "khiDakIchI uMchI", "height of the screen"},
    {"lAMbI", "khiDakIchI uMchI", "height of the screen"},
    {"ughaD", "phAil ughaDA", "open a file"},
    {"vAchaNyAsAThI", "phAil vAchaNyAsAThI ughaDA", "open: for reading"},
    {"lihiNyAsAThI", "phAil navyAne lihiNyAsAThI ughaDA", "open: for writing"},
    {"joDaNyAsAThI", "phAilIchyA shevaTI joDaNyAsAThI ughaDA", "open: for appending"},
    {"vAch", "phAilItUn ek oL vAchA", "read a line of a file"},
    {"lihI", "phAilIt ek oL lihA", "write a line to a file"},
    {"phAilaMt", "phAil vAchUn saMpalI kA", "end of file"},
    {"baMd", "phAil baMd karA", "close a file"},
});

}  // namespace

std::span<const LanguageWord> languageWords() {
    return table;
}

const LanguageWord* findLanguageWord(std::string_view word) {
    static const auto byWord = [] {
        std::map<std::string, const LanguageWord*, std::less<>> words;
        for (const LanguageWord& row : table) words.emplace(LineConvert(row.roman), &row);
        return words;
    }();
    const auto found = byWord.find(word);
    return found == byWord.end() ? nullptr : found->second;
}

}  // namespace tolvan
