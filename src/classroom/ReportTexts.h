// What the reports say, in both languages.
#pragma once

#include "classroom/Problem.h"
#include "classroom/Results.h"

#include <string>
#include <string_view>
#include <vector>

namespace tolvan::classroom {

// A text in Marathi and in English.
struct Text {
    std::string_view marathi;
    std::string_view english;

    std::string_view in(Language language) const { return language == Language::Marathi ? marathi : english; }
};

namespace texts {
inline constexpr Text name{"नाव", "name"};
inline constexpr Text points{"गुण", "points"};
inline constexpr Text most{"पैकी", "max"};
inline constexpr Text alike{"सारखे", "alike"};
inline constexpr Text stopped{"तपास मध्येच थांबवला. तपासलेली प्रायोजने: {0} पैकी {1}.",
                              "Stopped before the end. Checked: {1} of {0}."};
inline constexpr Text noHandIns{"या फोल्डरमध्ये प्रायोजन नाही: {0}", "there is no program in {0}"};
inline constexpr Text checking{"तपासलेली प्रायोजने: {0} पैकी {1}", "checked {1} of {0}"};
inline constexpr Text noFileWall{
    "या संगणकात फाइलींचे संरक्षण (Landlock) नाही. प्रायोजन तरीही इतर फाइली उघडू शकत नाही.",
    "This system lacks the protection of files (Landlock). The language itself still keeps programs from other files."};
inline constexpr Text noCallWall{
    "या संगणकात यंत्रणेचे संरक्षण (seccomp) नाही. प्रायोजन तरीही यंत्रणेला बोलावू शकत नाही.",
    "This system lacks the filter of system calls (seccomp). The language itself still has none."};

inline constexpr Text time{"वेळ", "time"};
inline constexpr Text seconds{"{0} से", "{0} s"};
inline constexpr Text summary{"तपासलेली प्रायोजने: {0}. पूर्ण गुण: {1}.", "Checked: {0}. With all points: {1}."};
inline constexpr Text alikeTo{"नावे, रिकाम्या जागा आणि सूचना सोडून सारखे:", "The same but for names, blanks and comments:"};
inline constexpr Text line{"ओळ {0}: {1}", "Line {0}: {1}"};
inline constexpr Text otherLine{"छापलेली ओळ {0} वेगळी आहे.", "Printed line {0} differs."};
inline constexpr Text onlyBlanks{"ओळ {0}: फक्त रिकाम्या जागा वेगळ्या आहेत. हव्या: {1}, छापल्या: {2}.",
                                 "Line {0}: only the blanks differ. Expected: {1}, printed: {2}."};
inline constexpr Text onlyNumerals{"ओळ {0}: फक्त अंकांची लिपी वेगळी आहे.", "Line {0}: only the script of digits differs."};
inline constexpr Text onlyCapitals{"ओळ {0}: फक्त इंग्रजी मोठी आणि लहान अक्षरे वेगळी आहेत.",
                                   "Line {0}: only capital and small letters differ."};
inline constexpr Text tooFew{"ओळ {0} पासून छापले नाही. अजून हव्या असलेल्या ओळी: {1}.",
                             "Nothing is printed from line {0} on. Lines that are missing: {1}."};
inline constexpr Text tooMany{"ओळ {0} पासून जास्त छापले. जास्त ओळी: {1}.",
                              "Too much is printed from line {0} on. Lines that are too many: {1}."};
inline constexpr Text missingLine{"ओळींचा क्रम कसाही चालतो, पण या ओळी जुळत नाहीत.",
                                  "Lines may come in any order, but these do not agree."};
inline constexpr Text otherPicture{"चित्र वेगळे आहे.", "The picture differs."};
inline constexpr Text expected{"हवे होते", "expected"};
inline constexpr Text printed{"छापले", "printed"};
inline constexpr Text noLine{"ओळ नाही", "no line"};
inline constexpr Text emptyLine{"रिकामी ओळ", "empty line"};
inline constexpr Text lettersLeftOut{"अजून {0} अक्षरे", "{0} more letters"};
inline constexpr Text linesLeftOut{"अजून {0} ओळी", "{0} more lines"};
inline constexpr Text printedNothing{"काही छापले नाही.", "Nothing was printed."};
inline constexpr Text allPrinted{"काय छापले (प्रश्न तिरप्या अक्षरांत)", "what was printed (questions in italics)"};
inline constexpr Text expectedPicture{"हवे असलेले चित्र", "expected picture"};
inline constexpr Text drawnPicture{"काढलेले चित्र", "picture that was drawn"};
inline constexpr Text program{"प्रायोजन", "program"};
inline constexpr Text timeOver{"ठरलेल्या वेळेत प्रायोजन संपले नाही.", "The program did not end in time."};
inline constexpr Text timeOverAt{"ठरलेल्या वेळेत प्रायोजन संपले नाही. तेव्हा ते ओळ {0} वर होते.",
                                 "The program did not end in time. It was in line {0} then."};
inline constexpr Text hurried{"आधीच्या चाचणीत वेळ संपली, म्हणून या चाचणीला कमी वेळ दिला.",
                              "A case before had taken too long, so this one had less time."};
inline constexpr Text tooMuchPrinted{"प्रायोजनाने फार जास्त छापले, म्हणून ते थांबवले.",
                                     "The program printed too much and was stopped."};
inline constexpr Text tooMuchMemory{"प्रायोजनाने फार जास्त स्मृती वापरली, म्हणून ते थांबवले.",
                                    "The program used too much memory and was stopped."};
inline constexpr Text tooMuchWritten{"प्रायोजनाने फाइलींत फार जास्त लिहिले, म्हणून ते थांबवले.",
                                     "The program wrote too much into files and was stopped."};
inline constexpr Text otherFiles{"प्रायोजन त्याच्या फोल्डरच्या बाहेरची फाइल उघडू पाहत होते, म्हणून ते थांबवले.",
                                 "The program reached for a file outside its folder and was stopped."};
inline constexpr Text leftOutForSize{"पान फार मोठे होऊ नये म्हणून पुढचे वगळले.",
                                     "The rest is left out: the page would be too large."};
}  // namespace texts

// The text with "{0}", "{1}" replaced.
std::string filled(Text text, Language language, std::initializer_list<std::string> values);

// A number as it is written there: Devanagari digits in Marathi.
std::string shownNumber(std::size_t number, Language language);
// The text with digits of the language.
std::string shownDigits(std::string_view text, Language language);
// Points, without needless digits after the point.
std::string shownPoints(double points, Language language);

// A verdict in a word or two.
std::string shownVerdict(const CaseResult& result, Language language);
// Why a case is not right, in sentences; none where it is.
std::vector<std::string> sentencesOf(const CaseResult& result, Language language);
// Why a hand-in cannot be read; empty if it can.
std::string_view shownProblem(HandInContent::Problem problem, Language language);
// What is missing, as a sentence.
std::string_view shownMissing(Wall wall, Language language);

}  // namespace tolvan::classroom
