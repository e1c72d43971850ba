#include "platform/script/machine/FailedOperation.h"

#include "platform/script/Conversions.h"
#include "platform/script/machine/MachineFrames.h"

#include <map>

namespace tolvan::script {

namespace {

// What the temporaries of a statement hold, as far as its instructions tell: the variable that a value was loaded from,
// the array that it is an element of, the function that gave it.
class RegisterNames {
  public:
    RegisterNames(Machine& machine, const Procedure& procedure) : machine_(machine), procedure_(procedure) {}

    // Reads the instructions of the statement up to the one at `end`; false if that is none of them.
    bool readUpTo(std::uint32_t end) {
        std::uint32_t pc = 0;
        for (const LineMark& mark : procedure_.lines)
            if (mark.pc <= end) pc = mark.pc;
        for (; pc < end; pc += wordsOf(procedure_.code[pc].op)) read(&procedure_.code[pc]);
        return pc == end;
    }

    std::string of(std::uint32_t reg) const {
        if (reg < procedure_.variableCount) return spelled(procedure_.variableNames[reg]);
        const auto source = sources_.find(reg);
        return source == sources_.end() || source->second.isLiteral ? std::string() : source->second.text;
    }
    std::string ofField(std::uint32_t field) const {
        for (const auto& [name, member] : procedure_.owner->members)
            if (member.field == static_cast<int>(field)) return spelled(name);
        return {};
    }
    std::string ofGlobal(const Value* variable) const { return spelled(machine_.symbols().nameOf(variable)); }
    std::string spelled(NameId name) const {
        return name == 0 ? std::string() : std::string(machine_.names().spelling(name));
    }

  private:
    void read(const Instruction* at) {
        switch (at->op) {
            case Op::Copy:
            case Op::Take:
            case Op::Let:
            case Op::LetTake:
            case Op::SetTake:
            case Op::LoadReferred:
            case Op::ReferRegister:
                return note(at->a, of(at->b));
            case Op::LoadGlobal:
            case Op::ReferGlobal:
                return note(at->a, ofGlobal(at[1].word<const Value*>()));
            case Op::LoadField:
            case Op::ReferField:
                return note(at->a, ofField(at->b));
            case Op::Index:
            case Op::IndexLet:
                return note(at->a, element(at->b, at->c, 1));
            case Op::IndexMany:
            case Op::ReferElement:
                return note(at->a, element(at->b, at->c, at[1].word<std::uint32_t>()));
            case Op::LoadConstant:
                return noteLiteral(at->a, procedure_.constants[static_cast<std::size_t>(at->bc())]);
            case Op::CallProcedure:
                return note(at->a, spelled(at[1].word<const ProcedureSlot*>()->procedure->name));
            case Op::CallBuiltin:
                return note(at->a, std::string(at[1].word<const Builtin*>()->name));
            case Op::CallHost:
                return note(at->a, spelled(at[1].word<const HostMember*>()->name));
            case Op::CallMember:
                return note(at->a, spelled(at[1].word<NameId>()));
            case Op::CallLate:
                return note(at->a, spelled(at[1].word<LateUse>().name));
            case Op::Poll:
            case Op::PollAgain:
            case Op::Tick:
                return;
            default:
                return note(at->a, {});
        }
    }

    void note(std::uint32_t reg, std::string name) { sources_[reg] = {std::move(name), false}; }
    void noteLiteral(std::uint32_t reg, const Value& value) {
        const bool isWhole = value.isOneOf(bits(Type::Integer, Type::Long));
        sources_[reg] = {isWhole ? std::to_string(value.as.i) : std::string(), true};
    }

    // "t(i, 5)"; "t" where an index is the result of a calculation.
    std::string element(std::uint32_t array, std::uint32_t first, std::uint32_t count) {
        std::string name = of(array);
        std::string list;
        for (std::uint32_t reg = first; reg < first + count; ++reg) {
            const auto source = sources_.find(reg);
            const std::string index = source == sources_.end() ? of(reg) : source->second.text;
            if (name.empty() || index.empty()) return name;
            list += (list.empty() ? "(" : ", ") + index;
        }
        return name + list + ")";
    }

    struct Source {
        std::string text;
        bool isLiteral;
    };
    Machine& machine_;
    const Procedure& procedure_;
    std::map<std::uint32_t, Source> sources_;  // by register
};

class Finder {
  public:
    Finder(Machine& machine, const Frame& frame, std::uint32_t pc)
        : machine_(machine), frame_(frame), at_(&frame.procedure->code[pc]), names_(machine, *frame.procedure) {}

    FailedOperation find(std::uint32_t pc) {
        if (names_.readUpTo(pc)) describe();
        return std::move(found_);
    }

  private:
    void describe();
    void call();

    template <class T>
    T word() const {
        return at_[1].word<T>();
    }

    void add(std::string name, const Value& value) {
        if (value.is(Type::Pin)) return;
        ErrorOperand operand{std::move(name), {}, std::string(typeNameOf(value))};
        if (!value.isOneOf(bits(Type::Empty, Type::Null, Type::Array, Type::Object)) && !value.isMissing()) {
            Value keep;
            operand.value = toTextView(machine_, value, keep).substr(0, ErrorOperand::longestValue);
        }
        found_.operands.push_back(std::move(operand));
    }
    void addRegister(std::uint32_t reg) { add(names_.of(reg), followed(frame_.base[reg])); }
    void addRegisters(std::uint32_t first, std::uint32_t count) {
        for (std::uint32_t reg = first; reg < first + count; ++reg) addRegister(reg);
    }
    void addConstant(std::uint32_t index) { add({}, frame_.procedure->constants[index]); }
    // The object whose member was called; the call may have taken it out of its register already.
    void addObject(std::uint32_t reg) {
        if (frame_.base[reg].is(Type::Empty))
            found_.operands.push_back({names_.of(reg), {}, "Object"});
        else
            addRegister(reg);
    }

