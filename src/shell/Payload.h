// What a stand-alone executable holds after the bytes of its runtime: a marker line, the program's caption line and
// its script module, scrambled.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tolvan {

struct Payload {
    std::string caption;  // in Roman letters, one line, may be empty
    std::string module;   // as the translator makes it
};

// The scrambled bytes. A line end in the caption would end it, so the caption is written up to there.
std::string buildPayload(const Payload& payload);

// Nothing for bytes that are damaged or cut off, as far as that can be seen: without the marker, without the caption's
// end, or with a module that does not begin and end its main routine.
std::optional<Payload> readPayload(std::string_view scrambled);

}  // namespace tolvan
