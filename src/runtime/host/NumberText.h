// Numbers and Booleans as a program shows and reads them: in internal text form, where a digit is a digit in either
// font and everything else of a number (sign, decimal point, exponent mark) is Latin and stands in braces.
#pragma once

#include "platform/script/TextForm.h"

#include <string>
#include <string_view>

namespace tolvan {

// "-2.5" is "{-}2{.}5", "1E+15" is "1{E+}15".
std::string markNumber(std::string_view plain);
// The text without the braces that mark runs.
std::string withoutRunMarks(std::string_view text);

class NumberText : public script::TextForm {
  public:
    std::string number(std::string_view plain) const override { return markNumber(plain); }
    std::string date(std::string_view plain) const override { return markNumber(plain); }
    // The words of the message table.
    std::string boolean(bool on) const override;
    std::string plain(std::string_view text) const override { return withoutRunMarks(text); }
    bool isPlain() const override { return false; }
};

}  // namespace tolvan
