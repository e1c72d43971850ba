// What a procedure's instructions tell without running: where they begin, which follow each other, which registers
// they use, and which temporaries are still needed.
#pragma once

#include "platform/script/compiler/Procedure.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tolvan::script::native {

// Registers that an instruction names, as a set of these.
enum Operands : std::uint16_t {
    None = 0,
    A = 1,
    B = 2,
    C = 4,
    NextA = 8,        // R[a+1]
    Header = 16,      // R[b] to R[b+2]
    ListB = 32,       // R[b] and those after it
    ListC = 64,       // R[c] and those after it
    Arguments = 128,  // R[a+1] to R[a+b]
    AndValue = 256,   // R[a+b+1]
};

// What an instruction reads and may write. Every register whose contents it can change is in `writes`.
struct RegisterUse {
    std::uint16_t reads;
    std::uint16_t writes;
};
RegisterUse useOf(Op op);

template <class Action>
void forEachRegister(std::uint16_t operands, const Instruction* at, Action action) {
    const auto list = [&](std::uint32_t first, std::uint32_t count) {
        for (std::uint32_t i = 0; i < count; ++i) action(first + i);
    };
    const auto length = [at] {
        const bool isCountedByC = at->op == Op::MakeArray || at->op == Op::ReDim;
        return isCountedByC ? std::uint32_t{at->c} : at[1].word<std::uint32_t>();
    };
    if (operands & A) action(std::uint32_t{at->a});
    if (operands & B) action(std::uint32_t{at->b});
    if (operands & C) action(std::uint32_t{at->c});
    if (operands & NextA) action(at->a + 1u);
    if (operands & Header) list(at->b, 3);
    if (operands & ListB) list(at->b, length() + (at->op == Op::AppendParts ? 1 : 0));
    if (operands & ListC) list(at->c, length());
    if (operands & Arguments) list(at->a + 1u, at->b);
    if (operands & AndValue) action(at->a + at->b + 1u);
}

// How far an instruction's jump leads, in words; none where it does not jump.
std::optional<std::int32_t> jumpOf(const Instruction* at);
inline std::uint32_t targetOf(std::uint32_t pc, std::int32_t jump) {
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(pc) + jump);
}
// Whether the instruction after it may be the next.
bool fallsThrough(Op op);

class CodeShape {
  public:
    explicit CodeShape(const Procedure& procedure);

    // Whether code is reached there from several places, or a statement begins there.
    bool isJoin(std::uint32_t pc) const { return joins_[pc]; }
    // Whether a register's content may still be read from `pc` on. Variables always count as needed.
    bool isLive(std::uint32_t pc, std::uint32_t reg) const {
        if (reg < firstTemporary_ || reg - firstTemporary_ >= mostTemporaries || keepsAll_ || referred_[reg])
            return true;
        return (live_[pc] >> (reg - firstTemporary_) & 1) != 0;
    }
    // Whether a reference to the register is handed to procedures, which can change it.
    bool isReferred(std::uint32_t reg) const { return referred_[reg]; }

    // The instructions of the innermost loop around `pc`: from `first` up to `end`; none if there is no loop.
    struct Range {
        std::uint32_t first;
        std::uint32_t end;
    };
    std::optional<Range> loopAround(std::uint32_t pc) const;

  private:
    static constexpr std::uint32_t mostTemporaries = 64;
    void findLive(const Procedure& procedure, const std::vector<std::uint32_t>& starts);

    const std::vector<Instruction>& code_;
    std::uint32_t firstTemporary_;
    bool keepsAll_ = false;  // where an error may lead to any statement, nothing is known to be unneeded
    std::vector<bool> joins_;
    std::vector<bool> referred_;
    std::vector<std::uint64_t> live_;
    std::vector<std::uint32_t> backJumps_;
};

}  // namespace tolvan::script::native
