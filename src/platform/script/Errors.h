// Every error number of the language in one list: the name that the code uses, the number that scripts and hosts see,
// and the documented text, which Err.Description and ErrorReport::description give. The lists tell where a number comes
// from; a number stands in one of them only.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace tolvan::script {

// clang-format off

// Raised by the engine while a script runs.
#define TOLVAN_RUNTIME_ERRORS(X) \
    X(invalidCall, 5, "Invalid procedure call or argument") \
    X(overflow, 6, "Overflow") \
    X(outOfMemory, 7, "Out of memory") \
    X(subscript, 9, "Subscript out of range") \
    X(arrayLocked, 10, "This array is fixed or temporarily locked") \
    X(divisionByZero, 11, "Division by zero") \
    X(typeMismatch, 13, "Type mismatch") \
    X(outOfStack, 28, "Out of stack space") \
    X(undefinedProcedure, 35, "Sub or Function not defined") \
    X(objectNotSet, 91, "Object variable not set") \
    X(forNotInitialised, 92, "For loop not initialized") \
    X(invalidNull, 94, "Invalid use of Null") \
    X(timedOut, 113, "Script timed out") \
    X(objectRequired, 424, "Object required") \
    X(cannotCreateObject, 429, "ActiveX component can't create object") \
    X(noSuchMember, 438, "Object doesn't support this property or method") \
    X(localeNotSupported, 447, "Object doesn't support current locale setting") \
    X(namedArgumentNotFound, 448, "Named argument not found") \
    X(argumentNotOptional, 449, "Argument not optional") \
    X(argumentCount, 450, "Wrong number of arguments or invalid property assignment") \
    X(notACollection, 451, "Object not a collection") \
    X(undefinedVariable, 500, "Variable is undefined") \
    X(illegalAssignment, 501, "Illegal assignment") \
    X(classNotDefined, 506, "Class not defined")

// Raised by a host whose objects work with files, besides invalidCall.
#define TOLVAN_FILE_ERRORS(X) \
    X(outOfStringSpace, 14, "Out of string space") \
    X(badFileNameOrNumber, 52, "Bad file name or number") \
    X(fileNotFound, 53, "File not found") \
    X(badFileMode, 54, "Bad file mode") \
    X(fileAlreadyOpen, 55, "File already open") \
    X(deviceError, 57, "Device I/O error") \
    X(diskFull, 61, "Disk full") \
    X(inputPastEnd, 62, "Input past end of file") \
    X(tooManyFiles, 67, "Too many files") \
    X(permissionDenied, 70, "Permission denied") \
    X(pathAccess, 75, "Path/File access error") \
    X(pathNotFound, 76, "Path not found")

