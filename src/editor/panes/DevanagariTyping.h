// Devanagari typed into the Roman pane becomes Roman text.
#pragma once

#include "platform/devanagariinput/DevanagariInput.h"

namespace tolvan {

class RomanBox;
class RomanInput;

// What it refuses, the box says.
class DevanagariTyping : public DevanagariInput {
    Q_OBJECT
  public:
    // Both must outlive it.
    DevanagariTyping(RomanBox& roman, const RomanInput& input);
};

}  // namespace tolvan
