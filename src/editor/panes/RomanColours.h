// Colours the words of the Roman pane as those of the Devanagari one that they stand for.
#pragma once

#include "editor/panes/ColourRun.h"
#include "editor/panes/ProgramLines.h"

#include <QObject>

#include <string_view>
#include <vector>

class QTextBlock;

namespace tolvan {

class ProgramBox;
class RomanBox;
class RomanInput;

// The colours of a Roman line whose program line has these. A "#" has the colour of what it opens or closes.
std::vector<ColourRun> romanColours(std::string_view roman, bool startsInSpan, const ProgramLine& program,
                                    const std::vector<ColourRun>& colours);

class RomanColours : public QObject {
    Q_OBJECT
  public:
    // All must outlive it. Lines are coloured when the Devanagari pane colours its own.
    RomanColours(RomanBox& roman, const ProgramBox& program, const RomanInput& input);

  private:
    void colour(const QTextBlock& block);

    RomanBox& roman_;
    const ProgramBox& program_;
    const RomanInput& input_;
};

}  // namespace tolvan
