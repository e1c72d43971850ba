#include "runtime/host/RunModule.h"

#include "library/AddLibrary.h"
#include "runtime/host/NumberText.h"

#include <algorithm>

namespace tolvan {
namespace {

// An error in a function of the library is one of the program's line that called it.
void attributeToProgram(script::ErrorReport& report, std::string_view module) {
    const int own = ownLines(module);
    if (report.line <= own) return;
    const auto caller = std::find_if(report.stack.begin(), report.stack.end(),
                                     [own](const script::ErrorCall& call) { return call.line <= own; });
    if (caller == report.stack.end()) return;
    report.line = caller->line;
    report.column = caller->column;
    report.endColumn = caller->endColumn;
    report.stack.erase(report.stack.begin(), caller);
}

}  // namespace

script::ErrorReport runModule(script::Executor& executor, ConsoleObject& console, std::string_view module) {
    static const NumberText numberText;
    console.reset();
    executor.reset();
    executor.setTextForm(&numberText);
    executor.setInterruption([&console] { return console.mayGoOn(); });
    script::ErrorReport report;
    const bool loaded = executor.addObject("ParentForm", console, script::Executor::Members::AlsoGlobal) &&
                        executor.addObject("Library", console.scriptLibrary()) && executor.addCode(module);
    if (!loaded || (executor.hasProcedure("Main") && !executor.run("Main"))) report = executor.error();
    attributeToProgram(report, module);
    executor.setInterruption({});
    executor.reset();
    return report;
}

}  // namespace tolvan
