// The variables of a whole program, at the places where it stands still.

#include "host/RecordingConsole.h"
#include "library/AddLibrary.h"
#include "platform/richtext/UnicodeText.h"
#include "runtime/host/RunModule.h"
#include "runtime/host/StepControl.h"
#include "runtime/host/ValueTable.h"
#include "translator/ProgramText.h"

#include <functional>
#include <gtest/gtest.h>

namespace tolvan {
namespace {

class Looker : public RecordingConsole {
  public:
    explicit Looker(StepControl& steps) : steps_(steps) {}
    bool StandStill(double) override {
        look();
        steps_.stepInto();
        return running;
    }
    std::function<void()> look;

  private:
    StepControl& steps_;
};

// "2: अ=१* ब=" with a star for what has changed and brackets for a function's own.
std::string shown(const std::vector<ValueTable::Row>& rows) {
    std::string text;
    for (const ValueTable::Row& row : rows)
        text += " " + unicodeOfInternalText(row.function.empty() ? row.word : row.word + "{[}" + row.function + "{]}") +
                "=" + unicodeOfInternalText(row.text) + (row.isChanged ? "*" : "");
    return text;
}

TEST(ValueTable, ShowsWhatChangesAndTakesWhatIsTyped) {
    const StyledText text = ProgramText(
        "mitI guN(30)\r\nguN(25) = 4\r\nvay = 5\r\nA = duppaT(vay)\r\ndAkhav vay & #\" \"# & A & guN(25)\r\n"
        "upaprAyojan duppaT(n)\r\nduppaT = n guNile 2\r\nupaprAyojan saMpav");
    const RunnableProgram program = runnableProgram(text);
    script::Executor executor;
    executor.setWatched(true);
    StepControl steps;
    Looker console(steps);
    ConsoleObject object(console);
    ValueTable table(executor, program);
    std::vector<std::string> seen;
    console.look = [&] {
        const auto& rows = table.read();
        std::string line = std::to_string(steps.line()) + ":" + shown(rows);
        const std::size_t dots = line.find("; ; ");
        const std::size_t end = line.find(')');
        if (dots != std::string::npos) line.replace(dots, end - dots, "...");
        seen.push_back(line);
        if (steps.line() == 3) {
            const std::vector<ValueTable::Element> page = table.elements(0, 24, 3);
            ASSERT_EQ(page.size(), 3U);
            EXPECT_EQ(page[1].indexes, std::vector<std::uint32_t>{25});
            EXPECT_EQ(page[1].text, "4");
            const std::uint32_t outside[] = {31};
            EXPECT_FALSE(table.assign(0, outside, "1"));
            EXPECT_FALSE(table.assign(0, {}, "1"));
            EXPECT_TRUE(table.assign(0, page[1].indexes, "nav"));
        }
        if (steps.line() == 4) {
            EXPECT_TRUE(table.assign(1, {}, "7"));
            EXPECT_EQ(table.textOf(rows[1].word, rows[1].function), "7");
        }
    };
    object.setSteps(&steps);
    steps.stepInto();
    steps.begin(executor, program.lines);
    EXPECT_EQ(runModule(executor, object, program.module).number, 0);
    steps.end();
    EXPECT_EQ(seen, (std::vector<std::string>{
                        "1: गुण= वय= आ=",
                        "2: गुण=(...)* वय= आ=",
                        "3: गुण=(...)* वय= आ=",
                        "4: गुण=(...)* वय=५* आ=",
                        "7: दुप्पट[दुप्पट]= न[दुप्पट]=७* गुण=(...) वय=७* आ=",
                        "8: दुप्पट[दुप्पट]=१४* न[दुप्पट]=७ गुण=(...) वय=७ आ=",
                        "5: गुण=(...) वय=७ आ=१४*",
                    }));
    EXPECT_EQ(console.calls.back(), "print 7{ }14nv");
}

}  // namespace
}  // namespace tolvan
