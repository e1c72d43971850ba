// Where no machine code can be made: everything is interpreted.

#include "platform/script/native/MachineCode.h"

#include <cstdlib>

namespace tolvan::script::native {

class ProcedureCode {};
struct CodeStore::Data {};

CodeStore::CodeStore(Machine&, const MachineCodeOptions&) {}
CodeStore::~CodeStore() = default;

bool CodeStore::isAvailable() {
    return false;
}
CodeStore::Outcome CodeStore::enterLoop(const Instruction*) {
    return Outcome::NotEntered;
}
CodeStore::Outcome CodeStore::enterProcedure() {
    return Outcome::NotEntered;
}
void CodeStore::throwError() {
    std::abort();
}
std::vector<MachineCodeCount> CodeStore::counts() const {
    return {};
}
std::size_t CodeStore::bytes() const {
    return 0;
}

}  // namespace tolvan::script::native
