// The instructions, while nobody watches.

#include "platform/script/machine/MachineDispatch.h"

namespace tolvan::script {

template Machine::Left Machine::execute<Machine::Mode::Plain>();

}  // namespace tolvan::script
