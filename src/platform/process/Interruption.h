// Ending a program before its own end.
#pragma once

#include <cstdint>
#include <string_view>

namespace tolvan {

// Has Ctrl+C and the system's other requests to end call `handler`, which may only set a flag of type
// volatile std::sig_atomic_t, instead of ending the program.
void onRequestToEnd(void (*handler)());

// After so many milliseconds by the clock, writes the text, which must live on, to standard error, and ends the program
// with that status, whatever it is doing.
void endAfter(std::uint64_t milliseconds, std::string_view text, int status);

// Ends the program at once, without what C++ does at the end.
[[noreturn]] void endNow(int status);

}  // namespace tolvan
