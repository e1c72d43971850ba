// Which machine code an instruction becomes: the table is in TemplateTable.cpp.
#pragma once

#include "platform/script/native/UnitCompiler.h"

namespace tolvan::script::native {

struct TemplateTable {
    static UnitCompiler::Template of(Op op);
    // Whether it is more than a call of the interpreter.
    static bool has(Op op) { return of(op) != &UnitCompiler::helper && of(op) != &UnitCompiler::interpret; }
};

}  // namespace tolvan::script::native
