// A console without a window: prints lines to standard output and reads the program's input from standard input, so
// that programs can be checked by other programs. Drawing does nothing.
#pragma once

#include "runtime/host/ConsoleOperations.h"
#include "tvp/Input.h"
#include "tvp/Output.h"

#include <cstdint>
#include <deque>
#include <limits>
#include <string>
#include <utility>

namespace tolvan {

class TextConsole : public ConsoleOperations {
  public:
    // How lines are printed and typed.
    enum class Lines : std::uint8_t {
        FontCodes,  // in internal text form; typed in Roman letters
        Unicode,    // UTF-8; what is typed in Devanagari is spelled in Roman letters first
    };
    // `messages` is only kept up to date with what is printed.
    TextConsole(Lines lines, Output& output, Output& messages) : lines_(lines), output_(output), messages_(messages) {}

    // How many bytes the program may print; it is stopped at the line that is too much.
    void setMostOutput(std::uint64_t bytes) { space_ = bytes; }
    bool hasPrintedTooMuch() const { return printedTooMuch_; }

    // The program stopped itself, or nobody reads what it prints any more, or it printed too much.
    bool isStopped() const { return stopped_; }

    // What is typed, instead of standard input.
    void setInput(LineReader input) { input_ = std::move(input); }

    // What ReadKey gives, key by key, in the form of ConsoleOperations::ReadKey. None before.
    void setKeys(std::deque<std::string> keys) { keys_ = std::move(keys); }

    void PrintString(std::string_view text) override;
    // Throws ScriptError 62 at the end of standard input: a program that asks for more answers than there are would
    // wait or ask for ever.
    std::optional<std::string> InputString() override;
    void ClearScreen() override {}
    bool CheckForEvents() override;
    void StopExecution() override { stopped_ = true; }
    // The next of the given keys; "" after the last.
    std::string ReadKey() override;
    void Wait(double seconds) override;

    void DrawPoint(Point, std::optional<Colour>) override {}
    void DrawLine(std::optional<Point>, Point, std::optional<Colour>) override {}
    void DrawBox(std::optional<Point>, Point, std::optional<Colour>, Fill) override {}
    void DrawCircle(Point, float, std::optional<Colour>, Fill) override {}
    // The size at which the console window opens.
    float DisplayWidth() const override { return 800; }
    float DisplayHeight() const override { return 600; }

    bool MayReachFile(const std::string&, bool) override { return false; }
    // Throws ScriptError with this number: nobody is there to be asked whether to go on.
    void FileOpenFailed(int number) override;

  private:
    void flush();

    Lines lines_;
    Output& output_;
    Output& messages_;
    LineReader input_;
    std::deque<std::string> keys_;
    std::uint64_t space_ = std::numeric_limits<std::uint64_t>::max();
    bool printedTooMuch_ = false;
    bool stopped_ = false;
};

}  // namespace tolvan
