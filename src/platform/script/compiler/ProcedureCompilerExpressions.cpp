#include "platform/script/Operators.h"
#include "platform/script/compiler/ProcedureCompiler.h"

namespace tolvan::script {

namespace {

struct OperationRow {
    Token token;
    Op registers;
    Op constant;
};

constexpr OperationRow operationRows[] = {
#define X(name, token, level) {Token::token, Op::name##RR, Op::name##RK},
    TOLVAN_BINARY_OPERATIONS(X)
#undef X
#define X(name, token, level) {Token::token, Op::name##RR, Op::name##RR},
        TOLVAN_LOGICAL_OPERATIONS(X)
#undef X
            {Token::Is, Op::Is, Op::Is},
};

struct ComparisonRow {
    Token token;
    Token swapped;  // with the operands the other way round
    Token inverse;  // true where this one is false
    Op registers, constant;
    Op jumpRegisters, jumpConstant;
    Op jumpUnlessRegisters, jumpUnlessConstant;
    Op loopRegisters, loopConstant;
};

constexpr ComparisonRow comparisonRows[] = {
#define X(name, level, swapped, inverse) \
    {Token::name,                        \
     Token::swapped,                     \
     Token::inverse,                     \
     Op::name##RR,                       \
     Op::name##RK,                       \
     Op::JumpIf##name##RR,               \
     Op::JumpIf##name##RK,               \
     Op::JumpUnless##name##RR,           \
     Op::JumpUnless##name##RK,           \
     Op::LoopIf##name##RR,               \
     Op::LoopIf##name##RK},
    TOLVAN_COMPARISONS(X)
#undef X
};

const OperationRow& operationOf(Token token) {
    for (const OperationRow& row : operationRows)
        if (row.token == token) return row;
    return operationRows[0];
}

const ComparisonRow* comparisonOf(Token token) {
    for (const ComparisonRow& row : comparisonRows)
        if (row.token == token) return &row;
    return nullptr;
}

constexpr std::uint32_t largestConstantOperand = 0xffff;

}  // namespace

ProcedureCompiler::Binding ProcedureCompiler::bind(NameId name, Use use) {
    using Kind = Binding::Kind;
    Binding binding;
    binding.name = name;
    // "f(1)" in the function f calls it; "f" is its result.
    Value* const enclosing = scope_.outerVariable(name);
    if (enclosing != nullptr && (use != Use::Callee || name != scope_.enclosingResult)) {
        binding.kind = Kind::Outside;
        binding.variable = enclosing;
        return binding;
    }
    const auto reg = scope_.registers.find(name);
    if (reg != scope_.registers.end() && (use != Use::Callee || reg->second != 0)) {
        binding.kind = scope_.isByReference(reg->second) ? Kind::Referred : Kind::Register;
        if (reg->second >= scope_.firstLate) binding.kind = Kind::Late;
        binding.index = reg->second;
        return binding;
    }
    const auto constant = scope_.constants.find(name);
    if (constant != scope_.constants.end()) {
        binding.kind = Kind::Constant;
        binding.constant = &constant->second;
        return binding;
    }
    if (scope_.owner != nullptr) {
        if (const ScriptClass::Member* member = scope_.owner->find(name)) {
            binding.kind = member->field >= 0 ? Kind::Field : Kind::Method;
            binding.index = static_cast<std::uint32_t>(member->field);
            return binding;
        }
    }
    binding.symbol = module_.find(name);
    if (binding.symbol == nullptr) return binding;
    // In the order of Symbol::Kind.
    static constexpr Kind kindsOfSymbols[] = {Kind::Undefined,  Kind::Outside, Kind::Constant,
                                              Kind::Procedure,  Kind::Class,   Kind::HostObject,
                                              Kind::HostMember, Kind::Builtin, Kind::Special};
    binding.kind = kindsOfSymbols[static_cast<std::size_t>(binding.symbol->kind)];
    binding.variable = binding.symbol->variable;
    binding.constant = &binding.symbol->constant;
    return binding;
}

void ProcedureCompiler::loadConstant(const Value& value, std::uint32_t target) {
    code_.emitWide(Op::LoadConstant, target, static_cast<std::int32_t>(code_.constant(value)));
}

// Literals, signed literals and constants.
bool ProcedureCompiler::literalOf(const Expr& expression, Value& value) const {
    const Expr* inside = &expression;
    while (inside->kind == ExprKind::Group) inside = inside->left;
    if (inside->kind == ExprKind::Literal) {
        value = literals_[inside->literal];
        return !value.is(Type::Object);
    }
    if (inside->kind != ExprKind::Unary || inside->op != Token::Minus) return false;
    if (!literalOf(*inside->left, value)) return false;
    if (!value.isOneOf(bits(Type::Integer, Type::Long, Type::Double))) return false;
    value = negate(context_, value);
    return true;
}

ProcedureCompiler::Operand ProcedureCompiler::operand(const Expr& expression) {
    if (expression.kind == ExprKind::Group) return operand(*expression.left);
    Value literal;
    bool isConstant = literalOf(expression, literal);
    if (expression.kind == ExprKind::Name) {
        const Binding binding = bind(expression.name);
        if (binding.kind == Binding::Kind::Register) return {false, binding.index};
        if (binding.kind == Binding::Kind::Constant && !binding.constant->is(Type::Object)) {
            literal = *binding.constant;
            isConstant = true;
        }
    }
    if (isConstant) {
        const std::uint32_t index = code_.constant(literal);
        if (index <= largestConstantOperand) return {true, index};
    }
    const std::uint32_t target = code_.takeRegisters();
    into(expression, target);
    return {false, target};
}

ProcedureCompiler::Operand ProcedureCompiler::operandBefore(const Expr& expression, const Expr* later) {
    const Expr* inside = &expression;
    while (inside->kind == ExprKind::Group) inside = inside->left;
    if (inside->kind == ExprKind::Name && later != nullptr && mayChange(*later, inside->name)) {
        const std::uint32_t target = code_.takeRegisters();
        into(*inside, target);
        return {false, target};
    }
    return operand(expression);
}

std::uint32_t ProcedureCompiler::inRegister(Operand from) {
    if (!from.isConstant) return from.index;
    const std::uint32_t target = code_.takeRegisters();
    code_.emitWide(Op::LoadConstant, target, static_cast<std::int32_t>(from.index));
    return target;
}

// Whether evaluating the expression can assign the procedure's variable. Only a call that gets it by reference can.
bool ProcedureCompiler::mayChange(const Expr& expression, NameId variable) {
    if (expression.kind == ExprKind::Call && callMayChange(expression, variable)) return true;
    if (scope_.runsSource && (expression.kind == ExprKind::Call || expression.kind == ExprKind::Member)) return true;
    if (expression.left != nullptr && mayChange(*expression.left, variable)) return true;
    if (expression.right != nullptr && mayChange(*expression.right, variable)) return true;
    for (const Expr* argument : expression.arguments)
        if (mayChange(*argument, variable)) return true;
    return false;
}

bool ProcedureCompiler::callMayChange(const Expr& call, NameId variable) {
    if (call.left->kind == ExprKind::Name) {
        const Binding callee = bind(call.left->name, Use::Callee);
        if (callee.isVariable() || callee.kind == Binding::Kind::Builtin) return false;
    }
    for (const Expr* argument : call.arguments) {
        const Expr* root = rootName(*argument);
        if (root != nullptr && root->name == variable) return true;
    }
    return false;
}

void ProcedureCompiler::into(const Expr& expression, std::uint32_t target) {
    Value literal;
    if (literalOf(expression, literal)) return loadConstant(literal, target);
    switch (expression.kind) {
        case ExprKind::Literal:
            return loadConstant(literals_[expression.literal], target);
        case ExprKind::Missing:
            return loadConstant(Value::missing(), target);
        case ExprKind::Name:
            return nameInto(expression, target);
        case ExprKind::Member: {
            const CodePlace place(code_, placeIn(expression));
            return memberInto(expression, {}, target);
        }
        case ExprKind::Call:
            return callInto(expression, target, Wanted::Value);
        case ExprKind::Unary:
            return unaryInto(expression, target);
        case ExprKind::Binary:
            return comparisonOf(expression.op) != nullptr ? comparisonInto(expression, target)
                                                          : binaryInto(expression, target);
        case ExprKind::Group:
            return into(*expression.left, target);
        case ExprKind::New: {
            const CodePlace place(code_, placeIn(expression));
            const Symbol* symbol = module_.find(expression.name);
            const bool isClass = symbol != nullptr && symbol->kind == Symbol::Kind::Class;
            if (isClass)
                code_.emitWithWord(Op::NewObject, target, 0, 0, symbol->scriptClass);
            else if (module_.isLate)
                code_.emitWithWord(Op::NewLate, target, 0, 0, std::uint64_t{expression.name});
            else
                raise(errors::classNotDefined, expression.name);
            return forgetPoll();
        }
        case ExprKind::Me:
            code_.emit(Op::LoadMe, target);
            return;
        case ExprKind::WithTarget:
            code_.emit(Op::Copy, target, withRegister_);
            return;
    }
}

void ProcedureCompiler::nameInto(const Expr& name, std::uint32_t target) {
    const Binding binding = bind(name.name);
    // Nothing is wrong with reading a variable.
    const CodePlace codePlace(code_, binding.isVariable() ? code_.place() : placeIn(name));
    switch (binding.kind) {
        case Binding::Kind::Register:
            code_.emit(Op::Copy, target, binding.index);
            return;
        case Binding::Kind::Referred:
            code_.emit(Op::LoadReferred, target, binding.index);
            return;
        case Binding::Kind::Outside:
            code_.emitWithWord(Op::LoadGlobal, target, 0, 0, binding.variable);
            return;
        case Binding::Kind::Field:
            code_.emit(Op::LoadField, target, binding.index);
            return;
        case Binding::Kind::Constant:
        case Binding::Kind::HostObject:
            return loadConstant(*binding.constant, target);
        case Binding::Kind::Undefined:
            return raise(errors::undefinedVariable, binding.name);
        case Binding::Kind::Class:
            return raise(errors::typeMismatch, binding.name);
        case Binding::Kind::Late:
            return callLate(binding, {}, target, Wanted::Value);
        default: {
            Expr call = name;
            call.kind = ExprKind::Call;
            call.left = const_cast<Expr*>(&name);
            call.arguments = {};
            return callInto(call, target, Wanted::Value);
        }
    }
}

void ProcedureCompiler::unaryInto(const Expr& expression, std::uint32_t target) {
    const CodePlace place(code_, placeIn(expression));
    const Temporaries temporaries(code_);
    const std::uint32_t of = inRegister(operand(*expression.left));
    const Op op = expression.op == Token::Not ? Op::Not : expression.op == Token::Minus ? Op::Negate : Op::Plus;
    code_.emit(op, target, of);
}

void ProcedureCompiler::binaryInto(const Expr& expression, std::uint32_t target) {
    const CodePlace place(code_, placeIn(expression));
    const Temporaries temporaries(code_);
    const OperationRow& row = operationOf(expression.op);
    Operand first = operandBefore(*expression.left, expression.right);
    Operand right = operand(*expression.right);
    if (first.isConstant && !right.isConstant) {
        const Value& constant = code_.procedure().constants[first.index];
        const bool isSumOfNumber = expression.op == Token::Plus && constant.isOneOf(bits(Type::Integer, Type::Double));
        if (expression.op == Token::Times || isSumOfNumber) std::swap(first, right);
    }
    const std::uint32_t left = inRegister(first);
    if (right.isConstant && row.registers == row.constant) right = {false, inRegister(right)};
    if (!right.isConstant) {
        code_.emit(row.registers, target, left, right.index);
        return;
    }
    const Value& constant = code_.procedure().constants[right.index];
    const bool isSum = expression.op == Token::Plus || expression.op == Token::Minus;
    if (isSum && constant.is(Type::Integer) && constant.as.i != INT16_MIN) {
        const std::int32_t summand = expression.op == Token::Plus ? constant.as.i : -constant.as.i;
        code_.emit(Op::AddInteger, target, left, static_cast<std::uint16_t>(summand));
        return;
    }
    code_.emit(row.constant, target, left, right.index);
}

ProcedureCompiler::ComparedOperands ProcedureCompiler::comparedOperands(const Expr& expression) {
    Operand left = operandBefore(*expression.left, expression.right);
    Operand right = operand(*expression.right);
    // The rules for a literal beside a variable do not hold between two literals.
    const bool areLiterals = left.isConstant && right.isConstant;
    if (areLiterals && !code_.procedure().constants[left.index].is(code_.procedure().constants[right.index].type()))
        right = {false, inRegister(right)};
    const bool isSwapped = left.isConstant && !right.isConstant && !areLiterals;
    if (isSwapped) std::swap(left, right);
    return {inRegister(left), right, isSwapped};
}

void ProcedureCompiler::comparisonInto(const Expr& expression, std::uint32_t target) {
    const CodePlace place(code_, placeIn(expression));
    const Temporaries temporaries(code_);
    const ComparisonRow* row = comparisonOf(expression.op);
    const auto [left, right, isSwapped] = comparedOperands(expression);
    if (isSwapped) row = comparisonOf(row->swapped);
    code_.emit(right.isConstant ? row->constant : row->registers, target, left, right.index);
}

// Jumps to `target` when the condition is True (jumpWhen), or when it is anything else.
void ProcedureCompiler::condition(const Expr& expression, Label& target, bool jumpWhen) {
    const CodePlace place(code_, placeIn(expression));
    const Expr* inside = &expression;
    bool inverted = false;
    while (inside->kind == ExprKind::Group || (inside->kind == ExprKind::Unary && inside->op == Token::Not)) {
        if (inside->kind == ExprKind::Unary) inverted = !inverted;
        inside = inside->left;
    }
    if (inside->kind == ExprKind::Binary && comparisonOf(inside->op) != nullptr)
        return comparisonJump(*inside, inverted, target, jumpWhen);
    if (!inverted && allOrAny(*inside, target, jumpWhen)) return;
    const Temporaries temporaries(code_);
    const std::uint32_t value = inRegister(operand(expression));
    code_.jump(jumpWhen ? Op::JumpIf : Op::JumpUnless, value, target);
}

// A comparison needs no value; its negation is the opposite comparison, as both are Null together.
void ProcedureCompiler::comparisonJump(const Expr& expression, bool inverted, Label& target, bool jumpWhen) {
    const CodePlace place(code_, placeIn(expression));
    const Temporaries temporaries(code_);
    const ComparisonRow* row = comparisonOf(expression.op);
    if (inverted) row = comparisonOf(row->inverse);
    const auto [left, right, isSwapped] = comparedOperands(expression);
    if (isSwapped) row = comparisonOf(row->swapped);
    if (jumpWhen && code_.isAtPoll(target)) {
        code_.loopWithPoll(right.isConstant ? row->loopConstant : row->loopRegisters, left, right.index, target);
        return;
    }
    const Op withConstant = jumpWhen ? row->jumpConstant : row->jumpUnlessConstant;
    const Op withRegisters = jumpWhen ? row->jumpRegisters : row->jumpUnlessRegisters;
    code_.jumpWithWord(right.isConstant ? withConstant : withRegisters, left, right.index, target);
}

// Whether the expression is True, False or Null: only then is And the same as "both".
bool ProcedureCompiler::isTruthValue(const Expr& expression) {
    switch (expression.kind) {
        case ExprKind::Group:
            return isTruthValue(*expression.left);
        case ExprKind::Unary:
            return expression.op == Token::Not && isTruthValue(*expression.left);
        case ExprKind::Binary:
            if (expression.op == Token::And || expression.op == Token::Or)
                return isTruthValue(*expression.left) && isTruthValue(*expression.right);
            return expression.op == Token::Is || comparisonOf(expression.op) != nullptr;
        default:
            return false;
    }
}

// Short-circuit code for a condition "a And b" or "a Or b" of truth values. The language has no short circuit: the
// other parts have to be evaluated as well, for their calls and errors. So the part that decides the result jumps to
// cold code, which evaluates the rest and then goes where the condition leads. Not under On Error Resume Next, which
// goes on with the next statement in the code: after an error in the cold code that would be the wrong one.
bool ProcedureCompiler::allOrAny(const Expr& expression, Label& target, bool jumpWhen) {
    if (expression.kind != ExprKind::Binary || (expression.op != Token::And && expression.op != Token::Or))
        return false;
    if (scope_.handlesErrors) return false;
    const bool decides = expression.op == Token::Or;  // this value of one part settles the whole
    std::vector<const Expr*> parts;
    const Expr* chain = &expression;
    for (; chain->kind == ExprKind::Binary && chain->op == expression.op; chain = chain->left)
        parts.insert(parts.begin(), chain->right);
    parts.insert(parts.begin(), chain);
    for (const Expr* part : parts)
        if (!isTruthValue(*part)) return false;

    Label* after = nullptr;  // where a decided condition goes on if it does not jump
    if (decides != jumpWhen) after = &newLabel();
    std::vector<Label*> decided;
    for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
        decided.push_back(&newLabel());
        condition(*parts[i], *decided.back(), decides);
    }
    condition(*parts.back(), target, jumpWhen);
    if (after != nullptr) code_.bind(*after);
    addColdCode([this, parts, decided, &destination = after != nullptr ? *after : target] {
        for (std::size_t i = 0; i < decided.size(); ++i) {
            code_.bind(*decided[i]);
            const Temporaries temporaries(code_);
            into(*parts[i + 1], code_.takeRegisters());
        }
        code_.jump(Op::Jump, 0, destination);
    });
    return true;
}

}  // namespace tolvan::script
