// The script engine: loads modules of VBScript and runs their procedures. Knows nothing of windows; what a script can
// reach outside itself is the objects that the host adds.
//
// One thread at a time. A host object may be called back from inside addCode and run, and may call neither addCode,
// run nor reset of the same engine from there.
#pragma once

#include "platform/script/ErrorReport.h"
#include "platform/script/HostObject.h"
#include "platform/script/Inspection.h"
#include "platform/script/Recording.h"
#include "platform/script/ScriptError.h"
#include "platform/script/TextForm.h"
#include "platform/script/Value.h"
#include "platform/script/native/MachineCode.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan::script {

class Executor {
  public:
    Executor();
    ~Executor();
    Executor(const Executor&) = delete;
    Executor& operator=(const Executor&) = delete;

    // Discards code, variables and objects, and gives back their memory. Language, timeout, limits and text form stay.
    void reset();

    // The language of the modules: "VBScript" (the start value), letter case aside. Any other name is refused (false).
    bool setLanguage(std::string_view name);
    std::string_view language() const;

    // Longest time that one run may take, in milliseconds; -1 (the start value): no limit. A run that takes longer
    // ends with errors::timedOut, which no script can catch.
    void setTimeout(int milliseconds);
    int timeout() const;

    // Most bytes of texts, arrays and objects that scripts may hold; the script that asks for more gets error 7.
    // Start value: 1 GiB.
    void setMemoryLimit(std::size_t bytes);
    // Bytes that scripts hold now.
    std::size_t memoryUsed() const;

    // Most bytes of one text; the script that asks for more gets error 14. It bounds how long a single statement can
    // take. Start value: no limit but that of the memory.
    void setLongestText(std::size_t bytes);

    // Asked every few milliseconds within a statement that takes long, as one that makes a large array. False ends the
    // run with errors::timedOut. Must not run or change anything in the engine. Empty (the start value): nobody is
    // asked.
    void setInterruption(std::function<bool()> goesOn);

    // Not owned; must outlive the engine or its replacement. Null: plain VBScript.
    void setTextForm(const TextForm* form);

    enum class Members { OfObjectOnly, AlsoGlobal };
    // Makes an object known to the modules loaded after it under a name; with AlsoGlobal its members are names of
    // their own as well. A name that a module declares itself hides both. False, with error 7, if the memory limit
    // leaves no room for it.
    bool addObject(std::string_view name, HostObject& object, Members members = Members::OfObjectOnly);

    // Loads a module and runs its statements outside procedures. False if it cannot be compiled (nothing of it is
    // loaded) or fails; see error().
    // What it declares becomes known to the modules before it, too, and takes the place of what had the name.
    bool addCode(std::string_view module);

    // Calls a procedure; true if it ended without an error. `result` receives what a function returned.
    bool run(std::string_view procedure, std::span<const Value> arguments = {}, Value* result = nullptr);
    bool hasProcedure(std::string_view name) const;

    // The value of an expression, in the scope of the modules.
    bool evaluate(std::string_view expression, Value& result);

    // Compiles the modules that are loaded from now on for inspection (see Inspection.h): no poll is optimised away,
    // and the state of a run that failed is kept until the next run. Start value: off.
    void setWatched(bool on);
    // Code that runs often becomes machine code, where that is possible; a script does not see it. Concerns what is
    // loaded after the next reset.
    void setMachineCode(const MachineCodeOptions& options);
    std::vector<MachineCodeCount> machineCodeCounts() const;
    // What runs from now on is recorded (see Recording.h); in a script that is running, from its next poll on. Also
    // sets setWatched for the modules that are loaded from now on. Null (the start value): no longer; before a
    // recording is destroyed.
    void setRecording(Recording* recording);
    // For a host object that is being called, and after a run.
    Inspection inspect();

    // How the last addCode, run or evaluate ended.
    const ErrorReport& error() const;

    // A value as the script's CStr would write it, and as TypeName would name its type. For hosts and tests.
    std::string text(const Value& value);
    std::string typeName(const Value& value);

  private:
    class Engine;
    std::unique_ptr<Engine> engine_;
};

}  // namespace tolvan::script
