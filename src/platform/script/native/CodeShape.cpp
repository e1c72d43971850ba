#include "platform/script/native/CodeShape.h"

namespace tolvan::script::native {

RegisterUse useOf(Op op) {
    switch (op) {
#define BINARY(name, ...)  \
    case Op::name##RR:     \
        return {B | C, A}; \
    case Op::name##RK:     \
        return {B, A};
#define LOGICAL(name, ...) \
    case Op::name##RR:     \
        return {B | C, A};
#define COMPARISON(name, ...)      \
    case Op::name##RR:             \
        return {B | C, A};         \
    case Op::name##RK:             \
        return {B, A};             \
    case Op::JumpIf##name##RR:     \
    case Op::JumpUnless##name##RR: \
    case Op::LoopIf##name##RR:     \
        return {A | B, None};      \
    case Op::JumpIf##name##RK:     \
    case Op::JumpUnless##name##RK: \
    case Op::LoopIf##name##RK:     \
        return {A, None};
        TOLVAN_BINARY_OPERATIONS(BINARY)
        TOLVAN_LOGICAL_OPERATIONS(LOGICAL)
        TOLVAN_COMPARISONS(COMPARISON)
#undef BINARY
#undef LOGICAL
#undef COMPARISON
        case Op::Jump:
        case Op::Tick:
        case Op::Poll:
        case Op::PollAgain:
        case Op::OnError:
        case Op::ClearError:
        case Op::Raise:
        case Op::Return:
            return {None, None};
        case Op::LoadConstant:
        case Op::Clear:
        case Op::LoadGlobal:
        case Op::LoadField:
        case Op::LoadMe:
        case Op::ReferGlobal:
        case Op::ReferField:
        case Op::PollHost:
        case Op::NewObject:
        case Op::NewLate:
        case Op::FindVariable:
            return {None, A};
        case Op::Copy:
        case Op::Let:
        case Op::LoadReferred:
        case Op::ReferRegister:
        case Op::PinArray:
        case Op::AddInteger:
        case Op::Negate:
        case Op::Plus:
        case Op::Not:
            return {B, A};
        case Op::Take:
        case Op::LetTake:
        case Op::SetTake:
            return {B, A | B};
        case Op::LetReferred:
        case Op::SetReferred:
            return {A | B, B};
        case Op::LetGlobal:
        case Op::SetGlobal:
        case Op::LetField:
        case Op::SetField:
        case Op::MakeOperand:
            return {A, A};
        case Op::ReferElement:
        case Op::IndexMany:
            return {B | ListC, A};
        case Op::Append:
            return {A | B, A};
        case Op::AppendParts:
            return {A | ListB, A | ListB};
        case Op::AppendElement:
            return {A | ListB | C, A};
        case Op::Is:
        case Op::Index:
        case Op::IndexLet:
            return {B | C, A};
        case Op::JumpIf:
        case Op::JumpUnless:
            return {A, None};
        case Op::ForPrepare:
            return {Header, A | Header};
        case Op::ForNext:
        case Op::ForNextOne:
        case Op::ForNextOnePoll:
            return {A | Header, A};
        case Op::EachPrepare:
            return {B, A | NextA};
        case Op::EachNext:
            return {A | NextA, A | NextA | B};
        case Op::PutIndexR:
            return {A | B | C, A};
        case Op::PutIndexK:
            return {A | B, A};
        case Op::PutIndexMany:
            return {A | ListB | C, A};
        case Op::MakeArray:
        case Op::ReDim:
            return {A | ListB, A};
        case Op::Erase:
            return {A, A};
        case Op::CallProcedure:
        case Op::CallBuiltin:
        case Op::CallHost:
            return {Arguments, A | Arguments};
        case Op::CallMember:
        case Op::CallValue:
        case Op::CallStatement:
        case Op::Evaluate:
            return {A | Arguments, A | Arguments};
        case Op::CallLate:
            return {C | Arguments, A | C | Arguments};
        case Op::PutHost:
            return {Arguments | AndValue, Arguments | AndValue};
        case Op::PutMember:
            return {A | Arguments | AndValue, A | Arguments | AndValue};
    }
    return {None, None};
}

std::optional<std::int32_t> jumpOf(const Instruction* at) {
    switch (at->op) {
        case Op::Jump:
        case Op::JumpIf:
        case Op::JumpUnless:
        case Op::Poll:
        case Op::PollAgain:
            return at->bc();
        case Op::ForPrepare:
        case Op::ForNext:
        case Op::ForNextOne:
        case Op::ForNextOnePoll:
        case Op::EachNext:
#define COMPARISON(name, ...)      \
    case Op::JumpIf##name##RR:     \
    case Op::JumpIf##name##RK:     \
    case Op::JumpUnless##name##RR: \
    case Op::JumpUnless##name##RK: \
    case Op::LoopIf##name##RR:     \
    case Op::LoopIf##name##RK:
            TOLVAN_COMPARISONS(COMPARISON)
#undef COMPARISON
            return at[1].word<std::int32_t>();
        default:
            return std::nullopt;
    }
}

bool fallsThrough(Op op) {
    return op != Op::Jump && op != Op::Return && op != Op::Raise;
}

CodeShape::CodeShape(const Procedure& procedure)
    : code_(procedure.code),
      firstTemporary_(procedure.variableCount),
      joins_(code_.size() + 1),
      referred_(procedure.registerCount + 1),
      live_(code_.size() + 1) {
    std::vector<std::uint32_t> starts;
    for (std::uint32_t pc = 0; pc < code_.size(); pc += wordsOf(code_[pc].op)) {
        starts.push_back(pc);
        const Instruction& at = code_[pc];
        if (at.op == Op::OnError) keepsAll_ = true;
        if (at.op == Op::ReferRegister) referred_[at.b] = true;
        const auto jump = jumpOf(&at);
        if (!jump) continue;
        joins_[targetOf(pc, *jump)] = true;
        if (*jump <= 0 && pc < procedure.coldCode) backJumps_.push_back(pc);
    }
    for (const LineMark& mark : procedure.lines) joins_[mark.pc] = true;
    if (!keepsAll_) findLive(procedure, starts);
}

// Backwards until nothing changes; loops within each other take one more round each.
void CodeShape::findLive(const Procedure& procedure, const std::vector<std::uint32_t>& starts) {
    const auto maskOf = [this](std::uint16_t operands, const Instruction* at) {
        std::uint64_t mask = 0;
        forEachRegister(operands, at, [&](std::uint32_t reg) {
            if (reg >= firstTemporary_ && reg - firstTemporary_ < mostTemporaries)
                mask |= std::uint64_t{1} << (reg - firstTemporary_);
        });
        return mask;
    };
    for (bool changes = true; changes;) {
        changes = false;
        for (auto start = starts.rbegin(); start != starts.rend(); ++start) {
            const std::uint32_t pc = *start;
            const Instruction* at = &procedure.code[pc];
            const RegisterUse use = useOf(at->op);
            std::uint64_t after = 0;
            if (fallsThrough(at->op)) after = live_[pc + wordsOf(at->op)];
            if (const auto jump = jumpOf(at)) after |= live_[targetOf(pc, *jump)];
            const std::uint64_t before = (after & ~maskOf(use.writes & A, at)) | maskOf(use.reads, at);
            changes = changes || before != live_[pc];
            live_[pc] = before;
        }
    }
}

std::optional<CodeShape::Range> CodeShape::loopAround(std::uint32_t pc) const {
    std::optional<Range> found;
    for (const std::uint32_t jump : backJumps_) {
        const std::uint32_t target = targetOf(jump, *jumpOf(&code_[jump]));
        const std::uint32_t end = jump + wordsOf(code_[jump].op);
        if (target > pc || jump < pc) continue;
        if (!found || target > found->first || (target == found->first && end > found->end)) found = {target, end};
    }
    return found;
}

}  // namespace tolvan::script::native
