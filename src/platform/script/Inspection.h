// What a host sees of a script that stands still: the active procedures, where they are, and their variables. The
// script stands still while it asks the host for something, above all at a poll, and after a run that ended with an
// error.
//
// For scripts loaded while Executor::setWatched is on: only their polls ask one by one, and only then is anything kept
// of an error. Looking changes nothing and costs the script nothing while nobody looks.
#pragma once

#include "platform/script/Value.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan::script {

class Machine;

struct InspectedVariable {
    std::string name;  // as the script spells it first
    std::string type;  // as TypeName names it
    // Empty for an object: it is not held. An array is shared with the script; to be let go before the script goes on,
    // which else copies it when it changes an element.
    Value value;
};

class Inspection {
  public:
    explicit Inspection(Machine& machine) : machine_(machine) {}

    // Active procedures. Level 0 is the innermost, level depth() - 1 the one that the host called.
    std::size_t depth() const;
    // Empty for the statements outside procedures, and for texts that Execute runs.
    std::string procedure(std::size_t level) const;
    // Of the module, 1-based: where the procedure stands.
    int line(std::size_t level) const;
    // The result of a function, the parameters and the others, in the order in which the procedure names them. Level
    // depth() is the variables outside procedures.
    std::vector<InspectedVariable> variables(std::size_t level) const;

    // Assigns a variable of a level, or an element of it, as Let does. False if there is none, after an error, or
    // if the memory limit leaves no room. Not for objects.
    bool assign(std::size_t level, std::string_view name, std::span<const std::uint32_t> indexes, const Value& value);

  private:
    Machine& machine_;
};

}  // namespace tolvan::script