    Machine& machine_;
    const Frame& frame_;
    const Instruction* at_;
    RegisterNames names_;
    FailedOperation found_;
};

void Finder::describe() {
    const Instruction& code = *at_;
    switch (code.op) {
#define X(name, ...)         \
    case Op::name##RR:       \
        addRegister(code.b); \
        return addRegister(code.c);
        TOLVAN_LOGICAL_OPERATIONS(X)
        TOLVAN_BINARY_OPERATIONS(X)
        TOLVAN_COMPARISONS(X)
#undef X
#define X(name, ...)         \
    case Op::name##RK:       \
        addRegister(code.b); \
        return addConstant(code.c);
        TOLVAN_BINARY_OPERATIONS(X)
        TOLVAN_COMPARISONS(X)
#undef X
#define X(name, ...)                \
    case Op::JumpIf##name##RR:      \
    case Op::JumpUnless##name##RR:  \
    case Op::LoopIf##name##RR:      \
        addRegister(code.a);        \
        return addRegister(code.b); \
    case Op::JumpIf##name##RK:      \
    case Op::JumpUnless##name##RK:  \
    case Op::LoopIf##name##RK:      \
        addRegister(code.a);        \
        return addConstant(code.b);
        TOLVAN_COMPARISONS(X)
#undef X
        case Op::Is:
            addRegister(code.b);
            return addRegister(code.c);
        case Op::AddInteger:
            addRegister(code.b);
            return add({}, Value::integer(static_cast<std::int16_t>(code.c)));
        case Op::AppendParts:
            return addRegisters(code.b, word<std::uint32_t>() + 1);
        case Op::Append:
            addRegister(code.a);
            return addRegister(code.b);
        case Op::Negate:
        case Op::Plus:
        case Op::Not:
        case Op::Let:
        case Op::LetTake:
        case Op::SetTake:
        case Op::LetReferred:
        case Op::SetReferred:
        case Op::EachPrepare:
            return addRegister(code.b);
        case Op::LetGlobal:
        case Op::SetGlobal:
        case Op::LetField:
        case Op::SetField:
        case Op::JumpIf:
        case Op::JumpUnless:
        case Op::Erase:
        case Op::MakeOperand:
            return addRegister(code.a);
        case Op::ForPrepare:
            add(names_.of(code.a), frame_.base[code.b + 2]);
            return addRegisters(code.b, 2);
        case Op::ForNext:
        case Op::ForNextOne:
        case Op::ForNextOnePoll:
            addRegister(code.a);
            return addRegisters(code.b, 2);
        case Op::Index:
        case Op::IndexLet:
            addRegister(code.b);
            return addRegister(code.c);
        case Op::IndexMany:
        case Op::ReferElement:
            addRegister(code.b);
            return addRegisters(code.c, word<std::uint32_t>());
        case Op::PutIndexR:
        case Op::PutIndexK:
            addRegister(code.a);
            return addRegister(code.b);
        case Op::PutIndexMany:
        case Op::AppendElement:
            addRegister(code.a);
            return addRegisters(code.b, static_cast<std::uint32_t>(word<std::uint64_t>()));
        case Op::MakeArray:
        case Op::ReDim:
            addRegister(code.a);
            return addRegisters(code.b, code.c);
        default:
            return call();
    }
}

void Finder::call() {
    const Instruction& code = *at_;
    switch (code.op) {
        case Op::CallProcedure:
            found_.called = names_.spelled(word<const ProcedureSlot*>()->procedure->name);
            return addRegisters(code.a + 1u, code.b);
        case Op::CallBuiltin:
            found_.called = word<const Builtin*>()->name;
            return addRegisters(code.a + 1u, code.b);
        case Op::CallHost:
        case Op::PutHost:
            found_.called = names_.spelled(word<const HostMember*>()->name);
            return addRegisters(code.a + 1u, code.b + (code.op == Op::PutHost ? 1u : 0u));
        case Op::CallMember:
        case Op::PutMember: {
            const std::string member = names_.spelled(word<NameId>());
            // Err.Raise: the script's own error.
            if (frame_.base[code.a].is(Type::Empty) && member == "Raise") return;
            found_.called = member;
            addObject(code.a);
            return addRegisters(code.a + 1u, code.b + (code.op == Op::PutMember ? 1u : 0u));
        }
        case Op::CallValue:
        case Op::CallStatement:
            return addRegisters(code.a, code.b + 1u);
        case Op::CallLate:
            found_.called = names_.spelled(word<LateUse>().name);
            return addRegisters(code.a + 1u, code.b);
        case Op::FindVariable:
            found_.called = names_.spelled(word<LateUse>().name);
            return;
        case Op::NewLate:
        case Op::Raise:
            found_.called = names_.spelled(word<NameId>());
            return;
        default:
            return;
    }
}

}  // namespace

FailedOperation findFailedOperation(Machine& machine, const Frame& frame, std::uint32_t pc) noexcept {
    try {
        return Finder(machine, frame, pc).find(pc);
    } catch (...) {  // no memory for it
        return {};
    }
}

}  // namespace tolvan::script
