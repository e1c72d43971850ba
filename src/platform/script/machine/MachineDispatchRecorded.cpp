// The instructions, while a Recorder is told of them.

#include "platform/script/machine/MachineDispatch.h"

namespace tolvan::script {

template Machine::Left Machine::execute<Machine::Mode::Recorded>();

}  // namespace tolvan::script
