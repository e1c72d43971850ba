// The loop that executes instructions. What an operation means stands in a function of its own (MachineOperations.cpp,
// MachineElements.cpp, MachineMemberCalls.cpp); the most frequent operands are worked out in QuickPaths.h.
//
// There are three such loops, made from this one: MachineDispatch.cpp has the one that nobody watches,
// MachineDispatchRecorded.cpp the one that tells a Recorder of everything, and MachineDispatchOne.cpp one that ends
// after a single instruction, which machine code calls for what it does not do itself.
#pragma once

#include "platform/script/machine/QuickPaths.h"
#include "platform/script/machine/Recorder.h"

// Each operation ends in a jump of its own to the next one's code ("computed goto", an extension of GCC and Clang):
// the processor predicts these jumps better than the single one of a switch.
#pragma GCC diagnostic ignored "-Wpedantic"

namespace tolvan::script {

using namespace quick;

template <Machine::Mode mode>
Machine::Left Machine::execute() {
    constexpr bool isRecorded = mode == Mode::Recorded;
    static const void* const labels[] = {
#define X(name, words) &&L_##name,
        TOLVAN_ALL_OPCODES
#undef X
    };

    Frame* frame = &top();
    const Instruction* pc = frame->pc;
    Value* R = frame->base;
    const Value* K = frame->procedure->constants.data();
    if constexpr (isRecorded) {
        if (pc == frame->procedure->code.data()) recorder_->entered(*frame);
    }

#define DISPATCH                                           \
    if constexpr (isRecorded) recorder_->note(*frame, pc); \
    goto* labels[static_cast<std::size_t>(pc->op)]
#define NEXT                                      \
    if constexpr (mode == Mode::OneInstruction) { \
        frame->pc = pc;                           \
        return Left::Procedure;                   \
    }                                             \
    DISPATCH
// After a call that may have entered a procedure of the script, or may have let the host look.
#define CALLED                                          \
    if constexpr (isRecorded) {                         \
        recorder_->goOn();                              \
        if (frame != &top()) recorder_->entered(top()); \
    }                                                   \
    REFRESH
#define STEP(words) \
    pc += (words);  \
    NEXT
#define A R[pc->a]
#define B R[pc->b]
#define C R[pc->c]
#define KC K[pc->c]
#define WORD(type) pc[1].word<type>()
#define LIST(first) std::span<Value>(&(first), WORD(std::uint32_t))
#define REFRESH                   \
    frame = &frames_[depth_ - 1]; \
    pc = frame->pc;               \
    R = frame->base;              \
    K = frame->procedure->constants.data()

#define BINARY(name, quick, slow)                                     \
    L_##name##RR : if (!quick(A, B, C)) [[unlikely]] slow(A, B, C);   \
    STEP(1);                                                          \
    L_##name##RK : if (!quick(A, B, KC)) [[unlikely]] slow(A, B, KC); \
    STEP(1);

#define LOGICAL(name, expression)                                                                    \
    L_##name##RR : if (!logical(A, B, C, [](std::int32_t l, std::int32_t r) { return expression; })) \
                       [[unlikely]] slow<logical##name>(A, B, C);                                    \
    STEP(1);

#define COMPARE_INTO(label, name, right, literal)               \
    L_##label : {                                               \
        bool result = false;                                    \
        if (compared<name>(B, right, result)) [[likely]] {      \
            putBoolean(A, result);                              \
        } else {                                                \
            const Order order = slowCompare(B, right, literal); \
            if (order == Order::Null)                           \
                A = Value::null();                              \
            else                                                \
                putBoolean(A, name::of(order));                 \
        }                                                       \
    }                                                           \
    STEP(1);

#define COMPARE_JUMP(label, name, right, literal, jumpWhen)    \
    L_##label : {                                              \
        bool result = false;                                   \
        if (!compared<name>(A, right, result)) [[unlikely]]    \
            result = name::of(slowCompare(A, right, literal)); \
        if (result == (jumpWhen)) {                            \
            STEP(WORD(std::int32_t));                          \
        }                                                      \
    }                                                          \
    STEP(2);

