// What the host is told about an error: what was called, the operands with their names, values and types, and the
// procedures that were running.

#include "platform/script/TextForm.h"
#include "script/ScriptConsole.h"
#include "support/Cases.h"

#include <gtest/gtest.h>
#include <sstream>

namespace tolvan::script {
namespace {

// "called [name=value:kind ...] procedure:line ...", the innermost procedure first.
std::string told(const ErrorReport& report) {
    std::string text = report.called + " [";
    for (const ErrorOperand& operand : report.operands)
        text += (text.back() == '[' ? "" : " ") + operand.name + "=" + operand.value + ":" + operand.kind;
    text += "]";
    for (const ErrorCall& call : report.stack) text += " " + call.procedure + ":" + std::to_string(call.line);
    return text;
}

// The part of the source that failed.
std::string failedPart(const std::string& source, const ErrorReport& report) {
    std::istringstream lines(source);
    std::string line;
    for (int i = 0; i < report.line; ++i) std::getline(lines, line);
    if (report.endColumn == 0) return "";
    line.resize(static_cast<std::size_t>(report.endColumn - 1), '?');
    return line.substr(static_cast<std::size_t>(report.column - 1));
}

TEST(ErrorReport, SaysWhatTookPart) {
    for (const Row& row : rowsOf("script/outcomes.cases", "What took part in an error")) {
        Executor executor;
        ScriptConsole console;
        outcome(executor, console, row[0]);
        EXPECT_EQ(executor.error().number, std::stoi(row[1])) << row;
        EXPECT_EQ(told(executor.error()), row[2]) << row;
        EXPECT_EQ(failedPart(row[0], executor.error()), row[3]) << row;
    }
}

TEST(ErrorReport, IsLimitedInSizeAndUsesTheTextForm) {
    struct Words : TextForm {
        std::string number(std::string_view plain) const override { return "<" + std::string(plain) + ">"; }
    };
    const Words words;
    Executor executor;
    executor.setTextForm(&words);
    executor.addCode(
        "Sub Main\nx = 2.5 / 0\nEnd Sub\nSub Text\nx = String(1000, \"x\") * 2\nEnd Sub\nSub f\nf\nEnd Sub");
    executor.run("Main");
    EXPECT_EQ(told(executor.error()), " [=<2.5>:Double =<0>:Integer] Main:2");
    executor.run("Text");
    EXPECT_EQ(executor.error().operands.at(0).value, std::string(ErrorOperand::longestValue, 'x'));
    executor.run("f");
    EXPECT_EQ(executor.error().stack.size(), ErrorReport::deepestStack);
    executor.run("Nobody");
    EXPECT_EQ(told(executor.error()), "Nobody []");
}

}  // namespace
}  // namespace tolvan::script
