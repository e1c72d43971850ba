#include "editor/panes/PaneAids.h"

#include "editor/panes/DevanagariTyping.h"
#include "editor/panes/EmptyHint.h"
#include "editor/panes/LibraryWordColours.h"
#include "editor/panes/LineNumbers.h"
#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"
#include "editor/panes/RomanColours.h"

namespace tolvan {

PaneAids::PaneAids(RomanBox& roman, ProgramBox& program, RomanInput& input)
    : caretLine_(roman, program),
      scrolling_(roman, program),
      caret_(roman, program, input),
      zoom_(roman, program),
      colours_(std::make_unique<LibraryWordColours>(input, program)),
      devanagari_(std::make_unique<DevanagariTyping>(roman, input)),
      quoteSpans_(roman, input),
      completion_(roman, input) {
    new LineNumbers(roman);  // the panes own these
    new LineNumbers(program);
    new EmptyHint(roman);
    new RomanColours(roman, program, input);
}

PaneAids::~PaneAids() = default;

}  // namespace tolvan
