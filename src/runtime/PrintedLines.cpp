#include "runtime/PrintedLines.h"

namespace tolvan {

void PrintedLines::add(std::string_view line, double place) {
    lines_.push_back({std::string(line), place});
    bytes_ += line.size();
    while (lines_.size() > mostLines || (bytes_ > mostBytes && lines_.size() > 1)) {
        bytes_ -= lines_.front().text.size();
        lines_.pop_front();
        ++begin_;
    }
}

void PrintedLines::clear() {
    lines_.clear();
    begin_ = bytes_ = 0;
}

}  // namespace tolvan
