// Runs one script module without a console around it: AddCode, then Main. PrintString writes a line to standard output;
// 100,000 polls pass before it is called. For measuring the engine alone.

#include "platform/script/Executor.h"

#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>

namespace {

namespace script = tolvan::script;

class Console : public script::HostObject {
  public:
    std::string_view typeName() const override { return "ParentForm"; }

    int findMember(std::string_view name) const override {
        std::string lower(name);
        for (char& letter : lower) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
        if (lower == "printstring") return PrintString;
        if (lower == "checkforevents") return CheckForEvents;
        return noMember;
    }

    script::Value call(int member, script::Arguments& arguments) override {
        if (member == CheckForEvents) {
            budget_ = pollsPerLook;
            return script::Value::boolean(true);
        }
        std::cout << arguments.text(0) << '\n';
        return {};
    }

    int* pollBudget(int member) override { return member == CheckForEvents ? &budget_ : nullptr; }

  private:
    enum Member { PrintString, CheckForEvents };
    static constexpr int pollsPerLook = 100'000;
    int budget_ = 0;
};

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: script_runner FILE.vbs\n";
        return 2;
    }
    std::ifstream file(arguments[1], std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    if (!file) {
        std::cerr << "cannot read " << arguments[1] << '\n';
        return 2;
    }
    Console console;
    script::Executor executor;
    executor.addObject("ParentForm", console, script::Executor::Members::AlsoGlobal);
    const bool ended = executor.addCode(text.str()) && (!executor.hasProcedure("Main") || executor.run("Main"));
    if (ended) return 0;
    std::cerr << "error " << executor.error().number << " line " << executor.error().line << " "
              << executor.error().description << '\n';
    return 1;
}
