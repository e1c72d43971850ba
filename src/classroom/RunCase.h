// One run of a hand-in for one case, and what is told of it.
#pragma once

#include "classroom/Picture.h"
#include "platform/files/Descriptor.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan::classroom {

struct CaseLimits {
    double seconds = 2;  // of processor time
    std::uint64_t outputBytes = std::uint64_t{64} << 10;
    std::uint64_t memoryBytes = std::uint64_t{64} << 20;  // of the program's texts, arrays and objects
    std::uint64_t fileBytes = std::uint64_t{1} << 20;     // written into files
};

struct CaseInput {
    std::string typed;  // lines in Roman letters, or in Unicode
    std::string keys;   // the keys that it finds pressed, one a line
    std::uint32_t seed = 1;
};

struct PrintedLine {
    enum class Kind : std::uint8_t {
        Told,
        Asked,        // the program asked for input directly after it
        AlwaysAsked,  // and its text always asks: it is written out in the program, directly before the input
    };
    std::string text;  // in Unicode
    Kind kind = Kind::Told;
};

struct CaseRun {
    enum class End : std::uint8_t { Ended, Error, Time, Output, Memory, Files, Crashed };
    End end = End::Crashed;
    int number = 0;           // of the error
    int line = 0;             // of the program, from 1, where it failed or was when its time was over; 0: not known
    std::string message;      // of the error, in Marathi
    std::string explanation;  // what it usually means, in Marathi
    std::string english;      // the error in English
    std::string explanationInEnglish;
    std::vector<PrintedLine> printed;
    std::size_t shown = 0;  // the first of the printed lines that stand on the display at the end
    Picture picture;
    double seconds = 0;
};

// Runs a program, whose file has these bytes, in a folder, and writes what happens to `result` as it happens. For a
// process of its own that has been confined.
void runCase(std::string_view file, const CaseInput& input, const CaseLimits& limits, const std::string& folder,
             const Descriptor& result);

// What such a process wrote before it ended, by the signal that ended it or 0.
CaseRun readCaseRun(std::string_view result, int signal);

// How much such a process may write before it is stopped from outside: it should have stopped itself.
std::size_t mostResult(const CaseLimits& limits);

}  // namespace tolvan::classroom