// Found in the text of a module before anything of it runs. TooBig: also nested too deep, or too many names or arguments.
// (A translated program that was stopped raises 1001, too: its host knows by its own state.) Of the documented numbers
// these have no use: 1003 (':'), 1027 (a statement may end where While and Until are expected: 1028), 1034 (comments end
// with their line) and 1043 (every argument can be assigned to).
#define TOLVAN_SYNTAX_ERRORS(X) \
    X(OutsideWith, 505, "Invalid or unqualified reference") \
    X(TooBig, 1001, "Out of memory") \
    X(General, 1002, "Syntax error") \
    X(ExpectedOpen, 1005, "Expected '('") \
    X(ExpectedClose, 1006, "Expected ')'") \
    X(ExpectedCloseBracket, 1007, "Expected ']'") \
    X(ExpectedIdentifier, 1010, "Expected identifier") \
    X(ExpectedEqual, 1011, "Expected '='") \
    X(ExpectedIf, 1012, "Expected 'If'") \
    X(ExpectedTo, 1013, "Expected 'To'") \
    X(ExpectedEnd, 1014, "Expected 'End'") \
    X(ExpectedFunction, 1015, "Expected 'Function'") \
    X(ExpectedSub, 1016, "Expected 'Sub'") \
    X(ExpectedThen, 1017, "Expected 'Then'") \
    X(ExpectedWend, 1018, "Expected 'Wend'") \
    X(ExpectedLoop, 1019, "Expected 'Loop'") \
    X(ExpectedNext, 1020, "Expected 'Next'") \
    X(ExpectedCase, 1021, "Expected 'Case'") \
    X(ExpectedSelect, 1022, "Expected 'Select'") \
    X(ExpectedExpression, 1023, "Expected expression") \
    X(ExpectedStatement, 1024, "Expected statement") \
    X(ExpectedEndOfStatement, 1025, "Expected end of statement") \
    X(ExpectedInteger, 1026, "Expected integer constant") \
    X(ExpectedWhileUntilOrEnd, 1028, "Expected 'While', 'Until' or end of statement") \
    X(ExpectedWith, 1029, "Expected 'With'") \
    X(IdentifierTooLong, 1030, "Identifier too long") \
    X(InvalidNumber, 1031, "Invalid number") \
    X(InvalidCharacter, 1032, "Invalid character") \
    X(UnterminatedString, 1033, "Unterminated string constant") \
    X(InvalidMe, 1037, "Invalid use of 'Me' keyword") \
    X(LoopWithoutDo, 1038, "'loop' without 'do'") \
    X(InvalidExit, 1039, "Invalid 'exit' statement") \
    X(InvalidForVariable, 1040, "Invalid 'for' loop control variable") \
    X(NameRedefined, 1041, "Name redefined") \
    X(NotFirstOnLine, 1042, "Must be first statement on the line") \
    X(ParenthesesOnSub, 1044, "Cannot use parentheses when calling a Sub") \
    X(ExpectedLiteral, 1045, "Expected literal constant") \
    X(ExpectedIn, 1046, "Expected 'In'") \
    X(ExpectedClass, 1047, "Expected 'Class'") \
    X(OutsideClass, 1048, "Must be defined inside a Class") \
    X(ExpectedLetSetGet, 1049, "Expected Let or Set or Get in property declaration") \
    X(ExpectedProperty, 1050, "Expected 'Property'") \
    X(ArgumentsDiffer, 1051, "Number of arguments must be consistent across properties specification") \
    X(SecondDefault, 1052, "Cannot have multiple default property/method in a Class") \
    X(InitializeArguments, 1053, "Class initialize or terminate do not have arguments") \
    X(PropertyWithoutArgument, 1054, "Property set or let must have at least one argument") \
    X(UnexpectedNext, 1055, "Unexpected 'Next'") \
    X(DefaultOnMember, 1056, "'Default' can be specified only on 'Property' or 'Function' or 'Sub'") \
    X(DefaultWithoutPublic, 1057, "'Default' specification must also specify 'Public'") \
    X(DefaultOnGet, 1058, "'Default' specification can only be on Property Get")

// Raised by nobody but scripts themselves: Err.Raise gives them their documented text.
#define TOLVAN_OTHER_ERRORS(X) \
    X(17, "Can't perform requested operation") \
    X(48, "Error in loading DLL") \
    X(51, "Internal error") \
    X(58, "File already exists") \
    X(68, "Device unavailable") \
    X(71, "Disk not ready") \
    X(74, "Can't rename with different drive") \
    X(93, "Invalid pattern string") \
    X(322, "Can't create necessary temporary file") \
    X(430, "Class doesn't support Automation") \
    X(432, "File name or class name not found during Automation operation") \
    X(440, "Automation error") \
    X(445, "Object doesn't support this action") \
    X(446, "Object doesn't support named arguments") \
    X(453, "Specified DLL function not found") \
    X(455, "Code resource lock error") \
    X(457, "This key is already associated with an element of this collection") \
    X(458, "Variable uses an Automation type not supported in VBScript") \
    X(462, "The remote server machine does not exist or is unavailable") \
    X(481, "Invalid picture") \
    X(502, "Object not safe for scripting") \
    X(503, "Object not safe for initializing") \
    X(504, "Object not safe for creating") \
    X(507, "An exception occurred") \
    X(1003, "Expected ':'") \
    X(1027, "Expected 'While' or 'Until'") \
    X(1034, "Unterminated comment") \
    X(1043, "Cannot assign to non-ByVal argument") \
    X(5016, "Regular Expression object expected") \
    X(5017, "Syntax error in regular expression") \
    X(5018, "Unexpected quantifier") \
    X(5019, "Expected ']' in regular expression") \
    X(5020, "Expected ')' in regular expression") \
    X(5021, "Invalid range in character set") \
    X(32811, "Element not found") \
    X(32812, "The specified date is not available in the current locale's calendar")

// clang-format on

namespace errors {
// clang-format off
#define X(name, number, text) inline constexpr int name = number;
TOLVAN_RUNTIME_ERRORS(X)
TOLVAN_FILE_ERRORS(X)
#undef X
// clang-format on
}  // namespace errors

enum class Syntax : int {
#define X(name, number, text) name = number,
    TOLVAN_SYNTAX_ERRORS(X)
#undef X
};

enum class ErrorOrigin : std::uint8_t { Runtime, Files, Syntax, Other };

struct ErrorRow {
    int number;
    ErrorOrigin origin;
    std::string_view text;
};

// All of them, by number.
std::span<const ErrorRow> errorRows();

// The documented text; "Unknown runtime error" for a number that has none.
std::string_view errorText(int number);

}  // namespace tolvan::script
