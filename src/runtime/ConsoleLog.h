// What a program has done to its console, kept so that each earlier moment of it can be shown again without running
// anything twice. Calls are numbered as ConsoleObject::callCount counts them.
//
// The log is divided into chapters, each of which begins with an empty display or with a copy of its picture, so that a
// moment takes little drawing. It is bounded in bytes: the oldest chapters are given up.
#pragma once

#include "runtime/ConsoleText.h"

#include <QColor>
#include <QImage>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan {

class ConsoleLog {
  public:
    static constexpr std::size_t mostBytes = std::size_t{48} << 20;

    // Forgets everything and keeps what is done from now on.
    void begin(PictureBox& display, const ConsoleText& text, std::uint64_t calls);
    // Forgets everything and keeps nothing.
    void stop() { chapters_.clear(); }
    bool isKept() const { return !chapters_.empty(); }

    enum class Kind : std::uint8_t { Print, Input, Room, Point, Line, Box, Circle };
    // Lengths in display units; what a kind has no use for is left out.
    struct Call {
        Kind kind = Kind::Print;
        std::uint64_t number = 0;
        float x1 = 0;  // Room: the height
        float y1 = 0;
        float x2 = 0;  // Circle: the radius
        float y2 = 0;
        QRgb colour = 0;
        bool isSolid = false;
        std::string text = {};  // in internal text form
    };
    // A call that is about to be made.
    void add(PictureBox& display, const ConsoleText& text, Call call);
    // The display is wiped.
    void clear(std::uint64_t number);

    // Draws into `picture`, with `text` printing there, what the console showed after the call of this number. False if
    // that is forgotten.
    bool draw(std::uint64_t number, PictureBox& picture, ConsoleText& text) const;
    // Goes on from there with what came later, as long as what is there stays in its place: it is not wiped, and
    // nothing moves up.
    void drawRest(std::uint64_t number, PictureBox& picture, ConsoleText& text) const;

  private:
    struct Chapter {
        std::uint64_t from = 0;  // the number of the last call before it
        QImage picture;          // null: empty
        float x = 0;
        float y = 0;
        std::vector<ConsoleText::SeenLine> lines = {};  // of the picture
        std::vector<Call> calls = {};
        double work = 0;  // about the pixels that are drawn
        std::size_t bytes = 0;
    };
    void beginChapter(Chapter chapter);
    // The chapter with the moment after this call, or the end.
    std::deque<Chapter>::const_iterator chapterOf(std::uint64_t number) const;

    std::deque<Chapter> chapters_;
    std::size_t bytes_ = 0;
};

}  // namespace tolvan
