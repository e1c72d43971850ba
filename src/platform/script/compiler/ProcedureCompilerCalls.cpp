// Calls of every kind, elements of arrays, and how arguments are passed.
//
// A call uses a window of registers next to each other: first the result (before the call: the object, where there is
// one), then the arguments. The called procedure's own registers begin with the window, so arguments are not copied.

#include "platform/script/compiler/ProcedureCompiler.h"

namespace tolvan::script {

// Takes the window at the end of the registers in use; the result gets to `target` in the end. Where `target` is the
// last register in use the window begins with it and nothing has to be moved. Arrays that arguments refer into are
// pinned in registers before the window.
class ProcedureCompiler::CallFrame {
  public:
    CallFrame(CodeBuilder& code, std::uint32_t target, std::uint32_t pinCount = 0)
        : code_(code), target_(target), mark_(code.registerMark()) {
        pins_ = pinCount != 0 ? code.takeRegisters(pinCount) : 0;
        pinCount_ = pinCount;
        base_ = pinCount == 0 && mark_ == target + 1 ? target : code.takeRegisters();
    }
    CallFrame(const CallFrame&) = delete;
    CallFrame& operator=(const CallFrame&) = delete;

    std::uint32_t base() const { return base_; }
    std::uint32_t nextPin() { return pins_ + usedPins_++; }

    void finish() {
        for (std::uint32_t i = 0; i < pinCount_; ++i) code_.emit(Op::Clear, pins_ + i);
        if (base_ != target_) code_.emit(Op::Take, target_, base_);
        code_.releaseTo(mark_);
    }

  private:
    CodeBuilder& code_;
    std::uint32_t target_;
    std::uint32_t mark_;
    std::uint32_t base_ = 0;
    std::uint32_t pins_ = 0;
    std::uint32_t pinCount_ = 0;
    std::uint32_t usedPins_ = 0;
};

namespace {

std::uint32_t countOf(std::span<Expr* const> expressions) {
    return static_cast<std::uint32_t>(expressions.size());
}

// As many pins as the arguments may need.
std::uint32_t countElements(std::span<Expr* const> arguments) {
    std::uint32_t count = 0;
    for (const Expr* argument : arguments)
        if (argument->kind == ExprKind::Call) ++count;
    return count;
}

}  // namespace

bool ProcedureCompiler::isElement(const Expr& argument) {
    return argument.kind == ExprKind::Call && argument.left->kind == ExprKind::Name && !argument.arguments.empty() &&
           bind(argument.left->name, Use::Callee).mayBeVariable();
}

bool ProcedureCompiler::isReferable(const Expr& argument) {
    return (argument.kind == ExprKind::Name && bind(argument.name).mayBeVariable()) || isElement(argument);
}

// `byReference`: which parameters the called procedure reads as references; null if it is not known: all.
void ProcedureCompiler::passArguments(std::span<Expr* const> arguments, CallFrame& frame,
                                      const std::vector<bool>* byReference) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::uint32_t target = code_.takeRegisters();
        const Expr& argument = *arguments[i];
        const bool wanted = byReference == nullptr || (i < byReference->size() && (*byReference)[i]);
        if (wanted && isReferable(argument))
            passReference(argument, target, isElement(argument) ? frame.nextPin() : 0);
        else
            into(argument, target);
    }
}

void ProcedureCompiler::passReference(const Expr& argument, std::uint32_t target, std::uint32_t pin) {
    const CodePlace codePlace(code_, placeIn(argument));
    const Temporaries temporaries(code_);
    if (argument.kind == ExprKind::Name) {
        const Binding binding = bind(argument.name);
        switch (binding.kind) {
            case Binding::Kind::Outside:
                code_.emitWithWord(Op::ReferGlobal, target, 0, 0, binding.variable);
                return;
            case Binding::Kind::Field:
                code_.emit(Op::ReferField, target, binding.index);
                return;
            case Binding::Kind::Late:
                return passLate(binding, argument, target, pin);
            default:
                code_.emit(Op::ReferRegister, target, binding.index);
                return;
        }
    }
    const Binding callee = bind(argument.left->name, Use::Callee);
    if (callee.kind == Binding::Kind::Late) return passLate(callee, argument, target, pin);
    const std::uint32_t array = place(callee);
    const std::uint32_t first = evaluatePlain(argument.arguments);
    code_.emit(Op::PinArray, pin, array);
    code_.emitWithWord(Op::ReferElement, target, array, first, countOf(argument.arguments));
    forgetPoll();
}

// Evaluates into registers next to each other; returns the first.
std::uint32_t ProcedureCompiler::evaluateInOrder(std::span<Expr* const> expressions) {
    std::uint32_t first = 0;
    for (std::size_t i = 0; i < expressions.size(); ++i) {
        const std::uint32_t target = code_.takeRegisters();
        if (i == 0) first = target;
        into(*expressions[i], target);
    }
    return first;
}

