// A console that tells what a program does to it, line by line, in packed form.
#pragma once

#include "classroom/Pack.h"
#include "classroom/RunCase.h"
#include "runtime/host/ConsoleOperations.h"

#include <deque>
#include <set>
#include <string>

namespace tolvan::classroom {

// What stands before each piece of a result.
enum class Told : std::uint8_t {
    Line,   // printed, in Unicode
    Asked,  // the line before it asks
    AlwaysAsked,
    Cleared,  // the display
    End,      // how the run ended, and the picture
};

class CaseConsole : public ConsoleOperations {
  public:
    // `questions` are the texts that always ask.
    CaseConsole(const CaseInput& input, std::uint64_t outputBytes, std::set<std::string> questions,
                const Descriptor& result);

    bool hasPrintedTooMuch() const { return printedTooMuch_; }
    bool isLate() const;
    bool isStopped() const { return stopped_; }
    const Picture& picture() const { return picture_; }
    void tell(Told what, std::string_view text = {});
    void flush();

    void PrintString(std::string_view text) override;
    std::optional<std::string> InputString() override;
    void ClearScreen() override;
    bool CheckForEvents() override;
    void StopExecution() override { stopped_ = true; }
    std::string ReadKey() override;
    void Wait(double) override {}
    void DrawPoint(Point at, std::optional<Colour> colour) override;
    void DrawLine(std::optional<Point> start, Point end, std::optional<Colour> colour) override;
    void DrawBox(std::optional<Point> start, Point end, std::optional<Colour> colour, Fill fill) override;
    void DrawCircle(Point centre, float radius, std::optional<Colour> colour, Fill fill) override;
    float DisplayWidth() const override { return displayWidth; }
    float DisplayHeight() const override { return displayHeight; }
    bool MayReachFile(const std::string&, bool) override { return false; }
    void FileOpenFailed(int number) override;

  private:
    void draw(Figure figure, Point position);

    std::deque<std::string> typed_;
    std::deque<std::string> keys_;
    std::uint64_t space_;
    std::set<std::string> questions_;
    const Descriptor& result_;
    std::string waiting_;
    std::string lastPrinted_;
    bool justPrinted_ = false;
    Point position_;
    Picture picture_;
    bool printedTooMuch_ = false;
    bool stopped_ = false;
};

}  // namespace tolvan::classroom
