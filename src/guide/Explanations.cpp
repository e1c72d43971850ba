#include "guide/Explanations.h"

#include "guide/Texts.h"
#include "platform/encoding/Lines.h"
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
constexpr std::string_view otherLanguageEnglish =
    "The line has a word or a dot that does not belong to Tolvan Basic. Change it.";
constexpr std::string_view dotWrong = "gaN.it = 1";
constexpr std::string_view dotRight = "gaNit = 1";
// These it does not meet: no word of the language leads there.
constexpr std::string_view outside = "prAyojanAbAherachI goShT upalabdh nAhI. oL sopI karUn punhA chAlavA.";
constexpr std::string_view outsideEnglish =
    "Something outside the program is not available. Make the line simpler and run it again.";
constexpr std::string_view outsideWrong = "dAkhav anoLakhI(1)";
constexpr std::string_view outsideRight = "dAkhav 1";
// Parts of a sentence that are missing.
constexpr std::string_view bracket = "kaMs barobar joDalelA nAhI. ughaDalelA pratyek kaMs baMd karA.";
constexpr std::string_view bracketEnglish = "Brackets do not match. Close each one that is opened.";
constexpr std::string_view bracketWrong = "a = (1 adhik 2";
constexpr std::string_view bracketRight = "a = (1 adhik 2)";
constexpr std::string_view sign = "oLIt chinh rAhile Ahe kiMvA jAst Ahe. oL tapAsA.";
constexpr std::string_view signEnglish = "The line lacks a sign, or has one too many. Check it.";
constexpr std::string_view signWrong = "a = 1 adhik";
constexpr std::string_view signRight = "a = 1 adhik 2";
constexpr std::string_view name = "ithe nAv have Ahe. saMkhyA kiMvA chinh nako.";
constexpr std::string_view nameEnglish = "A name is needed here, not a number or a sign.";
constexpr std::string_view nameWrong = "mitI 5";
constexpr std::string_view nameRight = "mitI ghar(5)";
constexpr std::string_view blockEnd = "surU kelelyA bhAgAchA shevaT lihilelA nAhI. to shevaTI lihA.";
constexpr std::string_view blockEndEnglish = "A part that was begun has no end. Write it.";
constexpr std::string_view endWrong = "jar a moThA 1 tar";
constexpr std::string_view ifRight = "saMpav jar";
constexpr std::string_view functionRight = "upaprAyojan saMpav";
constexpr std::string_view functionWrong = "upaprAyojan duppaT(a)";
constexpr std::string_view loopWrong = "jovar a lahAn 5 tovar";
constexpr std::string_view loopRight = "kar";
constexpr std::string_view fileClosed = "phAil ughaDalelI nAhI kiMvA tiche nAv chAlat nAhI. AdhI phAil ughaDA.";
constexpr std::string_view fileClosedEnglish = "The file is not open, or its name is wrong. Open it first.";
constexpr std::string_view openRead = "ughaD #\"noMd.txt\"#, vAchaNyAsAThI";
constexpr std::string_view diskTrouble = "DiskavarIl phAilIt lihitA kiMvA vAchatA Ale nAhI. Disk ANi jAgA tapAsA.";
constexpr std::string_view diskTroubleEnglish =
    "A file on the disk could not be written or read. Check the disk and the place.";
constexpr std::string_view disk = "lihI #\"#AMbA#\"#";

