#include "platform/picturebox/PictureBox.h"
#include "support/Cases.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QScreen>

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <iterator>
#include <limits>
#include <sstream>

namespace tolvan {
namespace {

using Fill = PictureBox::FillStyle;
constexpr QRgb black = 0xFF000000;

// The picture as rows of characters: "." black, "#" white, "r" and "g" red and green, "?" anything else.
std::string pictureOf(PictureBox& box) {
    const QImage image = box.Image();
    std::string text;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            text += pixel == black        ? '.'
                    : pixel == 0xFFFFFFFF ? '#'
                    : pixel == 0xFFFF0000 ? 'r'
                    : pixel == 0xFF00FF00 ? 'g'
                                          : '?';
        }
        text += '\n';
    }
    return text;
}

class TestBox : public PictureBox {
  public:
    TestBox(int width, int height) {
        resize(width, height);
        Cls();
    }
};

// Draws what a line of figures.cases says.
void draw(PictureBox& box, const std::string& line) {
    std::istringstream stream(line);
    const std::vector<std::string> words{std::istream_iterator<std::string>(stream), {}};
    const std::string& figure = words.front();
    const QColor ink(QString::fromStdString(words.back() == "green" ? "lime" : words.back()));  // the pure green
    const auto at = [&](std::size_t index) { return std::stof(words.at(index + 1)); };
    if (figure == "point") return box.PSet(at(0), at(1), ink);
    if (figure == "line") return box.Line(at(0), at(1), at(2), at(3), ink);
    if (figure == "box") return box.Box(at(0), at(1), at(2), at(3), ink, Fill::Transparent);
    if (figure == "solid-box") return box.Box(at(0), at(1), at(2), at(3), ink, Fill::Solid);
    if (figure == "circle") return box.Circle(at(0), at(1), at(2), ink, Fill::Transparent);
    if (figure == "disc") return box.Circle(at(0), at(1), at(2), ink, Fill::Solid);
    FAIL() << "no such figure: " << line;
}

TEST(PictureBox, FiguresHaveTheirPixels) {
    for (const Section& section : sectionsOf("picturebox/figures.cases")) {
        const auto parts = section.parts("\n");
        TestBox box(9, 7);
        std::istringstream lines(parts.at(0));
        for (std::string line; std::getline(lines, line);) draw(box, line);
        EXPECT_EQ(pictureOf(box), parts.at(1) + "\n") << section.title;
    }
}

TEST(PictureBox, EveryOperationMovesThePositionToTheLastPointItWasGiven) {
    TestBox box(20, 20);
    const auto position = [&box] { return std::pair(box.CurrentX, box.CurrentY); };
    box.PSet(3, 4, Qt::white);
    EXPECT_EQ(position(), std::pair(3.F, 4.F));
    box.Line(1, 2, 7.5F, 9, Qt::white);
    EXPECT_EQ(position(), std::pair(7.5F, 9.F));
    box.Box(9, 9, 2, 1, Qt::white, Fill::Solid);
    EXPECT_EQ(position(), std::pair(2.F, 1.F));
    box.Circle(5, 6, 2, Qt::white, Fill::Transparent);
    EXPECT_EQ(position(), std::pair(5.F, 6.F));
    box.Cls();
    EXPECT_EQ(position(), std::pair(0.F, 0.F));
}

// Every figure with every combination of numbers that no screen has.
TEST(PictureBox, NumbersWithoutBoundsNeitherHangNorDrawOutside) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    constexpr std::array numbers = {0.F,    -3.F,  1e9F,     -1e9F,     1e30F,
                                    -1e30F, 3e38F, infinity, -infinity, std::numeric_limits<float>::quiet_NaN()};
    TestBox box(40, 30);
    for (const float a : numbers)
        for (const float b : numbers)
            for (const float c : numbers) {
                box.PSet(a, b, Qt::white);
                box.Circle(a, b, c, Qt::white, Fill::Transparent);
                box.Circle(a, b, c, Qt::white, Fill::Solid);
                box.ScrollUp(c);
                for (const float d : numbers) {
                    box.Line(a, b, c, d, Qt::white);
                    box.Box(a, b, c, d, Qt::white, Fill::Transparent);
                    box.Box(a, b, c, d, Qt::white, Fill::Solid);
                }
            }
    box.Cls();
    box.Circle(-1e6F, 15, 1e6F + 20, Qt::white, Fill::Transparent);  // as good as an upright line
    QImage line(40, 30, QImage::Format_RGB32);
    line.fill(Qt::black);
    for (int y = 0; y < 30; ++y) line.setPixel(20, y, 0xFFFFFFFF);
    EXPECT_EQ(box.Image(), line);
}

