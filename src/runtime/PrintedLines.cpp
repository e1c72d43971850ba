#include "runtime/PrintedLines.h"

namespace tolvan {

void PrintedLines::add(std::string_view line) {
    lines_.emplace_back(line);
    bytes_ += line.size();
    while (lines_.size() > mostLines || (bytes_ > mostBytes && lines_.size() > 1)) {
        bytes_ -= lines_.front().size();
        lines_.pop_front();
        ++begin_;
    }
}

void PrintedLines::clear() {
    lines_.clear();
    begin_ = bytes_ = 0;
}

}  // namespace tolvan
