// The example programs do in the window what they do on the text console.
#include "ConsoleFixture.h"
#include "translator/ProgramFile.h"
#include "translator/ProgramText.h"
#include "translator/Translator.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdlib>

namespace tolvan {
namespace {

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class ExamplesTest : public ConsoleTest, public testing::WithParamInterface<std::string> {
  protected:
    ExamplesTest() { QDir::setCurrent(folder_.path()); }  // some of them write files
    ~ExamplesTest() override { QDir::setCurrent(QDir::rootPath()); }

    static QString examples() { return QStringLiteral(TOLVAN_SOURCE_DIR "/examples/"); }
    static QString name() { return QString::fromStdString(GetParam()); }
    static QByteArray answers() {
        return contentOf(examples() + QStringLiteral("expected/") + name() + QStringLiteral(".in"));
    }

    void answer(const QByteArrayList& lines) {
        if (lines.isEmpty()) return;
        onceInputIsWanted([this, lines] {
            QTest::keyClicks(&inputBox(), QLatin1String(lines.front()));
            QTest::keyClick(&inputBox(), Qt::Key_Enter);
            answer(lines.mid(1));
        });
    }

    std::string traceOfWindow() {
        std::string calls;
        console->setTrace([&calls](std::string_view call) { calls.append(call).append("\n"); });
        const ProgramFile file = readProgramFile(contentOf(examples() + name() + QStringLiteral(".tvp")).toStdString());
        state.CompiledScript = Translator().Compile(ProgramText(file.roman));
        const QByteArray lines = answers();
        if (!lines.isEmpty()) answer(lines.trimmed().split('\n'));
        console->execute();
        return calls;
    }

    static std::string traceOfTextConsole() {
        QProcess tvp;
        tvp.start(QStringLiteral(TOLVAN_BIN_DIR "/tvp"),
                  {QStringLiteral("run"), QStringLiteral("--trace"), examples() + name() + QStringLiteral(".tvp")});
        tvp.write(answers());
        tvp.closeWriteChannel();
        EXPECT_TRUE(tvp.waitForFinished());
        return tvp.readAllStandardError().toStdString();
    }

  private:
    QTemporaryDir folder_;
};

class DrawingTest : public ExamplesTest {};

TEST_P(ExamplesTest, MakesTheSameCalls) {
    const std::string expected = traceOfTextConsole();
    EXPECT_FALSE(expected.empty());
    EXPECT_EQ(traceOfWindow(), expected);
    EXPECT_TRUE(console->isVisible()) << "it came to its end";
}

std::vector<std::string> exampleNames() {
    std::vector<std::string> names;
    for (const QString& file : QDir(QStringLiteral(TOLVAN_SOURCE_DIR "/examples")).entryList({QStringLiteral("*.tvp")}))
        names.push_back(file.chopped(4).toStdString());
    return names;
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
TEST_P(DrawingTest, LooksAsKept) {
    traceOfWindow();
    const QString file = QStringLiteral(TOLVAN_SOURCE_DIR "/examples/expected/") + name() + QStringLiteral(".png");
    const QImage kept(file);
    const QString seen = name() + QStringLiteral("-seen.png");
    if (picture().size() != kept.size() || difference(picture(), kept) > 2) {
        picture().save(QStringLiteral(TOLVAN_BIN_DIR "/") + seen);
        FAIL() << file.toStdString() << " shows another picture than " << seen.toStdString() << " beside the tests";
    }
}
INSTANTIATE_TEST_SUITE_P(, DrawingTest, testing::Values("ghadyal", "gogalgay", "tiranga"),
                         [](const auto& test) { return std::string(test.param); });

INSTANTIATE_TEST_SUITE_P(, ExamplesTest, testing::ValuesIn(exampleNames()),
                         [](const auto& test) { return test.param; });

}  // namespace
}  // namespace tolvan
