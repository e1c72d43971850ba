#include "platform/script/compiler/ProcedureCompiler.h"

#include <algorithm>

namespace tolvan::script {

namespace {

std::uint32_t countOf(std::span<Expr* const> expressions) {
    return static_cast<std::uint32_t>(expressions.size());
}

// Whether evaluating it straight into a variable is an assignment: it can be no object, and the variable is written
// last.
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
    switch (statement.target->kind) {
        case ExprKind::Name:
            return assignName(statement);
        case ExprKind::Member:
            return assignMember(statement, *statement.target, {});
        case ExprKind::Call:
            return assignElement(statement);
        default:
            return raise(errors::IllegalAssignment);
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
            return raise(errors::UndefinedVariable);
        default:
            return raise(errors::IllegalAssignment);
    }
}

void ProcedureCompiler::assignName(const AssignStmt& statement) {
    const Temporaries temporaries(code_);
    const NameId name = statement.target->name;
    const Binding binding = bind(name);
    if (binding.isVariable() && !statement.isSet && append(statement, binding)) return;
    if (binding.kind == Binding::Kind::Register && !statement.isSet) return assignRegister(statement, binding.index);
    if (binding.kind == Binding::Kind::HostMember) return assignHost(binding.symbol->member, statement, {});
    if (binding.kind == Binding::Kind::Method) return putOwnMember(name, statement, {});
    const std::uint32_t value = code_.takeRegisters();
    into(*statement.value, value);
    store(binding, value, statement.isSet);
}

void ProcedureCompiler::assignRegister(const AssignStmt& statement, std::uint32_t reg) {
    const Expr& value = *statement.value;
    Value literal;
    if (isPlain(value) && !(value.kind == ExprKind::Literal && !literalOf(value, literal))) return into(value, reg);
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

// Whether evaluating it calls nothing but built-in functions and leaves the variable out.
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

// "s = s & a & b" appends a, then b, to s where it is, instead of copying s. Not where anything could see the half of
// it: code that runs meanwhile, or what comes after an error in b. For one part and a register that is what the
// operation does by itself.
bool ProcedureCompiler::append(const AssignStmt& statement, const Binding& binding) {
    const NameId name = statement.target->name;
    std::vector<const Expr*> parts;
    const Expr* chain = statement.value;
    for (; chain->kind == ExprKind::Binary && chain->op == Token::Concatenate; chain = chain->left)
        parts.insert(parts.begin(), chain->right);
    if (parts.empty() || chain->kind != ExprKind::Name || chain->name != name) return false;
    const bool isRegister = binding.kind == Binding::Kind::Register;
    if (isRegister && parts.size() == 1) return false;
    if (scope_.runsText || module_.hasClasses || (scope_.handlesErrors && parts.size() > 1)) return false;
    for (const Expr* part : parts)
        if (!isQuiet(*part, name)) return false;
    std::vector<Operand> tails;
    for (const Expr* part : parts) tails.push_back(operand(*part));
    const std::uint32_t variable = place(binding);
    for (const Operand& tail : tails) {
        if (isRegister)
            code_.emit(tail.isConstant ? Op::ConcatenateRK : Op::ConcatenateRR, variable, variable, tail.index);
        else
            code_.emit(Op::Append, variable, inRegister(tail));
    }
    return true;
}

void ProcedureCompiler::assignMember(const AssignStmt& statement, const Expr& member,
                                     std::span<Expr* const> arguments) {
    const Temporaries temporaries(code_);
    if (HostObject* host = const_cast<HostObject*>(hostObject(*member.left))) {
        const int number = host->findMember(module_.names().spelling(member.name));
        if (number == HostObject::NoMember) return raise(errors::NoSuchMember);
        return assignHost(module_.engine().hostMember(*host, number), statement, arguments);
    }
    const std::uint32_t base = code_.takeRegisters();
    into(*member.left, base);
    evaluateInOrder(arguments);
    into(*statement.value, code_.takeRegisters());
    code_.emitWithWord(Op::PutMember, base, countOf(arguments), statement.isSet ? 1 : 0, member.name);
    forgetGate();
}

void ProcedureCompiler::putOwnMember(NameId name, const AssignStmt& statement, std::span<Expr* const> arguments) {
    const std::uint32_t base = code_.takeRegisters();
    code_.emit(Op::LoadMe, base);
    evaluateInOrder(arguments);
    into(*statement.value, code_.takeRegisters());
    code_.emitWithWord(Op::PutMember, base, countOf(arguments), statement.isSet ? 3 : 2, name);
    forgetGate();
}

void ProcedureCompiler::assignHost(const HostMember* member, const AssignStmt& statement,
                                   std::span<Expr* const> arguments) {
    const std::uint32_t base = code_.takeRegisters();
    evaluateInOrder(arguments);
    into(*statement.value, code_.takeRegisters());
    code_.emitWithWord(Op::PutHost, base, countOf(arguments), 0, member);
    forgetGate();
}

void ProcedureCompiler::assignElement(const AssignStmt& statement) {
    const Expr& element = *statement.target;
    const Expr& callee = *element.left;
    if (callee.kind == ExprKind::Member) return assignMember(statement, callee, element.arguments);
    const Temporaries temporaries(code_);
    if (callee.kind == ExprKind::Name) {
        const Binding binding = bind(callee.name);
        switch (binding.kind) {
            case Binding::Kind::HostMember:
                return assignHost(binding.symbol->member, statement, element.arguments);
            case Binding::Kind::Method:
                return putOwnMember(callee.name, statement, element.arguments);
            case Binding::Kind::Undefined:
                return raise(errors::UndefinedVariable);
            case Binding::Kind::Register:
                if (element.arguments.size() == 1 && !statement.isSet)
                    return putInto(binding.index, element.arguments, statement);
                break;
            default:
                if (!binding.mayBeVariable()) return raise(errors::IllegalAssignment);
                break;
        }
    }
    if (element.arguments.empty()) return raise(errors::IllegalAssignment);
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
    forgetGate();
}

// One index, and an array that is a variable of the procedure.
void ProcedureCompiler::putInto(std::uint32_t array, std::span<Expr* const> arguments, const AssignStmt& statement) {
    const std::uint32_t index = inRegister(operandBefore(*arguments[0], statement.value));
    const Operand value = operand(*statement.value);
    code_.emit(value.isConstant ? Op::PutIndexK : Op::PutIndexR, array, index, value.index);
}

void ProcedureCompiler::raise(int number) {
    code_.emitWide(Op::Raise, 0, number);
}

}  // namespace tolvan::script
