#include "script/ScriptConsole.h"

#include "platform/script/StringCell.h"

#include <array>
#include <cctype>

namespace tolvan::script {

namespace {

enum Member { PrintString, InputString, CheckForEvents, StopExecution, DisplayWidth, Note, Fail, Colour };
constexpr std::array<std::string_view, 8> memberNames = {
    "printstring", "inputstring", "checkforevents", "stopexecution", "displaywidth", "note", "fail", "colour"};
constexpr int width = 640;

}  // namespace

int ScriptConsole::findMember(std::string_view name) const {
    std::string lower(name);
    for (char& letter : lower) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    for (std::size_t i = 0; i < memberNames.size(); ++i)
        if (memberNames[i] == lower) return static_cast<int>(i);
    return noMember;
}

Value ScriptConsole::call(int member, Arguments& arguments) {
    switch (member) {
        case PrintString:
            if (arguments.count() != 1) throw ScriptError(errors::argumentCount);
            lines.push_back(arguments.text(0));
            return {};
        case InputString:
            arguments.assign(0, Value::text(input));
            return {};
        case CheckForEvents:
            ++asked;
            budget_ = isRunning ? budgetPerAnswer : 0;
            return Value::boolean(isRunning);
        case StopExecution:
            isRunning = false;
            budget_ = 0;
            return {};
        case DisplayWidth:
            return Value::single(width);
        case Note:
            noted.clear();
            for (std::size_t i = 0; i < arguments.count(); ++i)
                noted.push_back(arguments.isMissing(i) ? "<missing>" : arguments.text(i));
            return Value::longInteger(static_cast<std::int32_t>(arguments.count()));
        case Colour:
            return Value::text(colour);
        default:
            throw ScriptError(arguments.integer(0), "as asked", "console");
    }
}

void ScriptConsole::put(int member, Arguments& arguments, const Value& value) {
    if (member != Colour) return HostObject::put(member, arguments, value);
    colour = value.view();
}

int* ScriptConsole::pollBudget(int member) {
    return member == CheckForEvents ? &budget_ : nullptr;
}

std::string outcome(Executor& executor, ScriptConsole& console, std::string_view module) {
    executor.addObject("ParentForm", console, Executor::Members::AlsoGlobal);
    const bool ended = executor.addCode(module) && (!executor.hasProcedure("Main") || executor.run("Main"));
    std::string text;
    for (const std::string& line : console.lines) text += line + "\n";
    if (!ended)
        text += "error " + std::to_string(executor.error().number) + " line " + std::to_string(executor.error().line) +
                "\n";
    return text;
}

std::string outcome(std::string_view module) {
    Executor executor;
    ScriptConsole console;
    return outcome(executor, console, module);
}

}  // namespace tolvan::script