TEST(PictureBox, ScrollMovesEverythingUp) {
    TestBox box(3, 6);
    box.PSet(0, 0, Qt::red);
    box.PSet(1, 2, Qt::white);
    box.PSet(2, 5, Qt::green);
    box.ScrollUp(2);
    EXPECT_EQ(pictureOf(box), ".#.\n...\n...\n..g\n...\n...\n");
    // Drawing goes on in the right place, and so does a second scroll over the end of the ring.
    box.Line(0, 4, 2, 5, Qt::red);
    EXPECT_EQ(pictureOf(box), ".#.\n...\n...\n..g\nr..\n.rr\n");
    box.ScrollUp(3);
    EXPECT_EQ(pictureOf(box), "..g\nr..\n.rr\n...\n...\n...\n");
    box.ScrollUp(6);
    EXPECT_EQ(pictureOf(box), "...\n...\n...\n...\n...\n...\n");
}

TEST(PixelSurface, LettersHaveTheirColour) {
    PixelSurface surface(1, 1, black);
    surface.drawText({.left = 0, .top = 0, .width = 1, .height = 1, .values = {255}}, 0, 0, 0xFFFFFFFF);
    EXPECT_EQ(surface.row(0)[0], 0xFFFFFFFF);
}

TEST(PictureBox, KeepsThePictureWhenItIsResized) {
    TestBox box(4, 3);
    box.ScrollUp(1);
    box.PSet(0, 0, Qt::white);
    box.PSet(3, 2, Qt::red);
    box.show();
    box.resize(6, 4);
    EXPECT_EQ(pictureOf(box), "#.....\n......\n...r..\n......\n");
    box.PSet(5, 3, Qt::green);
    box.resize(2, 2);
    EXPECT_EQ(pictureOf(box), "#.\n..\n");
    box.resize(6, 4);
    EXPECT_EQ(pictureOf(box), "#.....\n......\n...r..\n.....g\n");
}

TEST(PictureBox, TextStandsAtThePositionAndMovesIt) {
    PictureFont font(QFont(QStringLiteral("Liberation Serif"), 16));
    TestBox box(300, 60);
    box.CurrentX = 10;
    box.CurrentY = 20;
    box.Print("K", font);
    const float width = box.CurrentX - 10;
    EXPECT_GT(width, 8);
    EXPECT_EQ(box.CurrentY, 20);
    const QImage once = box.Image();

    // Printing again right behind it draws the same letter, moved.
    box.Print("K", font);
    const QImage twice = box.Image();
    const int moved = static_cast<int>(std::lround(10 + width)) - 10;
    EXPECT_EQ(twice.copy(10 + moved, 0, 12, 60), once.copy(10, 0, 12, 60));
    // A blank counts at the end of a text as well.
    const float before = box.CurrentX;
    box.Print("K ", font);
    EXPECT_GT(box.CurrentX, before + width + 2);

    const float line = box.TextHeight(font);
    EXPECT_GT(line, 16);
    EXPECT_EQ(line, std::floor(line));
    box.NewLine(font);
    EXPECT_EQ(box.CurrentX, 0);
    EXPECT_EQ(box.CurrentY, 20 + line);
    // The letter lies within its line.
    for (int x = 0; x < 300; ++x) {
        EXPECT_EQ(once.pixel(x, 19), black);
        EXPECT_EQ(once.pixel(x, 20 + static_cast<int>(line)), black);
    }
}

TEST(PictureBox, TextMayBeAnyBytes) {
    PictureFont font(QFont(QStringLiteral("Liberation Serif"), 16));
    TestBox box(300, 60);
    std::string bytes;
    for (int code = 0; code < 256; ++code) bytes += static_cast<char>(code);
    box.Print(bytes, font);
    box.Print("", font);
    box.Print(std::string(3'000'000, 'm'), font);
    EXPECT_GT(box.CurrentX, 300);
    box.CurrentX = std::numeric_limits<float>::quiet_NaN();
    box.Print("m", font);
}

