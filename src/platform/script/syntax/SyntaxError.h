// The errors of a module's text, found before anything of it runs. Of the documented numbers the language never has a
// use for 1003 (':'), 1027 (a statement may end where While and Until are expected: 1028), 1034 (comments end with
// their line) and 1043 (every argument can be assigned to).
#pragma once

#include <cstdint>

namespace tolvan::script {

enum class Syntax : int {
    OutsideWith = 505,
    OutOfMemory = 1001,  // also: nested too deep, too many names or arguments
    General = 1002,
    ExpectedOpen = 1005,
    ExpectedClose = 1006,
    ExpectedCloseBracket = 1007,
    ExpectedIdentifier = 1010,
    ExpectedEqual = 1011,
    ExpectedIf = 1012,
    ExpectedTo = 1013,
    ExpectedEnd = 1014,
    ExpectedFunction = 1015,
    ExpectedSub = 1016,
    ExpectedThen = 1017,
    ExpectedWend = 1018,
    ExpectedLoop = 1019,
    ExpectedNext = 1020,
    ExpectedCase = 1021,
    ExpectedSelect = 1022,
    ExpectedExpression = 1023,
    ExpectedStatement = 1024,
    ExpectedEndOfStatement = 1025,
    ExpectedInteger = 1026,
    ExpectedWhileOrUntil = 1027,
    ExpectedWhileUntilOrEnd = 1028,
    ExpectedWith = 1029,
    IdentifierTooLong = 1030,
    InvalidNumber = 1031,
    InvalidCharacter = 1032,
    UnterminatedString = 1033,
    InvalidMe = 1037,
    LoopWithoutDo = 1038,
    InvalidExit = 1039,
    InvalidForVariable = 1040,
    NameRedefined = 1041,
    NotFirstOnLine = 1042,
    ParenthesesOnSub = 1044,
    ExpectedLiteral = 1045,
    ExpectedIn = 1046,
    ExpectedClass = 1047,
    OutsideClass = 1048,
    ExpectedLetSetGet = 1049,
    ExpectedProperty = 1050,
    ArgumentsDiffer = 1051,
    SecondDefault = 1052,
    InitializeArguments = 1053,
    PropertyWithoutArgument = 1054,
    UnexpectedNext = 1055,
    DefaultOnMember = 1056,
    DefaultWithoutPublic = 1057,
    DefaultOnGet = 1058,
};

// Thrown by lexer, parser and compiler; caught where a module is loaded.
struct SyntaxError {
    Syntax number;
    std::uint32_t line;    // 1-based
    std::uint32_t column;  // 1-based; 0: not known
};

}  // namespace tolvan::script
