// A numbered error of the script language, on its way from where it happened to the script's own error handling, or to
// the host if the script has none. Hosts throw it too, to raise an error in the script that called them.
#pragma once

#include "platform/script/Errors.h"

#include <string>
#include <utility>

namespace tolvan::script {

class ScriptError {
  public:
    // Without a description the script sees the documented text of the number.
    explicit ScriptError(int errorNumber, std::string text = {}, std::string from = {})
        : number(errorNumber), description(std::move(text)), source(std::move(from)) {}

    int number;
    std::string description;
    std::string source;
};

}  // namespace tolvan::script
