// The example programs do in the window what they do on the text console.
#include "ConsoleFixture.h"
#include "translator/ProgramFile.h"
#include "translator/ProgramText.h"
#include "translator/Translator.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

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
INSTANTIATE_TEST_SUITE_P(, ExamplesTest, testing::ValuesIn(exampleNames()),
                         [](const auto& test) { return test.param; });

}  // namespace
}  // namespace tolvan
