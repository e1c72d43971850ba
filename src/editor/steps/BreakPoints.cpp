#include "editor/steps/BreakPoints.h"

#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"

#include <QTextBlock>

#include <utility>

namespace tolvan {

BreakPoints::BreakPoints(RomanBox& roman, ProgramBox& program)
    : roman_(roman), program_(program), lineCount_(roman.lineCount()) {
    for (TextPane* pane : {static_cast<TextPane*>(&roman), static_cast<TextPane*>(&program)})
        connect(pane, &TextPane::marginClicked, this, [this](int line, Qt::KeyboardModifiers modifiers) {
            if (modifiers.testFlag(Qt::ShiftModifier))
                emit passWanted(line);
            else
                toggle(line);
        });
    connect(roman.document(), &QTextDocument::contentsChange, this, &BreakPoints::follow);
}

bool BreakPoints::toggle(int line) {
    std::map<int, int> lines = lines_;
    const bool isNew = lines.erase(line) == 0;
    if (isNew) lines[line] = 0;
    setLines(std::move(lines));
    return isNew;
}

void BreakPoints::set(int line, int pass) {
    std::map<int, int> lines = lines_;
    lines[line] = pass;
    setLines(std::move(lines));
}

void BreakPoints::setLines(std::map<int, int> lines) {
    if (lines == lines_) return;
    lines_ = std::move(lines);
    roman_.setBreakPoints(lines_);
    program_.setBreakPoints(lines_);
    emit changed();
}

// Lines that came or went did so after the line of the place, or before it if the place is its start.
void BreakPoints::follow(int position, int, int) {
    const int more = roman_.lineCount() - std::exchange(lineCount_, roman_.lineCount());
    if (more == 0 || lines_.empty()) return;
    const QTextBlock block = roman_.document()->findBlock(position);
    const int last = block.blockNumber() + (block.position() == position && more > 0 ? 0 : 1);  // that stays
    std::map<int, int> moved;
    for (const auto& [line, pass] : lines_) {
        if (line <= last)
            moved.emplace(line, pass);
        else if (line + more > last)
            moved.emplace(line + more, pass);
    }
    setLines(std::move(moved));
}

}  // namespace tolvan
