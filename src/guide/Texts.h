// The guide's sentences, in Roman spelling. "{0}" and "{1}" stand for what is put in; a class noun follows it and takes
// the ending, so that any word can stand there.
#pragma once

#include "platform/richtext/StyledText.h"

#include <initializer_list>
#include <string_view>

namespace tolvan::guide {

namespace texts {
inline constexpr std::string_view openLatin = "{0} yA chinhAchI joDI nAhI. oLIt donadA lihA.";
inline constexpr std::string_view openQuote = "avataraN chinhAchI joDI nAhI. majakurAchyA shevaTI te lihA.";
inline constexpr std::string_view quotesInGlyphs = "avataraN chinh ase chAlat nAhI. {0} ase lihA.";
inline constexpr std::string_view textWithoutQuotes = "hA majakUr disato. to avataraN chinhAMt lihA.";

inline constexpr std::string_view wordInLiteral = "majakurAtIl {0} hA shabd AdnyA mhaNUn vAchalA jAto. to badalA.";
inline constexpr std::string_view wordInComment = "suchanetIl {0} hA shabd AdnyA mhaNUn vAchalA jAto. to badalA.";
inline constexpr std::string_view commentInName = "{0} yA shabdAt suchanA hA shabd Ahe. dusarA shabd lihA.";

inline constexpr std::string_view spellingSure = "{0} hA shabd mAhIt nAhI. {1} ase lihA.";
inline constexpr std::string_view spellingLikely = "{0} hA shabd mAhIt nAhI. {1} hA shabd javaLachA Ahe.";
inline constexpr std::string_view spellingRivals = "{0} hA shabd mAhIt nAhI. {1} kiMvA {2} ase lihA.";
inline constexpr std::string_view splitElseIf = "{0} he don shabd vegaLe Ahet. {1} ase joDUn lihA.";

inline constexpr std::string_view unclosed = "{0} yA shabdAchI joDI nAhI. shevaTI {1} lihA.";
inline constexpr std::string_view unopened = "{0} yA shabdAchI joDI nAhI. AdhI {1} lihA.";
inline constexpr std::string_view wrongEnd = "{0} hA vegaLA shevaT Ahe. ithe {1} lihA.";

inline constexpr std::string_view missingWord = "yA oLIt {0} hA shabd nAhI. to lihA.";
inline constexpr std::string_view endAlone = "saMpav yA shabdApuDhe kAy saMpate te lihA.";
inline constexpr std::string_view loopName = "sAThI yA shabdAAdhI ek nAv lihA.";
inline constexpr std::string_view tooDeep = "ithe khUp bhAg ekAt ek Ahet. kAhI bhAg upaprAyojanAt lihA.";
inline constexpr std::string_view equalSign = "{0} yA nAvApuDhe barobar hA shabd lihA.";

inline constexpr std::string_view brackets = "jAgA kaMsAt lihA: {0}.";
inline constexpr std::string_view ending = "yA AkRitIsAThI {0} chAlat nAhI. {1} lihA.";
inline constexpr std::string_view filledFirst = "bharalele hA shabd raMgAnaMtar lihA.";
inline constexpr std::string_view fromBehind = "AdhI pAsun ANi maga paryaMt lihA.";
inline constexpr std::string_view notEqual = "nAhI hA shabd barobar nAMtar chAlat nAhI. to aTIAdhI lihA.";

inline constexpr std::string_view unknownCommand = "{0} hI AdnyA nAhI. oLIchyA suruvAtIlA AdnyA lihA.";
inline constexpr std::string_view nameAlone = "{0} yA nAvAche kAy karAyache te lihA.";

inline constexpr std::string_view noValue = "{0} yA AdnyenaMtar kiMmat nAhI. ek kiMmat lihA.";
inline constexpr std::string_view noName = "{0} yA AdnyenaMtar nAv nAhI. ek nAv lihA.";
inline constexpr std::string_view severalValues = "{0} yA AdnyenaMtar ekach kiMmat chAlate. kiMmatI {1} ne joDA.";
inline constexpr std::string_view severalNames = "{0} yA AdnyenaMtar ekach nAv chAlate.";
inline constexpr std::string_view needsNothing = "{0} yA AdnyenaMtar kAhI nako.";
inline constexpr std::string_view openFile = "{0} yA AdnyenaMtar phAilIche nAv, svalpavirAm ANi prakAr lihA.";
inline constexpr std::string_view byZero = "shUnyAne bhAgatA yet nAhI. bhAjak badalA.";
inline constexpr std::string_view argumentCount = "{0} yA upaprAyojanAlA {1} kiMmatI havyAt. ithe {2} Ahet.";

inline constexpr std::string_view neverSet = "{0} yA nAvAlA kiMmat dilelI nAhI. AdhI kiMmat dyA.";
inline constexpr std::string_view noArray = "{0} yA nAvAchI mitI sAMgitalelI nAhI. AdhI mitI lihA.";
inline constexpr std::string_view declaredTwice = "{0} he nAv AdhIch sAMgitale Ahe. vegaLe nAv lihA.";
inline constexpr std::string_view noFunction = "{0} yA nAvAche upaprAyojan nAhI. te lihA kiMvA nAv tapAsA.";
inline constexpr std::string_view onlyInMain = "{0} yA nAvAlA upaprAyojanAt kiMmat nAhI. te kaMsAt dyA.";
inline constexpr std::string_view onlyInFunction = "{0} yA nAvAlA phakt upaprAyojanAt kiMmat Ahe. ithe nAhI.";
inline constexpr std::string_view textAsNumber = "{0} yA nAvAt majakUr Ahe. AdhI aMkik vAparA.";
inline constexpr std::string_view sameName = "{0} ANi {1} hI nAve ek mAnalI jAtAt. ek nAv badalA.";

inline constexpr std::string_view bracketsMissing = "kaMs: {0} kamI. to baMd karA.";
inline constexpr std::string_view bracketsLeft = "kaMs: {0} jAst. to kADhA.";
inline constexpr std::string_view nothingBetween = "{0} yAAdhI kAhI nAhI. {1} kiMvA chinh lihA.";
inline constexpr std::string_view nothingBehind = "{0} yAchyA donhI bAjUMnA kiMmat havI.";
}  // namespace texts

// A sentence with what is put in: Devanagari words in their font, marks and digits as they stand.
StyledText sentence(std::string_view text, std::initializer_list<StyledText> inserted = {});

// Roman text as it is shown in a program.
StyledText shown(std::string_view roman);

// Text that stays in Latin letters.
inline StyledText latin(std::string_view text) {
    return {text, Font::Latin};
}

// The message table's text of an error of the script; empty if it has none.
StyledText messageText(int number);

}  // namespace tolvan::guide
