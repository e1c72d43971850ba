// A numbered error of the script language, on its way from where it happened to the script's own error handling, or to
// the host if the script has none. Hosts throw it too, to raise an error in the script that called them.
#pragma once

#include <string>
#include <utility>

namespace tolvan::script {

class ScriptError {
  public:
    // Without a description the script sees the documented text of the number (see ErrorText.h).
    explicit ScriptError(int errorNumber, std::string text = {}, std::string from = {})
        : number(errorNumber), description(std::move(text)), source(std::move(from)) {}

    int number;
    std::string description;
    std::string source;
};

// The numbers that the engine itself raises at run time; the syntax errors (1001 to 1058) stand in SyntaxError.h.
namespace errors {
inline constexpr int invalidCall = 5;
inline constexpr int overflow = 6;
inline constexpr int outOfMemory = 7;
inline constexpr int subscript = 9;
inline constexpr int arrayLocked = 10;
inline constexpr int divisionByZero = 11;
inline constexpr int typeMismatch = 13;
inline constexpr int outOfStack = 28;
inline constexpr int undefinedProcedure = 35;
inline constexpr int objectNotSet = 91;
inline constexpr int forNotInitialised = 92;
inline constexpr int invalidNull = 94;
inline constexpr int objectRequired = 424;
inline constexpr int cannotCreateObject = 429;
inline constexpr int noSuchMember = 438;
inline constexpr int namedArgumentNotFound = 448;
inline constexpr int argumentNotOptional = 449;
inline constexpr int argumentCount = 450;
inline constexpr int notACollection = 451;
inline constexpr int undefinedVariable = 500;
inline constexpr int illegalAssignment = 501;
inline constexpr int classNotDefined = 506;
// The time that Executor::setTimeout allows has passed.
inline constexpr int timedOut = 113;
}  // namespace errors

}  // namespace tolvan::script
