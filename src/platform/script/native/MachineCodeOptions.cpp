#include "platform/script/native/MachineCode.h"

#include <charconv>
#include <cstdlib>
#include <cstring>

namespace tolvan::script {

MachineCodeOptions MachineCodeOptions::fromEnvironment() {
    MachineCodeOptions options;
    const char* text = std::getenv("TOLVAN_MACHINE_CODE");
    if (text == nullptr) return options;
    if (std::strcmp(text, "off") == 0) options.hotAfter = never;
    std::uint32_t number = 0;
    const auto read = std::from_chars(text, text + std::strlen(text), number);
    if (read.ec == std::errc() && *read.ptr == '\0') options.hotAfter = number < never ? number : never;
    return options;
}

}  // namespace tolvan::script
