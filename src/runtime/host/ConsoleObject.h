// "ParentForm": the object through which a running program reaches its console. It turns the script's arguments into
// those of ConsoleOperations and reads and writes the program's data file, so that the window and the text console
// answer every call in the same way.
//
// Coordinates are converted to single precision. Errors raised in the script: 450 wrong number of arguments, 449 a
// required one left out, 13 and 6 where a value does not convert, and the file errors of ProgramDataFile.
#pragma once

#include "platform/script/HostObject.h"
#include "runtime/host/ConsoleOperations.h"
#include "runtime/host/LibraryObject.h"
#include "runtime/host/PollThrottle.h"
#include "runtime/host/ProgramDataFile.h"

#include <cstdint>
#include <functional>
#include <string_view>

namespace tolvan {

class StepControl;

class ConsoleObject : public script::HostObject {
  public:
    explicit ConsoleObject(ConsoleOperations& console);

    // Each call but the polls, before it is made: "DrawLine 30,40,,,255". A missing argument is empty, numbers are
    // plain, text is in internal text form.
    using Trace = std::function<void(std::string_view call)>;
    void setTrace(Trace trace) { trace_ = std::move(trace); }

    // How many such calls there have been; one place for the life of the object.
    const std::uint64_t* callCount() const { return &callCount_; }

    // What the program reaches from the next file on; before, it is the working folder. The console is asked about
    // other files.
    void setFiles(ReachableFiles files);

    // Who goes through the program line by line; null: nobody. Must outlive its use.
    void setSteps(StepControl* steps) { steps_ = steps; }

    // Whether the program is in the middle of a statement that takes long, and not in a call of the console: nobody may
    // look into it then.
    bool isWithinStatement() const { return isWithinStatement_; }

    // Before a run: closes the file that an earlier run left open.
    void reset();

    // What the library's functions call besides.
    LibraryObject& scriptLibrary() { return library_; }

    // For a statement that takes long: lets waiting window events run; false when the program is to stop.
    bool mayGoOn();

    std::string_view typeName() const override { return "ParentForm"; }
    int findMember(std::string_view name) const override;
    script::Value call(int member, script::Arguments& arguments) override;
    int* pollBudget(int member) override;

  private:
    struct Member;
    static const Member members[];

    script::Value printString(script::Arguments& arguments);
    script::Value inputString(script::Arguments& arguments);
    script::Value clearScreen(script::Arguments& arguments);
    script::Value checkForEvents(script::Arguments& arguments);
    script::Value stopExecution(script::Arguments& arguments);
    script::Value readKey(script::Arguments& arguments);
    script::Value wait(script::Arguments& arguments);
    script::Value drawPoint(script::Arguments& arguments);
    script::Value drawLine(script::Arguments& arguments);
    script::Value drawBox(script::Arguments& arguments);
    script::Value drawCircle(script::Arguments& arguments);
    script::Value displayWidth(script::Arguments& arguments);
    script::Value displayHeight(script::Arguments& arguments);
    script::Value fileOpen(script::Arguments& arguments);
    script::Value fileClose(script::Arguments& arguments);
    script::Value fileInput(script::Arguments& arguments);
    script::Value fileWrite(script::Arguments& arguments);
    script::Value endOfFile(script::Arguments& arguments);

    FileError openDataFile(script::Arguments& arguments);
    void traceCall(const Member& member, script::Arguments& arguments) const;

    ConsoleOperations& console_;
    PollThrottle throttle_;
    LibraryObject library_{console_, throttle_};
    ReachableFiles files_;
    ProgramDataFile file_;
    Trace trace_;
    std::uint64_t callCount_ = 0;
    StepControl* steps_ = nullptr;
    bool isWithinStatement_ = false;
};

}  // namespace tolvan
