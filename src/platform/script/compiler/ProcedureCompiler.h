// Makes the instructions of one procedure from its tree. Throws SyntaxError where it gets too big.
#pragma once

#include "platform/script/Context.h"
#include "platform/script/compiler/CodeBuilder.h"
#include "platform/script/compiler/Scope.h"
#include "platform/script/syntax/Ast.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <vector>

namespace tolvan::script {

class ProcedureCompiler {
  public:
    ProcedureCompiler(ModuleScope& module, ProcedureScope& scope, const std::vector<Value>& literals, Context& context,
                      Procedure& procedure);

    void compileBody(const Block& body, std::uint32_t lastLine);
    // A procedure whose result is the expression.
    void compileExpression(const Expr& expression);

  private:
    // What a name stands for, here.
    struct Binding {
        enum class Kind : std::uint8_t {
            Register,
            Referred,  // a register with a reference
            Outside,   // a variable at a fixed place
            Field,
            Method,  // of the own class
            Constant,
            Procedure,
            HostObject,
            HostMember,
            Builtin,
            Special,
            Class,
            Late,  // see ProcedureScope::firstLate
            Undefined,
        };
        Kind kind = Kind::Undefined;
        NameId name = 0;
        std::uint32_t index = 0;  // of the register or field
        Value* variable = nullptr;
        const Value* constant = nullptr;
        const Symbol* symbol = nullptr;

        bool isVariable() const { return kind <= Kind::Field; }
        bool mayBeVariable() const { return isVariable() || kind == Kind::Late; }
    };
    enum class Use { Value, Callee };
    Binding bind(NameId name, Use use = Use::Value);

    // Expressions.
    struct Operand {
        bool isConstant;
        std::uint32_t index;
    };
    Operand operand(const Expr& expression);
    // Like operand, and safe from changes that `later` makes to variables before it is used.
    Operand operandBefore(const Expr& expression, const Expr* later);
    std::uint32_t inRegister(Operand operand);
    void into(const Expr& expression, std::uint32_t target);
    void nameInto(const Expr& name, std::uint32_t target);
    void unaryInto(const Expr& expression, std::uint32_t target);
    void binaryInto(const Expr& expression, std::uint32_t target);
    // Of a comparison: what can be a constant is the right one.
    struct ComparedOperands {
        std::uint32_t left;
        Operand right;
        bool isSwapped;
    };
    ComparedOperands comparedOperands(const Expr& expression);
    void comparisonInto(const Expr& expression, std::uint32_t target);
    void loadConstant(const Value& value, std::uint32_t target);
    bool literalOf(const Expr& expression, Value& value) const;
    bool mayChange(const Expr& expression, NameId variable);
    bool callMayChange(const Expr& call, NameId variable);
    void condition(const Expr& expression, Label& target, bool jumpWhen);
    void comparisonJump(const Expr& expression, bool inverted, Label& target, bool jumpWhen);
    bool allOrAny(const Expr& expression, Label& target, bool jumpWhen);
    bool isTruthValue(const Expr& expression);

    // Calls and elements.
    enum class Wanted { Value, Nothing };
    void callInto(const Expr& call, std::uint32_t target, Wanted wanted);
    void memberInto(const Expr& member, std::span<Expr* const> arguments, std::uint32_t target);
    void indexInto(std::uint32_t array, std::span<Expr* const> arguments, std::uint32_t target, bool let);
    class CallFrame;
    void passArguments(std::span<Expr* const> arguments, CallFrame& frame, const std::vector<bool>* byReference);
    bool isReferable(const Expr& argument);
    bool isElement(const Expr& argument);
    void passReference(const Expr& argument, std::uint32_t target, std::uint32_t pin);
    void callProcedure(const Symbol& symbol, std::span<Expr* const> arguments, std::uint32_t target);
    void callHost(const HostMember* member, std::span<Expr* const> arguments, std::uint32_t target);
    void callBuiltin(const Builtin& builtin, NameId name, std::span<Expr* const> arguments, std::uint32_t target);
    void callSpecial(Special special, NameId name, std::span<Expr* const> arguments, std::uint32_t target);
    void callOwnMember(NameId name, std::span<Expr* const> arguments, std::uint32_t target);
    void callMissing(std::span<Expr* const> arguments, int number, NameId name);
    LateUse lateUse(const Binding& late) const;
    void callLate(const Binding& late, std::span<Expr* const> arguments, std::uint32_t target, Wanted wanted);
    void passLate(const Binding& late, const Expr& argument, std::uint32_t target, std::uint32_t pin);
    const HostObject* hostObject(const Expr& expression);
    // A register from which element instructions reach a variable: the variable itself, or a reference to it. A name
    // that is bound late has to be a variable by then.
    std::uint32_t place(const Binding& binding);
    std::uint32_t placeOf(const Expr& expression);
    std::uint32_t evaluateInOrder(std::span<Expr* const> expressions);
    std::uint32_t evaluatePlain(std::span<Expr* const> expressions);

