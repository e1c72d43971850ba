// Without a display no window can be opened: that is told in a line of text, and the process ends with status 1.
#pragma once

namespace tolvan {

// To be called before the application object is made, and ended once it is there. In between, a failure of the window
// system ends the process, and its warnings are not shown.
class NoDisplayMessage {
  public:
    // `program`: the name that the line begins with; lives as long as the process.
    explicit NoDisplayMessage(const char* program);
    NoDisplayMessage(const NoDisplayMessage&) = delete;
    NoDisplayMessage& operator=(const NoDisplayMessage&) = delete;
    ~NoDisplayMessage() { end(); }

    void end();
};

}  // namespace tolvan
