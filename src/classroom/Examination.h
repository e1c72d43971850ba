// What a hand-in's text shows without running.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan::classroom {

struct ShownFinding {
    int line = 0;  // from 1
    bool isError = false;
    std::string text;     // in Marathi
    std::string english;  // what it is about
};

struct ProgramLine {
    std::string roman;
    std::string devanagari;
};

struct Examination {
    enum class Problem : std::uint8_t { None, NoProgram };
    Problem problem = Problem::None;
    std::vector<ProgramLine> lines;  // the first `mostLines`
    std::size_t lineCount = 0;
    std::vector<ShownFinding> findings;
    // The program without comments, blanks and the words that it chooses itself: equal for programs that are the same
    // but for these. Numbers and texts are kept. Empty if it is too short for that to mean anything.
    std::string shape;

    static constexpr std::size_t mostLines = 400;
};

// `start` is the program text that was given to all: its lines do not count for the shape. For a process of its own.
Examination examine(std::string_view program, std::string_view start);

std::string writeExamination(const Examination& examination);
// Of packed bytes; without anything if these are not whole.
Examination readExamination(std::string_view packed);

}  // namespace tolvan::classroom
