#include "platform/script/compiler/ProcedureCompiler.h"

#include <algorithm>

namespace tolvan::script {

namespace {

std::uint32_t countOf(std::span<Expr* const> expressions) {
    return static_cast<std::uint32_t>(expressions.size());
}

// Whether the value can be calculated straight in the variable's register, without a temporary: it is never an object
// (which would have to give its default member), and the register is written last.
bool isPlain(const Expr& value) {
    switch (value.kind) {
        case ExprKind::Literal:
        case ExprKind::Unary:
        case ExprKind::Binary:
            return true;
        case ExprKind::Group:
            return isPlain(*value.left);
        default:
            return false;
    }
}

}  // namespace

void ProcedureCompiler::assign(const AssignStmt& statement) {
    const CodePlace place(code_, placeIn(*statement.target));
    switch (statement.target->kind) {
        case ExprKind::Name:
            return assignName(statement);
        case ExprKind::Member:
            return assignMember(statement, *statement.target, {});
        case ExprKind::Call:
            return assignElement(statement);
        default:
            return raise(errors::illegalAssignment, 0);
    }
}

void ProcedureCompiler::store(const Binding& binding, std::uint32_t from, bool isSet) {
    switch (binding.kind) {
        case Binding::Kind::Register:
            code_.emit(isSet ? Op::SetTake : Op::LetTake, binding.index, from);
            return;
        case Binding::Kind::Referred:
            code_.emit(isSet ? Op::SetReferred : Op::LetReferred, binding.index, from);
            return;
        case Binding::Kind::Outside:
            code_.emitWithWord(isSet ? Op::SetGlobal : Op::LetGlobal, from, 0, 0, binding.variable);
            return;
        case Binding::Kind::Field:
            code_.emit(isSet ? Op::SetField : Op::LetField, from, binding.index);
            return;
        case Binding::Kind::Late:
            code_.emit(isSet ? Op::SetReferred : Op::LetReferred, place(binding), from);
            return;
        case Binding::Kind::Undefined:
            return raise(errors::undefinedVariable, binding.name);
        default:
            return raise(errors::illegalAssignment, binding.name);
    }
}

void ProcedureCompiler::assignName(const AssignStmt& statement) {
    const Temporaries temporaries(code_);
    const NameId name = statement.target->name;
    const Binding binding = bind(name);
    // A variable takes any value; what can fail is the value.
    const CodePlace codePlace(code_, placeIn(binding.isVariable() ? *statement.value : *statement.target));
    if (binding.mayBeVariable() && !statement.isSet && append(statement, binding)) return;
    if (binding.kind == Binding::Kind::Register && !statement.isSet) return assignRegister(statement, binding.index);
    if (binding.kind == Binding::Kind::HostMember) return assignHost(binding.symbol->member, statement, {});
    if (binding.kind == Binding::Kind::Method) return putOwnMember(name, statement, {});
    // "Err = 5" sets its number.
    const bool isErr = binding.kind == Binding::Kind::Constant && module_.engine().isErr(name);
    if (isErr && binding.constant->is(Type::Object) && !statement.isSet)
        return putMember(statement, *statement.target, defaultMemberName, {});
    const std::uint32_t value = code_.takeRegisters();
    into(*statement.value, value);
    store(binding, value, statement.isSet);
}

void ProcedureCompiler::assignRegister(const AssignStmt& statement, std::uint32_t reg) {
    const Expr& value = *statement.value;
    Value literal;
    if (isPlain(value) && (value.kind != ExprKind::Literal || literalOf(value, literal))) return into(value, reg);
    if (value.kind == ExprKind::Name) {
        const Binding from = bind(value.name);
        if (from.kind == Binding::Kind::Register) {
            code_.emit(Op::Let, reg, from.index);
            return;
        }
    }
    if (isElement(value) && value.arguments.size() == 1)
        return indexInto(place(bind(value.left->name, Use::Callee)), value.arguments, reg, true);
    const std::uint32_t temporary = code_.takeRegisters();
    into(value, temporary);
    code_.emit(Op::LetTake, reg, temporary);
}

// Whether evaluating the expression calls nothing but built-in functions and does not read the variable.
bool ProcedureCompiler::isQuiet(const Expr& expression, NameId variable) {
    switch (expression.kind) {
        case ExprKind::Literal:
        case ExprKind::Missing:
            return true;
        case ExprKind::Name: {
            const Binding binding = bind(expression.name);
            return expression.name != variable && (binding.isVariable() || binding.kind == Binding::Kind::Constant);
        }
        case ExprKind::Group:
        case ExprKind::Unary:
            return isQuiet(*expression.left, variable);
        case ExprKind::Binary:
            return isQuiet(*expression.left, variable) && isQuiet(*expression.right, variable);
        case ExprKind::Call: {
            if (expression.left->kind != ExprKind::Name || expression.left->name == variable) return false;
            const Binding callee = bind(expression.left->name, Use::Callee);
            if (!callee.isVariable() && callee.kind != Binding::Kind::Builtin) return false;
            const auto quiet = [&](const Expr* argument) { return isQuiet(*argument, variable); };
            return std::all_of(expression.arguments.begin(), expression.arguments.end(), quiet);
        }
        default:
            return false;
    }
}

// "base & a & b" taken apart into the base and the parts that are appended to it.
struct ProcedureCompiler::Tails {
    explicit Tails(const Expr& value) : base(&value) {
        for (; base->kind == ExprKind::Binary && base->op == Token::Concatenate; base = base->left)
            parts.insert(parts.begin(), base->right);
    }
    const Expr* base;
    std::vector<const Expr*> parts;
};

// Whether "s = s & a & b" can append a to s and then b. Not where the state in between could be seen: by code that runs
// for b, or after an error in b.
bool ProcedureCompiler::mayAppend(const Tails& tails, NameId variable) {
    if (tails.parts.empty() || scope_.runsSource) return false;
    if ((module_.hasClasses || scope_.handlesErrors) && tails.parts.size() > 1) return false;
    return std::all_of(tails.parts.begin(), tails.parts.end(), [&](const Expr* part) {
        // A variable may hold an object, whose default member is code of the script.
        const bool isPlainPart = part->kind == ExprKind::Literal || part->kind == ExprKind::Name;
        return (isPlainPart || !module_.hasClasses) && isQuiet(*part, variable);
    });
}

// "s = s & a & b" appends to s where it is, instead of copying s.
bool ProcedureCompiler::append(const AssignStmt& statement, const Binding& binding) {
    const NameId name = statement.target->name;
    const Tails tails(*statement.value);
    if (tails.base->kind != ExprKind::Name || tails.base->name != name) return false;
    if (tails.parts.empty()) return false;
    // One part is appended by the operation itself.
    if (binding.kind == Binding::Kind::Register && tails.parts.size() == 1 && !mayChange(*tails.parts[0], name))
        return false;
    if (binding.isVariable() && mayAppend(tails, name))
        appendQuietly(tails, binding);
    else
        appendParts(statement, tails, binding);
    return true;
}

void ProcedureCompiler::appendQuietly(const Tails& tails, const Binding& binding) {
    const bool isRegister = binding.kind == Binding::Kind::Register;
    std::vector<Operand> operands;
    operands.reserve(tails.parts.size());
    for (const Expr* part : tails.parts) operands.push_back(operand(*part));
    const std::uint32_t variable = place(binding);
    for (const Operand& tail : operands) {
        if (isRegister)
            code_.emit(tail.isConstant ? Op::ConcatenateRK : Op::ConcatenateRR, variable, variable, tail.index);
        else
            code_.emit(Op::Append, variable, inRegister(tail));
    }
}

// For parts whose evaluation may run code of the script: reads the variable, then the parts, in the order of "&", and
// appends all of them at once if the variable is unchanged by then.
void ProcedureCompiler::appendParts(const AssignStmt& statement, const Tails& tails, const Binding& binding) {
    const std::uint32_t earlier = code_.takeRegisters();
    nameInto(*statement.target, earlier);
    for (std::size_t i = 0; i < tails.parts.size(); ++i) {
        const std::uint32_t part = code_.takeRegisters();
        into(*tails.parts[i], part);
        if (i == 0) code_.emit(Op::MakeOperand, earlier);
        code_.emit(Op::MakeOperand, part);
    }
    const std::uint32_t variable = place(binding);
    code_.emitWithWord(Op::AppendParts, variable, earlier, 0, static_cast<std::uint32_t>(tails.parts.size()));
    forgetPoll();
}

// Whether both are the same element of an array variable, with indexes that run no code of the script.
bool ProcedureCompiler::isSameElement(const Expr& one, const Expr& other) {
    const auto isSame = [this](const Expr* index, const Expr* twin) {
        if (index->kind != twin->kind) return false;
        if (index->kind == ExprKind::Name) return index->name == twin->name && bind(index->name).isVariable();
        if (index->kind != ExprKind::Literal) return false;
        const Value& number = literals_[index->literal];
        const Value& same = literals_[twin->literal];
        return number.is(Type::Integer) && same.is(Type::Integer) && number.as.i == same.as.i;
    };
    return isElement(one) && isElement(other) && one.left->name == other.left->name &&
           bind(one.left->name, Use::Callee).isVariable() &&
           std::equal(one.arguments.begin(), one.arguments.end(), other.arguments.begin(), other.arguments.end(),
                      isSame);
}

// The same for "a(i) = a(i) & part".
bool ProcedureCompiler::appendElement(const AssignStmt& statement) {
    const Expr& element = *statement.target;
    const Tails tails(*statement.value);
    if (statement.isSet || !isSameElement(element, *tails.base)) return false;
    if (!mayAppend(tails, element.left->name)) return false;
    const CodePlace codePlace(code_, placeIn(*statement.value));
    const Temporaries temporaries(code_);
    std::vector<std::uint32_t> registers;
    registers.reserve(tails.parts.size());
    for (const Expr* part : tails.parts) registers.push_back(inRegister(operand(*part)));
    const std::uint32_t first = evaluateInOrder(element.arguments);
    const std::uint32_t array = place(bind(element.left->name));
    for (const std::uint32_t tail : registers)
        code_.emitWithWord(Op::AppendElement, array, first, tail, countOf(element.arguments));
    return true;
}

void ProcedureCompiler::assignMember(const AssignStmt& statement, const Expr& member,
                                     std::span<Expr* const> arguments) {
    const Temporaries temporaries(code_);
    if (HostObject* host = const_cast<HostObject*>(hostObject(*member.left))) {
        const int number = host->findMember(module_.names().spelling(member.name));
        if (number == HostObject::noMember) return raise(errors::noSuchMember, member.name);
        return assignHost(module_.engine().hostMember(*host, number, member.name), statement, arguments);
    }
    putMember(statement, *member.left, member.name, arguments);
}

void ProcedureCompiler::putMember(const AssignStmt& statement, const Expr& object, NameId name,
                                  std::span<Expr* const> arguments) {
    const std::uint32_t base = code_.takeRegisters();
    into(object, base);
    evaluateInOrder(arguments);
    into(*statement.value, code_.takeRegisters());
    code_.emitWithWord(Op::PutMember, base, countOf(arguments), statement.isSet ? 1 : 0, name);
    forgetPoll();
}

void ProcedureCompiler::putOwnMember(NameId name, const AssignStmt& statement, std::span<Expr* const> arguments) {
    const std::uint32_t base = code_.takeRegisters();
    code_.emit(Op::LoadMe, base);
    evaluateInOrder(arguments);
    into(*statement.value, code_.takeRegisters());
    code_.emitWithWord(Op::PutMember, base, countOf(arguments), statement.isSet ? 3 : 2, name);
    forgetPoll();
}

void ProcedureCompiler::assignHost(const HostMember* member, const AssignStmt& statement,
                                   std::span<Expr* const> arguments) {
    const std::uint32_t base = code_.takeRegisters();
    evaluateInOrder(arguments);
    into(*statement.value, code_.takeRegisters());
    code_.emitWithWord(Op::PutHost, base, countOf(arguments), 0, member);
    forgetPoll();
}

void ProcedureCompiler::assignElement(const AssignStmt& statement) {
    const Expr& element = *statement.target;
    const Expr& callee = *element.left;
    if (callee.kind == ExprKind::Member) return assignMember(statement, callee, element.arguments);
    if (appendElement(statement)) return;
    const Temporaries temporaries(code_);
    if (callee.kind == ExprKind::Name) {
        const Binding binding = bind(callee.name);
        switch (binding.kind) {
            case Binding::Kind::HostMember:
                return assignHost(binding.symbol->member, statement, element.arguments);
            case Binding::Kind::Method:
                return putOwnMember(callee.name, statement, element.arguments);
            case Binding::Kind::Undefined:
                return raise(errors::undefinedVariable, callee.name);
            case Binding::Kind::Register:
                if (element.arguments.size() == 1 && !statement.isSet)
                    return putInto(binding.index, element.arguments, statement);
                break;
            default:
                if (!binding.mayBeVariable()) return raise(errors::illegalAssignment, callee.name);
                break;
        }
    }
    if (element.arguments.empty()) return raise(errors::illegalAssignment, callee.name);
    const std::uint32_t first = evaluatePlain(element.arguments);
    const std::uint32_t value = code_.takeRegisters();
    into(*statement.value, value);
    if (!statement.isSet && !isPlain(*statement.value)) code_.emit(Op::LetTake, value, value);
    const std::uint32_t array = placeOf(callee);
    struct {
        std::uint32_t count;
        std::uint32_t isSet;
    } const word{countOf(element.arguments), statement.isSet ? 1u : 0u};
    code_.emitWithWord(Op::PutIndexMany, array, first, value, word);
    forgetPoll();
}

// One index, and an array that is a variable of the procedure.
void ProcedureCompiler::putInto(std::uint32_t array, std::span<Expr* const> arguments, const AssignStmt& statement) {
    const std::uint32_t index = inRegister(operandBefore(*arguments[0], statement.value));
    const Operand value = operand(*statement.value);
    code_.emit(value.isConstant ? Op::PutIndexK : Op::PutIndexR, array, index, value.index);
}

void ProcedureCompiler::raise(int number, NameId name) {
    code_.emitWithWord(Op::Raise, static_cast<std::uint32_t>(number), 0, 0, name);
}

}  // namespace tolvan::script
