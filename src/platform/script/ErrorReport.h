// How a load or a run ended, for hosts: plain values. Scripts see nothing of it but what Err has.
#pragma once

#include <string>
#include <vector>

namespace tolvan::script {

// A value that took part in the operation that failed, as it was when the error was raised.
struct ErrorOperand {
    // The variable, element ("t(i)") or called function that it came from, in the script's spelling; empty for a
    // literal and for the result of a calculation.
    std::string name;
    // As CStr writes it, in the engine's text form; at most `longestValue` bytes of it. Empty for Empty, Null, arrays
    // and objects.
    std::string value;
    std::string kind;  // as TypeName names it: "String", "Double", "Variant()", "Nothing"

    static constexpr std::size_t longestValue = 200;
};

// A procedure that was running.
struct ErrorCall {
    std::string procedure;  // empty: the statements outside procedures, or the source of Execute or Eval
    int line = 0;           // of the statement that failed or called, 1-based in its module or source
    // Of what failed or called in that line, 1-based, and the first one behind; 0: not known.
    int column = 0;
    int endColumn = 0;
};

struct ErrorReport {
    int number = 0;  // 0: it did not fail
    // 1-based line of the module that was added; of the statement for a run-time error, of the place for a syntax
    // error.
    int line = 0;
    // 1-based, of the smallest part of the line that holds what failed, and of the first character behind it; 0 if it
    // is not known, as where a statement goes on in another line. A syntax error is known by its first column only, and
    // a name that is declared twice by neither.
    int column = 0;
    int endColumn = 0;
    std::string description;
    std::string source;

    // What the statement asked for: the procedure, function or member that it called or assigned, the variable or class
    // that it did not find. Empty where the failing operation is not a call.
    std::string called;
    // What the failing operation worked on: both sides of an operator or comparison; the array and the indexes of an
    // element; the start (or counter), limit and step of a For; the arguments of a call, before them the object that a
    // member was asked of, after them the value that is assigned. In the order of the text, but a literal stands on the
    // right of +, * and comparisons, and "n - 1" is n and -1. Empty where the engine does not know, and for Err.Raise.
    std::vector<ErrorOperand> operands;
    // The procedures that were running, the innermost first; at most `deepestStack` of them. Empty for syntax errors.
    std::vector<ErrorCall> stack;

    static constexpr std::size_t deepestStack = 100;
};

}  // namespace tolvan::script
