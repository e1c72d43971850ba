// A console that writes down what is asked of it, answers input from a list, and can be stopped at will.
#pragma once

#include "runtime/host/ConsoleOperations.h"

#include <deque>
#include <sstream>
#include <string>
#include <vector>

namespace tolvan {

class RecordingConsole : public ConsoleOperations {
  public:
    std::vector<std::string> calls;
    std::deque<std::string> answers;  // when there are none left, input is stopped
    std::deque<std::string> keys;
    int eventChecks = 0;
    bool running = true;
    bool stopWhenFileFails = false;
    bool allowsFiles = false;

    void PrintString(std::string_view text) override { calls.push_back("print " + std::string(text)); }
    std::optional<std::string> InputString() override {
        if (answers.empty()) running = false;
        if (!running) return std::nullopt;
        const std::string answer = answers.front();
        answers.pop_front();
        return answer;
    }
    void ClearScreen() override { calls.push_back("clear"); }
    bool CheckForEvents() override {
        ++eventChecks;
        return running;
    }
    void StopExecution() override { running = false; }
    std::string ReadKey() override {
        if (keys.empty()) return {};
        const std::string key = keys.front();
        keys.pop_front();
        return key;
    }
    void Wait(double seconds) override {
        std::ostringstream line;
        line << "wait " << seconds;
        calls.push_back(line.str());
    }

    void DrawPoint(Point at, std::optional<Colour> colour) override { record("point", {}, at, colour); }
    void DrawLine(std::optional<Point> start, Point end, std::optional<Colour> colour) override {
        record("line", start, end, colour);
    }
    void DrawBox(std::optional<Point> start, Point end, std::optional<Colour> colour, Fill fill) override {
        record(fill == Fill::Solid ? "solid box" : "box", start, end, colour);
    }
    void DrawCircle(Point centre, float radius, std::optional<Colour> colour, Fill fill) override {
        record(fill == Fill::Solid ? "disc" : "circle", Point{radius, 0}, centre, colour);
    }
    float DisplayWidth() const override { return 640; }
    float DisplayHeight() const override { return 480.5F; }

    bool MayReachFile(const std::string& path, bool writing) override {
        calls.push_back((writing ? "may write " : "may read ") + path);
        return allowsFiles;
    }
    void FileOpenFailed(int number) override {
        calls.push_back("file " + std::to_string(number));
        if (stopWhenFileFails) running = false;
    }

  private:
    void record(const char* what, std::optional<Point> start, Point end, std::optional<Colour> colour) {
        std::ostringstream line;
        line << what;
        if (start) line << ' ' << start->x << ',' << start->y << " to";
        line << ' ' << end.x << ',' << end.y;
        if (colour) line << " colour " << *colour;
        calls.push_back(line.str());
    }
};

}  // namespace tolvan
