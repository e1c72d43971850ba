#include "editor/panes/CaretLine.h"

#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"

namespace tolvan {

CaretLine::CaretLine(RomanBox& roman, ProgramBox& program) {
    const auto mark = [&roman, &program] {
        roman.setMarkedLine(roman.currentLine());
        program.setMarkedLine(roman.currentLine());
    };
    connect(&roman, &RomanBox::caretMoved, this, mark);
    mark();
}

}  // namespace tolvan
