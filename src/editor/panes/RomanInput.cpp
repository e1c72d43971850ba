#include "editor/panes/RomanInput.h"

#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"
#include "translator/ProgramText.h"

namespace tolvan {

RomanInput::RomanInput(RomanBox& roman, ProgramBox& program) : roman_(roman), program_(program) {
    connect(&roman, &RomanBox::textChanged, this, &RomanInput::update);
    update();
}

void RomanInput::update() {
    program_.setText(ProgramText(roman_.text()));
    emit programChanged();
}

}  // namespace tolvan
