#include "guide/Syntax.h"

#include "platform/script/syntax/Parser.h"
#include "platform/script/syntax/SyntaxError.h"
#include "translator/Translator.h"

namespace tolvan::guide {
namespace {

// The lines around a line that make it a whole.
struct Frame {
    std::string_view before;
    std::string_view after;
};

Frame frameOf(Role role) {
    switch (role) {
        case Role::FunctionHead:
            return {"", "\nEnd Function"};
        case Role::FunctionEnd:
            return {"Function a\n", ""};
        case Role::If:
            return {"", "\nEND IF"};
        case Role::ElseIf:
        case Role::Else:
            return {"IF 1 THEN\n", "\nEND IF"};
        case Role::EndIf:
            return {"IF 1 THEN\n", ""};
        case Role::For:
            return {"", "\nNEXT"};
        case Role::Next:
            return {"FOR a = 1 TO 2\n", ""};
        case Role::While:
            return {"", "\nWEND"};
        case Role::Wend:
            return {"WHILE 1\n", ""};
        default:
            return {};
    }
}

int parse(const std::string& module) {
    script::Names names;
    try {
        script::Parser(module, names).parseModule();
        return 0;
    } catch (const script::SyntaxError& error) {
        return static_cast<int>(error.number);
    }
}

}  // namespace

int syntaxError(const Line& line) {
    if (line.checkedSyntax) return *line.checkedSyntax;
    if (line.statement.role == Role::Nothing || line.statement.role == Role::End) {
        line.checkedSyntax = 0;
    } else {
        StyledText statement(line.program);
        statement.append(" ", Font::Latin);
        const Frame frame = frameOf(line.statement.role);
        std::string module(frame.before);
        module.append(Translator().TranslateLine(statement)).append(frame.after);
        line.checkedSyntax = parse(module);
    }
    return *line.checkedSyntax;
}

}  // namespace tolvan::guide
