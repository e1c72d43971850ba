#include "runtime/host/ModuleRunner.h"

#include "runtime/host/NumberText.h"

namespace tolvan {

script::ErrorReport runModule(script::Executor& executor, ConsoleObject& console, std::string_view module) {
    static const NumberText numberText;
    console.reset();
    executor.reset();
    executor.setTextForm(&numberText);
    executor.addObject("ParentForm", console, script::Executor::Members::AlsoGlobal);
    executor.addObject("Library", console.library());
    script::ErrorReport report;
    if (!executor.addCode(module) || (executor.hasProcedure("Main") && !executor.run("Main")))
        report = executor.error();
    executor.reset();
    return report;
}

}  // namespace tolvan
