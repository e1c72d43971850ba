// What reaches the screen of a program that wipes its picture and draws the next one.
#include "ConsoleFixture.h"

#include <QScreen>

namespace tolvan {
namespace {

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

TEST_F(AnimationTest, WithPauses) {
    expectBallIn60Pictures({"ClearScreen", "DrawCircle 400,300,50,255,TRUE", "Wait 0.02"});
}

TEST_F(AnimationTest, APictureThatStaysUnfinishedIsShownAtLast) {
    run({"DrawCircle 400,300,50,255,TRUE", "Wait 0.02", "ClearScreen"});
    EXPECT_TRUE(QTest::qWaitFor([this] { return !showsBall(); }));
}

}  // namespace
}  // namespace tolvan
