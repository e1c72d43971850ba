// How a task is checked: the file task.ini, lines such as "seconds = 2". "[NAME]" begins what is for one case.
#pragma once

#include "classroom/RunCase.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tolvan::classroom {

// How exactly printed lines must agree. Blanks at both ends of a line never count, nor empty lines at the end.
struct Exactness {
    enum class Spaces : std::uint8_t {
        Exact,
        Runs,     // any number of blanks is as good as one
        Ignored,  // none is as good as any
    };
    enum class Order : std::uint8_t { Exact, Any };

    Spaces spaces = Spaces::Exact;
    Order order = Order::Exact;
    std::optional<int> digits;  // after the point of a number that count; nothing: the numbers as they are printed
    bool sameNumerals = true;   // Devanagari and Latin digits are equal
};

struct TaskOptions {
    enum class Drawing : std::uint8_t { None, Calls, Picture };

    std::string title;  // empty: the name of the folder
    CaseLimits limits;
    bool hasSeconds = false;  // the time limit is the teacher's own
    Exactness exactness;
    Drawing drawing = Drawing::Picture;  // what is compared where the solution draws
    double tolerance = 2;                // of places in a drawing
    std::uint32_t seed = 1;
    double points = 1;  // a case
    struct OfCase {
        std::optional<double> points;
        bool isOpen = true;
    };
    std::map<std::string, OfCase, std::less<>> ofCases;

    double pointsOf(std::string_view caseName) const {
        const auto own = ofCases.find(caseName);
        return own == ofCases.end() ? points : own->second.points.value_or(points);
    }
    // Whether pupils may try their programs with it.
    bool isOpen(std::string_view caseName) const {
        const auto own = ofCases.find(caseName);
        return own == ofCases.end() || own->second.isOpen;
    }
};

// Throws Problem for what is no option or no value of one, with its line.
TaskOptions readTaskOptions(std::string_view text);

// A number of bytes, also as "64K", "10M" or "1G". Nothing for any other text.
std::optional<std::uint64_t> readByteCount(std::string_view text);

}  // namespace tolvan::classroom
