// A numbered error of the script language, on its way from where it happened to the script's own error handling, or to
// the host if the script has none. Hosts throw it too, to raise an error in the script that called them.
#pragma once

#include <string>
#include <utility>

namespace tolvan::script {

class ScriptError {
  public:
    // Without a description the script sees the documented text of the number (see errorText.h).
    explicit ScriptError(int errorNumber, std::string text = {}, std::string from = {})
        : number(errorNumber), description(std::move(text)), source(std::move(from)) {}

    int number;
    std::string description;
    std::string source;
};

// The numbers that the engine itself raises at run time; the syntax errors (1001 to 1058) stand in SyntaxError.h.
namespace errors {
inline constexpr int InvalidCall = 5;
inline constexpr int Overflow = 6;
inline constexpr int OutOfMemory = 7;
inline constexpr int Subscript = 9;
inline constexpr int ArrayLocked = 10;
inline constexpr int DivisionByZero = 11;
inline constexpr int TypeMismatch = 13;
inline constexpr int OutOfStack = 28;
inline constexpr int UndefinedProcedure = 35;
inline constexpr int ObjectNotSet = 91;
inline constexpr int ForNotInitialised = 92;
inline constexpr int InvalidNull = 94;
inline constexpr int ObjectRequired = 424;
inline constexpr int CannotCreateObject = 429;
inline constexpr int NoSuchMember = 438;
inline constexpr int NamedArgumentNotFound = 448;
inline constexpr int ArgumentNotOptional = 449;
inline constexpr int ArgumentCount = 450;
inline constexpr int NotACollection = 451;
inline constexpr int UndefinedVariable = 500;
inline constexpr int IllegalAssignment = 501;
inline constexpr int ClassNotDefined = 506;
// The time that Executor::setTimeout allows has passed.
inline constexpr int TimedOut = 113;
}  // namespace errors

}  // namespace tolvan::script
