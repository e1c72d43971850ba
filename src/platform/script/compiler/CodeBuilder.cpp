#include "platform/script/compiler/CodeBuilder.h"

#include "platform/script/StringCell.h"
#include "platform/script/syntax/SyntaxError.h"

#include <algorithm>

namespace tolvan::script {

namespace {

constexpr std::uint32_t largestOperand = 0xffff;
constexpr std::size_t longestCode = 0x3fffffff;  // offsets fit in 32 bits

bool isJumpWithOffsetInside(Op op) {
    return op == Op::Jump || op == Op::JumpIf || op == Op::JumpUnless || op == Op::Poll || op == Op::PollAgain;
}

[[noreturn]] void refuse() {
    throw SyntaxError{Syntax::TooBig, 0, 0};
}

}  // namespace

std::uint32_t CodeBuilder::emit(Op op, std::uint32_t a, std::uint32_t b, std::uint32_t c) {
    if (std::max({a, b, c}) > largestOperand || procedure_.code.size() > longestCode) refuse();
    const std::uint32_t pc = here();
    if (place_ != marked_) procedure_.places.push_back({pc, marked_ = place_});
    procedure_.code.push_back(
        {op, static_cast<std::uint16_t>(a), static_cast<std::uint16_t>(b), static_cast<std::uint16_t>(c)});
    return pc;
}

std::uint32_t CodeBuilder::emitWide(Op op, std::uint32_t a, std::int32_t bc) {
    const std::uint32_t pc = emit(op, a);
    procedure_.code[pc].setBc(bc);
    return pc;
}

void CodeBuilder::jump(Op op, std::uint32_t a, Label& target) {
    const std::uint32_t pc = emit(op, a);
    target.jumps_.push_back(pc);
    if (target.isBound()) patch(pc, target.pc_);
}

void CodeBuilder::jumpWithWord(Op op, std::uint32_t a, std::uint32_t b, Label& target) {
    const std::uint32_t pc = emitWithWord(op, a, b, 0, std::int32_t{0});
    target.jumps_.push_back(pc);
    if (target.isBound()) patch(pc, target.pc_);
}

bool CodeBuilder::isAtPoll(const Label& label) const {
    if (!label.isBound()) return false;
    const auto pc = static_cast<std::size_t>(label.pc_);
    return pc < procedure_.code.size() && procedure_.code[pc].op == Op::Poll;
}

void CodeBuilder::loopWithPoll(Op op, std::uint32_t a, std::uint32_t b, Label& target) {
    jumpWithWord(op, a, b, target);
    procedure_.code.push_back(procedure_.code[static_cast<std::size_t>(target.pc_) + 1]);
}

void CodeBuilder::poll(Op op, int* budget, Label& exhausted) {
    const std::uint32_t pc = emitWithWord(op, 0, 0, 0, budget);
    exhausted.jumps_.push_back(pc);
    if (exhausted.isBound()) patch(pc, exhausted.pc_);
}

void CodeBuilder::patch(std::uint32_t pc, std::int64_t target) {
    const auto offset = static_cast<std::int32_t>(target - static_cast<std::int64_t>(pc));
    if (isJumpWithOffsetInside(procedure_.code[pc].op))
        procedure_.code[pc].setBc(offset);
    else
        procedure_.code[pc + 1] = Instruction::ofWord(offset);
}

void CodeBuilder::bind(Label& label) {
    label.pc_ = here();
    for (const std::uint32_t pc : label.jumps_) patch(pc, label.pc_);
}

void CodeBuilder::mark(std::uint32_t line) {
    auto& lines = procedure_.lines;
    place_ = {};
    if (!lines.empty() && lines.back().pc == here()) {
        lines.back().line = line;
        return;
    }
    lines.push_back({here(), line});
}

std::uint32_t CodeBuilder::takeRegisters(std::uint32_t count) {
    const std::uint32_t first = next_;
    next_ += count;
    if (next_ > largestOperand) refuse();
    procedure_.registerCount = std::max(procedure_.registerCount, next_);
    return first;
}

void CodeBuilder::startRegistersAt(std::uint32_t first) {
    if (first > largestOperand) refuse();
    next_ = first;
    procedure_.registerCount = std::max(procedure_.registerCount, first);
}

std::uint32_t CodeBuilder::constant(const Value& value) {
    const auto index = static_cast<std::uint32_t>(procedure_.constants.size());
    if (value.is(Type::String)) {
        const auto [place, isNew] = texts_.try_emplace(std::string(value.view()), index);
        if (!isNew) return place->second;
    } else if (!value.isOneOf(Value::heapTypes) || value.as.cell == nullptr) {
        std::uint64_t payload = 0;
        if (value.isOneOf(bits(Type::Double, Type::Date, Type::Currency)))
            std::memcpy(&payload, &value.as, sizeof payload);
        else
            payload = static_cast<std::uint32_t>(value.as.i);
        const auto [place, isNew] = numbers_.try_emplace({value.tag, payload}, index);
        if (!isNew) return place->second;
    }
    procedure_.constants.push_back(value);
    return index;
}

}  // namespace tolvan::script
