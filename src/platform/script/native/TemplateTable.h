// Which machine code an instruction becomes: the table is in TemplateTable.cpp.
#pragma once

#include "platform/script/native/UnitCompiler.h"

namespace tolvan::script::native {

struct TemplateTable {
    static UnitCompiler::Template of(Op op);
};

}  // namespace tolvan::script::native
