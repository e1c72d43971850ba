// A console on an off-screen display, with an editor that notes what it is asked for, and means to act while a program
// runs.
#pragma once

#include "runtime/InputBox.h"
#include "runtime/MessageStrip.h"
#include "runtime/ProgramMarker.h"
#include "runtime/ProgramRun.h"
#include "runtime/frmExec.h"
#include "translator/ModuleLines.h"

#include <QApplication>
#include <QDialog>
#include <QImage>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>
#include <gmock/gmock.h>
#include <string>
#include <utility>
#include <vector>

namespace tolvan {

using Span = std::pair<std::size_t, std::size_t>;

class NotingEditor : public ProgramMarker {
  public:
    std::string program = "1\r\n22\r\n333\r\n4444\r\n55555";
    std::string roman = "a\r\nb\r\nc\r\nd\r\ne";
    std::vector<Span> programSelections;
    std::vector<Span> romanSelections;
    std::vector<std::pair<int, int>> failures;  // their lines and numbers
    int broughtBack = 0;

    std::string programText() const override { return program; }
    std::string romanText() const override { return roman; }
    void selectProgram(std::size_t start, std::size_t length) override {
        programSelections.emplace_back(start, length);
    }
    void selectRoman(std::size_t start, std::size_t length) override { romanSelections.emplace_back(start, length); }
    void runFailed(int line, const script::ErrorReport& error) override { failures.emplace_back(line, error.number); }
    void bringBack() override { ++broughtBack; }
    bool takesRunKey(const QKeyEvent&) override { return false; }
};

// A module as the translator makes it: a poll before each statement.
struct TestModule {
    std::string text = "Sub Main()";
    ModuleLines lines;

    explicit TestModule(const std::vector<std::string>& statements) {
        int line = 0;
        lines.append(text, ModuleLines::Kind::Frame, line);
        for (const std::string& statement : statements) {
            ++line;
            add("\r\nif not parentform.checkforevents then err.raise 1001", ModuleLines::Kind::Poll, line);
            add("\r\n" + statement, ModuleLines::Kind::Statement, line);
        }
        add("\r\nEnd Sub\r\n", ModuleLines::Kind::Frame, line);
    }

  private:
    void add(const std::string& piece, ModuleLines::Kind kind, int line) {
        text += piece;
        lines.append(piece, kind, line);
    }
};

class ConsoleTest : public testing::Test {
  protected:
    ConsoleTest() { open(&editor); }

    // Another window, with the same state.
    void open(ProgramMarker* marker) {
        console = std::make_unique<frmExec>(state, marker);
        console->show();
        QApplication::setActiveWindow(console.get());
        QApplication::processEvents();
    }

    void run(const std::vector<std::string>& statements) {
        const TestModule module(statements);
        console->execute(module.text, module.lines);
    }

    // Does it when events are handled next.
    void soon(std::function<void()> action) { QTimer::singleShot(0, console.get(), std::move(action)); }
    // Does it once the condition holds; gives up after 10 seconds by stopping the program.
    void once(std::function<bool()> condition, std::function<void()> action, int patience = 1000) {
        QTimer::singleShot(10, console.get(), [=, this] {
            if (condition()) return action();
            if (patience > 0) return once(condition, action, patience - 1);
            ADD_FAILURE() << "what was waited for did not come";
            state.stop();
        });
    }
    void onceInputIsWanted(std::function<void()> action) {
        once([this] { return inputBox().isVisible(); }, std::move(action));
    }
    void onceDialogIsUp(std::function<void(QDialog&)> action) {
        once([] { return dialog() != nullptr; }, [action = std::move(action)] { action(*dialog()); });
    }
    static QDialog* dialog() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }
    static void click(QDialog& box, const char* button) {
        auto* const found = box.findChild<QPushButton*>(QLatin1String(button));
        ASSERT_NE(found, nullptr) << button;
        QTest::mouseClick(found, Qt::LeftButton);
    }

    PictureBox& display() { return *console->findChild<PictureBox*>(QStringLiteral("Display")); }
    PictureBox& tip() { return *console->findChild<PictureBox*>(QStringLiteral("InputBoxTip")); }
    PictureBox& note() { return *console->findChild<PictureBox*>(QStringLiteral("InputNote")); }
    MessageStrip& strip() { return *console->findChild<MessageStrip*>(); }
    InputBox& inputBox() { return *console->findChild<InputBox*>(QStringLiteral("InputBox")); }
    QImage picture() { return display().Image(); }

    // What a display of the same size shows after these lines were printed on it from the top.
    QImage printed(const std::vector<std::string>& lines) {
        PictureBox other;
        other.resize(display().size());
        other.Cls();
        ConsoleText text(other);
        for (const std::string& line : lines) text.PrintString(line);
        return other.Image();
    }

    ProgramRun state;
    NotingEditor editor;
    std::unique_ptr<frmExec> console;
};

inline const std::vector<std::string> endMessages = {" ", " ",
                                                     "he \xE0"
                                                     "ayaejn wa<blele Aahe",
                                                     "b<d kr\\{yasaQI kae[tehI bq[ daba"};

inline std::vector<std::string> withEnd(std::vector<std::string> lines) {
    lines.insert(lines.end(), endMessages.begin(), endMessages.end());
    return lines;
}

}  // namespace tolvan
