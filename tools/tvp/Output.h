// Bytes on their way to a file descriptor, written in large pieces. After a failure all further bytes are dropped, so
// that a caller need ask only now and then. On a terminal a control code is shown as "?": a program could change the
// terminal with it, or what it seems to have printed.
#pragma once

#include "platform/files/Descriptor.h"

#include <string>
#include <string_view>

namespace tolvan {

class Output {
  public:
    explicit Output(int descriptor);
    // Everything is dropped.
    Output() = default;
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;
    ~Output() { flush(); }

    void write(std::string_view bytes);
    void writeLine(std::string_view line);
    void flush();

    // The system's error number of the first write that failed; 0: none did.
    int failure() const { return failure_; }

  private:
    void writeThrough(std::string_view bytes);

    Descriptor descriptor_;
    bool isTerminal_ = false;
    int failure_ = 0;
    std::string waiting_;
};

}  // namespace tolvan
