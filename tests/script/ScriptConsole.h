// A console for scripts under test: keeps what they print, answers their polls, and records what it was asked.
#pragma once

#include "platform/script/Executor.h"

#include <string>
#include <string_view>
#include <vector>

namespace tolvan::script {

class ScriptConsole : public HostObject {
  public:
    std::vector<std::string> lines;
    std::string input = "typed";
    // The poll: how many pass without a call, and how often it was called.
    int budgetPerAnswer = 1000;
    int asked = 0;
    bool isRunning = true;
    // "<missing>" or the text of each argument of the last Note.
    std::vector<std::string> noted;
    std::string colour = "black";

    std::string_view typeName() const override { return "ParentForm"; }
    int findMember(std::string_view name) const override;
    Value call(int member, Arguments& arguments) override;
    void put(int member, Arguments& arguments, const Value& value) override;
    int* pollBudget(int member) override;

  private:
    int budget_ = 0;
};

// How a script ended: what it printed, one line each, and then "error NUMBER line LINE" if it failed.
std::string outcome(std::string_view module);
std::string outcome(Executor& executor, ScriptConsole& console, std::string_view module);

}  // namespace tolvan::script
