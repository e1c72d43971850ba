// What a host sees of a script that stands still, at a poll and after an error, and what it can change there.

#include "platform/script/ArrayCell.h"
#include "script/ScriptConsole.h"

#include <functional>
#include <gtest/gtest.h>

namespace tolvan::script {
namespace {

std::string textOf(Executor& executor, const Value& value) {
    if (value.is(Type::Null) || value.is(Type::Empty)) return executor.typeName(value);
    if (!value.is(Type::Array)) return executor.text(value);
    std::string list = "(";
    for (const Value& element : value.array()->elements()) list += textOf(executor, element) + ";";
    return list + ")";
}

// "inner:5 a=1 b=Empty, :2 | global=3": the procedures from the innermost on, and the variables outside.
std::string stateOf(Executor& executor) {
    const Inspection inspection = executor.inspect();
    std::string state;
    for (std::size_t level = 0; level <= inspection.depth(); ++level) {
        if (level == inspection.depth())
            state += "|";
        else
            state += inspection.procedure(level) + ":" + std::to_string(inspection.line(level));
        for (const InspectedVariable& variable : inspection.variables(level))
            state += " " + variable.name + "=" +
                     (variable.value.is(Type::Empty) ? variable.type : textOf(executor, variable.value));
        if (level < inspection.depth()) state += ", ";
    }
    return state;
}

// Looks at the given poll, counted from 1, or at each call of Note, and assigns there.
class Watcher : public ScriptConsole {
  public:
    explicit Watcher(Executor& executor) : executor_(executor) { budgetPerAnswer = 0; }

    Value call(int member, Arguments& arguments) override {
        Value result = ScriptConsole::call(member, arguments);
        const bool isNote = arguments.count() == 1 && noted.size() == 1;
        if (asked == lookAt || isNote) {
            noted.clear();
            lookAt = -1;
            seen += stateOf(executor_);
            if (action) action(executor_.inspect());
        }
        return result;
    }

    int lookAt = -1;
    std::string seen;
    std::function<void(Inspection)> action;

  private:
    Executor& executor_;
};

const std::string poll = "if not parentform.checkforevents then err.raise 1001\n";

TEST(Inspection, ShowsTheActiveProceduresAndTheirVariables) {
    struct Case {
        int poll;  // 0: where Note is called
        std::string module;
        std::string seen;
    };
    const Case cases[] = {
        {2, "Sub Main\n" + poll + "Count = 5\n" + poll + "count = 6\nEnd Sub", "Main:4 Count=5, |"},
        {3, "Sub Main\n" + poll + "x = 1\n" + poll + "x = 2\n" + poll + "x = 3\nEnd Sub", "Main:6 x=2, |"},
        {3, "Dim g\nSub Main\nFor i = 1 To 9\n" + poll + "g = i\nNext\nEnd Sub", "Main:4 i=3, | g=2"},
        {3,
         "Sub Main\na = Array(1, \"t\", Null)\n" + poll + "x = twice(a, 7)\nEnd Sub\nFunction twice(list, ByVal n)\n" +
             poll + "twice = n\nlist(0) = Empty\n" + poll + "End Function",
         "twice:10 twice=7 list=(Empty;t;Null;) n=7, Main:4 a=(Empty;t;Null;) x=Empty, |"},
        {0, "Sub Main\nx = 2\nprintstring f(3) + x\nEnd Sub\nFunction f(n)\nNote n\nEnd Function",
         "f:6 f=Empty n=3, Main:3 x=2, |"},
        {0, "Class C\nSub S(n)\nDim own : own = n\nNote n\nEnd Sub\nEnd Class\nSub Main\nSet o = New C\no.S 4\nEnd Sub",
         "S:4 n=4 own=4, Main:9 o=C, |"},
        {0, "Sub Main\nx = 1\nExecute \"made = 2\"\nExecute \"Note 5\"\nEnd Sub", ":1, Main:4 x=1 made=2, |"},
        {0, "b = 1\na = Array()\nNote 1", ":3, | b=1 a=()"},
        {0, "x = 5\nSub Main\nEnd Sub", ""},
    };
    for (const Case& one : cases) {
        Executor executor;
        executor.setWatched(true);
        Watcher console(executor);
        console.lookAt = one.poll == 0 ? -1 : one.poll;
        outcome(executor, console, one.module);
        EXPECT_EQ(console.seen, one.seen) << one.module;
    }
}

TEST(Inspection, KeepsWhereARunFailed) {
    const std::pair<const char*, const char*> cases[] = {
        {"Dim g\nSub Main\ng = 1\nx = 2\nfails x\nEnd Sub\nSub fails(n)\nn = 3\nn = 1 / 0\nEnd Sub",
         "fails:9 n=3, Main:5 x=3, | g=1"},
        {"Sub Main\nOn Error Resume Next\nx = 1 / 0\nEnd Sub", "|"},
        {"Class C\nSub Class_Terminate\ny = 1 / 0\nEnd Sub\nEnd Class\nSub Main\nSet o = New C\nx = Sqr(-1)\nEnd Sub",
         "Main:8 o=C x=Empty, |"},
    };
    for (const auto& [module, state] : cases) {
        Executor executor;
        executor.setWatched(true);
        ScriptConsole console;
        outcome(executor, console, module);
        EXPECT_EQ(stateOf(executor), state) << module;
        EXPECT_FALSE(executor.inspect().assign(0, "x", {}, Value::integer(1)));
        executor.reset();
        EXPECT_EQ(stateOf(executor), "|");
        EXPECT_EQ(executor.memoryUsed(), 0U);
    }
}

TEST(Inspection, AssignsVariablesAndElements) {
    Executor executor;
    executor.setWatched(true);
    Watcher console(executor);
    console.action = [&executor](Inspection inspection) {
        const std::uint32_t place[] = {1, 0};
        const std::uint32_t outside[] = {2, 0};
        EXPECT_TRUE(inspection.assign(0, "X", {}, Value::text("set")));
        EXPECT_TRUE(inspection.assign(1, "list", place, Value::integer(7)));
        EXPECT_TRUE(inspection.assign(2, "g", {}, Value::number(1.5)));
        EXPECT_FALSE(inspection.assign(1, "list", outside, Value::integer(7)));
        EXPECT_FALSE(inspection.assign(0, "x", place, Value::integer(7)));
        EXPECT_FALSE(inspection.assign(0, "nobody", {}, Value::integer(7)));
        EXPECT_FALSE(inspection.assign(3, "x", {}, Value::integer(7)));
        executor.setMemoryLimit(executor.memoryUsed());
        EXPECT_FALSE(inspection.assign(0, "x", {}, Value::text("no room")));
        executor.setMemoryLimit(std::size_t{1} << 20);
    };
    EXPECT_EQ(outcome(executor, console,
                      "Dim g\nSub Main\nDim list(1, 1)\ncopy = list\nstops\nPrintString list(1, 0) & copy(1, 0) & g\n"
                      "End Sub\nSub stops\nx = 1\nNote 1\nx = x & 2\nPrintString x\nEnd Sub"),
              "set2\n71.5\n");
}

}  // namespace
}  // namespace tolvan::script
