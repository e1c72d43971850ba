// Colours the words of the library in the Devanagari pane; one to which the program gives a meaning of its own, in
// whichever line, looks like any other name.
#pragma once

#include "library/LibraryWords.h"

#include <QObject>

#include <cstddef>
#include <map>
#include <vector>

namespace tolvan {

class ProgramBox;
class RomanInput;

class LibraryWordColours : public QObject {
    Q_OBJECT
  public:
    // Both must outlive it. It sets the colouring of the pane.
    LibraryWordColours(RomanInput& input, ProgramBox& program);

  private:
    void linesReplaced(std::size_t first, std::size_t removed, std::size_t added);

    const RomanInput& input_;
    ProgramBox& program_;
    std::vector<std::vector<const LibraryWord*>> ownOfLine_;
    std::map<const LibraryWord*, std::size_t> linesOfOwn_;  // how many lines make a word the program's own
};

}  // namespace tolvan