// The same with objects replaced by the values of their default members, so that no code of the script runs between
// taking a reference to an element and using it.
std::uint32_t ProcedureCompiler::evaluatePlain(std::span<Expr* const> expressions) {
    const std::uint32_t first = evaluateInOrder(expressions);
    for (std::uint32_t i = 0; i < countOf(expressions); ++i) {
        Value literal;
        if (!literalOf(*expressions[i], literal)) code_.emit(Op::LetTake, first + i, first + i);
    }
    return first;
}

std::uint32_t ProcedureCompiler::place(const Binding& binding) {
    if (binding.kind == Binding::Kind::Late)
        code_.emitWithWord(Op::FindVariable, binding.index, 0, 0, lateUse(binding));
    if (binding.kind <= Binding::Kind::Referred || binding.kind == Binding::Kind::Late) return binding.index;
    const std::uint32_t reference = code_.takeRegisters();
    if (binding.kind == Binding::Kind::Outside)
        code_.emitWithWord(Op::ReferGlobal, reference, 0, 0, binding.variable);
    else
        code_.emit(Op::ReferField, reference, binding.index);
    return reference;
}

// A register with the array or object that an expression is, or with a reference to it where it is a variable or an
// element of one.
std::uint32_t ProcedureCompiler::placeOf(const Expr& expression) {
    if (expression.kind == ExprKind::Name) {
        const Binding binding = bind(expression.name);
        if (binding.mayBeVariable()) return place(binding);
    }
    const bool isNested = expression.kind == ExprKind::Call && rootName(expression) != nullptr &&
                          bind(rootName(expression)->name, Use::Callee).mayBeVariable() &&
                          !expression.arguments.empty();
    const std::uint32_t target = code_.takeRegisters();
    if (!isNested) {
        into(expression, target);
        return target;
    }
    const std::uint32_t first = evaluatePlain(expression.arguments);
    const std::uint32_t array = placeOf(*expression.left);
    code_.emitWithWord(Op::ReferElement, target, array, first, countOf(expression.arguments));
    return target;
}

const HostObject* ProcedureCompiler::hostObject(const Expr& expression) {
    if (expression.kind != ExprKind::Name) return nullptr;
    const Binding binding = bind(expression.name);
    return binding.kind == Binding::Kind::HostObject ? binding.symbol->host : nullptr;
}

void ProcedureCompiler::callInto(const Expr& call, std::uint32_t target, Wanted wanted) {
    const CodePlace codePlace(code_, placeIn(call));
    const Expr& callee = *call.left;
    const std::span<Expr* const> arguments = call.arguments;
    if (callee.kind == ExprKind::Member) return memberInto(callee, arguments, target);
    const Binding binding = callee.kind == ExprKind::Name ? bind(callee.name, Use::Callee) : Binding{};
    switch (binding.kind) {
        case Binding::Kind::Procedure:
            return callProcedure(*binding.symbol, arguments, target);
        case Binding::Kind::HostMember:
            return callHost(binding.symbol->member, arguments, target);
        case Binding::Kind::Builtin:
            return callBuiltin(*binding.symbol->builtin, callee.name, arguments, target);
        case Binding::Kind::Special:
            return callSpecial(binding.symbol->special, callee.name, arguments, target);
        case Binding::Kind::Method:
            return callOwnMember(callee.name, arguments, target);
        case Binding::Kind::Late:
            return callLate(binding, arguments, target, wanted);
        case Binding::Kind::Undefined:
            if (callee.kind == ExprKind::Name) return raise(errors::undefinedVariable, callee.name);
            break;
        default:
            break;
    }
    if (wanted == Wanted::Value && binding.isVariable() && callee.kind == ExprKind::Name && !arguments.empty()) {
        const Temporaries temporaries(code_);
        return indexInto(place(binding), arguments, target, false);
    }
    CallFrame frame(code_, target, 0);
    into(callee, frame.base());
    for (const Expr* argument : arguments) into(*argument, code_.takeRegisters());
    code_.emit(wanted == Wanted::Nothing ? Op::CallStatement : Op::CallValue, frame.base(), countOf(arguments));
    forgetPoll();
    frame.finish();
}

void ProcedureCompiler::indexInto(std::uint32_t array, std::span<Expr* const> arguments, std::uint32_t target,
                                  bool let) {
    if (arguments.size() == 1) {
        const std::uint32_t index = inRegister(operand(*arguments[0]));
        code_.emit(let ? Op::IndexLet : Op::Index, target, array, index);
        return;
    }
    const std::uint32_t first = evaluateInOrder(arguments);
    code_.emitWithWord(Op::IndexMany, target, array, first, countOf(arguments));
}

void ProcedureCompiler::callProcedure(const Symbol& symbol, std::span<Expr* const> arguments, std::uint32_t target) {
    const std::vector<bool>* modes = module_.modesOf(symbol.procedure);
    std::uint32_t pins = 0;
    for (std::size_t i = 0; i < arguments.size(); ++i)
        if (modes != nullptr && i < modes->size() && (*modes)[i] && isElement(*arguments[i])) ++pins;
    CallFrame frame(code_, target, pins);
    passArguments(arguments, frame, modes);
    code_.emitWithWord(Op::CallProcedure, frame.base(), countOf(arguments), 0, symbol.procedure);
    forgetPoll();
    frame.finish();
}

