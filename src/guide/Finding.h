// What the guide has to say about a program: plain values, which windows and the command line show.
#pragma once

#include "platform/richtext/StyledText.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan::guide {

// Columns of a line, from 0; `to` is the first one after them.
struct Columns {
    std::size_t from = 0;
    std::size_t to = 0;

    friend bool operator==(const Columns&, const Columns&) = default;
};

enum class Weight : std::uint8_t {
    Error,   // something that would fail
    Advice,  // something that runs and is probably not meant
};

// Other Roman text for a place of one line. The text may hold line ends (CR LF), which make new lines.
struct Correction {
    std::size_t line = 0;  // from 1
    Columns place;
    std::string text;
    bool sure = false;  // this is meant; otherwise it may be

    friend bool operator==(const Correction&, const Correction&) = default;
};

struct Finding {
    std::size_t line = 0;  // from 1
    Columns roman;         // the smallest place that shows the cause, in the Roman line
    Columns program;       // and in the Devanagari one
    std::string_view kind;
    Weight weight = Weight::Error;
    StyledText text;                      // in Marathi
    std::vector<Correction> corrections;  // the best first
    std::vector<Columns> emphasis = {};   // the letters of the text that make the difference
    // Of a block whose end is missing or wrong: its first and last line; 0: it is about its own line.
    std::size_t firstLine = 0;
    std::size_t lastLine = 0;
};

// The Roman text after a correction; unchanged where its place is not there.
std::string corrected(std::string_view roman, const Correction& correction);

}  // namespace tolvan::guide
