// What checking a class gives: values that the reports show.
#pragma once

#include "classroom/Comparison.h"
#include "classroom/Examination.h"
#include "classroom/HandIns.h"
#include "classroom/Picture.h"
#include "classroom/RunCase.h"
#include "classroom/Sandbox.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tolvan::classroom {

enum class Verdict : std::uint8_t { Right, Wrong, Error, Time, Output, Memory, Files, Unreadable };

// What is kept of printed lines: the first and the last ones.
struct PrintedExcerpt {
    std::vector<PrintedLine> first;
    std::size_t leftOut = 0;  // lines between them
    std::vector<PrintedLine> last;
};
PrintedExcerpt excerptOf(std::vector<PrintedLine> printed);

// The display at the end of a run that drew something, as far as it is shown.
struct Screen {
    std::vector<Figure> figures;
    Lines text;  // what was printed since the display was wiped
};
Screen screenOf(const Picture& picture, const std::vector<PrintedLine>& printed, std::size_t shown,
                std::size_t mostFigures);

struct CaseResult {
    Verdict verdict = Verdict::Unreadable;
    int number = 0;  // of Error and Files
    int line = 0;    // of the program, where it failed or was stopped; 0: not known
    std::string message;
    std::string explanation;
    std::string english;  // the message
    std::string explanationInEnglish;
    double seconds = 0;                    // of processor time
    bool hurried = false;                  // it had a short time only, since a case before had taken too long
    std::optional<Difference> difference;  // of Wrong
    PrintedExcerpt printed;
    Screen screen;
};

struct HandInResult {
    std::string name;
    HandInContent::Problem problem = HandInContent::Problem::None;
    Examination examination;
    std::vector<CaseResult> cases;  // in the order of the task's
    double points = 0;
    std::size_t group = 0;  // of programs that are alike, from 1; 0: none
};

struct CaseHead {
    std::string name;
    double points = 1;
    Screen expected;  // of the solution; empty where it draws nothing
};

struct ClassResult {
    std::string title;
    std::vector<CaseHead> cases;
    double most = 0;  // points
    std::vector<HandInResult> handIns;
    std::size_t handInCount = 0;  // with those that were not checked any more
    std::vector<Wall> missing;
};

// "right", "error 11 line 5": the forms of the CSV file.
std::string codeOf(const CaseResult& result);

// Puts together what is the same but for names, blanks and comments. Not where so many are: then the task has one
// natural answer.
void groupAlike(std::vector<HandInResult>& handIns);

// For the cache.
std::string packResult(const HandInResult& result);
// Nothing for what is damaged. The name is left empty.
std::optional<HandInResult> unpackResult(std::string_view packed);

}  // namespace tolvan::classroom
