#include "platform/script/native/TemplateTable.h"

namespace tolvan::script::native {

UnitCompiler::Template TemplateTable::of(Op op) {
    using Code = UnitCompiler;
    switch (op) {
        // Numbers are copied in registers, texts in the window, objects and arrays by the interpreter's code.
        case Op::LoadConstant:
            return &Code::loadConstant;
        case Op::Copy:
        case Op::Take:
        case Op::Let:
        case Op::LetTake:
            return &Code::copy;
        case Op::Clear:
            return &Code::clear;
        case Op::LoadReferred:
            return &Code::loadReferred;
        case Op::LetReferred:
            return &Code::letReferred;
        case Op::LoadGlobal:
            return &Code::loadGlobal;
        case Op::LetGlobal:
            return &Code::letGlobal;
        case Op::ReferGlobal:
            return &Code::referGlobal;

        // Of numbers (comparisons also of texts); the interpreter's code where an operand is anything else.
        case Op::AddRR:
        case Op::AddRK:
            return &Code::add;
        case Op::SubtractRR:
        case Op::SubtractRK:
            return &Code::subtract;
        case Op::MultiplyRR:
        case Op::MultiplyRK:
            return &Code::multiply;
        case Op::AddInteger:
            return &Code::addInteger;
        case Op::DivideRR:
        case Op::DivideRK:
            return &Code::divide;
        case Op::IntegerDivideRR:
        case Op::IntegerDivideRK:
            return &Code::integerDivide;
        case Op::ModuloRR:
        case Op::ModuloRK:
            return &Code::modulo;
        case Op::ConcatenateRR:
        case Op::ConcatenateRK:
            return &Code::concatenate;
        case Op::Negate:
            return &Code::negate;
        case Op::Not:
            return &Code::logicalNot;
        case Op::AndRR:
        case Op::OrRR:
        case Op::XorRR:
        case Op::EqvRR:
        case Op::ImpRR:
            return &Code::logical;
#define COMPARISON(name, ...) \
    case Op::name##RR:        \
    case Op::name##RK:        \
        return &Code::compare;
            TOLVAN_COMPARISONS(COMPARISON)
#undef COMPARISON
#define COMPARISON(name, ...)      \
    case Op::JumpIf##name##RR:     \
    case Op::JumpIf##name##RK:     \
    case Op::JumpUnless##name##RR: \
    case Op::JumpUnless##name##RK: \
    case Op::LoopIf##name##RR:     \
    case Op::LoopIf##name##RK:     \
        return &Code::compareAndJump;
            TOLVAN_COMPARISONS(COMPARISON)
#undef COMPARISON

        case Op::Jump:
            return &Code::jump;
        case Op::JumpIf:
        case Op::JumpUnless:
            return &Code::jumpOnValue;
        case Op::Tick:
            return &Code::tick;
        case Op::Poll:
            return &Code::poll;
        case Op::PollAgain:  // it comes after a Poll that has let the script go on
            return &Code::nothing;
        case Op::ForPrepare:
            return &Code::forPrepare;
        case Op::ForNextOne:
        case Op::ForNextOnePoll:
            return &Code::forNextOne;
        case Op::ForNext:
            return &Code::forNext;

        // Elements that are numbers.
        case Op::Index:
        case Op::IndexLet:
        case Op::IndexMany:
            return &Code::index;
        case Op::PutIndexR:
        case Op::PutIndexK:
        case Op::PutIndexMany:
            return &Code::putIndex;

        // Abs, Int, Fix and Sqr of numbers, and single characters; the others are called.
        case Op::CallBuiltin:
            return &Code::callBuiltin;
        case Op::CallProcedure:
            return &Code::callProcedure;
        case Op::Return:
            return &Code::returnFromProcedure;

        // They enter procedures, run source, ask the host whether to go on, or raise an error.
        case Op::CallMember:
        case Op::CallValue:
        case Op::CallStatement:
        case Op::CallLate:
        case Op::FindVariable:
        case Op::Evaluate:
        case Op::NewLate:
        case Op::PutMember:
        case Op::PollHost:
        case Op::Raise:
            return &Code::interpret;

        default:
            return &Code::helper;
    }
}

}  // namespace tolvan::script::native
