// What took part in an instruction that failed. It is found out afterwards, from the code of the statement and from the
// registers as the error left them: nothing is recorded while a script runs without errors.
#pragma once

#include "platform/script/ErrorReport.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tolvan::script {

struct Frame;
class Machine;

// See ErrorReport.
struct FailedOperation {
    std::string called;
    std::vector<ErrorOperand> operands;
};

// `pc` is the instruction of the frame's procedure that failed. Runs no code of scripts. Throws nothing; what cannot be
// told is left out.
FailedOperation findFailedOperation(Machine& machine, const Frame& frame, std::uint32_t pc) noexcept;

}  // namespace tolvan::script
