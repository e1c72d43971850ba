// The syntax tree of a module. All nodes lie in the arena of their Module; lines are 1-based.
#pragma once

#include "platform/script/Value.h"
#include "platform/script/syntax/Arena.h"
#include "platform/script/syntax/Names.h"
#include "platform/script/syntax/Token.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tolvan::script {

// Columns of a line, 1-based; `end` is the first one behind. 0: not known, as where the text goes on in another line.
struct Columns {
    std::uint32_t start = 0;
    std::uint32_t end = 0;

    friend bool operator==(const Columns&, const Columns&) = default;
};

enum class ExprKind : std::uint8_t {
    Literal,
    Name,
    Member,  // left.name
    Call,    // left(arguments): a call or an element; which, is known when the name is resolved
    Unary,   // op left
    Binary,  // left op right
    Group,   // (left): a value, never a variable
    New,     // New name
    Me,
    WithTarget,  // the object of the innermost With
    Missing,     // an argument left out
};

struct Expr {
    ExprKind kind;
    Token op = Token::EndOfFile;  // of Unary and Binary
    std::uint16_t depth = 1;      // of the tree below, this node included
    std::uint32_t line = 0;       // on which it begins
    Columns columns{};
    NameId name = 0;
    std::uint32_t literal = 0;
    Expr* left = nullptr;
    Expr* right = nullptr;
    std::span<Expr*> arguments{};
};

enum class StmtKind : std::uint8_t {
    Assign,
    Call,
    Dim,
    ReDim,
    Erase,
    Const,
    If,
    Select,
    For,
    ForEach,
    Loop,
    With,
    Exit,
    OnError,
    Stop,
};

struct Stmt {
    StmtKind kind;
    std::uint32_t line;
    Stmt* next = nullptr;
};

// Statements in their order.
struct Block {
    Stmt* first = nullptr;
    Stmt* last = nullptr;
    void append(Stmt* statement) {
        (first == nullptr ? first : last->next) = statement;
        last = statement;
    }
};

struct AssignStmt : Stmt {
    Expr* target;
    Expr* value;
    bool isSet;
};

struct CallStmt : Stmt {
    Expr* call;  // a Call, even where the statement has neither arguments nor parentheses
};

struct Variable {
    NameId name;
    bool isArray = false;       // with parentheses
    std::span<Expr*> bounds{};  // upper bounds; none: "Dim a()"
    Columns columns{};
};

struct DimStmt : Stmt {
    std::span<Variable> variables;
};

struct ReDimStmt : Stmt {
    struct Target {
        Expr* array;
        std::span<Expr*> bounds;
    };
    std::span<Target> targets;
    bool preserve;
};

struct EraseStmt : Stmt {
    Expr* array;
};

struct ConstStmt : Stmt {
    NameId name;
    Expr* value;  // a literal, or a literal after a minus
    bool isPrivate;
};

struct IfStmt : Stmt {
    struct Branch {
        Expr* condition;  // null: Else
        Block body;
        std::uint32_t line;
    };
    std::span<Branch> branches;
};

struct SelectStmt : Stmt {
    struct Case {
        std::span<Expr*> values;  // none: Case Else
        Block body;
        std::uint32_t line;
    };
    Expr* subject;
    std::span<Case> cases;
};

struct ForStmt : Stmt {
    Expr* variable;
    Expr* from;
    Expr* to;
    Expr* step;  // null: 1
    Block body;
};

struct ForEachStmt : Stmt {
    Expr* variable;
    Expr* group;
    Block body;
};

// While, and Do in its five forms.
struct LoopStmt : Stmt {
    enum class Test : std::uint8_t { Before, After, Never };
    Expr* condition;
    Block body;
    std::uint32_t testLine;
    Test test;
    bool isUntil;
    bool isDo;  // Exit Do leaves it
};

struct WithStmt : Stmt {
    Expr* object;
    Block body;
};

enum class ExitKind : std::uint8_t { Do, For, Function, Property, Sub };
struct ExitStmt : Stmt {
    ExitKind what;
};

struct OnErrorStmt : Stmt {
    bool resumeNext;
};

enum class ProcedureKind : std::uint8_t { Sub, Function, PropertyGet, PropertyLet, PropertySet };

struct Parameter {
    NameId name;
    bool byValue = false;
};

struct ProcedureNode {
    ProcedureKind kind;
    NameId name;
    std::span<Parameter> parameters;
    Block body;
    std::uint32_t line;
    std::uint32_t endLine;
    bool isPrivate = false;
    bool isDefault = false;
};

struct FieldNode {
    Variable variable;
    bool isPrivate;
    std::uint32_t line;
};

struct ClassNode {
    NameId name;
    std::uint32_t line;
    std::vector<FieldNode> fields;
    std::vector<ProcedureNode*> members;
};

struct Module {
    explicit Module(Heap* heap) : arena(heap) {}

    Arena arena;
    std::vector<Value> literals;
    Block body;  // the statements outside procedures
    std::vector<ProcedureNode*> procedures;
    std::vector<ClassNode> classes;
    bool optionExplicit = false;
    std::uint32_t lastLine = 1;
};

}  // namespace tolvan::script
