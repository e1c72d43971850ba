// What a run has printed, line by line, for scrolling back: the last lines, as many as a user may want to look at.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace tolvan {

class PrintedLines {
  public:
    static constexpr std::size_t mostLines = 10'000;
    // Of all lines together, in bytes; at least the last line stays, however long it is.
    static constexpr std::size_t mostBytes = std::size_t{16} << 20;

    // A line of internal text form, and a number to keep with it. Drops the oldest lines where there are too many
    // bytes.
    void add(std::string_view line, double place);
    void clear();

    // Lines are counted from 0 since the start of the run; those from begin() to before end() are here.
    std::size_t begin() const { return begin_; }
    std::size_t end() const { return begin_ + lines_.size(); }
    bool empty() const { return lines_.empty(); }
    const std::string& operator[](std::size_t line) const { return lines_[line - begin_].text; }
    double place(std::size_t line) const { return lines_[line - begin_].place; }

  private:
    struct Line {
        std::string text;
        double place;
    };

    std::deque<Line> lines_;
    std::size_t begin_ = 0;
    std::size_t bytes_ = 0;
};

}  // namespace tolvan
