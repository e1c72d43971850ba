#include "guide/Explanations.h"

#include "guide/Texts.h"
#include "platform/encoding/Ascii.h"
#include "platform/richtext/InternalText.h"
#include "platform/script/ErrorReport.h"
#include "platform/script/Errors.h"
#include "translator/Blanks.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <utility>

namespace tolvan::guide {
namespace {

// A beginner's program meets these only by words of the script language in it, between "#" marks, or by a dot in a
// name.
constexpr std::string_view otherLanguage = "oLIt tolavan besikachA nasalelA shabd kiMvA TiMb Ahe. to shabd badalA.";
constexpr std::string_view dotWrong = "gaN.it = 1";
constexpr std::string_view dotRight = "gaNit = 1";
// These it does not meet: no word of the language leads there.
constexpr std::string_view outside = "prAyojanAbAherachI goShT upalabdh nAhI. oL sopI karUn punhA chAlavA.";
constexpr std::string_view outsideWrong = "dAkhav anoLakhI(1)";
constexpr std::string_view outsideRight = "dAkhav 1";
// Parts of a sentence that are missing.
constexpr std::string_view bracket = "kaMs barobar joDalelA nAhI. ughaDalelA pratyek kaMs baMd karA.";
constexpr std::string_view bracketWrong = "a = (1 adhik 2";
constexpr std::string_view bracketRight = "a = (1 adhik 2)";
constexpr std::string_view sign = "oLIt chinh rAhile Ahe kiMvA jAst Ahe. oL tapAsA.";
constexpr std::string_view signWrong = "a = 1 adhik";
constexpr std::string_view signRight = "a = 1 adhik 2";
constexpr std::string_view name = "ithe nAv have Ahe. saMkhyA kiMvA chinh nako.";
constexpr std::string_view nameWrong = "mitI 5";
constexpr std::string_view nameRight = "mitI ghar(5)";
constexpr std::string_view blockEnd = "surU kelelyA bhAgAchA shevaT lihilelA nAhI. to shevaTI lihA.";
constexpr std::string_view endWrong = "jar a moThA 1 tar";
constexpr std::string_view ifRight = "saMpav jar";
constexpr std::string_view functionRight = "upaprAyojan saMpav";
constexpr std::string_view functionWrong = "upaprAyojan duppaT(a)";
constexpr std::string_view loopWrong = "jovar a lahAn 5 tovar";
constexpr std::string_view loopRight = "kar";
constexpr std::string_view fileClosed = "phAil ughaDalelI nAhI kiMvA tiche nAv chAlat nAhI. AdhI phAil ughaDA.";
constexpr std::string_view openRead = "ughaD #\"noMd.txt\"#, vAchaNyAsAThI";
constexpr std::string_view diskTrouble = "DiskavarIl phAilIt lihitA kiMvA vAchatA Ale nAhI. Disk ANi jAgA tapAsA.";
constexpr std::string_view disk = "lihI #\"#AMbA#\"#";

// By number.
constexpr auto table = std::to_array<Explanation>({
    {-2147221503, "oL vAchatA yet nAhI. shabd ANi kaMs tapAsA.", bracketWrong, bracketRight},
    {-2147221502, "ithe dusare vAky have Ahe. oL punhA lihA.", signWrong, signRight},
    {3, "kAm saMpalyAvar parat jANyAchI jAgA nAhI. upaprAyojanAchA shevaT tapAsA.", functionWrong, functionRight},
    {5, "dilelI kiMmat yA AdnyelA chAlat nAhI. kiMmat tapAsA.", "dAkhav vargamUL(0 vajA 4)", "dAkhav vargamUL(4)"},
    {6, "saMkhyA khUp moThI jhAlI. gaNit tapAsA kiMvA lahAn saMkhyA vAparA.", "dAkhav ghAt(10, 400)",
     "dAkhav ghAt(10, 4)"},
    {7, "majakUr kiMvA mitI phAr moThI Ahe. tI lahAn karA.", "mitI ghar(999999999)", "mitI ghar(100)"},
    {9, "gharAchA kramAMk mitIchyA bAher Ahe. to shUnyApAsUn mitIparyaMt asato.", "ghar(6) = 1", "ghar(5) = 1"},
    {10, "hI mitI AtA badalatA yet nAhI. tI ekadAch sAMgA.", "mitI ghar(5), ghar(9)", "mitI ghar(9)"},
    {11, "bhAgAkArAt bhAjak shUny Ahe. bhAgaNyAAdhI to tapAsA.", "dAkhav 12 bhAgile 0", "dAkhav 12 bhAgile 3"},
    {13, "jithe saMkhyA havI tithe majakUr Ahe. tyAchI AdhI aMkik saMkhyA karA.", "dAkhav #\"#bArA#\"# guNile 2",
     "dAkhav 12 guNile 2"},
    {14, "oL kiMvA majakUr phAr lAMb Ahe. to lahAn karA.", "vAch puStak", "vAch oL"},
    {16, "vAky phAr lAMb Ahe. tyAche don bhAg karA.", "a = 1 adhik (2 adhik (3 adhik 4))",
     "a = 1 adhik 2 adhik 3 adhik 4"},
    {17, "hI AdnyA pUrN karatA AlI nAhI. oL tapAsUn punhA chAlavA.", outsideWrong, outsideRight},
    {18, "prAyojan madhyech thAMbavale. te punhA chAlavA.", "jovar 1 lahAn 2 tovar", "jovar a lahAn 2 tovar"},
    {20, "chUk jhAlelI nasatAnA puDhe jANyAchI AdnyA AlI. tI kADhA.", outsideWrong, outsideRight},
    {28, "upaprAyojan svataHlA sArakhe bolAvate. thAMbaNyAchI aT lihA.", "phaL = n guNile phaL(n vajA 1)",
     "jar n moThA 1 tar phaL = n guNile phaL(n vajA 1)"},
    {35, "yA nAvAche upaprAyojan nAhI. nAv tapAsA kiMvA te lihA.", "dAkhav duppT(2)", "dAkhav duppaT(2)"},
    {47, outside, outsideWrong, outsideRight},
    {48, outside, outsideWrong, outsideRight},
    {49, outside, outsideWrong, outsideRight},
    {51, "tolavan besikamadhye chUk jhAlI. prAyojan sAThavA ANi punhA chAlavA.", outsideWrong, outsideRight},
    {52, fileClosed, "vAch phaL", openRead},
    {53, "yA nAvAchI phAil nAhI. nAv ANi jAgA tapAsA.", "ughaD #\"noMnd.txt\"#, vAchaNyAsAThI", openRead},
    {54, "phAil vegaLyA kAmAsAThI ughaDalI Ahe. ughaDaNyAchA prakAr badalA.", openRead,
     "ughaD #\"noMd.txt\"#, lihiNyAsAThI"},
    {55, "ek phAil AdhIch ughaDI Ahe. dusarI ughaDaNyAAdhI tI baMd karA.", openRead, "baMd"},
    {57, diskTrouble, disk, disk},
    {58, "yA nAvAchI phAil AdhIch Ahe. dusare nAv dyA.", "ughaD #\"noMd.txt\"#, lihiNyAsAThI",
     "ughaD #\"navI.txt\"#, lihiNyAsAThI"},
    {59, "oLIchI lAMbI barobar nAhI. majakUr tapAsA.", disk, disk},
    {61, "Diskavar jAgA nAhI. nako asalelyA phAilI kADhA.", disk, disk},
    {62, "phAil saMpalI ANi tarIhI vAchale. phAilaMt nasel tevhAch vAchA.", "vAch phaL",
     "jar nAhI phAilaMt tar vAch phaL"},
    {63, "oLIchA kramAMk barobar nAhI. kramAMk tapAsA.", "vAch phaL", "vAch phaL"},
    {67, "ekAch veLI phAr phAilI ughaDyA Ahet. nako tyA baMd karA.", openRead, "baMd"},
    {68, "upakaraN miLat nAhI. te joDUn punhA chAlavA.", openRead, openRead},
    {70, "yA phAilIlA hAt lAvaNyAchI paravAnagI nAhI. prAyojanAchyA svataHchyA pholDaramadhIl nAv dyA.",
     "ughaD #\"/noMd.txt\"#, lihiNyAsAThI", "ughaD #\"noMd.txt\"#, lihiNyAsAThI"},
    {71, diskTrouble, disk, disk},
    {74, "phAil dusaRyA Diskavar netA yet nAhI. dusare nAv dyA.", openRead, openRead},
    {75, "he nAv phAilIche nAhI, pholDarache Ahe. phAilIche nAv dyA.", "ughaD #\"#chitre#\"#, vAchaNyAsAThI", openRead},
    {76, "phAilIchA mArg sApaDat nAhI. pholDarachI nAve tapAsA.", "ughaD #\"nahI/noMd.txt\"#, vAchaNyAsAThI", openRead},
    {91, otherLanguage, dotWrong, dotRight},
    {92, "sAThI yA shabdAchI oL chAlalI nAhI ANi chakr surU jhAle. chakrAchyA oLI kramAne lihA.",
     "kramAMk sAThI 1 te paryaMt", "kramAMk sAThI 1 te 5 paryaMt"},
    {93, otherLanguage, dotWrong, dotRight},
    {94, "yA nAvAt kiMmat nAhI. AdhI kiMmat dyA.", "dAkhav vay adhik 1", "vay = 12"},
    {113, "prAyojan phAr veL chAlale. chakrAchI thAMbaNyAchI aT tapAsA.", "jovar 1 lahAn 2 tovar",
     "jovar a lahAn 2 tovar"},
    {298, outside, outsideWrong, outsideRight},
    {322, diskTrouble, disk, disk},
    {424, otherLanguage, dotWrong, dotRight},
    {429, otherLanguage, dotWrong, dotRight},
    {430, otherLanguage, dotWrong, dotRight},
    {432, otherLanguage, dotWrong, dotRight},
    {438, otherLanguage, dotWrong, dotRight},
    {440, otherLanguage, dotWrong, dotRight},
    {445, otherLanguage, dotWrong, dotRight},
    {446, otherLanguage, dotWrong, dotRight},
    {447, otherLanguage, dotWrong, dotRight},
    {448, otherLanguage, dotWrong, dotRight},
    {449, "AdnyechI ek kiMmat lihilelI nAhI. sarv kiMmatI lihA.", "(10) paryaMt regh Akh", "(10, 20) paryaMt regh Akh"},
    {450, "kiMmatI kamI kiMvA jAst Ahet. havyAt titakyAch lihA.", "dAkhav 1, 2", "dAkhav 1 adhik 2"},
    {451, otherLanguage, dotWrong, dotRight},
    {453, outside, outsideWrong, outsideRight},
    {455, outside, outsideWrong, outsideRight},
    {457, otherLanguage, dotWrong, dotRight},
    {458, otherLanguage, dotWrong, dotRight},
    {462, outside, outsideWrong, outsideRight},
    {481, outside, outsideWrong, outsideRight},
    {500, "yA nAvAlA kiMmat dilelI nAhI. AdhI kiMmat dyA.", "dAkhav vay", "vay = 12"},
    {501, "ithe kiMmat ThevatA yet nAhI. barobar yA shabdAAdhI nAv lihA.", "duppaT(2) = 4", "a = duppaT(2)"},
    {502, otherLanguage, dotWrong, dotRight},
    {503, otherLanguage, dotWrong, dotRight},
    {504, otherLanguage, dotWrong, dotRight},
    {505, otherLanguage, dotWrong, dotRight},
    {506, otherLanguage, dotWrong, dotRight},
    {507, outside, outsideWrong, outsideRight},
    {744, "shodhalele shabd sApaDale nAhIt. shabd tapAsA.", "dAkhav shodh(#\"#kamaL#\"#, #\"#x#\"#)",
     "dAkhav shodh(#\"#kamaL#\"#, #\"#ka#\"#)"},
    {746, "badalAyachA majakUr phAr moThA Ahe. to lahAn karA.", "a = badal(a, #\"#ka#\"#, a)",
     "a = badal(a, #\"#ka#\"#, #\"#kha#\"#)"},
    {1001, "prAyojan kiMvA ek oL phAr moThI Ahe. tiche bhAg karA.", "a = 1 adhik (2 adhik (3 adhik 4))",
     "a = 1 adhik 2 adhik 3 adhik 4"},
    {1002, "vAkyAchI rachanA chukalI. oLItIl shabd ANi tyAMchA kram tapAsA.", signWrong, signRight},
    {1003, sign, signWrong, signRight},
    {1004, sign, signWrong, signRight},
    {1005, bracket, "mitI ghar 5", "mitI ghar(5)"},
    {1006, bracket, bracketWrong, bracketRight},
    {1007, bracket, bracketWrong, bracketRight},
    {1008, bracket, bracketWrong, bracketRight},
    {1009, bracket, bracketWrong, bracketRight},
    {1010, name, nameWrong, nameRight},
    {1011, "ithe barobar chinh have Ahe. nAv, chinh ANi kiMmat ashI oL lihA.", "sAThI 1 te 5", "kramAMk sAThI 1 te 5"},
    {1012, "saMpav yA shabdApuDhe jar havA Ahe. shevaT pUrN lihA.", "saMpav", "saMpav jar"},
    {1013, "sAThI yA shabdAchyA oLIt te hA shabd nAhI. to lihA.", "kramAMk sAThI 1 paryaMt",
     "kramAMk sAThI 1 te 5 paryaMt"},
    {1014, blockEnd, endWrong, ifRight},
    {1015, blockEnd, functionWrong, functionRight},
    {1016, blockEnd, functionWrong, functionRight},
    {1017, "jar yA shabdAchyA oLIt tar hA shabd nAhI. to lihA.", "jar a moThA 1", "jar a moThA 1 tar"},
    {1018, blockEnd, loopWrong, loopRight},
    {1019, blockEnd, loopWrong, loopRight},
    {1020, blockEnd, "kramAMk sAThI 1 te 5 paryaMt", "puDhachA kramAMk"},
    {1021, otherLanguage, dotWrong, dotRight},
    {1022, otherLanguage, dotWrong, dotRight},
    {1023, "ithe kiMmat kiMvA nAv rAhile Ahe. te lihA.", signWrong, signRight},
    {1024, "ithe AdnyA havI Ahe. oLIchyA suruvAtIlA AdnyA lihA.", "tar dAkhav 1", "dAkhav 1"},
    {1025, "vAky saMpale tarI puDhe shabd Ahet. jAst shabd kADhA kiMvA dusaRyA oLIt lihA.", "a = 1 2", "a = 12"},
    {1026, "ithe pUrN saMkhyA havI Ahe. nAv kiMvA apUrNAMk nako.", "mitI ghar(n)", "mitI ghar(10)"},
    {1027, blockEnd, loopWrong, loopRight},
    {1028, blockEnd, loopWrong, loopRight},
    {1029, otherLanguage, dotWrong, dotRight},
    {1030, "nAv phAr lAMb Ahe. lahAn nAv dyA.", "khUpachalAMbanAv = 1", "nAv = 1"},
    {1031, "saMkhyA barobar lihilelI nAhI. akShare ANi saMkhyA vegaLyA lihA.", "a = 12b", "a = 12"},
    {1032, "he akShar yA bhAShet nAhI. te kADhA.", "a = 5 ? 2", "a = 5 adhik 2"},
    {1033, "majakurAche avataraN chinh baMd jhAle nAhI. te shevaTI lihA.", "dAkhav #\"#namaskAr",
     "dAkhav #\"#namaskAr#\"#"},
    {1034, sign, signWrong, signRight},
    {1037, otherLanguage, dotWrong, dotRight},
    {1038, otherLanguage, dotWrong, dotRight},
    {1039, otherLanguage, dotWrong, dotRight},
    {1040, "sAThI yA shabdAAdhI sAdhe nAv have Ahe. gharAche nAv chAlat nAhI.", "ghar(1) sAThI 1 te 5 paryaMt",
     "kramAMk sAThI 1 te 5 paryaMt"},
    {1041, "he nAv donadA sAMgitale Ahe. ek nAv badalA.", "mitI ghar(5), ghar(9)", "mitI ghar(5), oTA(9)"},
    {1042, otherLanguage, dotWrong, dotRight},
    {1043, otherLanguage, dotWrong, dotRight},
    {1044, "yA AdnyechyA kiMmatI kaMsAt nakot. kaMs kADhA.", "dAkhav (1, 2)", "dAkhav 1"},
    {1045, otherLanguage, dotWrong, dotRight},
    {1046, otherLanguage, dotWrong, dotRight},
    {1047, otherLanguage, dotWrong, dotRight},
    {1048, otherLanguage, dotWrong, dotRight},
    {1049, otherLanguage, dotWrong, dotRight},
    {1050, otherLanguage, dotWrong, dotRight},
    {1051, otherLanguage, dotWrong, dotRight},
    {1052, otherLanguage, dotWrong, dotRight},
    {1053, otherLanguage, dotWrong, dotRight},
    {1054, otherLanguage, dotWrong, dotRight},
    {1055, "puDhachA yA shabdAchI sAThI yA shabdAchI oL nAhI. AdhI tI lihA.", "puDhachA kramAMk",
     "kramAMk sAThI 1 te 5 paryaMt"},
    {1056, otherLanguage, dotWrong, dotRight},
    {1057, otherLanguage, dotWrong, dotRight},
    {1058, otherLanguage, dotWrong, dotRight},
    {5016, otherLanguage, dotWrong, dotRight},
    {5017, otherLanguage, dotWrong, dotRight},
    {5018, otherLanguage, dotWrong, dotRight},
    {5019, otherLanguage, dotWrong, dotRight},
    {5020, otherLanguage, dotWrong, dotRight},
    {5021, otherLanguage, dotWrong, dotRight},
    {31001, "prAyojanAlA lAgaNArI smaraNikA saMpalI. mitI kiMvA majakUr lahAn karA.", "mitI ghar(999999999)",
     "mitI ghar(100)"},
    {32811, otherLanguage, dotWrong, dotRight},
    {32812, otherLanguage, dotWrong, dotRight},
});
static_assert(std::ranges::adjacent_find(table, std::ranges::greater_equal(), &Explanation::number) == table.end(),
              "by number, each once");

constexpr std::string_view values = "{0} yA nAvAchI kiMmat {1} Ahe.";
constexpr std::string_view isText = "{0} yA nAvAt {1} hA majakUr Ahe, saMkhyA nAhI.";
constexpr std::string_view plainText = "{0} hA majakUr Ahe, saMkhyA nAhI.";
constexpr std::string_view isEmpty = "{0} yA nAvAlA kiMmat dilelI nAhI.";
constexpr std::string_view isArray = "{0} hI mitI Ahe. gharAchA kramAMk kaMsAt lihA.";
constexpr std::string_view notFound = "{0} he nAv sApaDale nAhI.";
constexpr std::string_view wrongExample = "chukIche:";
constexpr std::string_view rightExample = "barobar:";

StyledText latin(std::string_view text) {
    return {text, Font::Latin};
}

// A value in internal text form.
StyledText shownValue(const script::ErrorOperand& operand) {
    StyledText value;
    for (const InternalTextRun& run : InternalTextRuns(operand.value)) value.append(run.text, run.font);
    if (operand.kind != "String") return value;
    StyledText quoted = latin("\"");
    quoted.append(value);
    quoted.append(latin("\""));
    return quoted;
}

// The word of a variable, or of the array whose element "name(3)" is; empty for what is not the program's.
StyledText shownName(const std::string& scriptName, const WordOfName& wordOf) {
    if (!wordOf || scriptName.empty()) return {};
    return {wordOf(std::string_view(scriptName).substr(0, scriptName.find('('))), Font::Devanagari};
}

StyledText describe(const script::ErrorOperand& operand, int number, const WordOfName& wordOf) {
    const StyledText word = shownName(operand.name, wordOf);
    const bool wantsNumber = number == script::errors::typeMismatch;
    if (operand.kind == "String" && wantsNumber)
        return word.empty() ? sentence(plainText, {shownValue(operand)})
                            : sentence(isText, {word, shownValue(operand)});
    if (word.empty()) return {};
    if (operand.kind == "Empty") return sentence(isEmpty, {word});
    if (operand.kind == "Variant()" && wantsNumber) return sentence(isArray, {word});
    return operand.value.empty() ? StyledText() : sentence(values, {word, shownValue(operand)});
}

void appendSentence(StyledText& text, const StyledText& added) {
    if (added.empty()) return;
    if (!text.empty()) text.append(" ", Font::Devanagari);
    text.append(added);
}

// The two are seldom longer together than a line.
StyledText example(const Explanation& explanation) {
    StyledText text = shown(wrongExample);
    appendSentence(text, shown(explanation.wrong));
    text.append(latin(";"));
    appendSentence(text, shown(rightExample));
    appendSentence(text, shown(explanation.right));
    return text;
}

StyledView lineOf(StyledView program, int line) {
    std::size_t start = 0;
    for (; line > 1; --line) {
        const std::size_t end = program.text().find(lineEnd, start);
        if (end == std::string_view::npos) return {};
        start = end + lineEnd.size();
    }
    return program.substr(start, program.text().find(lineEnd, start) - start);
}

}  // namespace

std::span<const Explanation> explanations() {
    return table;
}

const Explanation* findExplanation(std::int32_t number) {
    const auto* const row = std::ranges::lower_bound(table, number, {}, &Explanation::number);
    return row != table.end() && row->number == number ? row : nullptr;
}

StyledText errorMessageText(std::int32_t number) {
    StyledText text = messageText(number);
    if (!text.empty()) return text;
    text = shown("gaDabaD ");
    text.append(latin(std::to_string(number)));
    return text;
}

std::vector<StyledText> explain(const script::ErrorReport& error, const WordOfName& wordOf) {
    const StyledText called = shownName(error.called, wordOf);
    // A word that is called like a function and is none fails as a type mismatch.
    const bool callsUnknown = error.number == script::errors::typeMismatch && !called.empty();
    StyledText facts;
    if (callsUnknown) facts = sentence(notFound, {called});
    if (!callsUnknown)
        for (const script::ErrorOperand& operand : error.operands)
            appendSentence(facts, describe(operand, error.number, wordOf));
    std::vector<StyledText> lines;
    if (!facts.empty()) lines.push_back(std::move(facts));
    const int number = callsUnknown ? script::errors::undefinedProcedure : error.number;
    if (const Explanation* const explanation = findExplanation(number)) {
        lines.push_back(shown(explanation->meaning));
        lines.push_back(example(*explanation));
    }
    return lines;
}

RunFailure runFailure(const script::ErrorReport& error, int line, StyledView program, const WordOfName& wordOf) {
    RunFailure failure;
    failure.line = static_cast<std::size_t>(std::max(line, 0));
    if (line > 0) failure.sentence = StyledText(trimBlanks(lineOf(program, line)));
    failure.message = errorMessageText(error.number);
    failure.explanation = explain(error, wordOf);
    return failure;
}

}  // namespace tolvan::guide
