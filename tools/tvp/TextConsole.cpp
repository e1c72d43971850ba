#include "tvp/TextConsole.h"

#include "platform/richtext/UnicodeText.h"
#include "platform/script/ScriptError.h"
#include "platform/transliteration/UnicodeToRoman.h"
#include "runtime/host/InputValue.h"
#include "runtime/host/ProgramDataFile.h"
#include "translator/Blanks.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace tolvan {

void TextConsole::PrintString(std::string_view text) {
    text = trimBlanks(text);
    const std::string unicode = lines_ == Lines::Unicode ? unicodeOfInternalText(text) : std::string();
    const std::string_view line = lines_ == Lines::Unicode ? unicode : text;
    if (line.size() >= space_) printedTooMuch_ = true;
    if (printedTooMuch_) return StopExecution();
    space_ -= line.size() + 1;
    output_.writeLine(line);
}

std::optional<std::string> TextConsole::InputString() {
    flush();
    const std::optional<std::string> typed = input_.next();
    if (!typed) throw script::ScriptError(script::errors::inputPastEnd);
    return inputValue(lines_ == Lines::Unicode ? romanOfUnicode(*typed, RomanUse::Program) : *typed);
}

bool TextConsole::CheckForEvents() {
    flush();
    if (output_.failure() != 0) stopped_ = true;
    return !stopped_;
}

std::string TextConsole::ReadKey() {
    if (keys_.empty()) return {};
    std::string key = std::move(keys_.front());
    keys_.pop_front();
    return key;
}

void TextConsole::Wait(double seconds) {
    constexpr double year = 365.0 * 24 * 3600;  // what the clock can count
    flush();
    if (seconds > 0) std::this_thread::sleep_for(std::chrono::duration<double>(std::min(seconds, year)));
}

void TextConsole::flush() {
    output_.flush();
    messages_.flush();
}

void TextConsole::FileOpenFailed(int number) {
    throw script::ScriptError(number);
}

}  // namespace tolvan
