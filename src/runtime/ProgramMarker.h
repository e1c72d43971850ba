// The editor, as the console sees it: what it needs to mark the line at which a program ended, and to give the screen
// and the keyboard back to the window in which the program was written.
#pragma once

#include <cstddef>
#include <string>

class QKeyEvent;

namespace tolvan::script {
struct ErrorReport;
}

namespace tolvan {

class ProgramMarker {
  public:
    ProgramMarker() = default;
    ProgramMarker(const ProgramMarker&) = delete;
    ProgramMarker& operator=(const ProgramMarker&) = delete;
    virtual ~ProgramMarker() = default;

    // The program as Devanagari and as Roman text, lines separated by CR LF.
    virtual std::string programText() const = 0;
    virtual std::string romanText() const = 0;
    // Selects characters of one of these texts, from a 0-based position; CR and LF count as one each, and a selection
    // may end between them. A length that reaches beyond the text selects up to its end. What is typed does not replace
    // the selection.
    virtual void selectProgram(std::size_t start, std::size_t length) = 0;
    virtual void selectRoman(std::size_t start, std::size_t length) = 0;
    // The run failed at this line, from 1; the user has been told.
    virtual void runFailed(int line, const script::ErrorReport& error) = 0;
    // Visible, in front, with the keyboard.
    virtual void bringBack() = 0;
    // A key was pressed on the console while the program runs. True if it is that of a command of the editor for
    // running programs, which has been done.
    virtual bool takesRunKey(const QKeyEvent& key) = 0;
};

}  // namespace tolvan
