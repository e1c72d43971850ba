// The example programs do in the window what they do on the text console.
#include "ConsoleFixture.h"
#include "library/AddLibrary.h"
#include "support/Examples.h"
#include "support/Folders.h"
#include "translator/ProgramFile.h"
#include "translator/ProgramText.h"
#include "tvp/TvpProcess.h"

#include <QDir>
#include <QTemporaryDir>

#include <cstdlib>
#include <utility>

namespace tolvan {
namespace {

class ExamplesTest : public ConsoleTest, public testing::WithParamInterface<std::string> {
  protected:
    ExamplesTest() { QDir::setCurrent(folder_.path()); }  // some of them write files
    ~ExamplesTest() override { QDir::setCurrent(QDir::rootPath()); }

    static std::string answers() { return contentOf(expectedOfExample(GetParam(), ".in")); }

    void answer(const QByteArrayList& lines) {
        if (lines.isEmpty()) return;
        onceInputIsWanted([this, lines] {
            QTest::keyClicks(&inputBox(), QLatin1String(lines.front()));
            QTest::keyClick(&inputBox(), Qt::Key_Enter);
            answer(lines.mid(1));
        });
    }

    // Runs the example as tvp does for the same arguments, with no keys pressed.
    std::string traceOfWindow() {
        std::string calls;
        bool hasDrawn = false;
        console->setTrace([&](std::string_view call) {
            calls.append(call).append("\n");
            if (call == "ClearScreen" && std::exchange(hasDrawn, false)) lastDrawing_ = picture();
            hasDrawn = hasDrawn || call.starts_with("Draw");
        });
        console->scriptLibrary().setSeed(1);
        console->scriptLibrary().simulateTime(simulatedStart());
        const ProgramFile file = readProgramFile(contentOf(exampleProgram(GetParam())));
        const QByteArray lines = QByteArray::fromStdString(answers());
        if (!lines.isEmpty()) answer(lines.trimmed().split('\n'));
        console->execute(runnableModule(ProgramText(file.roman)), {});
        if (hasDrawn || lastDrawing_.isNull()) lastDrawing_ = picture();
        return calls;
    }

    // What the program drew last, or the text that it printed.
    QImage lastDrawing_;

  private:
    QTemporaryDir folder_;
};

class DrawingTest : public ExamplesTest {};

TEST_P(ExamplesTest, MakesTheSameCalls) {
    const std::string expected = TvpProcess().run(runWithoutKeys(GetParam()), answers()).errors;
    EXPECT_FALSE(expected.empty());
    EXPECT_EQ(traceOfWindow(), expected);
    EXPECT_TRUE(console->isVisible()) << "it came to its end";
}

// The share of the pixels of two pictures of one size that differ visibly, in per mille.
int difference(const QImage& left, const QImage& right) {
    int count = 0;
    for (int y = 0; y < left.height(); ++y)
        for (int x = 0; x < left.width(); ++x) {
            const QRgb a = left.pixel(x, y);
            const QRgb b = right.pixel(x, y);
            const int distance =
                std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
            if (distance > 96) ++count;
        }
    return 1000 * count / (left.width() * left.height());
}

// Figures are drawn point for point; only the letters may differ a little from one version of the font renderer to
// the next. A figure at another place differs in far more than 2 per mille of the pixels.
#ifdef _WIN32  // where letters are not fitted to whole pixels
constexpr int mostDifference = 40;
#else
constexpr int mostDifference = 2;
#endif
TEST_P(DrawingTest, LooksAsKept) {
    traceOfWindow();
    const std::string file = pictureOfExample(GetParam()).string();
    const QImage kept(QString::fromStdString(file));
    if (lastDrawing_.size() != kept.size() || difference(lastDrawing_, kept) > mostDifference) {
        const std::string seen = programFolder() + "/" + GetParam() + "-seen.png";
        lastDrawing_.save(QString::fromStdString(seen));
        FAIL() << file << " shows another picture than " << seen;
    }
}
INSTANTIATE_TEST_SUITE_P(, DrawingTest, testing::ValuesIn(exampleNames()), [](const auto& test) { return test.param; });

INSTANTIATE_TEST_SUITE_P(, ExamplesTest, testing::ValuesIn(exampleNames()),
                         [](const auto& test) { return test.param; });

}  // namespace
}  // namespace tolvan