    // Polls.
    const HostMember* polledMember(const Expr& condition);
    const HostMember* pollOf(const IfStmt& statement, const CallStmt*& otherwise);
    bool isRaise(const CallStmt& statement);
    void poll(const HostMember* polled, const CallStmt& otherwise);
    bool startsWithPoll(const Block& body);
    bool isIdlePoll(const Stmt& statement, std::uint32_t endLine);
    void emitColdCode();

    // Statements.
    // The line at which the block ends is only of use for polls: see isIdlePoll.
    static constexpr std::uint32_t unknownLine = 0;
    static constexpr std::uint32_t endsIdly = UINT32_MAX;
    void block(const Block& body, std::uint32_t endLine = unknownLine);
    void statement(const Stmt& statement);
    void callStatement(const CallStmt& statement);
    void dim(const DimStmt& statement);
    void makeArray(const Variable& variable, std::uint32_t placeRegister);
    void reDim(const ReDimStmt& statement);
    void erase(const EraseStmt& statement);
    void ifStatement(const IfStmt& statement);
    void select(const SelectStmt& statement);
    void forLoop(const ForStmt& statement);
    void forEach(const ForEachStmt& statement);
    void leaveBlock(Label& end);
    void leaveAfterError(Label& end);
    void loop(const LoopStmt& statement);
    void loopInTextOrder(const LoopStmt& statement);
    void with(const WithStmt& statement);
    void exit(const ExitStmt& statement);

    // Assignments.
    void assign(const AssignStmt& statement);
    void assignRegister(const AssignStmt& statement, std::uint32_t reg);
    struct Tails;
    bool append(const AssignStmt& statement, const Binding& binding);
    void appendQuietly(const Tails& tails, const Binding& binding);
    void appendParts(const AssignStmt& statement, const Tails& tails, const Binding& binding);
    bool appendElement(const AssignStmt& statement);
    bool isSameElement(const Expr& one, const Expr& other);
    bool mayAppend(const Tails& tails, NameId variable);
    bool isQuiet(const Expr& expression, NameId variable);
    void assignName(const AssignStmt& statement);
    void assignMember(const AssignStmt& statement, const Expr& member, std::span<Expr* const> arguments);
    void putMember(const AssignStmt& statement, const Expr& object, NameId name, std::span<Expr* const> arguments);
    void assignElement(const AssignStmt& statement);
    void assignHost(const HostMember* member, const AssignStmt& statement, std::span<Expr* const> arguments);
    void putOwnMember(NameId name, const AssignStmt& statement, std::span<Expr* const> arguments);
    void putInto(std::uint32_t array, std::span<Expr* const> arguments, const AssignStmt& statement);
    // Assigns the value in a temporary.
    void store(const Binding& binding, std::uint32_t from, bool isSet);
    // Emits an instruction that always raises this error; `name` is what the error is about.
    void raise(int number, NameId name);

    // A poll may be left out directly after another one (see poll()). Not after an instruction that may run code of the
    // host or of scripts, nor where branches of the code join.
    void forgetPoll() { lastPolled_ = nullptr; }
    void bindLabel(Label& label) {
        code_.bind(label);
        forgetPoll();
    }

    struct Loop {
        ExitKind kind;
        Label* exit;
    };
    // Code that seldom runs. It is written after the procedure's end, where it is not in the way, and uses the
    // registers that are free at the place it belongs to.
    struct ColdCode {
        std::function<void()> write;
        std::uint32_t line;
        std::uint32_t firstRegister;
        std::uint32_t withRegister;
    };
    void addColdCode(std::function<void()> write) {
        cold_.push_back({std::move(write), line_, code_.registerMark(), withRegister_});
    }
    // Labels stay until the procedure is finished.
    Label& newLabel() { return labels_.emplace_back(); }
    // Those of an expression; none if it begins in another line than the statement.
    Columns placeIn(const Expr& expression) const { return expression.line == line_ ? expression.columns : Columns(); }
    void mark(std::uint32_t line) {
        line_ = line;
        code_.mark(line);
    }

    ModuleScope& module_;
    ProcedureScope& scope_;
    const std::vector<Value>& literals_;
    Context& context_;
    CodeBuilder code_;
    std::vector<Loop> loops_;
    std::uint32_t withRegister_ = 0;
    std::deque<ColdCode> cold_;
    std::deque<Label> labels_;
    std::uint32_t line_ = 0;                  // of the statement
    const HostMember* lastPolled_ = nullptr;  // what was polled last, if it would still give the same answer
};

}  // namespace tolvan::script
