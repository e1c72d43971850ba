// All that helps the user in the two panes, put together for a window.
#pragma once

#include "editor/panes/CaretLine.h"
#include "editor/panes/CaretTogether.h"
#include "editor/panes/Completion.h"
#include "editor/panes/QuoteSpans.h"
#include "editor/panes/ScrollTogether.h"
#include "editor/panes/ZoomTogether.h"

namespace tolvan {

class ProgramBox;
class RomanBox;
class RomanInput;

class PaneAids {
  public:
    // All must outlive it.
    PaneAids(RomanBox& roman, ProgramBox& program, const RomanInput& input);

    QuoteSpans& quoteSpans() { return quoteSpans_; }
    Completion& completion() { return completion_; }
    ZoomTogether& zoom() { return zoom_; }

  private:
    CaretLine caretLine_;
    ScrollTogether scrolling_;
    CaretTogether caret_;
    ZoomTogether zoom_;
    QuoteSpans quoteSpans_;
    Completion completion_;
};

}  // namespace tolvan