// What reaches the screen: paints once in a while however often it is drawn on, and at last everything.
TEST(PictureBox, IsPaintedAtFrameRate) {
    class CountingBox : public TestBox {
      public:
        using TestBox::TestBox;
        int paints = 0;

      protected:
        void paintEvent(QPaintEvent* event) override {
            ++paints;
            TestBox::paintEvent(event);
        }
    };
    CountingBox box(200, 200);
    box.show();
    QCoreApplication::processEvents();
    box.paints = 0;
    constexpr int operations = 20'000;
    for (int i = 0; i < operations; ++i) {
        box.PSet(static_cast<float>(i % 200), static_cast<float>(i / 200), Qt::green);
        if (i % 100 == 0) QCoreApplication::processEvents();
    }
    const int before = box.paints;
    EXPECT_LT(before, operations / 100);
    QElapsedTimer waited;
    waited.start();
    while (box.paints == before && waited.elapsed() < 10'000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    EXPECT_GT(box.paints, before);
    EXPECT_EQ(box.grab().toImage().convertToFormat(QImage::Format_RGB32), box.Image());
}

// A widget on the screen of tests/screen.json that shows each logical pixel as two by two.
class LargePixels : public TestBox {
  public:
    LargePixels(int width, int height) : TestBox(width, height) {
        moveToScreen(2);
        Cls();
    }

    void moveToScreen(qreal pixelRatio) {
        for (QScreen* const screen : QGuiApplication::screens())
            if (screen->devicePixelRatio() == pixelRatio) move(screen->geometry().topLeft());
        show();
        ASSERT_EQ(devicePixelRatioF(), pixelRatio);
    }
};

// The picture at half the size, where every pixel has to be two by two of one colour; "!" where it is not.
std::string halfOf(const std::string& picture) {
    const std::size_t row = picture.find('\n') + 1;
    std::string half;
    for (std::size_t top = 0; top + row < picture.size(); top += 2 * row) {
        for (std::size_t x = top; x + 2 < top + row; x += 2) {
            const std::string block = {picture[x], picture[x + 1], picture[x + row], picture[x + row + 1]};
            half += block == std::string(4, block[0]) ? block[0] : '!';
        }
        half += '\n';
    }
    return half;
}

TEST(PictureBox, AtScaleTwoUprightFiguresAreTheSameWithLargerPixels) {
    LargePixels large(9, 7);
    TestBox small(9, 7);
    for (PictureBox* const box : {static_cast<PictureBox*>(&large), static_cast<PictureBox*>(&small)}) {
        box->PSet(0, 0, Qt::red);
        box->PSet(8, 6, Qt::green);
        box->Line(0, 5, 8, 5, Qt::white);
        box->Line(8, 0, 8, 3, Qt::red);
        box->Box(2, 1, 6, 4, Qt::white, Fill::Transparent);
        box->Box(3, 2, 4, 3, Qt::green, Fill::Solid);
        EXPECT_EQ(std::pair(box->CurrentX, box->CurrentY), std::pair(4.F, 3.F));
    }
    EXPECT_EQ(large.Image().size(), QSize(18, 14));
    EXPECT_EQ(halfOf(pictureOf(large)), pictureOf(small));
    large.ScrollUp(1);
    small.ScrollUp(1);
    EXPECT_EQ(halfOf(pictureOf(large)), pictureOf(small));
}

TEST(PictureBox, AtScaleTwoRoundFiguresAreFinerAndAsLarge) {
    LargePixels box(20, 20);
    box.Circle(10, 10, 8, Qt::white, Fill::Transparent);
    const std::string outline = pictureOf(box);
    // A pen of two device pixels from (10 - 8) * 2 on, at the height of the centre.
    const std::string row = outline.substr(20 * 41, 40);
    EXPECT_EQ(row, "....##" + std::string(30, '.') + "##..");
    box.Circle(10, 10, 8, Qt::white, Fill::Solid);
    EXPECT_EQ(pictureOf(box).substr(20 * 41, 40), "...." + std::string(34, '#') + "..");
}

TEST(PictureBox, GoesFromScreenToScreenWithItsPicture) {
    LargePixels box(9, 7);
    box.moveToScreen(1);
    box.Cls();
    box.PSet(3, 2, Qt::red);
    const std::string small = pictureOf(box);
    box.moveToScreen(2);
    EXPECT_EQ(halfOf(pictureOf(box)), small);
}

}  // namespace
}  // namespace tolvan
