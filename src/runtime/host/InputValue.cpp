#include "runtime/host/InputValue.h"

#include "platform/richtext/InternalText.h"
#include "translator/ProgramText.h"

namespace tolvan {

std::string inputValue(std::string_view typed) {
    return RomanMark(Transliterate(typed));
}

}  // namespace tolvan