void ProcedureCompiler::callHost(const HostMember* member, std::span<Expr* const> arguments, std::uint32_t target) {
    CallFrame frame(code_, target, countElements(arguments));
    passArguments(arguments, frame, nullptr);
    code_.emitWithWord(Op::CallHost, frame.base(), countOf(arguments), 0, member);
    forgetPoll();
    frame.finish();
}

void ProcedureCompiler::callBuiltin(const Builtin& builtin, NameId name, std::span<Expr* const> arguments,
                                    std::uint32_t target) {
    const bool fits =
        arguments.size() >= builtin.least && (builtin.most == Builtin::anyCount || arguments.size() <= builtin.most);
    if (!fits) return callMissing(arguments, errors::argumentCount, name);
    CallFrame frame(code_, target);
    for (const Expr* argument : arguments) into(*argument, code_.takeRegisters());
    code_.emitWithWord(Op::CallBuiltin, frame.base(), countOf(arguments), 0, &builtin);
    frame.finish();
}

void ProcedureCompiler::callSpecial(Special special, NameId name, std::span<Expr* const> arguments,
                                    std::uint32_t target) {
    if (arguments.size() != 1) return callMissing(arguments, errors::argumentCount, name);
    CallFrame frame(code_, target);
    into(*arguments[0], code_.takeRegisters());
    code_.emit(Op::Evaluate, frame.base(), 1, static_cast<std::uint32_t>(special));
    forgetPoll();
    frame.finish();
}

void ProcedureCompiler::callOwnMember(NameId name, std::span<Expr* const> arguments, std::uint32_t target) {
    CallFrame frame(code_, target, countElements(arguments));
    code_.emit(Op::LoadMe, frame.base());
    passArguments(arguments, frame, nullptr);
    code_.emitWithWord(Op::CallMember, frame.base(), countOf(arguments), 1, name);
    forgetPoll();
    frame.finish();
}

LateUse ProcedureCompiler::lateUse(const Binding& late) const {
    return {late.name, module_.optionExplicit, false, false};
}

void ProcedureCompiler::callLate(const Binding& late, std::span<Expr* const> arguments, std::uint32_t target,
                                 Wanted wanted) {
    CallFrame frame(code_, target, countElements(arguments));
    passArguments(arguments, frame, nullptr);
    LateUse use = lateUse(late);
    use.isStatement = wanted == Wanted::Nothing;
    code_.emitWithWord(Op::CallLate, frame.base(), countOf(arguments), late.index, use);
    forgetPoll();
    frame.finish();
}

// An argument that is a variable or an element of one, if the name turns out to be a variable's; else a call.
// `target` is the last register in use.
void ProcedureCompiler::passLate(const Binding& late, const Expr& argument, std::uint32_t target, std::uint32_t pin) {
    const bool isElement = argument.kind == ExprKind::Call;
    LateUse use = lateUse(late);
    use.wantsReference = true;
    if (isElement) evaluateInOrder(argument.arguments);
    code_.emitWithWord(Op::FindVariable, late.index, 0, 0, use);
    if (isElement) code_.emit(Op::PinArray, pin, late.index);
    code_.emitWithWord(Op::CallLate, target, isElement ? countOf(argument.arguments) : 0, late.index, use);
    forgetPoll();
}

// A call that cannot be made: its arguments are evaluated all the same.
void ProcedureCompiler::callMissing(std::span<Expr* const> arguments, int number, NameId name) {
    const Temporaries temporaries(code_);
    evaluateInOrder(arguments);
    raise(number, name);
}

void ProcedureCompiler::memberInto(const Expr& member, std::span<Expr* const> arguments, std::uint32_t target) {
    if (HostObject* host = const_cast<HostObject*>(hostObject(*member.left))) {
        const int number = host->findMember(module_.names().spelling(member.name));
        if (number == HostObject::noMember) return callMissing(arguments, errors::noSuchMember, member.name);
        return callHost(module_.engine().hostMember(*host, number, member.name), arguments, target);
    }
    CallFrame frame(code_, target, countElements(arguments));
    into(*member.left, frame.base());
    passArguments(arguments, frame, nullptr);
    code_.emitWithWord(Op::CallMember, frame.base(), countOf(arguments), 0, member.name);
    forgetPoll();
    frame.finish();
}

void ProcedureCompiler::callStatement(const CallStmt& statement) {
    const Expr& call = *statement.call;
    const Temporaries temporaries(code_);
    if (call.left->kind == ExprKind::Name) {
        const CodePlace place(code_, placeIn(*call.left));
        const Binding binding = bind(call.left->name, Use::Callee);
        const bool neverDeclared = binding.kind == Binding::Kind::Undefined;
        if (neverDeclared) return callMissing(call.arguments, errors::undefinedVariable, call.left->name);
        if (binding.kind == Binding::Kind::Class)
            return callMissing(call.arguments, errors::typeMismatch, call.left->name);
    }
    const std::uint32_t result = code_.takeRegisters();
    callInto(call, result, Wanted::Nothing);
    code_.emit(Op::Clear, result);
}

}  // namespace tolvan::script
