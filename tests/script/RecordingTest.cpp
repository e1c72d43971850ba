// What a recording tells of earlier moments, against what the engine told at these moments.

#include "platform/script/ArrayCell.h"
#include "platform/script/Recording.h"
#include "script/ScriptConsole.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <sstream>

namespace tolvan::script {
namespace {

std::string textOf(Executor& executor, const Value& value) {
    if (value.isOneOf(bits(Type::Empty, Type::Null, Type::Object))) return "-";
    if (!value.is(Type::Array)) return executor.text(value);
    std::string list = "(";
    for (const Value& element : value.array()->elements()) list += textOf(executor, element) + ";";
    return list + ")";
}

// The active procedures, the outermost first.
using State = std::vector<std::string>;

State presentState(Executor& executor) {
    const Inspection inspection = executor.inspect();
    State state;
    for (std::size_t level = inspection.depth(); level-- > 0;) {
        std::string text = inspection.procedure(level);
        for (const InspectedVariable& variable : inspection.variables(level))
            text += " " + variable.name + "=" + textOf(executor, variable.value);
        state.push_back(text);
    }
    return state;
}

State recordedState(Executor& executor, Recording& recording, std::uint64_t row) {
    recording.goTo(row);
    State state;
    for (std::size_t level = recording.depth(); level-- > 0;) {
        const Recording::Procedure& procedure = recording.procedures()[recording.procedureAt(level)];
        std::string text = procedure.name;
        for (std::size_t place = 0; place < procedure.variables.size(); ++place)
            if (!procedure.variables[place].empty())
                text += " " + procedure.variables[place] + "=" + textOf(executor, recording.value(level, place));
        state.push_back(text);
    }
    return state;
}

// Writes down the state at each poll, by the row that is over then.
class Witness : public ScriptConsole {
  public:
    Witness(Executor& executor, Recording& recording) : executor_(executor), recording_(recording) {}

    Value call(int member, Arguments& arguments) override {
        const int before = asked;
        Value result = ScriptConsole::call(member, arguments);
        if (asked == before) return result;
        if (asked == startAt) executor_.setRecording(&recording_);
        if (recording_.endRow() > 0) {
            seen[recording_.endRow() - 1] = presentState(executor_);
            if (asked % 3 == 0) recording_.goTo(recording_.firstRow());
        }
        return result;
    }

    std::map<std::uint64_t, State> seen;
    int startAt = 0;

  private:
    Executor& executor_;
    Recording& recording_;
};

// With a poll after each line of a procedure.
std::string moduleOf(const std::string& lines) {
    std::string module;
    std::istringstream rest(lines);
    for (std::string line; std::getline(rest, line);) {
        module += line + "\n";
        const bool ends = line.starts_with("End Sub") || line.starts_with("End Function");
        if (!ends) module += "if not parentform.checkforevents then err.raise 1001\n";
    }
    return module;
}

const char* const program = R"(Sub Main
total = 0
Dim a(3), grid(2, 1)
For i = 0 To 3
a(i) = i * i
text = text & "x" & i
grid(i Mod 3, i Mod 2) = text
Next
b = a
b(1) = "own"
a(0) = a
a(0)(2) = "deep"
grow text, b(2), i + 1
x = fact(5) + fact(3)
While Len(text) < 20
text = text + "ab"
' nothing
Wend
page = String(300, "p")
For i = 1 To 3
kept = page
page = page & "z"
page = i & page
grow page, b(2), i + 1
page = Left(page, 200) & i & Mid(page, 190)
Next
page = kept
page = 7
For Each e In b
last = e
Next
On Error Resume Next
fails 7
b = Array(fact(2), fact(0))
ReDim Preserve b(4)
b(4) = b(4) & "t"
b(4) = b(4) & "u"
InputString b(3)
InputString last
Erase b
End Sub
Sub grow(t, element, n)
t = t & "longer" & n
element = element & t
n = n + 1
If n > 5 Then
n = -n
Else
n = 0
End If
End Sub
Function fact(n)
If n > 1 Then
fact = n * fact(n - 1)
Else
fact = 1
End If
End Function
Sub fails(n)
m = n
m = m / 0
End Sub
)";

void compare(Executor& executor, Recording& recording, const std::map<std::uint64_t, State>& seen) {
    std::vector<std::uint64_t> rows;
    for (std::uint64_t row = recording.firstRow(); row < recording.endRow(); ++row) rows.push_back(row);
    std::mt19937 random(20'07);
    for (int round = 0; round < 3; ++round) {
        for (const std::uint64_t row : rows) {
            const auto known = seen.find(row);
            if (known == seen.end()) continue;
            // The row's own procedure may have been left since.
            State state = recordedState(executor, recording, row);
            ASSERT_GE(state.size(), known->second.size()) << row;
            state.resize(known->second.size());
            EXPECT_EQ(state, known->second) << "row " << row << " line " << recording.line(row);
        }
        std::shuffle(rows.begin(), rows.end(), random);
    }
}

TEST(Recording, ShowsEveryMomentAsItWas) {
    for (const int budget : {0, 1, 7})
        for (const int startAt : {0, 1, 20, 45}) {
            Recording recording;
            Executor executor;
            executor.setWatched(true);
            if (startAt == 0) executor.setRecording(&recording);
            Witness console(executor, recording);
            console.budgetPerAnswer = budget;
            console.startAt = startAt;
            outcome(executor, console, moduleOf(program));
            EXPECT_GT(console.seen.size() + static_cast<std::size_t>(budget) * 40, 30U);
            compare(executor, recording, console.seen);
            executor.setRecording(nullptr);
        }
}

TEST(Recording, IsBoundedAndSaysThatItsBeginningIsGone) {
    constexpr std::size_t bound = std::size_t{1} << 20;
    const struct {
        const char* line;
        int passes;
        std::size_t leastRows;  // in the end
    } cases[] = {
        {"t = String(10000, \"x\") & i", 500, 40},
        {"ReDim a(20000) : a(7) = i", 50, 1},  // what dies in the end fills the bound
        {"t = t & \"x\"", 3000, 100},
        {"deep 1000", 20, 100},
    };
    for (const auto& [line, passes, leastRows] : cases) {
        Recording recording(100, bound);
        Executor executor;
        executor.setRecording(&recording);
        ScriptConsole console;
        const std::string module = "Sub Main\nFor i = 1 To " + std::to_string(passes) + "\n" + line +
                                   "\nNext\nEnd Sub\nSub deep(n)\nx = n\nIf n > 0 Then deep n - 1\nEnd Sub";
        EXPECT_EQ(outcome(executor, console, moduleOf(module)), "") << line;
        EXPECT_TRUE(recording.isBeginningGone());
        EXPECT_LE(recording.bytes(), bound) << line;
        EXPECT_LE(recording.endRow() - recording.firstRow(), 100U);
        EXPECT_GE(recording.endRow() - recording.firstRow(), leastRows) << line;
        recording.goTo(recording.firstRow());
        EXPECT_EQ(textOf(executor, recording.value(recording.depth() - 1, 0)), "-");
        recording.goTo(recording.endRow() - 1);
        const auto& names = recording.procedures()[recording.procedureAt(0)].variables;
        const auto counter = std::find(names.begin(), names.end(), "i") - names.begin();
        EXPECT_EQ(textOf(executor, recording.value(0, static_cast<std::size_t>(counter))), std::to_string(passes + 1));
        executor.setRecording(nullptr);
    }
}

}  // namespace
}  // namespace tolvan::script
