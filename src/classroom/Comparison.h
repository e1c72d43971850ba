// Whether a program printed what it should, and where it first did not.
#pragma once

#include "classroom/Pack.h"
#include "classroom/RunCase.h"
#include "classroom/TaskOptions.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan::classroom {

using Lines = std::vector<std::string>;

// A line as it is shown: cut around the place where it differs, and nowhere else.
struct Excerpt {
    std::size_t leftOutBefore = 0;  // letters
    std::string before;             // that agree
    std::string different;
    std::string after;
    std::size_t leftOutAfter = 0;
};

struct Difference {
    enum class Kind : std::uint8_t {
        Line,     // one line differs
        TooFew,   // the lines end too early
        TooMany,  // or go on too long
        Order,    // a line is missing, and there is another one in its place, whatever the order
        Drawing,  // all lines agree, what is drawn does not
    };
    enum class Reason : std::uint8_t { Letters, Blanks, Numerals, Capitals };

    Kind kind = Kind::Line;
    Reason reason = Reason::Letters;  // of Line: what alone differs
    std::size_t line = 0;             // from 1
    std::size_t count = 0;            // of lines that are missing, or too many
    std::size_t expectedBlanks = 0;   // of Blanks: how many there are at the place
    std::size_t printedBlanks = 0;
    Lines before;  // at most two that agree
    Excerpt expected;
    Excerpt printed;

    void write(PackWriter& pack) const;
    static Difference read(PackReader& pack);
};

// Nothing where they agree.
std::optional<Difference> compareLines(const Lines& expected, const Lines& printed, const Exactness& exactness);

// What may be printed: any of these is right.
using Readings = std::vector<Lines>;

// The lines of a text that a teacher gives: in Unicode, or in font codes with Latin text in braces. ASCII alone can be
// read in both ways.
Readings readingsOf(std::string_view file);

// What a solution printed; its questions, which a program may ask in other words or not at all, need not be there.
Readings readingsOf(const std::vector<PrintedLine>& printed);

// The lines that a program printed agree with one of the readings if they do so with or without what it asks.
// Otherwise the difference from that reading with which they agree longest.
std::optional<Difference> comparePrinted(const Readings& expected, const std::vector<PrintedLine>& printed,
                                         const Exactness& exactness);

}  // namespace tolvan::classroom