// A jump back to the Poll at the start of a loop. As long as its budget lasts, it is counted down here and skipped.
#define LOOP_WITH_POLL                        \
    int* const budget = pc[2].word<int*>();   \
    const int left = *budget;                 \
    pc += WORD(std::int32_t);                 \
    if (!isRecorded && left > 0) [[likely]] { \
        HOT_LOOP                              \
        *budget = left - 1;                   \
        pc += 2;                              \
    }                                         \
    NEXT;

// At the Poll or Tick of a loop.
#define HOT_LOOP                                       \
    if (mode == Mode::Plain && isHot(pc)) [[unlikely]] \
        goto hotLoop;

#define COMPARE_LOOP(label, name, right, literal)              \
    L_##label : {                                              \
        bool result = false;                                   \
        if (!compared<name>(A, right, result)) [[unlikely]]    \
            result = name::of(slowCompare(A, right, literal)); \
        if (result) {                                          \
            LOOP_WITH_POLL                                     \
        }                                                      \
    }                                                          \
    STEP(3);

#define COMPARISON(name)                                                      \
    COMPARE_INTO(name##RR, name, C, Literal::Neither)                         \
    COMPARE_INTO(name##RK, name, KC, Literal::Right)                          \
    COMPARE_JUMP(JumpIf##name##RR, name, B, Literal::Neither, true)           \
    COMPARE_JUMP(JumpIf##name##RK, name, K[pc->b], Literal::Right, true)      \
    COMPARE_JUMP(JumpUnless##name##RR, name, B, Literal::Neither, false)      \
    COMPARE_JUMP(JumpUnless##name##RK, name, K[pc->b], Literal::Right, false) \
    COMPARE_LOOP(LoopIf##name##RR, name, B, Literal::Neither)                 \
    COMPARE_LOOP(LoopIf##name##RK, name, K[pc->b], Literal::Right)

    try {
        DISPATCH;

        // Moving values.
    L_LoadConstant:
        A = K[pc->bc()];
        STEP(1);
    L_Copy:
        A = B;
        STEP(1);
    L_Take:
        A = std::move(B);
        STEP(1);
    L_Let:
        if (isSimple(A) && isSimple(B)) [[likely]] {
            A.tag = B.tag;
            A.as = B.as;
        } else {
            let(A, B);
        }
        STEP(1);
    L_LetTake:
        if (isSimple(A) && isSimple(B)) [[likely]] {
            A.tag = B.tag;
            A.as = B.as;
        } else {
            letValue(A, std::move(B));
        }
        STEP(1);
    L_SetTake:
        setValue(A, std::move(B));
        STEP(1);
    L_Clear:
        releaseHeld(A);
        A.tag = bits(Type::Empty);
        STEP(1);
    L_LoadReferred:
        A = followed(B);
        STEP(1);
    L_LetReferred:
        letValue(followed(A), std::move(B));
        STEP(1);
    L_SetReferred:
        setValue(followed(A), std::move(B));
        STEP(1);
    L_LoadGlobal:
        A = *WORD(Value*);
        STEP(2);
    L_LetGlobal:
        letValue(*WORD(Value*), std::move(A));
        STEP(2);
    L_SetGlobal:
        setValue(*WORD(Value*), std::move(A));
        STEP(2);
    L_LoadField:
        A = static_cast<ClassInstance*>(frame->me)->field(pc->b);
        STEP(1);
    L_LetField:
        letValue(static_cast<ClassInstance*>(frame->me)->field(pc->b), std::move(A));
        STEP(1);
    L_SetField:
        setValue(static_cast<ClassInstance*>(frame->me)->field(pc->b), std::move(A));
        STEP(1);
    L_LoadMe:
        ++frame->me->references;
        A = Value::adopt(frame->me);
        STEP(1);

        // References.
    L_ReferRegister : {
        Value* const variable = &followed(B);
        releaseHeld(A);
        A.tag = bits(Type::Reference);
        A.as.ref = variable;
        STEP(1);
    }
    L_ReferGlobal:
        releaseHeld(A);
        A.tag = bits(Type::Reference);
        A.as.ref = WORD(Value*);
        STEP(2);
    L_ReferField:
        releaseHeld(A);
        A.tag = bits(Type::Reference);
        A.as.ref = &static_cast<ClassInstance*>(frame->me)->field(pc->b);
        STEP(1);
    L_ReferElement:
        referElement(A, followed(B), LIST(C));
        if constexpr (isRecorded) recorder_->referred(A, followed(B));
        STEP(2);
    L_FindVariable:
        findVariable(A, WORD(LateUse));
        STEP(2);
    L_PinArray:
        pinArray(A, followed(B));
        STEP(1);

        // Arithmetic and logic.
        BINARY(Add, arithmetic<Add>, slowAdd)
        BINARY(Subtract, arithmetic<Subtract>, slow<subtract>)
        BINARY(Multiply, arithmetic<Multiply>, slow<multiply>)
        BINARY(Divide, divided, slow<divide>)
        BINARY(IntegerDivide, integerDivided, slow<integerDivide>)
        BINARY(Modulo, moduloOf, slow<modulo>)
    L_PowerRR:
        slow<power>(A, B, C);
        STEP(1);
    L_PowerRK:
        slow<power>(A, B, KC);
        STEP(1);
    L_ConcatenateRR:
        slowConcatenate(A, B, C);
        STEP(1);
    L_ConcatenateRK:
        slowConcatenate(A, B, KC);
        STEP(1);
    L_Append:
        append(followed(A), B);
        STEP(1);
    L_MakeOperand:
        if (A.isOneOf(bits(Type::Object, Type::Array, Type::Error))) [[unlikely]]
            makeOperand(A);
        STEP(1);
    L_AppendParts:
        appendParts(followed(A), B, {&B + 1, WORD(std::uint32_t)});
        STEP(2);
    L_AppendElement:
        appendElement(followed(A), LIST(B), C);
        STEP(2);
    L_AddInteger : {
        const Value& left = B;
        const auto right = static_cast<std::int16_t>(pc->c);
        std::int32_t sum = 0;
        if ((left.tag & ~wholeTypes) == 0 && !__builtin_add_overflow(left.as.i, right, &sum)) [[likely]]
            putWhole(A, sum, left.tag);
        else if (left.tag == bits(Type::Double))
            putDouble(A, left.as.d + right);
        else
            slowAddInteger(A, left, right);
        STEP(1);
    }
    L_Negate:
        if (B.tag == bits(Type::Double))
            putDouble(A, -B.as.d);
        else
            negateInto(A, B);
        STEP(1);
    L_Plus:
        plusInto(A, B);
        STEP(1);
    L_Not:
        if (B.tag == bits(Type::Boolean)) [[likely]]
            putBoolean(A, B.as.i == 0);
        else
            notInto(A, B);
        STEP(1);
        LOGICAL(And, l & r)
        LOGICAL(Or, l | r)
        LOGICAL(Xor, l ^ r)
        LOGICAL(Eqv, ~(l ^ r))
        LOGICAL(Imp, ~l | r)
    L_Is:
        isInto(A, B, C);
        STEP(1);
        COMPARISON(Equal)
        COMPARISON(NotEqual)
        COMPARISON(Less)
        COMPARISON(LessEqual)
        COMPARISON(Greater)
        COMPARISON(GreaterEqual)

        // Jumps and loops.
    L_Jump:
        STEP(pc->bc());
    L_JumpIf:
        if (A.tag == bits(Type::Boolean) ? A.as.i != 0 : isTrue(A)) {
            STEP(pc->bc());
        }
        STEP(1);
    L_JumpUnless:
        if (A.tag == bits(Type::Boolean) ? A.as.i != 0 : isTrue(A)) {
            STEP(1);
        }
        STEP(pc->bc());
    L_Tick:
        if (--ticks_ <= 0) [[unlikely]]
            slowTick();
        HOT_LOOP
        STEP(1);
    L_Poll : {
        int* const budget = WORD(int*);
        const int left = *budget;
        if (left <= 0) [[unlikely]] {
            STEP(pc->bc());
        }
        HOT_LOOP
        *budget = left - 1;
        if constexpr (isRecorded) recorder_->beginRow(*frame, pc);
        STEP(2);
    }
    L_PollAgain:
        if (*WORD(const int*) <= 0) [[unlikely]] {
            STEP(pc->bc());
        }
        if constexpr (isRecorded) recorder_->beginRow(*frame, pc);
        STEP(2);
    L_PollHost:
        frame->pc = pc + 2;
        switch (pollHost(*WORD(const HostMember*), A)) {
            case AfterPoll::Same:
                STEP(2);
            case AfterPoll::OtherLoop:
                return Left::Loop;
        }
    L_ForPrepare:
        if (prepareFor(A, std::span<Value, 3>(&B, 3))) {
            STEP(2);
        }
        STEP(WORD(std::int32_t));
    L_ForNextOne:
        if (countsOn(A, B) ? A.as.i <= B.as.i : slowForNext(A, B, (&B)[1])) {
            STEP(WORD(std::int32_t));
        }
        STEP(2);
    L_ForNextOnePoll:
        if (countsOn(A, B) ? A.as.i <= B.as.i : slowForNext(A, B, (&B)[1])) {
            LOOP_WITH_POLL
        }
        STEP(3);
    L_ForNext : {
        Value& counter = A;
        const Value& limit = B;
        const Value& step = (&limit)[1];
        if (((counter.tag | limit.tag | step.tag) & ~numericTypes) == 0 && arithmetic<Add>(counter, counter, step)) {
            const bool goesOn =
                asDouble(step) >= 0 ? asDouble(counter) <= asDouble(limit) : asDouble(counter) >= asDouble(limit);
            if (goesOn) {
                STEP(WORD(std::int32_t));
            }
            STEP(2);
        }
        if (slowForNext(counter, limit, step)) {
            STEP(WORD(std::int32_t));
        }
        STEP(2);
    }
    L_EachPrepare:
        prepareEach(&A, B);
        STEP(1);
    L_EachNext:
        if (nextOfEach(&A, B)) {
            STEP(WORD(std::int32_t));
        }
        STEP(2);

        // Arrays.
    L_Index:
        if (const Value* element = quickElement(followed(B), C)) [[likely]]
            A = *element;
        else
            index(A, followed(B), {&C, 1});
        STEP(1);
    L_IndexLet : {
        const Value* element = quickElement(followed(B), C);
        if (element != nullptr && isSimple(*element) && isSimple(A)) [[likely]] {
            A.tag = element->tag;
            A.as = element->as;
        } else {
            indexLet(A, followed(B), {&C, 1});
        }
        STEP(1);
    }
    L_IndexMany:
        index(A, followed(B), LIST(C));
        STEP(2);
    L_PutIndexR : {
        Value* const element = quickElement(A, B);
        if (element != nullptr && A.as.cell->references == 1 && isSimple(*element) && isSimple(C)) [[likely]] {
            element->tag = C.tag;
            element->as = C.as;
        } else {
            putIndex(followed(A), {&B, 1}, C, false);
        }
        STEP(1);
    }
    L_PutIndexK : {
        Value* const element = quickElement(A, B);
        if (element != nullptr && A.as.cell->references == 1 && isSimple(*element) && isSimple(KC)) [[likely]] {
            element->tag = KC.tag;
            element->as = KC.as;
        } else {
            putIndex(followed(A), {&B, 1}, KC, false);
        }
        STEP(1);
    }
    L_PutIndexMany : {
        const auto word = WORD(std::uint64_t);
        const auto count = static_cast<std::uint32_t>(word);
        putIndex(followed(A), {&B, count}, C, (word >> 32) != 0);
        STEP(2);
    }
    L_MakeArray:
        makeArray(followed(A), {&B, pc->c});
        STEP(1);
    L_ReDim:
        reDim(followed(A), {&B, pc->c}, WORD(std::uint32_t) != 0);
        STEP(2);
    L_Erase:
        erase(followed(A));
        STEP(1);

        // Calls.
    L_CallProcedure : {
        const Procedure& procedure = *WORD(const ProcedureSlot*)->procedure;
        if (procedure.parameterCount != pc->b) throw ScriptError(errors::argumentCount);
        if (procedure.checksArguments) loadArguments(procedure, &A);
        if (--ticks_ <= 0) [[unlikely]]
            slowTick();
        frame->pc = pc + 2;
        enter(procedure, &A, nullptr, false);
        ++frame;
        if constexpr (isRecorded) recorder_->entered(*frame);
        if (mode == Mode::Plain && isHot(procedure)) [[unlikely]]
            goto hotProcedure;
        pc = procedure.code.data();
        R = frame->base;
        K = procedure.constants.data();
        NEXT;
    }
    L_CallBuiltin:
        callBuiltin(*WORD(const Builtin*), &A, pc->b);
        STEP(2);
    L_CallHost:
        frame->pc = pc + 2;
        callHost(*WORD(const HostMember*), &A, pc->b);
        if constexpr (isRecorded) recorder_->goOn();
        STEP(2);
    L_CallMember:
        frame->pc = pc + 2;
        callMember(WORD(NameId), &A, pc->b, pc->c != 0);
        CALLED;
        NEXT;
    L_CallValue:
        frame->pc = pc + 1;
        callValue(&A, pc->b, false);
        CALLED;
        NEXT;
    L_CallStatement:
        frame->pc = pc + 1;
        callValue(&A, pc->b, true);
        CALLED;
        NEXT;
    L_CallLate:
        frame->pc = pc + 2;
        callLate(C, WORD(LateUse), &A, pc->b);
        CALLED;
        NEXT;
    L_PutHost:
        frame->pc = pc + 2;
        putHost(*WORD(const HostMember*), &A, pc->b);
        if constexpr (isRecorded) recorder_->goOn();
        STEP(2);
    L_PutMember:
        frame->pc = pc + 2;
        putMember(WORD(NameId), &A, pc->b, (pc->c & 1) != 0, (pc->c & 2) != 0);
        if constexpr (isRecorded) recorder_->goOn();
        STEP(2);
    L_Evaluate:
        frame->pc = pc + 1;
        evaluateSource(static_cast<Special>(pc->c), &A);
        STEP(1);
    L_NewObject:
        frame->pc = pc + 2;
        newObject(A, *WORD(ScriptClass*));
        STEP(2);
    L_NewLate:
        frame->pc = pc + 2;
        newLate(A, static_cast<NameId>(WORD(std::uint64_t)));
        STEP(2);
    L_OnError:
        setOnError(pc->a != 0);
        STEP(1);
    L_ClearError:
        err_->clear();
        STEP(1);
    L_Raise:
        throw ScriptError(pc->a);
    L_Return : {
        if constexpr (isRecorded) recorder_->leaving(*frame);
        leave();
        if (frame->isEntry) return Left::Procedure;
        --frame;
        pc = frame->pc;
        R = frame->base;
        K = frame->procedure->constants.data();
        NEXT;
    }

        // Machine code.
    hotLoop : {
        const auto outcome = enterHotLoop(pc);
        if (outcome == native::CodeStore::Outcome::NotEntered) {
            if (pc->op == Op::Poll) --*WORD(int*);
            STEP(wordsOf(pc->op));
        }
        if (outcome == native::CodeStore::Outcome::OtherLoop) return Left::Loop;
        REFRESH;
        if (outcome == native::CodeStore::Outcome::Failed) machineCode_->throwError();
        NEXT;
    }
    hotProcedure : {
        const auto outcome = enterHotProcedure();
        if (outcome == native::CodeStore::Outcome::OtherLoop) return Left::Loop;
        REFRESH;
        if (outcome == native::CodeStore::Outcome::Failed) machineCode_->throwError();
        NEXT;
    }
    } catch (...) {
        frames_[depth_ - 1].pc = pc;
        throw;
    }
}

}  // namespace tolvan::script
