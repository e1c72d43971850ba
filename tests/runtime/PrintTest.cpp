// What is printed and drawn, and what reaches the screen of a program that wipes its picture and draws the next one.
#include "ConsoleFixture.h"

#include <QScreen>

namespace tolvan {
namespace {

using Fill = ConsoleOperations::Fill;
using Point = ConsoleOperations::Point;

class PrintTest : public ConsoleTest {
  protected:
    float lineHeight() { return ConsoleText(display()).LineHeight(); }
    int line() { return static_cast<int>(lineHeight()); }

    QImage band(int from, int rows) { return picture().copy(0, from, display().width(), rows); }
    static bool isBlack(const QImage& image) {
        QImage black(image.size(), QImage::Format_RGB32);
        black.fill(Qt::black);
        return image == black;
    }
    // The first and last row that is not black.
    std::pair<int, int> inkRows() {
        const QImage image = picture();
        std::pair<int, int> rows(-1, -1);
        for (int y = 0; y < image.height(); ++y) {
            if (isBlack(image.copy(0, y, image.width(), 1))) continue;
            if (rows.first < 0) rows.first = y;
            rows.second = y;
        }
        return rows;
    }
};

TEST_F(PrintTest, LinesFollowEachOtherFromTheTop) {
    console->ClearScreen();
    console->PrintString("kml");
    const QImage first = band(0, line());
    EXPECT_FALSE(isBlack(first));
    console->PrintString("   ");
    console->PrintString("   kml  ");
    EXPECT_EQ(band(0, line()), first);
    EXPECT_TRUE(isBlack(band(line(), line())));
    EXPECT_EQ(band(2 * line(), line()), first);
    EXPECT_EQ(display().CurrentY, 3 * lineHeight());
}

TEST_F(PrintTest, ScrollsByOneLineWhenTheLastIsFull) {
    console->ClearScreen();
    const int visible = static_cast<int>(std::ceil(display().ScaleHeight() / lineHeight())) - 1;
    for (int i = 0; i < visible; ++i) console->PrintString(std::to_string(i));
    console->DrawLine(Point{100, 200}, {300, 250}, 0x0000FF);
    display().CurrentY = display().ScaleHeight() - lineHeight();  // where printing stood, or nearly
    const QImage before = picture();

    console->PrintString("kml");
    const int bottom = display().height() - line();
    EXPECT_EQ(band(0, bottom), before.copy(0, line(), display().width(), bottom));
    const QImage last = band(bottom, line());
    EXPECT_FALSE(isBlack(last));

    console->PrintString("kml");
    EXPECT_EQ(band(bottom - line(), line()), last);
    EXPECT_EQ(band(bottom, line()), last);
    EXPECT_EQ(display().CurrentY, display().ScaleHeight());
}

TEST_F(PrintTest, LatinRunsStandLowerOnlyWhenTheyAreClosed) {
    const auto rowsOf = [this](const std::string& text) {
        console->ClearScreen();
        console->PrintString("");
        console->PrintString(text);
        return inkRows();
    };
    const auto closed = rowsOf("{HHH}");
    const auto unclosed = rowsOf("{HHH");
    const int drop = static_cast<int>(std::lround(lineHeight() / 4));
    EXPECT_NEAR(closed.first - unclosed.first, drop, 1);
    EXPECT_EQ(closed.second - closed.first, unclosed.second - unclosed.first);
    EXPECT_EQ(rowsOf("}{HHH}"), closed) << "a stray brace is nothing";
    EXPECT_NE(rowsOf("HHH"), closed);
}

TEST_F(PrintTest, OfALongLineTheWindowShowsItsPart) {
    const std::string megabytes(5'000'000, 'k');
    const std::string start(1000, 'k');
    struct {
        std::string line;
        std::string like;
    } const cases[] = {{megabytes, start},
                       {std::string(5'000'000, ' ') + megabytes, start},
                       {"{" + std::string(20'000, 'H') + "}", "{" + std::string(1000, 'H') + "}"},
                       {"{" + std::string(20'000, 'H'), "{" + std::string(1000, 'H')}};
    for (const auto& [line, like] : cases) {
        console->ClearScreen();
        console->PrintString(line);
        EXPECT_EQ(picture(), printed({like})) << like.substr(0, 5);
    }
}

TEST_F(PrintTest, PrintingErasesWhatStandsInItsLine) {
    console->ClearScreen();
    console->DrawBox(Point{0, 0}, {700, 500}, 0xFFFFFF, Fill::Solid);
    display().CurrentY = 100;
    console->PrintString("");
    EXPECT_TRUE(isBlack(picture().copy(3, 100, display().width() - 3, line())));
    EXPECT_EQ(picture().pixel(2, 110), 0xFFFFFFFF);
    EXPECT_EQ(picture().pixel(50, 99), 0xFFFFFFFF);
    EXPECT_EQ(picture().pixel(50, 100 + line() + 1), 0xFFFFFFFF);
    console->ClearScreen();
    EXPECT_TRUE(isBlack(picture()));
    EXPECT_EQ(display().CurrentY, 0);
}

// In the order in which a sentence's points are emitted: the end first, which is where the next one goes on.
TEST_F(PrintTest, SentencesWithoutAStartGoOnFromThePointNamedLast) {
    run({"DrawLine 50,10,10,10", "DrawLine 50,50", "DrawLine 10,50", "DrawLine 10,10"});
    const QImage square = picture();
    run({"DrawBox 50,50,10,10"});
    EXPECT_EQ(square, picture());
    run({"DrawBox 50,50,10,10", "DrawBox 70,80"});
    EXPECT_EQ(picture().pixel(70, 60), 0xFFFFFFFF);
    EXPECT_EQ(picture().pixel(30, 80), 0xFF000000);
}

TEST_F(PrintTest, DrawsInTheForegroundColourUnlessOneIsGiven) {
    console->ClearScreen();
    console->DrawPoint({5, 6}, std::nullopt);
    console->DrawLine(std::nullopt, {5, 20}, 0x0000FF);  // red is the low byte
    console->DrawBox(Point{30, 30}, {40, 40}, 0x00FF00, Fill::Outline);
    console->DrawBox(std::nullopt, {50, 50}, 0xFF0000, Fill::Solid);
    console->DrawCircle({100, 100}, 10, std::nullopt, Fill::Solid);
    console->DrawCircle({200, 100}, 10, 0x0000FF, Fill::Outline);
    const QImage image = picture();
    EXPECT_EQ(image.pixel(5, 5), 0xFF000000);
    EXPECT_EQ(image.pixel(5, 7), 0xFFFF0000);
    EXPECT_EQ(image.pixel(5, 20), 0xFFFF0000);
    EXPECT_EQ(image.pixel(30, 35), 0xFF00FF00);
    EXPECT_EQ(image.pixel(35, 35), 0xFF000000);
    EXPECT_EQ(image.pixel(45, 45), 0xFF0000FF);
    EXPECT_EQ(image.pixel(100, 100), 0xFFFFFFFF);
    EXPECT_EQ(image.pixel(200, 100), 0xFF000000);
    EXPECT_EQ(image.pixel(210, 100), 0xFFFF0000);
    // A drawing is where the next text goes on from.
    console->DrawPoint({400, 300}, 0xFFFFFF);
    console->PrintString("kml");
    EXPECT_EQ(display().CurrentY, 300 + lineHeight());
}

class AnimationTest : public ConsoleTest {
  protected:
    ~AnimationTest() override { display().removeEventFilter(&paints_); }

    // Looks at the screen at the first call of the program after each time that the display was painted.
    void expectBallIn60Pictures(const std::vector<std::string>& statements) {
        int pictures = 0;
        int withoutBall = 0;
        display().installEventFilter(&paints_);
        console->setTrace([&](std::string_view call) {
            if (!isInLoop_ && call == "ClearScreen") isInLoop_ = true;
            if (!isInLoop_ || std::exchange(paints_.count, 0) == 0) return;
            if (!showsBall()) ++withoutBall;
            if (++pictures >= 60) state.stop();
        });
        std::vector<std::string> program = {"DrawCircle 400,300,50,255,TRUE", "Wait 0.02", "Do"};
        program.insert(program.end(), statements.begin(), statements.end());
        program.emplace_back("Loop");
        run(program);
        EXPECT_EQ(pictures, 60);
        EXPECT_EQ(withoutBall, 0);
    }
    bool showsBall() {
        const QImage screen = console->screen()->grabWindow(console->winId()).toImage();
        return screen.pixel(display().mapTo(console.get(), QPoint(400, 300))) == 0xFFFF0000;
    }

  private:
    struct Paints : QObject {
        int count = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Paint) ++count;
            return false;
        }
    };
    Paints paints_;
    bool isInLoop_ = false;
};

const std::vector<std::string> nothing = {"For i = 1 To 20000", "x = i * i", "Next"};

TEST_F(AnimationTest, DrawnAsFastAsItCan) {
    expectBallIn60Pictures({"ClearScreen", "DrawCircle 400,300,50,255,TRUE"});
}

TEST_F(AnimationTest, ThinkingAfterTheWipeAndAfterTheBall) {
    std::vector<std::string> program = nothing;
    program.insert(program.begin(), "ClearScreen");
    program.emplace_back("DrawCircle 400,300,50,255,TRUE");
    program.insert(program.end(), nothing.begin(), nothing.end());
    expectBallIn60Pictures(program);
}

TEST_F(AnimationTest, APictureThatStaysUnfinishedIsShownAtLast) {
    run({"DrawCircle 400,300,50,255,TRUE", "Wait 0.02", "ClearScreen"});
    EXPECT_TRUE(QTest::qWaitFor([this] { return !showsBall(); }));
}

}  // namespace
}  // namespace tolvan
