// What a running program can do to its console, whoever shows it: the window, or the text console of the command line.
// Lengths are in the display's units (pixels at 100 % scaling), origin at the top left, y growing downwards.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tolvan {

// Red in the low byte, then green, then blue.
using Colour = std::uint32_t;

class ConsoleOperations {
  public:
    ConsoleOperations() = default;
    ConsoleOperations(const ConsoleOperations&) = delete;
    ConsoleOperations& operator=(const ConsoleOperations&) = delete;
    virtual ~ConsoleOperations() = default;

    // Text is in internal text form: Latin runs in braces.
    virtual void PrintString(std::string_view text) = 0;
    // The typed line in internal text form, or nothing when the program was stopped while it waited.
    virtual std::optional<std::string> InputString() = 0;
    virtual void ClearScreen() = 0;
    // Lets waiting window events run; false when the program is to stop.
    virtual bool CheckForEvents() = 0;
    virtual void StopExecution() = 0;
    // The program stands still before a line (see StepControl): lets the user do something and returns after that, at
    // the latest after so many seconds, which may be infinitely many. False when the program is to stop. A console that
    // nobody sees only looks whether it is.
    virtual bool StandStill(double mostSeconds) {
        static_cast<void>(mostSeconds);
        return CheckForEvents();
    }

    // The oldest key that was pressed and not read yet, in internal text form, or "" if there is none. A key that types
    // a character is that character ("5", "{a}"); the others that a program can read have names in Marathi.
    virtual std::string ReadKey() = 0;
    // Returns after this time, or at once when the program is to stop. Waiting events are handled meanwhile; a time
    // that is not above 0 is none.
    virtual void Wait(double seconds) = 0;

    struct Point {
        float x = 0;
        float y = 0;
    };
    // Without a colour: the display's foreground colour. Without a start: from the current drawing position to `end`.
    virtual void DrawPoint(Point at, std::optional<Colour> colour) = 0;
    virtual void DrawLine(std::optional<Point> start, Point end, std::optional<Colour> colour) = 0;
    enum class Fill : bool { Outline, Solid };
    virtual void DrawBox(std::optional<Point> start, Point end, std::optional<Colour> colour, Fill fill) = 0;
    virtual void DrawCircle(Point centre, float radius, std::optional<Colour> colour, Fill fill) = 0;
    virtual float DisplayWidth() const = 0;
    virtual float DisplayHeight() const = 0;

    // The program wants to read or write a file that it does not reach without consent (see ReachableFiles): whether it
    // may.
    virtual bool MayReachFile(const std::string& path, bool writing) = 0;
    // A data file could not be opened, for the reason with this error number. Returns when the program is to go on.
    virtual void FileOpenFailed(int number) = 0;
};

}  // namespace tolvan