// By number.
constexpr auto table = std::to_array<Explanation>({
    {-2147221503, "oL vAchatA yet nAhI. shabd ANi kaMs tapAsA.", bracketWrong, bracketRight,
     "The line cannot be read. Check its words and brackets."},
    {-2147221502, "ithe dusare vAky have Ahe. oL punhA lihA.", signWrong, signRight,
     "Another statement belongs here. Write the line again."},
    {3, "kAm saMpalyAvar parat jANyAchI jAgA nAhI. upaprAyojanAchA shevaT tapAsA.", functionWrong, functionRight,
     "There is nothing to return to. Check the end of the function."},
    {5, "dilelI kiMmat yA AdnyelA chAlat nAhI. kiMmat tapAsA.", "dAkhav vargamUL(0 vajA 4)", "dAkhav vargamUL(4)",
     "This command cannot work with the value that it was given. Check the value."},
    {6, "saMkhyA khUp moThI jhAlI. gaNit tapAsA kiMvA lahAn saMkhyA vAparA.", "dAkhav ghAt(10, 400)",
     "dAkhav ghAt(10, 4)", "The number became too large. Check the calculation, or use smaller numbers."},
    {7, "majakUr kiMvA mitI phAr moThI Ahe. tI lahAn karA.", "mitI ghar(999999999)", "mitI ghar(100)",
     "A text or an array is too large. Make it smaller."},
    {9, "gharAchA kramAMk mitIchyA bAher Ahe. to shUnyApAsUn mitIparyaMt asato.", "ghar(6) = 1", "ghar(5) = 1",
     "The index is outside the array: it goes from 0 to the size that was declared."},
    {10, "hI mitI AtA badalatA yet nAhI. tI ekadAch sAMgA.", "mitI ghar(5), ghar(9)", "mitI ghar(9)",
     "This array cannot be changed any more. Declare it once only."},
    {11, "bhAgAkArAt bhAjak shUny Ahe. bhAgaNyAAdhI to tapAsA.", "dAkhav 12 bhAgile 0", "dAkhav 12 bhAgile 3",
     "The divisor is zero. Check it before dividing."},
    {13, "jithe saMkhyA havI tithe majakUr Ahe. tyAchI AdhI aMkik saMkhyA karA.", "dAkhav #\"#bArA#\"# guNile 2",
     "dAkhav 12 guNile 2", "There is a text where a number is needed. Make a number of it first, with aMkik."},
    {14, "oL kiMvA majakUr phAr lAMb Ahe. to lahAn karA.", "vAch puStak", "vAch oL",
     "A line or a text is too long. Make it shorter."},
    {16, "vAky phAr lAMb Ahe. tyAche don bhAg karA.", "a = 1 adhik (2 adhik (3 adhik 4))",
     "a = 1 adhik 2 adhik 3 adhik 4", "The expression is too long. Make two of it."},
    {17, "hI AdnyA pUrN karatA AlI nAhI. oL tapAsUn punhA chAlavA.", outsideWrong, outsideRight,
     "The command could not be carried out. Check the line and run the program again."},
    {18, "prAyojan madhyech thAMbavale. te punhA chAlavA.", "jovar 1 lahAn 2 tovar", "jovar a lahAn 2 tovar",
     "The program was stopped before its end. Run it again."},
    {20, "chUk jhAlelI nasatAnA puDhe jANyAchI AdnyA AlI. tI kADhA.", outsideWrong, outsideRight,
     "The program is to go on after a mistake, but there was none. Take that out."},
    {28, "upaprAyojan svataHlA sArakhe bolAvate. thAMbaNyAchI aT lihA.", "phaL = n guNile phaL(n vajA 1)",
     "jar n moThA 1 tar phaL = n guNile phaL(n vajA 1)",
     "The function calls itself without an end. Write a condition under which it stops."},
    {35, "yA nAvAche upaprAyojan nAhI. nAv tapAsA kiMvA te lihA.", "dAkhav duppT(2)", "dAkhav duppaT(2)",
     "There is no function of this name. Check the name, or write the function."},
    {47, outside, outsideWrong, outsideRight, outsideEnglish},
    {48, outside, outsideWrong, outsideRight, outsideEnglish},
    {49, outside, outsideWrong, outsideRight, outsideEnglish},
    {51, "tolavan besikamadhye chUk jhAlI. prAyojan sAThavA ANi punhA chAlavA.", outsideWrong, outsideRight,
     "Tolvan Basic itself made a mistake. Save the program and run it again."},
    {52, fileClosed, "vAch phaL", openRead, fileClosedEnglish},
    {53, "yA nAvAchI phAil nAhI. nAv ANi jAgA tapAsA.", "ughaD #\"noMnd.txt\"#, vAchaNyAsAThI", openRead,
     "There is no file of this name. Check the name and the place."},
    {54, "phAil vegaLyA kAmAsAThI ughaDalI Ahe. ughaDaNyAchA prakAr badalA.", openRead,
     "ughaD #\"noMd.txt\"#, lihiNyAsAThI", "The file was opened for another use. Open it for the one that is needed."},
    {55, "ek phAil AdhIch ughaDI Ahe. dusarI ughaDaNyAAdhI tI baMd karA.", openRead, "baMd",
     "A file is open already. Close it before opening another one."},
    {57, diskTrouble, disk, disk, diskTroubleEnglish},
    {58, "yA nAvAchI phAil AdhIch Ahe. dusare nAv dyA.", "ughaD #\"noMd.txt\"#, lihiNyAsAThI",
     "ughaD #\"navI.txt\"#, lihiNyAsAThI", "There is a file of this name already. Give another name."},
    {59, "oLIchI lAMbI barobar nAhI. majakUr tapAsA.", disk, disk, "The length of a line is wrong. Check the text."},
    {61, "Diskavar jAgA nAhI. nako asalelyA phAilI kADhA.", disk, disk,
     "There is no room left on the disk. Remove files that are not needed."},
    {62, "phAil saMpalI ANi tarIhI vAchale. phAilaMt nasel tevhAch vAchA.", "vAch phaL",
     "jar nAhI phAilaMt tar vAch phaL",
     "The program read on behind the end. Read only while there is something to read."},
    {63, "oLIchA kramAMk barobar nAhI. kramAMk tapAsA.", "vAch phaL", "vAch phaL",
     "The number of the line is wrong. Check it."},
    {67, "ekAch veLI phAr phAilI ughaDyA Ahet. nako tyA baMd karA.", openRead, "baMd",
     "Too many files are open at a time. Close those that are not needed."},
    {68, "upakaraN miLat nAhI. te joDUn punhA chAlavA.", openRead, openRead,
     "A device cannot be found. Connect it and run the program again."},
    {70, "yA phAilIlA hAt lAvaNyAchI paravAnagI nAhI. prAyojanAchyA svataHchyA pholDaramadhIl nAv dyA.",
     "ughaD #\"/noMd.txt\"#, lihiNyAsAThI", "ughaD #\"noMd.txt\"#, lihiNyAsAThI",
     "This file may not be used. Give a name in the program's own folder."},
    {71, diskTrouble, disk, disk, diskTroubleEnglish},
    {74, "phAil dusaRyA Diskavar netA yet nAhI. dusare nAv dyA.", openRead, openRead,
     "The file cannot be moved to another disk. Give another name."},
    {75, "he nAv phAilIche nAhI, pholDarache Ahe. phAilIche nAv dyA.", "ughaD #\"#chitre#\"#, vAchaNyAsAThI", openRead,
     "This is the name of a folder, not of a file. Give that of a file."},
    {76, "phAilIchA mArg sApaDat nAhI. pholDarachI nAve tapAsA.", "ughaD #\"nahI/noMd.txt\"#, vAchaNyAsAThI", openRead,
     "The path to the file cannot be found. Check the names of the folders."},
    {91, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {92, "sAThI yA shabdAchI oL chAlalI nAhI ANi chakr surU jhAle. chakrAchyA oLI kramAne lihA.",
     "kramAMk sAThI 1 te paryaMt", "kramAMk sAThI 1 te 5 paryaMt",
     "The loop began without its first line. Write the lines of the loop in order."},
    {93, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {94, "yA nAvAt kiMmat nAhI. AdhI kiMmat dyA.", "dAkhav vay adhik 1", "vay = 12",
     "The name has no value. Give it one first."},
    {113, "prAyojan phAr veL chAlale. chakrAchI thAMbaNyAchI aT tapAsA.", "jovar 1 lahAn 2 tovar",
     "jovar a lahAn 2 tovar", "The program ran for too long. Check the condition that ends its loop."},
    {298, outside, outsideWrong, outsideRight, outsideEnglish},
    {322, diskTrouble, disk, disk, diskTroubleEnglish},
    {424, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {429, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {430, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {432, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {438, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {440, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {445, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {446, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {447, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {448, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {449, "AdnyechI ek kiMmat lihilelI nAhI. sarv kiMmatI lihA.", "(10) paryaMt regh Akh", "(10, 20) paryaMt regh Akh",
     "A value of the command is missing. Write all of them."},
    {450, "kiMmatI kamI kiMvA jAst Ahet. havyAt titakyAch lihA.", "dAkhav 1, 2", "dAkhav 1 adhik 2",
     "There are too few or too many values. Write as many as are needed."},
    {451, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {453, outside, outsideWrong, outsideRight, outsideEnglish},
    {455, outside, outsideWrong, outsideRight, outsideEnglish},
    {457, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {458, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {462, outside, outsideWrong, outsideRight, outsideEnglish},
    {481, outside, outsideWrong, outsideRight, outsideEnglish},
    {500, "yA nAvAlA kiMmat dilelI nAhI. AdhI kiMmat dyA.", "dAkhav vay", "vay = 12",
     "The name was never given a value. Give it one first."},
    {501, "ithe kiMmat ThevatA yet nAhI. barobar yA shabdAAdhI nAv lihA.", "duppaT(2) = 4", "a = duppaT(2)",
     "No value can be stored here. Write a name before barobar."},
    {502, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {503, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {504, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {505, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {506, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {507, outside, outsideWrong, outsideRight, outsideEnglish},
    {744, "shodhalele shabd sApaDale nAhIt. shabd tapAsA.", "dAkhav shodh(#\"#kamaL#\"#, #\"#x#\"#)",
     "dAkhav shodh(#\"#kamaL#\"#, #\"#ka#\"#)", "The words were not found. Check them."},
    {746, "badalAyachA majakUr phAr moThA Ahe. to lahAn karA.", "a = badal(a, #\"#ka#\"#, a)",
     "a = badal(a, #\"#ka#\"#, #\"#kha#\"#)", "The text to change is too large. Make it smaller."},
    {1001, "prAyojan kiMvA ek oL phAr moThI Ahe. tiche bhAg karA.", "a = 1 adhik (2 adhik (3 adhik 4))",
     "a = 1 adhik 2 adhik 3 adhik 4", "The program or one line is too large. Divide it."},
    {1002, "vAkyAchI rachanA chukalI. oLItIl shabd ANi tyAMchA kram tapAsA.", signWrong, signRight,
     "The sentence is not built right. Check the words of the line and their order."},
    {1003, sign, signWrong, signRight, signEnglish},
    {1004, sign, signWrong, signRight, signEnglish},
    {1005, bracket, "mitI ghar 5", "mitI ghar(5)", bracketEnglish},
    {1006, bracket, bracketWrong, bracketRight, bracketEnglish},
    {1007, bracket, bracketWrong, bracketRight, bracketEnglish},
    {1008, bracket, bracketWrong, bracketRight, bracketEnglish},
    {1009, bracket, bracketWrong, bracketRight, bracketEnglish},
    {1010, name, nameWrong, nameRight, nameEnglish},
    {1011, "ithe barobar chinh have Ahe. nAv, chinh ANi kiMmat ashI oL lihA.", "sAThI 1 te 5", "kramAMk sAThI 1 te 5",
     "An equals sign is needed here. Write name, sign and value."},
    {1012, "saMpav yA shabdApuDhe jar havA Ahe. shevaT pUrN lihA.", "saMpav", "saMpav jar",
     "jar is needed after saMpav. Write the end in full."},
    {1013, "sAThI yA shabdAchyA oLIt te hA shabd nAhI. to lihA.", "kramAMk sAThI 1 paryaMt",
     "kramAMk sAThI 1 te 5 paryaMt", "The line of the sAThI loop lacks the word te. Add it."},
    {1014, blockEnd, endWrong, ifRight, blockEndEnglish},
    {1015, blockEnd, functionWrong, functionRight, blockEndEnglish},
    {1016, blockEnd, functionWrong, functionRight, blockEndEnglish},
    {1017, "jar yA shabdAchyA oLIt tar hA shabd nAhI. to lihA.", "jar a moThA 1", "jar a moThA 1 tar",
     "The line with jar lacks the word tar. Add it."},
    {1018, blockEnd, loopWrong, loopRight, blockEndEnglish},
    {1019, blockEnd, loopWrong, loopRight, blockEndEnglish},
    {1020, blockEnd, "kramAMk sAThI 1 te 5 paryaMt", "puDhachA kramAMk", blockEndEnglish},
    {1021, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1022, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1023, "ithe kiMmat kiMvA nAv rAhile Ahe. te lihA.", signWrong, signRight,
     "A value or a name is missing here. Add it."},
    {1024, "ithe AdnyA havI Ahe. oLIchyA suruvAtIlA AdnyA lihA.", "tar dAkhav 1", "dAkhav 1",
     "A command is needed here. Write one at the start of the line."},
    {1025, "vAky saMpale tarI puDhe shabd Ahet. jAst shabd kADhA kiMvA dusaRyA oLIt lihA.", "a = 1 2", "a = 12",
     "The sentence is over, but words follow. Take them out, or write them on another line."},
    {1026, "ithe pUrN saMkhyA havI Ahe. nAv kiMvA apUrNAMk nako.", "mitI ghar(n)", "mitI ghar(10)",
     "A whole number is needed here, not a name or a fraction."},
    {1027, blockEnd, loopWrong, loopRight, blockEndEnglish},
    {1028, blockEnd, loopWrong, loopRight, blockEndEnglish},
    {1029, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1030, "nAv phAr lAMb Ahe. lahAn nAv dyA.", "khUpachalAMbanAv = 1", "nAv = 1",
     "The name is too long. Choose a short one."},
    {1031, "saMkhyA barobar lihilelI nAhI. akShare ANi saMkhyA vegaLyA lihA.", "a = 12b", "a = 12",
     "The number is not written right. Write letters and numbers apart."},
    {1032, "he akShar yA bhAShet nAhI. te kADhA.", "a = 5 ? 2", "a = 5 adhik 2",
     "This character does not belong to the language. Take it out."},
    {1033, "majakurAche avataraN chinh baMd jhAle nAhI. te shevaTI lihA.", "dAkhav #\"#namaskAr",
     "dAkhav #\"#namaskAr#\"#", "A quotation mark is not closed. Write it at the end of the text."},
    {1034, sign, signWrong, signRight, signEnglish},
    {1037, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1038, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1039, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1040, "sAThI yA shabdAAdhI sAdhe nAv have Ahe. gharAche nAv chAlat nAhI.", "ghar(1) sAThI 1 te 5 paryaMt",
     "kramAMk sAThI 1 te 5 paryaMt", "A plain name is needed before sAThI, not an element of an array."},
    {1041, "he nAv donadA sAMgitale Ahe. ek nAv badalA.", "mitI ghar(5), ghar(9)", "mitI ghar(5), oTA(9)",
     "The name is declared twice. Change one of them."},
    {1042, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1043, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1044, "yA AdnyechyA kiMmatI kaMsAt nakot. kaMs kADhA.", "dAkhav (1, 2)", "dAkhav 1",
     "The values of this command take no brackets. Take them out."},
    {1045, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1046, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1047, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1048, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1049, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1050, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1051, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1052, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1053, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1054, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1055, "puDhachA yA shabdAchI sAThI yA shabdAchI oL nAhI. AdhI tI lihA.", "puDhachA kramAMk",
     "kramAMk sAThI 1 te 5 paryaMt", "The line with puDhachA has no sAThI line before it. Write that first."},
    {1056, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1057, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {1058, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {5016, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {5017, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {5018, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {5019, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {5020, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {5021, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {31001, "prAyojanAlA lAgaNArI smaraNikA saMpalI. mitI kiMvA majakUr lahAn karA.", "mitI ghar(999999999)",
     "mitI ghar(100)", "The memory for the program is used up. Make arrays and texts smaller."},
    {32811, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
    {32812, otherLanguage, dotWrong, dotRight, otherLanguageEnglish},
});
static_assert(std::ranges::adjacent_find(table, std::ranges::greater_equal(), &Explanation::number) == table.end(),
              "by number, each once");
static_assert(std::ranges::none_of(table, &std::string_view::empty, &Explanation::english));

// As `sentence` for texts that are English.
StyledText englishSentence(std::string_view text, std::initializer_list<StyledText> inserted) {
    StyledText made;
    for (const StyledText& next : inserted) {
        const std::size_t place = text.find('{');
        made.append(latin(text.substr(0, place)));
        made.append(next);
        text.remove_prefix(place + 3);
    }
    made.append(latin(text));
    return made;
}

// What is said of the names and values that took part; "{0}" is a name, or else a value.
struct FactTexts {
    std::string_view value;
    std::string_view isText;
    std::string_view plainText;
    std::string_view isEmpty;
    std::string_view isArray;
    std::string_view notFound;
    StyledText (*fill)(std::string_view text, std::initializer_list<StyledText> inserted);
};
constexpr FactTexts marathiFacts{"{0} yA nAvAchI kiMmat {1} Ahe.",
                                 "{0} yA nAvAt {1} hA majakUr Ahe, saMkhyA nAhI.",
                                 "{0} hA majakUr Ahe, saMkhyA nAhI.",
                                 "{0} yA nAvAlA kiMmat dilelI nAhI.",
                                 "{0} hI mitI Ahe. gharAchA kramAMk kaMsAt lihA.",
                                 "{0} he nAv sApaDale nAhI.",
                                 sentence};
constexpr FactTexts englishFacts{"The value of {0} is {1}.",
                                 "{0} holds the text {1}, which is no number.",
                                 "{0} is a text, no number.",
                                 "{0} was never given a value.",
                                 "{0} is an array: write the index in brackets.",
                                 "There is no {0}.",
                                 englishSentence};

constexpr std::string_view wrongExample = "chukIche:";
constexpr std::string_view rightExample = "barobar:";

// A value in internal text form.
StyledText shownValue(const script::ErrorOperand& operand) {
    StyledText value = styledText(operand.value);
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

StyledText describe(const script::ErrorOperand& operand, int number, const WordOfName& wordOf, const FactTexts& texts) {
    const StyledText word = shownName(operand.name, wordOf);
    const bool wantsNumber = number == script::errors::typeMismatch;
    if (operand.kind == "String" && wantsNumber)
        return word.empty() ? texts.fill(texts.plainText, {shownValue(operand)})
                            : texts.fill(texts.isText, {word, shownValue(operand)});
    if (word.empty()) return {};
    if (operand.kind == "Empty") return texts.fill(texts.isEmpty, {word});
    if (operand.kind == "Variant()" && wantsNumber) return texts.fill(texts.isArray, {word});
    return operand.value.empty() ? StyledText() : texts.fill(texts.value, {word, shownValue(operand)});
}

void appendSentence(StyledText& text, const StyledText& added) {
    if (added.empty()) return;
    if (!text.empty()) text.append(" ", Font::Devanagari);
    text.append(added);
}

// The two are seldom longer together than a line.
StyledText example(const Explanation& explanation, StyledText wrong, const StyledText& right) {
    appendSentence(wrong, shown(explanation.wrong));
    wrong.append(latin(";"));
    appendSentence(wrong, right);
    appendSentence(wrong, shown(explanation.right));
    return wrong;
}

StyledView lineOf(StyledView program, int number) {
    const auto line = linePlace(program.text(), static_cast<std::size_t>(std::max(number, 1) - 1));
    return line ? program.substr(line->begin, line->size()) : StyledView();
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

std::vector<StyledText> explain(const script::ErrorReport& error, const WordOfName& wordOf, In language) {
    const bool isEnglish = language == In::English;
    const FactTexts& texts = isEnglish ? englishFacts : marathiFacts;
    const StyledText called = shownName(error.called, wordOf);
    // A word that is called like a function and is none fails as a type mismatch.
    const bool callsUnknown = error.number == script::errors::typeMismatch && !called.empty();
    StyledText facts;
    if (callsUnknown) facts = texts.fill(texts.notFound, {called});
    if (!callsUnknown)
        for (const script::ErrorOperand& operand : error.operands)
            appendSentence(facts, describe(operand, error.number, wordOf, texts));
    std::vector<StyledText> lines;
    if (!facts.empty()) lines.push_back(std::move(facts));
    const int number = callsUnknown ? script::errors::undefinedProcedure : error.number;
    if (const Explanation* const explanation = findExplanation(number)) {
        lines.push_back(isEnglish ? latin(explanation->english) : shown(explanation->meaning));
        if (explanation->wrong != explanation->right)
            lines.push_back(example(*explanation, isEnglish ? latin("Wrong:") : shown(wrongExample),
                                    isEnglish ? latin("right:") : shown(rightExample)));
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
