// How an engine writes numbers, Booleans and dates as text for its scripts, and reads them back. This class does
// it as plain VBScript; a host that shows text in a form of its own derives from it.
#pragma once

#include <string>
#include <string_view>

namespace tolvan::script {

class TextForm {
  public:
    TextForm() = default;
    TextForm(const TextForm&) = delete;
    TextForm& operator=(const TextForm&) = delete;
    virtual ~TextForm() = default;

    // `plain` is the number as VBScript writes it: 15 significant digits, "-2.5", "1E+15", "-1.5E-07".
    virtual std::string number(std::string_view plain) const { return std::string(plain); }
    virtual std::string date(std::string_view plain) const { return std::string(plain); }
    virtual std::string boolean(bool on) const { return on ? "True" : "False"; }

    // The plain form of a text that the script uses as a number, Boolean or date.
    virtual std::string plain(std::string_view text) const { return std::string(text); }
    // True if `plain` returns every text unchanged; saves the engine the copy.
    virtual bool isPlain() const { return true; }
};

}  // namespace tolvan::script
