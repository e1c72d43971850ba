// The machine's instructions, one a line. R: registers of the running procedure, K: its constants.
//
// An instruction is 8 bytes: the operation and three operands a, b, c of 16 bits; `bc` is b and c as one signed number.
// Operations marked "+ offset", "+ pointer" and so on have further words of 8 bytes with that content. Offsets count
// from the first word of the instruction.
//
// "Let" assigns as a statement without Set does: an object gives its default member's value. "Take" moves a value out
// of a temporary and leaves Empty.
#pragma once

#include "platform/script/OperatorList.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tolvan::script {

// clang-format off
#define TOLVAN_BINARY_FORMS(name, ...) \
    X(name##RR, 1)          /* R[a] = R[b] op R[c] */ \
    X(name##RK, 1)          /* R[a] = R[b] op K[c] */
#define TOLVAN_LOGICAL_FORMS(name, ...) \
    X(name##RR, 1)          /* R[a] = R[b] op R[c] */
#define TOLVAN_COMPARISON_FORMS(name, ...) \
    X(name##RR, 1)          /* R[a] = R[b] op R[c], a Boolean or Null */ \
    X(name##RK, 1)          /* R[a] = R[b] op K[c] */ \
    X(JumpIf##name##RR, 2)  /* if R[a] op R[b] jump; + offset */ \
    X(JumpIf##name##RK, 2)  /* if R[a] op K[b] jump; + offset */ \
    X(JumpUnless##name##RR, 2) /* if R[a] op R[b] is not True (but False or Null) jump; + offset */ \
    X(JumpUnless##name##RK, 2) /* the same with K[b]; + offset */ \
    X(LoopIf##name##RR, 3)  /* JumpIf, to a Poll that is made on the way; + offset, + pointer to the budget */ \
    X(LoopIf##name##RK, 3)  /* the same with K[b]; + offset, + pointer */

#define TOLVAN_OPCODES(X) \
    X(LoadConstant, 1)      /* R[a] = K[bc] */ \
    X(Copy, 1)              /* R[a] = R[b] */ \
    X(Take, 1)              /* R[a] = R[b], taken */ \
    X(Let, 1)               /* R[a] = R[b], Let */ \
    X(LetTake, 1)           /* R[a] = R[b], Let, taken */ \
    X(SetTake, 1)           /* R[a] = R[b], taken; 424 if it is no object */ \
    X(Clear, 1)             /* R[a] = Empty */ \
    X(LoadReferred, 1)      /* R[a] = the variable that R[b] refers to */ \
    X(LetReferred, 1)       /* the variable that R[a] refers to = R[b], Let, taken */ \
    X(SetReferred, 1)       /* the same with Set */ \
    X(LoadGlobal, 2)        /* R[a] = *pointer; + pointer to the variable */ \
    X(LetGlobal, 2)         /* *pointer = R[a], Let, taken; + pointer */ \
    X(SetGlobal, 2)         /* the same with Set; + pointer */ \
    X(LoadField, 1)         /* R[a] = field b of Me */ \
    X(LetField, 1)          /* field b of Me = R[a], Let, taken */ \
    X(SetField, 1)          /* the same with Set */ \
    X(LoadMe, 1)            /* R[a] = Me */ \
    X(ReferRegister, 1)     /* R[a] = reference to R[b], or to what R[b] refers to */ \
    X(ReferGlobal, 2)       /* R[a] = reference to *pointer; + pointer */ \
    X(ReferField, 1)        /* R[a] = reference to field b of Me */ \
    X(ReferElement, 2)      /* R[a] = reference to the element R[c..] of the array R[b]; its value if R[b] is none; + count */ \
    X(FindVariable, 2)      /* R[a], of a name bound late: a reference to the variable that the name stands for by now; if it stands for none 501, or nothing where a call may follow; + LateUse */ \
    X(PinArray, 1)          /* R[a] = pin on the array R[b], if it is one */ \
    X(AddInteger, 1)        /* R[a] = R[b] + c, c an Integer */ \
    X(Append, 1)            /* the variable that R[a] refers to = itself & R[b] */ \
    X(MakeOperand, 1)       /* R[a] = what an operator takes of R[a]: of an object its default member; 13 for an array */ \
    X(AppendParts, 2)       /* the variable that R[a] refers to = R[b] & R[b+1] & ..., R[b] being its earlier value, taken; + count of the others */ \
    X(AppendElement, 2)     /* R[a](R[b], ...) = itself & R[c]; + count */ \
    X(Negate, 1)            /* R[a] = -R[b] */ \
    X(Plus, 1)              /* R[a] = the value that R[b] is */ \
    X(Not, 1)               /* R[a] = Not R[b] */ \
    X(Is, 1)                /* R[a] = R[b] Is R[c] */ \
    X(Jump, 1)              /* jump bc */ \
    X(JumpIf, 1)            /* if R[a] is True jump bc */ \
    X(JumpUnless, 1)        /* if R[a] is not True jump bc */ \
    X(Tick, 1)              /* watches the time in loops that do not poll */ \
    X(Poll, 2)              /* if the budget at pointer is above 0 count it down, else jump bc; + pointer */ \
    X(PollAgain, 2)         /* jump bc if the budget at pointer is used up; with nothing but arithmetic since a Poll; + pointer */ \
    X(PollHost, 2)           /* R[a] = what the host answers to the poll; + pointer to HostMember */ \
    X(ForPrepare, 2)        /* R[a] = R[b+2], the start of a loop with the limit R[b] and the step R[b+1]; 13 or 94 if one is no number; jumps if there is no pass; + offset */ \
    X(ForNext, 2)           /* R[a] += step; jumps if not past the limit R[b]; + offset */ \
    X(ForNextOne, 2)        /* the same where the step is the Integer 1; + offset */ \
    X(ForNextOnePoll, 3)    /* the same, to a Poll that is made on the way; + offset, + pointer to the budget */ \
    X(EachPrepare, 1)       /* R[a], R[a+1]: what For Each runs over and how far it is, from R[b] */ \
    X(EachNext, 2)          /* R[b] = the next element and jump, or fall through at the end; + offset */ \
    X(Index, 1)             /* R[a] = R[b](R[c]) */ \
    X(IndexLet, 1)          /* the same, Let */ \
    X(IndexMany, 2)         /* R[a] = R[b](R[c], R[c+1], ...); + count */ \
    X(PutIndexR, 1)         /* R[a](R[b]) = R[c], Let */ \
    X(PutIndexK, 1)         /* R[a](R[b]) = K[c] */ \
    X(PutIndexMany, 2)      /* R[a](R[b], R[b+1], ...) = R[c]; + count, and whether it is a Set */ \
    X(MakeArray, 1)         /* R[a] = a new array with c bounds R[b..], unless it is an array */ \
    X(ReDim, 2)             /* the variable that R[a] refers to: c bounds R[b..]; + preserve */ \
    X(Erase, 1)             /* the variable that R[a] refers to */ \
    X(CallProcedure, 2)     /* R[a] = procedure(R[a+1], ... b of them); + pointer to Procedure */ \
    X(CallBuiltin, 2)       /* R[a] = function(R[a+1], ... b of them); + pointer to the Builtin */ \
    X(CallHost, 2)          /* R[a] = host member(R[a+1], ... b of them); + pointer to HostMember */ \
    X(CallMember, 2)        /* R[a] = R[a].name(R[a+1], ... b of them); + name */ \
    X(CallValue, 1)         /* R[a] = R[a](R[a+1], ... b of them): a call of what the object is */ \
    X(CallStatement, 1)     /* the same as a statement: 13 for what cannot be called */ \
    X(CallLate, 2)          /* R[a] = what the name bound late of R[c] stands for by now, called with R[a+1], ... b of them; + LateUse */ \
    X(PutHost, 2)           /* host member(R[a+1], ... b of them) = the register after them; + pointer to HostMember */ \
    X(PutMember, 2)         /* R[a].name(R[a+1], ... b of them) = the register after them; c: Set; + name */ \
    X(Evaluate, 1)          /* R[a] = Eval, Execute, ExecuteGlobal or GetRef (c) of R[a+1] */ \
    X(NewObject, 2)         /* R[a] = New class; + pointer to the class */ \
    X(NewLate, 2)           /* R[a] = New class; + name of the class */ \
    X(OnError, 1)           /* a: Resume Next; else GoTo 0 */ \
    X(ClearError, 1)        /* Err.Clear */ \
    X(Raise, 2)             /* raises the error a; + name that it is about, or 0 */ \
    X(Return, 1)            /* leaves the procedure; its result is R[0] */

// Every operation, as X(name, words): the instruction itself and its further words.
#define TOLVAN_ALL_OPCODES \
    TOLVAN_OPCODES(X) \
    TOLVAN_BINARY_OPERATIONS(TOLVAN_BINARY_FORMS) \
    TOLVAN_LOGICAL_OPERATIONS(TOLVAN_LOGICAL_FORMS) \
    TOLVAN_COMPARISONS(TOLVAN_COMPARISON_FORMS)
// clang-format on

enum class Op : std::uint16_t {
#define X(name, words) name,
    TOLVAN_ALL_OPCODES
#undef X
};

// How many words an instruction takes.
constexpr std::uint32_t wordsOf(Op op) {
    constexpr std::uint8_t counts[] = {
#define X(name, words) words,
        TOLVAN_ALL_OPCODES
#undef X
    };
    return counts[static_cast<std::size_t>(op)];
}

// How a name that is bound late is used.
struct LateUse {
    std::uint32_t name;
    bool mustBeDeclared;  // 500 if the name stands for nothing
    bool isStatement;     // a call as a statement
    bool wantsReference;  // to the variable, or the element of it, where the name is a variable's; a call where it is
                          // not
};

struct Instruction {
    Op op;
    std::uint16_t a;
    std::uint16_t b;
    std::uint16_t c;

    std::int32_t bc() const {
        std::int32_t number = 0;
        std::memcpy(&number, &b, sizeof number);
        return number;
    }
    void setBc(std::int32_t number) { std::memcpy(&b, &number, sizeof number); }

    // As a further word. NOLINTBEGIN(bugprone-sizeof-expression): the words are pointers
    template <class T>
    T word() const {
        static_assert(sizeof(T) <= sizeof(Instruction));
        T content;
        std::memcpy(static_cast<void*>(&content), static_cast<const void*>(this), sizeof content);
        return content;
    }
    template <class T>
    static Instruction ofWord(T content) {
        static_assert(sizeof(T) <= sizeof(Instruction));
        Instruction made{};
        std::memcpy(static_cast<void*>(&made), static_cast<const void*>(&content), sizeof content);
        return made;
    }
    // NOLINTEND(bugprone-sizeof-expression)
};

static_assert(sizeof(Instruction) == 8);

}  // namespace tolvan::script
