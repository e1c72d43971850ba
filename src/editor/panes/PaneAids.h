// All that helps the user in the two panes, put together for a window.
#pragma once

#include "editor/panes/CaretLine.h"
#include "editor/panes/CaretTogether.h"
#include "editor/panes/Completion.h"
#include "editor/panes/QuoteSpans.h"
#include "editor/panes/ScrollTogether.h"
#include "editor/panes/ZoomTogether.h"

#include <memory>

namespace tolvan {

class DevanagariTyping;
class LibraryWordColours;
class ProgramBox;
class RomanBox;
class RomanInput;

class PaneAids {
  public:
    // All must outlive it.
    PaneAids(RomanBox& roman, ProgramBox& program, RomanInput& input);
    ~PaneAids();

    QuoteSpans& quoteSpans() { return quoteSpans_; }
    Completion& completion() { return completion_; }
    ZoomTogether& zoom() { return zoom_; }
    DevanagariTyping& devanagari() { return *devanagari_; }

  private:
    CaretLine caretLine_;
    ScrollTogether scrolling_;
    CaretTogether caret_;
    ZoomTogether zoom_;
    std::unique_ptr<LibraryWordColours> colours_;
    std::unique_ptr<DevanagariTyping> devanagari_;  // sees the keys that quotes and completion leave
    QuoteSpans quoteSpans_;
    Completion completion_;
};

}  // namespace tolvan
