// The functions that would reach outside the program: other programs, files, windows that the host did not open. A
// program from a stranger can do no more than the host's objects let it, so they raise 429.
#include "platform/script/library/FunctionArguments.h"

namespace tolvan::script {

namespace {

Value refused(Context&, ArgumentList) {
    raise(errors::cannotCreateObject);
}

constexpr Builtin functions[] = {
    {"CreateObject", 1, 2, refused}, {"GetObject", 0, 2, refused}, {"InputBox", 1, 7, refused},
    {"LoadPicture", 0, 5, refused},  {"MsgBox", 1, 5, refused},
};

}  // namespace

std::span<const Builtin> outsideFunctions() {
    return functions;
}

}  // namespace tolvan::script
