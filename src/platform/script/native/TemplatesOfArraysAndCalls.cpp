// The machine code of instructions that read and write elements of arrays, and that call procedures.

#include "platform/script/ArrayCell.h"
#include "platform/script/Builtin.h"
#include "platform/script/compiler/LoadedModule.h"
#include "platform/script/machine/MachineFrames.h"
#include "platform/script/native/UnitCompiler.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <limits>

namespace tolvan::script::native {

using namespace asmjit;

namespace {

// Where the fields of an array lie; ArrayCell has a base, so that offsetof does not have to know.
struct ArrayOffsets {
    ArrayOffsets() {
        const ArrayCell cell;
        const auto offset = [&cell](const auto& field) {
            return static_cast<std::int32_t>(reinterpret_cast<const char*>(&field) -
                                             reinterpret_cast<const char*>(&cell));
        };
        references = offset(cell.references);
        count1 = offset(cell.count1);
        rank = offset(cell.rank);
        extents = offset(cell.extents);
        items = offset(cell.items);
    }
    std::int32_t references;
    std::int32_t count1;
    std::int32_t rank;
    std::int32_t extents;
    std::int32_t items;
};
const ArrayOffsets& arrayOffsets() {
    static const ArrayOffsets offsets;
    return offsets;
}

}  // namespace

// Arrays --------------------------------------------------------------------------------------------------------------

// The variable that an array register is or refers to, as far as that can be told now; or null.
const Value* UnitCompiler::arrayNow(std::uint32_t reg) const {
    const auto global = globals_.find(reg);
    if (global != globals_.end()) return global->second;
    // What temporaries refer to may be gone.
    const bool isVariable = reg < procedure_.variableCount;
    if (isVariable && window_[reg].is(Type::Reference)) return window_[reg].as.ref;
    return isVariable ? &window_[reg] : nullptr;
}

// The types of some of the array's elements as a guess for all. Empty ones will have been filled.
std::uint32_t UnitCompiler::sampleOf(std::uint32_t array) const {
    constexpr std::size_t looks = 16;
    const Value* now = arrayNow(array);
    if (now == nullptr || !now->is(Type::Array)) return bits(Type::Integer);
    std::uint32_t tags = 0;
    const std::size_t size = now->array()->size;
    for (std::size_t i = 0; i < std::min(looks, size); ++i)
        tags |= now->array()->items[i * size / std::min(looks, size)].tag;
    tags &= ~bits(Type::Empty);
    if (tags == 0) return bits(Type::Integer);
    return (tags & unboxedTags) != 0 ? tags & unboxedTags : tags;
}

UnitCompiler::Gp UnitCompiler::cellOf(std::uint32_t array) {
    if (!cells_[array].isValid()) cells_[array] = cc_.newIntPtr();
    return cells_[array];
}
UnitCompiler::Gp UnitCompiler::itemsOf(std::uint32_t array) {
    if (!items_[array].isValid()) items_[array] = cc_.newIntPtr();
    return items_[array];
}

// Whether it is an array now, or refers to one, and is used as such.
bool UnitCompiler::startsWithItems(std::uint32_t reg) const {
    return reg < procedure_.variableCount && isArray_[reg] && followed(window_[reg]).is(Type::Array);
}

// Brings the addresses of the array's cell and elements. `check` makes sure that the tag is an array's.
void UnitCompiler::findItems(std::uint32_t array, bool mayBeReference, const std::function<void(const Gp&)>& check) {
    const Gp holder = temporary64();
    cc_.lea(holder, slotOf(array));
    if (mayBeReference) {
        const Label direct = cc_.newLabel();
        cc_.cmp(x86::dword_ptr(holder), bits(Type::Reference));
        cc_.jne(direct);
        cc_.mov(holder, x86::ptr(holder, offsetof(Value, as)));
        cc_.bind(direct);
    }
    if (check) {
        const Gp tag = temporary32();
        cc_.mov(tag, x86::dword_ptr(holder));
        check(tag);
    }
    cc_.mov(cellOf(array), x86::ptr(holder, offsetof(Value, as)));
    cc_.mov(itemsOf(array), x86::ptr(cellOf(array), arrayOffsets().items));
    kinds_[array] = Kind::Items;
}

// After code that may have changed arrays. Where one is an array no more, the interpreter goes on at `otherwise`.
void UnitCompiler::refreshItems(std::uint32_t otherwise) {
    if (std::find(kinds_.begin(), kinds_.end(), Kind::Items) == kinds_.end()) return;
    const Label changed = exitAt(otherwise, Exit::Why::Changed);
    for (std::uint32_t reg = 0; reg < kinds_.size(); ++reg) {
        if (kinds_[reg] != Kind::Items) continue;
        findItems(reg, true, [this, changed](const Gp& tag) {
            cc_.cmp(tag, bits(Type::Array));
            cc_.jne(changed);
        });
    }
}

// The address of the element; none where array or indexes are of a kind that the interpreter takes care of. To write,
// the array must have one holder; else it goes on at `shared`.
std::optional<UnitCompiler::Gp> UnitCompiler::elementOf(std::uint32_t array, std::uint32_t firstIndex,
                                                        std::uint32_t count, const Label* shared) {
    for (std::uint32_t i = 0; i < count; ++i)
        if (!unbox(firstIndex + i, 2) || !isWhole(kinds_[firstIndex + i])) return std::nullopt;
    const Value* now = arrayNow(array);
    const bool isDirect = now == &window_[array];
    const std::uint32_t form = expected(1, bits(isDirect ? Type::Array : Type::Reference));
    if (isUnboxed(kinds_[array]) || (form & ~bits(Type::Array, Type::Reference)) != 0) return std::nullopt;

    const ArrayOffsets& offsets = arrayOffsets();
    if (kinds_[array] != Kind::Items)
        findItems(array, (form & bits(Type::Reference)) != 0, [this](const Gp& tag) {
            cc_.cmp(tag, bits(Type::Array));
            guard(Condition::kNE, exit(Exit::Why::Kind, 1, &tag));
        });
    const Gp cell = cellOf(array);
    const Label outside = exit(Exit::Why::Guard);
    Gp number = temporary64();
    cc_.mov(number.r32(), whole(firstIndex));
    if (count == 1) {
        cc_.cmp(number.r32(), x86::dword_ptr(cell, offsets.count1));
        guard(Condition::kAE, outside);
    } else {
        cc_.cmp(x86::word_ptr(cell, offsets.rank), count);
        guard(Condition::kNE, outside);
        const Gp extents = temporary64();
        cc_.mov(extents, x86::ptr(cell, offsets.extents));
        cc_.cmp(number.r32(), x86::dword_ptr(extents));
        guard(Condition::kAE, outside);
        const Gp stride = temporary64();
        cc_.mov(stride.r32(), x86::dword_ptr(extents));
        for (std::uint32_t i = 1; i < count; ++i) {
            const auto place = static_cast<std::int32_t>(i * sizeof(std::uint32_t));
            const Gp index = temporary64();
            cc_.mov(index.r32(), whole(firstIndex + i));
            cc_.cmp(index.r32(), x86::dword_ptr(extents, place));
            guard(Condition::kAE, outside);
            cc_.imul(index, stride);
            cc_.add(number, index);
            if (i + 1 == count) break;
            const Gp extent = temporary64();
            cc_.mov(extent.r32(), x86::dword_ptr(extents, place));
            cc_.imul(stride, extent);
        }
    }
    if (shared != nullptr) {
        cc_.cmp(x86::dword_ptr(cell, offsets.references), 1);
        cc_.jne(*shared);
    }
    static_assert(sizeof(Value) == 1u << 4);
    cc_.shl(number, 4);
    cc_.add(number, itemsOf(array));
    return number;
}

void UnitCompiler::index() {
    const std::uint32_t count = at()->op == Op::IndexMany ? at()[1].word<std::uint32_t>() : 1;
    const std::uint32_t sample = sampleOf(at()->b);
    if (count == 0 || (expected(0, sample) & unboxedTags) == 0) return helper();
    const auto element = elementOf(at()->b, at()->c, count, nullptr);
    if (!element) return helper();
    loadFrom(*element, sample);
}

void UnitCompiler::putIndex() {
    const auto word = at()->op == Op::PutIndexMany ? at()[1].word<std::uint64_t>() : 1;
    const auto count = static_cast<std::uint32_t>(word);
    const bool isSet = (word >> 32) != 0;
    if (isSet || count == 0) return helper();
    Number value;
    if (at()->op == Op::PutIndexK) {
        const Value& literal = constant(at()->c);
        value = {kindOf(literal.tag), true, 0, literal};
        if (!isUnboxed(value.kind)) return helper();
    } else {
        if (!unbox(at()->c, 0)) return helper();
        value = number(at()->c);
    }
    const Label shared = cc_.newLabel();
    const auto element = elementOf(at()->a, at()->b, count, &shared);
    if (!element) return helper();
    const Label back = cc_.newLabel();
    helpAside(shared, back);
    storeTo(*element, value);
    cc_.bind(back);
}

// Calls ---------------------------------------------------------------------------------------------------------------

void UnitCompiler::callBuiltin() {
    const std::string_view name = at()[1].word<const Builtin*>()->name;
    if (at()->b == 1 && numericBuiltin(name)) return;
    if (at()->b == 3 && name == "Mid" && characterOfText()) return;
    helper();
}

// The argument's register holds a number, before and after.
bool UnitCompiler::numericBuiltin(std::string_view name) {
    const bool isCut = name == "Int" || name == "Fix";
    if (!isCut && name != "Abs" && name != "Sqr") return false;
    const std::uint32_t argument = at()->a + 1u;
    if (!isNumber(kinds_[argument])) return false;
    const Number of = number(argument);
    if (name == "Sqr") {
        const Xmm result = realCopy(of);
        const Xmm zero = temporaryReal();
        cc_.xorps(zero, zero);
        cc_.ucomisd(result, zero);
        guard(Condition::kB, exit(Exit::Why::Guard));
        cc_.sqrtsd(result, result);
        setReal(at()->a, result);
    } else if (of.isWhole()) {
        const Gp result = wholeCopy(of);
        if (!isCut) {
            const Label isPositive = cc_.newLabel();
            cc_.test(result, result);
            cc_.jns(isPositive);
            cc_.neg(result);
            cc_.bind(isPositive);
            // Of the smallest number of its type there is none.
            cc_.cmp(result, of.kind == Kind::Integer ? 0x8000 : std::numeric_limits<std::int32_t>::min());
            guard(Condition::kE, exit(Exit::Why::Guard));
        }
        setWhole(at()->a, of.kind, result);
    } else if (!isCut) {
        const Xmm result = realCopy(of);
        constexpr std::uint64_t allButSign[2] = {~(std::uint64_t{1} << 63), 0};
        cc_.andpd(result, cc_.newConst(ConstPoolScope::kLocal, allButSign, sizeof allButSign));
        setReal(at()->a, result);
    } else {
        if (!CpuInfo::host().features().x86().hasSSE4_1()) return false;
        constexpr int down = 1 | 8;  // and raise no exception
        constexpr int towardsZero = 3 | 8;
        const Xmm result = realCopy(of);
        cc_.roundsd(result, result, name == "Int" ? down : towardsZero);
        setReal(at()->a, result);
    }
    return true;
}

// Mid(text, place, 1).
bool UnitCompiler::characterOfText() {
    const std::uint32_t result = at()->a;
    const Kind text = kinds_[result + 1];
    const bool isOne = isWhole(kinds_[result + 3]) && isWhole(kinds_[result + 2]);
    if (!isOne || (text != Kind::Text && text != Kind::Any)) return false;
    cc_.cmp(whole(result + 3), 1);
    cc_.jne(forked([this] { helper(); }));
    const Gp window = temporary64();
    cc_.lea(window, slotOf(result));
    const Gp status = temporary64();
    InvokeNode* call = nullptr;
    cc_.invoke(&call, imm(reinterpret_cast<std::uintptr_t>(around_.character)),
               FuncSignatureT<std::uint64_t, void*, void*, std::int32_t>(CallConvId::kHost));
    call->setArg(0, pointer(around_.machine));
    call->setArg(1, window);
    call->setArg(2, whole(result + 2));
    call->setRet(0, status);
    cc_.test(status, status);
    cc_.jne(forked([this] { helper(); }));
    kinds_[result] = Kind::Text;
    kinds_[result + 1] = Kind::Simple;
    return true;
}

// As Machine::enter does. Everything is in the window then, so that the interpreter can go on in any of the procedures.
void UnitCompiler::callProcedure() {
    const auto* slot = at()[1].word<const ProcedureSlot*>();
    const std::shared_ptr<const Procedure>& callee = slot->procedure;
    const void* inSlot = nullptr;  // where the code reads it
    std::memcpy(static_cast<void*>(&inSlot), static_cast<const void*>(&callee), sizeof inSlot);
    const bool isKnown = callee != nullptr && inSlot == callee.get();
    if (!isKnown || callee->parameterCount != at()->b || callee->checksArguments || callee->owner != nullptr)
        return interpret();
    unit_.callees.push_back(callee);

    cc_.cmp(x86::qword_ptr(address(slot)), address(callee.get()));
    guard(Condition::kNE, exit(Exit::Why::Guard));
    const Gp entry = temporary64();
    cc_.mov(entry, x86::qword_ptr(address(&callee->machineCode.entry)));
    cc_.test(entry, entry);
    cc_.je(exit(Exit::Why::Callee));
    unit_.exits.back().callee = callee.get();

    const std::uint32_t window = at()->a;
    const auto offset = [](std::uint32_t reg) { return static_cast<std::int32_t>(reg * sizeof(Value)); };
    const Label tooDeep = exit(Exit::Why::Pause);
    const Gp inner = temporary64();
    cc_.lea(inner, x86::ptr(frame_, sizeof(Frame)));
    cc_.cmp(inner, x86::qword_ptr(address(around_.deepestFrame)));
    cc_.jae(tooDeep);
    const Gp base = temporary64();
    cc_.lea(base, x86::ptr(base_, offset(window + callee->registerCount)));
    cc_.cmp(base, x86::qword_ptr(address(around_.stackEnd)));
    cc_.ja(tooDeep);

    storeAll(kinds_, pc_);
    const Gp ticks = address(around_.ticks);
    cc_.dec(x86::dword_ptr(ticks));
    const Label inTime = cc_.newLabel();
    cc_.jle(aside([this, inTime] {
        const Gp status = callMachine(around_.tick);
        cc_.je(inTime);
        cc_.ret(status);
    }));
    cc_.bind(inTime);

    cc_.mov(x86::qword_ptr(frame_, offsetof(Frame, pc)), address(code_ + next()));
    cc_.lea(base, x86::ptr(base_, offset(window)));
    cc_.mov(x86::qword_ptr(inner, offsetof(Frame, procedure)), address(callee.get()));
    cc_.mov(x86::qword_ptr(inner, offsetof(Frame, base)), base);
    cc_.mov(x86::qword_ptr(inner, offsetof(Frame, me)), 0);
    cc_.mov(x86::qword_ptr(inner, offsetof(Frame, generated)), 0);
    static_assert(offsetof(Frame, isEntry) == offsetof(Frame, resumeNext) + 1);
    cc_.mov(x86::word_ptr(inner, offsetof(Frame, resumeNext)), 0);
    cc_.inc(x86::qword_ptr(address(around_.depth)));

    InvokeNode* call = nullptr;
    const Gp status = temporary64();
    cc_.invoke(&call, entry, FuncSignatureT<std::uint64_t, void*, void*>(CallConvId::kHost));
    call->setArg(0, base);
    call->setArg(1, inner);
    call->setRet(0, status);
    cc_.test(status, status);
    cc_.jne(aside([this, status] { cc_.ret(status); }));

    forgetContents();
    // The callee has released its registers, and may have changed what it got by reference.
    kinds_[window] = Kind::Any;
    for (std::uint32_t i = 1; i <= callee->parameterCount; ++i) kinds_[window + i] = Kind::Simple;
    for (std::uint32_t reg = 0; reg < kinds_.size(); ++reg)
        if (shape_.isReferred(reg)) kinds_[reg] = Kind::Any;
}

void UnitCompiler::returnFromProcedure() {
    if (isLoop_) {
        cc_.jmp(exit(Exit::Why::Pause));
        return end();
    }
    forgetContents();
    if (isUnboxed(kinds_[0])) store(0, kinds_[0]);
    for (std::uint32_t reg = 1; reg < procedure_.registerCount; ++reg)
        if (isWritten_[reg] || reg <= procedure_.parameterCount) overwrite(reg);
    cc_.dec(x86::qword_ptr(address(around_.depth)));
    const Gp status = temporary64();
    cc_.xor_(status, status);
    cc_.ret(status);
    end();
}

}  // namespace tolvan::script::native
