// The loop of instructions that ends after the first.

#include "platform/script/machine/MachineDispatch.h"

namespace tolvan::script {

template Machine::Left Machine::execute<Machine::Mode::OneInstruction>();

}  // namespace tolvan::script
