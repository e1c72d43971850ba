// The machine code of instructions, those of arrays and calls aside.

#include "platform/script/StringCell.h"
#include "platform/script/machine/Machine.h"
#include "platform/script/native/UnitCompiler.h"

#include <bit>
#include <cstddef>

namespace tolvan::script::native {

using namespace asmjit;

namespace {

// Of whole numbers, by UnitCompiler::Relation: where it holds, and where it does not.
constexpr x86::CondCode conditions[] = {x86::CondCode::kE,  x86::CondCode::kNE, x86::CondCode::kL,
                                        x86::CondCode::kLE, x86::CondCode::kG,  x86::CondCode::kGE};
constexpr x86::CondCode opposites[] = {x86::CondCode::kNE, x86::CondCode::kE,  x86::CondCode::kGE,
                                       x86::CondCode::kG,  x86::CondCode::kLE, x86::CondCode::kL};

constexpr std::int32_t referencesOffset = offsetof(Cell, references);

}  // namespace

// Left to the interpreter ---------------------------------------------------------------------------------------------

void UnitCompiler::interpret() {
    cc_.jmp(exit(Exit::Why::Interpreter));
    end();
}

// Whatever the machine may look at has to be in the window by then. Gives what it returned.
UnitCompiler::Gp UnitCompiler::callMachine(Surroundings::OfInstruction function) {
    InvokeNode* call = nullptr;
    cc_.invoke(&call, imm(reinterpret_cast<std::uintptr_t>(function)),
               FuncSignatureT<std::uint64_t, void*, const void*>(CallConvId::kHost));
    const Gp status = temporary64();
    call->setArg(0, pointer(around_.machine));
    call->setArg(1, pointer(at()));
    call->setRet(0, status);
    cc_.test(status, status);
    return status;
}

// The interpreter does this one instruction.
void UnitCompiler::callHelper() {
    storeAll(kinds_, pc_);
    const Gp status = callMachine(at()->op == Op::CallBuiltin ? around_.builtin : around_.step);
    cc_.jne(aside([this, status] { cc_.ret(status); }));
}

void UnitCompiler::helper() {
    callHelper();
    forgetContents();
    const std::uint16_t writes = useOf(at()->op).writes;
    forEachRegister(writes, at(), [this](std::uint32_t reg) { kinds_[reg] = Kind::Any; });
    if ((writes & (Arguments | AndValue)) != 0)
        for (std::uint32_t reg = 0; reg < kinds_.size(); ++reg)
            if (shape_.isReferred(reg)) kinds_[reg] = Kind::Any;
    const auto jump = jumpOf(at());
    if (!jump) return;
    const std::uint32_t target = targetOf(pc_, *jump);
    const auto isNow = [this](std::uint32_t pc) {
        cc_.cmp(x86::qword_ptr(frame_, offsetof(Frame, pc)), address(code_ + pc));
    };
    isNow(next());
    const Label falls = place(next());
    cc_.je(falls);
    // The interpreter skips a poll that it has counted down already.
    if (isInside(target) && code_[target].op == Op::Poll) {
        isNow(target + wordsOf(Op::Poll));
        cc_.je(place(target + wordsOf(Op::Poll)));
    }
    cc_.jmp(place(target));
    end();
}

// Moving values -------------------------------------------------------------------------------------------------------

void UnitCompiler::loadConstant() {
    const Value& value = constant(static_cast<std::uint32_t>(at()->bc()));
    const std::uint32_t target = at()->a;
    const Kind kind = kindOf(value.tag);
    if (kind == Kind::Any) return helper();
    overwrite(target);
    if (kind == Kind::Text) {
        const Gp cell = fixedAddress(value.as.cell);
        cc_.inc(x86::dword_ptr(cell, referencesOffset));
        cc_.mov(tagOfSlot(target), bits(Type::String));
        cc_.mov(payload(target), cell);
    } else if (kind == Kind::Double) {
        cc_.movsd(real(target), cc_.newDoubleConst(ConstPoolScope::kLocal, value.as.d));
    } else if (isUnboxed(kind)) {
        cc_.mov(whole(target), value.as.i);
    } else {
        const Gp content = temporary64();
        cc_.mov(content, imm(value.as.c));
        cc_.mov(tagOfSlot(target), value.tag);
        cc_.mov(payload(target), content);
    }
    kinds_[target] = kind;
}

void UnitCompiler::copy() {
    const std::uint32_t from = at()->b;
    if (!unbox(from, 0)) {
        const bool isText = kinds_[from] == Kind::Text || expected(0, window_[from].tag) == bits(Type::String);
        if (!isText || kinds_[from] == Kind::Items || from == at()->a) return helper();
        return copyText(slotOf(from), kinds_[from] == Kind::Text, at()->op == Op::Take || at()->op == Op::LetTake);
    }
    if (from == at()->a) return;
    if (kinds_[from] == Kind::Double)
        setReal(at()->a, real(from));
    else
        setWhole(at()->a, kinds_[from], whole(from));
}

// What is no text after all is the interpreter's.
void UnitCompiler::copyText(const Mem& from, bool isKnown, bool isTaken) {
    const std::uint32_t target = at()->a;
    Mem tag = from;
    tag.setSize(4);
    Mem content = from;
    content.addOffset(offsetof(Value, as));
    if (!isKnown) {
        cc_.cmp(tag, bits(Type::String));
        cc_.jne(forked([this] { helper(); }));
    }
    const Gp cell = temporary64();
    cc_.mov(cell, content);
    if (isTaken)
        cc_.mov(tag, bits(Type::Empty));
    else
        cc_.inc(x86::dword_ptr(cell, referencesOffset));
    overwrite(target);
    cc_.mov(tagOfSlot(target), bits(Type::String));
    cc_.mov(payload(target), cell);
    kinds_[target] = Kind::Text;
    if (isTaken) kinds_[at()->b] = Kind::Simple;
}

void UnitCompiler::clear() {
    overwrite(at()->a);
    cc_.mov(tagOfSlot(at()->a), bits(Type::Empty));
    kinds_[at()->a] = Kind::Simple;
}

// Outside variables and the caller's ----------------------------------------------------------------------------------

void UnitCompiler::loadFrom(const Gp& variable, std::uint32_t guess) {
    const std::uint32_t tags = expected(0, guess);
    if (tags == bits(Type::String)) return copyText(x86::ptr(variable), false, false);
    if ((tags & unboxedTags) == 0) return helper();
    const Gp tag = temporary32();
    cc_.mov(tag, x86::dword_ptr(variable));
    // The variable may be gone when the target's value is released.
    const auto take = [this, variable](Kind kind) {
        const std::uint32_t target = at()->a;
        const Kind before = kinds_[target];
        load(target, kind, x86::ptr(variable, offsetof(Value, as)));
        kinds_[target] = before;
        overwrite(target);
        kinds_[target] = kind;
    };
    if (!choose(tag, tags, 0, false, take)) helper();
}

// Releasing what the variable has is the interpreter's.
void UnitCompiler::storeTo(const Gp& variable, const Number& value) {
    const Label back = cc_.newLabel();
    const Label held = cc_.newLabel();
    helpAside(held, back);
    cc_.test(x86::dword_ptr(variable), Value::heapTypes);
    cc_.jne(held);
    cc_.mov(x86::dword_ptr(variable), tagOf(value.kind));
    const Mem payload = x86::dword_ptr(variable, offsetof(Value, as));
    if (value.kind == Kind::Double)
        cc_.movsd(x86::ptr(variable, offsetof(Value, as)), realOf(value));
    else if (value.isConstant)
        cc_.mov(payload, value.constant.as.i);
    else
        cc_.mov(payload, whole(value.reg));
    cc_.bind(back);
}

void UnitCompiler::loadGlobal() {
    const auto* variable = at()[1].word<const Value*>();
    const bool isNumber = (variable->tag & unboxedTags) != 0;
    loadFrom(address(variable), isNumber || !variable->is(Type::Empty) ? variable->tag : bits(Type::Integer));
}

void UnitCompiler::letGlobal() {
    if (!unbox(at()->a, 0)) return helper();
    storeTo(address(at()[1].word<const Value*>()), number(at()->a));
}

std::optional<UnitCompiler::Gp> UnitCompiler::referredBy(std::uint32_t reg, std::uint8_t slot) {
    if (isUnboxed(kinds_[reg])) return std::nullopt;
    Gp variable = temporary64();
    cc_.cmp(tagOfSlot(reg), bits(Type::Reference));
    const Gp tag = temporary32();
    cc_.mov(tag, tagOfSlot(reg));
    guard(Condition::kNE, exit(Exit::Why::Kind, slot, &tag));
    cc_.mov(variable, payload(reg));
    return variable;
}

void UnitCompiler::loadReferred() {
    const bool isParameter = at()->b < procedure_.variableCount && window_[at()->b].is(Type::Reference);
    if ((expected(1, bits(Type::Reference)) & ~bits(Type::Reference)) != 0) return helper();
    const std::uint32_t now = isParameter ? window_[at()->b].as.ref->tag : bits(Type::Integer);
    const auto variable = referredBy(at()->b, 1);
    if (!variable) return interpret();
    loadFrom(*variable, now == bits(Type::Empty) ? bits(Type::Integer) : now);
}

void UnitCompiler::letReferred() {
    if ((expected(1, bits(Type::Reference)) & ~bits(Type::Reference)) != 0) return helper();
    if (!unbox(at()->b, 0)) return helper();
    const auto variable = referredBy(at()->a, 1);
    if (!variable) return interpret();
    storeTo(*variable, number(at()->b));
}

void UnitCompiler::referGlobal() {
    overwrite(at()->a);
    cc_.mov(tagOfSlot(at()->a), bits(Type::Reference));
    cc_.mov(payload(at()->a), address(at()[1].word<const Value*>()));
    kinds_[at()->a] = Kind::Simple;
    globals_[at()->a] = at()[1].word<const Value*>();
}

// Operands ------------------------------------------------------------------------------------------------------------

std::optional<UnitCompiler::Number> UnitCompiler::constantNumber(const Value& value) const {
    const Kind kind = kindOf(value.tag);
    if (!isNumber(kind)) return std::nullopt;
    return Number{kind, true, 0, value};
}

// Brings both operands; false if one is expected to be no number.
bool UnitCompiler::numbers(std::uint32_t left, std::uint32_t right, bool isConstant, Number& first, Number& second) {
    if (isConstant) {
        const auto literal = constantNumber(constant(right));
        if (!literal || !unboxNumbers({left})) return false;
        second = *literal;
    } else {
        if (!unboxNumbers({left, right})) return false;
        second = number(right);
    }
    first = number(left);
    return true;
}

UnitCompiler::Gp UnitCompiler::wholeCopy(const Number& number) {
    const Gp copy = temporary32();
    if (number.isConstant)
        cc_.mov(copy, number.constant.as.i);
    else
        cc_.mov(copy, whole(number.reg));
    return copy;
}

void UnitCompiler::wholeOperation(x86::Inst::Id operation, const Gp& target, const Number& right) {
    if (!right.isConstant)
        cc_.emit(operation, target, whole(right.reg));
    else if (operation == x86::Inst::kIdImul)
        cc_.imul(target, target, imm(right.constant.as.i));
    else
        cc_.emit(operation, target, imm(right.constant.as.i));
}

// In a register that must not be changed.
UnitCompiler::Xmm UnitCompiler::realOf(const Number& number) {
    if (!number.isConstant && !number.isWhole()) return real(number.reg);
    return realCopy(number);
}

UnitCompiler::Xmm UnitCompiler::realCopy(const Number& number) {
    const Xmm copy = temporaryReal();
    if (number.isConstant) {
        const double value = number.isWhole() ? number.constant.as.i : number.constant.as.d;
        cc_.movsd(copy, cc_.newDoubleConst(ConstPoolScope::kLocal, value));
    } else if (number.isWhole()) {
        cc_.xorps(copy, copy);
        cc_.cvtsi2sd(copy, whole(number.reg));
    } else {
        cc_.movapd(copy, real(number.reg));
    }
    return copy;
}

// The difference of a number and itself is not 0 where the number is infinite or none.
void UnitCompiler::checkReal(const Xmm& number) {
    const Xmm difference = temporaryReal();
    cc_.movapd(difference, number);
    cc_.subsd(difference, difference);
    cc_.ucomisd(difference, difference);
    guard(Condition::kP, exit(Exit::Why::Guard));
}

// Where a result is too big for its type: code for the bigger type, if that was seen to be needed; else the interpreter
// does the instruction.
void UnitCompiler::grow(Condition when, Kind into, const std::function<void()>& grown) {
    const bool wasSeen = (feedback_.seen(pc_, Feedback::growth) & tagOf(into)) != 0;
    if (!wasSeen) return guard(when, exit(Exit::Why::Growth, Feedback::growth, nullptr, tagOf(into)));
    cc_.j(when, later([this, grown] {
              isFork_ = true;
              grown();
              continueAt(following_);
          }));
}

void UnitCompiler::checkInteger(const Gp& number, const std::function<void()>& grown) {
    const Gp narrow = temporary32();
    cc_.movsx(narrow, number.r16());
    cc_.cmp(narrow, number);
    grow(Condition::kNE, Kind::Long, grown);
}

// Arithmetic ----------------------------------------------------------------------------------------------------------

// `after`: what comes after the result is there, where the instruction does more.
void UnitCompiler::arithmetic(x86::Inst::Id wholes, x86::Inst::Id reals, const Number& left, const Number& right,
                              const std::function<void()>& after) {
    const std::uint32_t target = at()->a;
    const auto take = [this, target, after](Kind kind, const Gp& result) {
        setWhole(target, kind, result);
        if (after) after();
    };
    const auto takeReal = [this, target, after](const Xmm& result) {
        setReal(target, result);
        if (after) after();
    };
    const auto asReal = [this, reals, left, right] {
        const Xmm result = realCopy(left);
        cc_.emit(reals, result, realOf(right));
        return result;
    };
    if (!left.isWhole() || !right.isWhole()) {
        const Xmm result = asReal();
        checkReal(result);
        return takeReal(result);
    }
    const Gp result = wholeCopy(left);
    wholeOperation(wholes, result, right);
    if (left.kind == Kind::Integer && right.kind == Kind::Integer) {
        checkInteger(result, [take, result] { take(Kind::Long, result); });
        return take(Kind::Integer, result);
    }
    grow(Condition::kO, Kind::Double, [takeReal, asReal] { takeReal(asReal()); });
    take(Kind::Long, result);
}

void UnitCompiler::binary(x86::Inst::Id wholes, x86::Inst::Id reals, bool isConstant) {
    Number left;
    Number right;
    if (!numbers(at()->b, at()->c, isConstant, left, right)) return helper();
    arithmetic(wholes, reals, left, right, {});
}

void UnitCompiler::add() {
    binary(x86::Inst::kIdAdd, x86::Inst::kIdAddsd, at()->op == Op::AddRK);
}
void UnitCompiler::subtract() {
    binary(x86::Inst::kIdSub, x86::Inst::kIdSubsd, at()->op == Op::SubtractRK);
}
void UnitCompiler::multiply() {
    binary(x86::Inst::kIdImul, x86::Inst::kIdMulsd, at()->op == Op::MultiplyRK);
}

void UnitCompiler::addInteger() {
    if (!unboxNumbers({at()->b})) return helper();
    const Value right = Value::integer(static_cast<std::int16_t>(at()->c));
    arithmetic(x86::Inst::kIdAdd, x86::Inst::kIdAddsd, number(at()->b), *constantNumber(right), {});
}

void UnitCompiler::divide() {
    Number left;
    Number right;
    if (!numbers(at()->b, at()->c, at()->op == Op::DivideRK, left, right)) return helper();
    const Xmm result = realCopy(left);
    cc_.divsd(result, realOf(right));
    checkReal(result);
    setReal(at()->a, result);
}

void UnitCompiler::integerDivide() {
    wholeDivision(at()->op == Op::IntegerDivideRK, true);
}
void UnitCompiler::modulo() {
    wholeDivision(at()->op == Op::ModuloRK, false);
}

void UnitCompiler::wholeDivision(bool isConstant, bool wantsQuotient) {
    Number left;
    Number right;
    if (!numbers(at()->b, at()->c, isConstant, left, right)) return helper();
    if (!left.isWhole() || !right.isWhole()) return helper();
    const Kind kind = left.kind == Kind::Integer && right.kind == Kind::Integer ? Kind::Integer : Kind::Long;
    if (right.isConstant && right.constant.as.i >= 2)
        return setWhole(at()->a, kind, dividedByConstant(left, right.constant.as.i, wantsQuotient));
    // By 0 it is an error, by -1 the smallest number would overflow.
    const Gp divisor = wholeCopy(right);
    const Gp check = temporary32();
    cc_.lea(check, x86::ptr(divisor, 1));
    cc_.cmp(check, 1);
    guard(Condition::kBE, exit(Exit::Why::Guard));
    const Gp quotient = wholeCopy(left);
    const Gp rest = temporary32();
    cc_.cdq(rest, quotient);
    cc_.idiv(rest, quotient, divisor);
    setWhole(at()->a, kind, wantsQuotient ? quotient : rest);
}

// Division by d as multiplication: with p = 31 + ceil(log2 d) and m = floor(2^p / d) + 1 the quotient is
// floor(n * m / 2^p), and one more for a negative n.
UnitCompiler::Gp UnitCompiler::dividedByConstant(const Number& left, std::int32_t divisor, bool wantsQuotient) {
    const auto d = static_cast<std::uint32_t>(divisor);
    const int shift = 31 + static_cast<int>(std::bit_width(d - 1));
    const auto factor = static_cast<std::int64_t>((std::uint64_t{1} << shift) / d + 1);
    const Gp dividend = wholeCopy(left);
    const Gp product = temporary64();
    const Gp m = temporary64();
    cc_.movsxd(product, dividend);
    cc_.mov(m, imm(factor));
    cc_.imul(product, m);
    cc_.sar(product, shift);
    const Gp sign = temporary32();
    cc_.mov(sign, dividend);
    cc_.sar(sign, 31);
    const Gp quotient = temporary32();
    cc_.mov(quotient, product.r32());
    cc_.sub(quotient, sign);
    if (wantsQuotient) return quotient;
    cc_.imul(quotient, quotient, divisor);
    cc_.sub(dividend, quotient);
    return dividend;
}

void UnitCompiler::negate() {
    if (!unboxNumbers({at()->b})) return helper();
    const Number of = number(at()->b);
    if (!of.isWhole()) {
        const Xmm result = realCopy(of);
        constexpr std::uint64_t sign[2] = {std::uint64_t{1} << 63, 0};
        cc_.xorpd(result, cc_.newConst(ConstPoolScope::kLocal, sign, sizeof sign));
        return setReal(at()->a, result);
    }
    const Gp result = wholeCopy(of);
    cc_.neg(result);
    const std::uint32_t target = at()->a;
    if (of.kind == Kind::Integer)
        checkInteger(result, [this, target, result] { setWhole(target, Kind::Long, result); });
    else
        guard(Condition::kO, exit(Exit::Why::Guard));
    setWhole(target, of.kind, result);
}

// A text that grows in its register. What does not fit where it is, and what is no text, is the interpreter's.
void UnitCompiler::concatenate() {
    const std::uint32_t text = at()->a;
    const bool isConstant = at()->op == Op::ConcatenateRK;
    const auto mayBeText = [this](std::uint32_t reg) { return kinds_[reg] == Kind::Any || kinds_[reg] == Kind::Text; };
    const bool isInPlace = text == at()->b && mayBeText(text);
    if (!isInPlace || (isConstant ? !constant(at()->c).is(Type::String) : !mayBeText(at()->c))) return helper();
    const Label back = cc_.newLabel();
    const Label slow = cc_.newLabel();
    helpAside(slow, back);
    if (isConstant && constant(at()->c).view().size() == 1) {
        const StringCell& any = *constant(at()->c).string();
        const auto offset = [&any](const void* field) {
            return static_cast<std::int32_t>(static_cast<const char*>(field) - reinterpret_cast<const char*>(&any));
        };
        cc_.cmp(tagOfSlot(text), bits(Type::String));
        cc_.jne(slow);
        const Gp cell = temporary64();
        cc_.mov(cell, payload(text));
        cc_.cmp(x86::dword_ptr(cell, offset(&any.references)), 1);
        cc_.jne(slow);
        const Gp length = temporary64();
        cc_.mov(length.r32(), x86::dword_ptr(cell, offset(&any.length)));
        cc_.cmp(length.r32(), x86::dword_ptr(cell, offset(&any.capacity)));
        cc_.jae(slow);
        cc_.cmp(length, x86::qword_ptr(address(around_.longestText)));
        cc_.jae(slow);
        cc_.mov(x86::byte_ptr(cell, length, 0, offset(any.bytes())), constant(at()->c).view()[0]);
        cc_.inc(x86::dword_ptr(cell, offset(&any.length)));
    } else {
        const Gp target = temporary64();
        cc_.lea(target, slotOf(text));
        const Gp tail = temporary64();
        if (isConstant)
            cc_.mov(tail, pointer(&constant(at()->c)));
        else
            cc_.lea(tail, slotOf(at()->c));
        const Gp status = temporary64();
        InvokeNode* call = nullptr;
        cc_.invoke(&call, imm(reinterpret_cast<std::uintptr_t>(around_.append)),
                   FuncSignatureT<std::uint64_t, void*, void*, const void*>(CallConvId::kHost));
        call->setArg(0, pointer(around_.machine));
        call->setArg(1, target);
        call->setArg(2, tail);
        call->setRet(0, status);
        cc_.test(status, status);
        cc_.jne(slow);
    }
    cc_.bind(back);
}

// Truth values and bits -----------------------------------------------------------------------------------------------

void UnitCompiler::logicalNot() {
    if (!unbox(at()->b, 0) || kinds_[at()->b] == Kind::Double) return helper();
    const Gp result = wholeCopy(number(at()->b));
    cc_.not_(result);
    setWhole(at()->a, kinds_[at()->b], result);
}

void UnitCompiler::logical() {
    if (!unbox(at()->b, 0) || !unbox(at()->c, 1)) return helper();
    const Number left = number(at()->b);
    const Number right = number(at()->c);
    const bool areTruthValues = left.kind == Kind::Boolean && right.kind == Kind::Boolean;
    if (!areTruthValues && (!left.isWhole() || !right.isWhole())) return helper();
    const Gp result = wholeCopy(left);
    const Gp other = wholeCopy(right);
    switch (at()->op) {
        case Op::AndRR:
            cc_.and_(result, other);
            break;
        case Op::OrRR:
            cc_.or_(result, other);
            break;
        case Op::ImpRR:
            cc_.not_(result);
            cc_.or_(result, other);
            break;
        case Op::EqvRR:
            cc_.xor_(result, other);
            cc_.not_(result);
            break;
        default:
            cc_.xor_(result, other);
    }
    setWhole(at()->a, left.kind == right.kind ? left.kind : Kind::Long, result);
}

UnitCompiler::Comparison UnitCompiler::comparisonOf(Op op) {
    using Form = Comparison::Form;
    switch (op) {
#define COMPARISON(name, ...)                             \
    case Op::name##RR:                                    \
        return {Relation::name, Form::Value, false};      \
    case Op::name##RK:                                    \
        return {Relation::name, Form::Value, true};       \
    case Op::JumpIf##name##RR:                            \
    case Op::LoopIf##name##RR:                            \
        return {Relation::name, Form::JumpIf, false};     \
    case Op::JumpIf##name##RK:                            \
    case Op::LoopIf##name##RK:                            \
        return {Relation::name, Form::JumpIf, true};      \
    case Op::JumpUnless##name##RR:                        \
        return {Relation::name, Form::JumpUnless, false}; \
    case Op::JumpUnless##name##RK:                        \
        return {Relation::name, Form::JumpUnless, true};
        TOLVAN_COMPARISONS(COMPARISON)
#undef COMPARISON
        default:
            return {Relation::Equal, Form::Value, false};
    }
}

// Jumps where the relation holds, or where it does not. A comparison with what is no number (NaN) never holds, but for
// "not equal".
void UnitCompiler::jumpWhere(Relation relation, const Number& left, const Number& right, bool holds,
                             const Label& target) {
    if (!isNumber(left.kind) || (left.isWhole() && right.isWhole())) {
        if (right.isConstant)
            cc_.cmp(whole(left.reg), imm(right.constant.as.i));
        else
            cc_.cmp(whole(left.reg), whole(right.reg));
        const auto row = static_cast<std::size_t>(relation);
        cc_.j(holds ? conditions[row] : opposites[row], target);
        return;
    }
    const Xmm first = realOf(left);
    const Xmm second = realOf(right);
    switch (relation) {
        case Relation::Less:
        case Relation::LessEqual:
            cc_.ucomisd(second, first);
            break;
        default:
            cc_.ucomisd(first, second);
    }
    switch (relation) {
        case Relation::Less:
        case Relation::Greater:
            cc_.j(holds ? Condition::kA : Condition::kBE, target);
            return;
        case Relation::LessEqual:
        case Relation::GreaterEqual:
            cc_.j(holds ? Condition::kAE : Condition::kB, target);
            return;
        default:
            break;
    }
    if ((relation == Relation::Equal) == holds) {
        const Label skip = cc_.newLabel();
        cc_.jp(skip);
        cc_.je(target);
        cc_.bind(skip);
    } else {
        cc_.jp(target);
        cc_.jne(target);
    }
}

// Both numbers, or both truth values.
bool UnitCompiler::comparable(std::uint32_t left, std::uint32_t right, bool isConstant, Number& first, Number& second) {
    if (isConstant) {
        const Value& literal = constant(right);
        if (!isUnboxed(kindOf(literal.tag)) || !unbox(left, 0)) return false;
        second = {kindOf(literal.tag), true, 0, literal};
    } else {
        if (!unbox(left, 0) || !unbox(right, 1)) return false;
        second = number(right);
    }
    first = number(left);
    return isNumber(first.kind) == isNumber(second.kind);
}

void UnitCompiler::compare() {
    const Comparison comparison = comparisonOf(at()->op);
    Number left;
    Number right;
    if (!comparable(at()->b, at()->c, comparison.isConstant, left, right)) return compareTexts(at()->b, at()->c);
    const Gp result = temporary32();
    const Label done = cc_.newLabel();
    cc_.mov(result, 0);
    jumpWhere(comparison.relation, left, right, false, done);
    cc_.mov(result, -1);
    cc_.bind(done);
    setWhole(at()->a, Kind::Boolean, result);
}

// Of two texts, as far as can be told now; what is none after all is the interpreter's.
void UnitCompiler::compareTexts(std::uint32_t left, std::uint32_t right) {
    const Comparison comparison = comparisonOf(at()->op);
    const auto mayBeText = [this](std::uint32_t reg) { return kinds_[reg] == Kind::Text || kinds_[reg] == Kind::Any; };
    const bool isText = comparison.isConstant ? constant(right).is(Type::String) : mayBeText(right);
    if (!isText || !mayBeText(left) ||
        (kinds_[left] != Kind::Text && (comparison.isConstant || kinds_[right] != Kind::Text)))
        return helper();
    const auto check = [this](std::uint32_t reg) {
        if (kinds_[reg] == Kind::Text) return;
        cc_.cmp(tagOfSlot(reg), bits(Type::String));
        cc_.jne(forked([this] { helper(); }));
    };
    check(left);
    if (!comparison.isConstant) check(right);
    const Gp first = temporary64();
    cc_.lea(first, slotOf(left));
    const Gp second = temporary64();
    if (comparison.isConstant)
        cc_.mov(second, pointer(&constant(right)));
    else
        cc_.lea(second, slotOf(right));
    const Gp order = temporary32();
    InvokeNode* call = nullptr;
    cc_.invoke(&call, imm(reinterpret_cast<std::uintptr_t>(around_.compareTexts)),
               FuncSignatureT<int, const void*, const void*>(CallConvId::kHost));
    call->setArg(0, first);
    call->setArg(1, second);
    call->setRet(0, order);
    const auto row = static_cast<std::size_t>(comparison.relation);
    if (comparison.form != Comparison::Form::Value) {
        const Label target = place(targetOf(pc_, *jumpOf(at())));
        cc_.cmp(order, 0);
        cc_.j(comparison.form == Comparison::Form::JumpIf ? conditions[row] : opposites[row], target);
        return;
    }
    const Gp result = temporary32();
    const Label done = cc_.newLabel();
    cc_.mov(result, 0);
    cc_.cmp(order, 0);
    cc_.j(opposites[row], done);
    cc_.mov(result, -1);
    cc_.bind(done);
    setWhole(at()->a, Kind::Boolean, result);
}

void UnitCompiler::compareAndJump() {
    const Comparison comparison = comparisonOf(at()->op);
    Number left;
    Number right;
    if (!comparable(at()->a, at()->b, comparison.isConstant, left, right)) return compareTexts(at()->a, at()->b);
    jumpWhere(comparison.relation, left, right, comparison.form == Comparison::Form::JumpIf,
              place(targetOf(pc_, *jumpOf(at()))));
}

// Jumps and loops -----------------------------------------------------------------------------------------------------

void UnitCompiler::jump() {
    following_ = targetOf(pc_, at()->bc());
}

void UnitCompiler::jumpOnValue() {
    if (!unbox(at()->a, 0) || kinds_[at()->a] == Kind::Double) return helper();
    cc_.test(whole(at()->a), whole(at()->a));
    cc_.j(at()->op == Op::JumpIf ? Condition::kNE : Condition::kE, place(targetOf(pc_, at()->bc())));
}

// What is counted down too far is put right again, and the interpreter sees to it.
void UnitCompiler::tick() {
    cc_.sub(x86::dword_ptr(address(around_.ticks)), 1);
    cc_.jle(aside([this] {
        cc_.add(x86::dword_ptr(address(around_.ticks)), 1);
        cc_.jmp(exit(Exit::Why::Pause));
    }));
}

// Where the budget is used up, the host is asked; with a new budget it goes on here.
void UnitCompiler::poll() {
    const int* budget = at()[1].word<const int*>();
    const Label goesOn = cc_.newLabel();
    Exit& left = unit_.exits.emplace_back(Exit{&unit_, pc_, Exit::Why::Pause, 0, 0, 0, nullptr});
    cc_.sub(x86::dword_ptr(address(budget)), 1);
    cc_.jl(aside([this, budget, goesOn, &left] {
        cc_.add(x86::dword_ptr(address(budget)), 1);
        storeAll(kinds_, pc_);
        const Gp status = callMachine(around_.ask);
        cc_.je(goesOn);
        const Label hasFailed = cc_.newLabel();
        cc_.cmp(status, answered);
        cc_.jne(hasFailed);
        cc_.mov(status, pointer(&left));
        cc_.bind(hasFailed);
        cc_.ret(status);
    }));
    cc_.bind(goesOn);
}

void UnitCompiler::forPrepare() {
    const std::uint32_t limit = at()->b;
    const std::uint32_t step = limit + 1;
    const std::uint32_t from = limit + 2;
    if (!unboxNumbers({limit, step, from})) return helper();
    if (!isWhole(kinds_[limit]) || !isWhole(kinds_[step]) || !isWhole(kinds_[from])) return helper();
    setWhole(at()->a, kinds_[from], whole(from));
    const Label none = place(targetOf(pc_, *jumpOf(at())));
    leaveWherePast(number(at()->a), number(limit), number(step), none);
}

// Jumps where the counter is past the limit, in the direction of the step.
void UnitCompiler::leaveWherePast(const Number& counter, const Number& limit, const Number& step, const Label& target) {
    const Label down = cc_.newLabel();
    const Label inside = cc_.newLabel();
    if (step.isWhole()) {
        cc_.test(whole(step.reg), whole(step.reg));
        cc_.js(down);
    } else {
        const Xmm zero = temporaryReal();
        cc_.xorps(zero, zero);
        cc_.ucomisd(zero, real(step.reg));
        cc_.ja(down);
    }
    jumpWhere(Relation::LessEqual, counter, limit, false, target);
    cc_.jmp(inside);
    cc_.bind(down);
    jumpWhere(Relation::GreaterEqual, counter, limit, false, target);
    cc_.bind(inside);
}

void UnitCompiler::forNextOne() {
    const std::uint32_t counter = at()->a;
    const std::uint32_t limit = at()->b;
    if (!unboxNumbers({counter, limit})) return helper();
    if (!isWhole(kinds_[counter]) || !isWhole(kinds_[limit])) return helper();
    const Gp result = wholeCopy(number(counter));
    cc_.add(result, 1);
    const auto goOn = [this, counter, limit, result, target = targetOf(pc_, *jumpOf(at()))](Kind kind) {
        setWhole(counter, kind, result);
        jumpWhere(Relation::LessEqual, number(counter), number(limit), true, place(target));
    };
    if (kinds_[counter] == Kind::Integer) {
        cc_.cmp(result, 0x7fff);
        grow(Condition::kG, Kind::Long, [goOn] { goOn(Kind::Long); });
    } else {
        guard(Condition::kO, exit(Exit::Why::Guard));
    }
    goOn(kinds_[counter]);
}

void UnitCompiler::forNext() {
    const std::uint32_t counter = at()->a;
    const std::uint32_t limit = at()->b;
    const std::uint32_t step = limit + 1;
    if (!unboxNumbers({counter, limit, step})) return helper();
    arithmetic(x86::Inst::kIdAdd, x86::Inst::kIdAddsd, number(counter), number(step), [this, counter, limit, step] {
        leaveWherePast(number(counter), number(limit), number(step), place(next()));
        following_ = targetOf(pc_, *jumpOf(at()));
    });
}

}  // namespace tolvan::script::native
