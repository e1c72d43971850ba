#include "platform/script/machine/Recorder.h"

#include "platform/script/ArrayCell.h"
#include "platform/script/machine/Machine.h"
#include "platform/script/machine/MachineFrames.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace tolvan::script {

namespace {

// What an instruction stores into, but for temporaries.
enum class Target : std::uint8_t {
    Nothing,
    Register,      // R[a]
    Text,          // R[a], or it grows where a is also b
    Referred,      // what R[a] refers to
    ReferredText,  // the same; or it grows
    Outside,       // *pointer
    Element,       // R[a](R[b])
    Elements,      // R[a](R[b], ...); + count
    ElementsText,  // the same; or it grows
    Arguments,     // what R[a+1], ... b of them refer to
};

constexpr Target targetOf(Op op) {
    switch (op) {
        case Op::SetField:
        case Op::LetField:
        case Op::ReferElement:
        case Op::MakeOperand:
        case Op::Jump:
        case Op::JumpIf:
        case Op::JumpUnless:
        case Op::Tick:
        case Op::Poll:
        case Op::PollAgain:
        case Op::PollHost:
        case Op::EachPrepare:
        case Op::EachNext:
        case Op::CallProcedure:
        case Op::OnError:
        case Op::ClearError:
        case Op::Raise:
        case Op::Return:
            return Target::Nothing;
        case Op::ConcatenateRR:
        case Op::ConcatenateRK:
        case Op::AddRR:
        case Op::AddRK:
            return Target::Text;
        case Op::LetReferred:
        case Op::SetReferred:
        case Op::MakeArray:
        case Op::ReDim:
        case Op::Erase:
            return Target::Referred;
        case Op::Append:
        case Op::AppendParts:
            return Target::ReferredText;
        case Op::LetGlobal:
        case Op::SetGlobal:
            return Target::Outside;
        case Op::PutIndexR:
        case Op::PutIndexK:
            return Target::Element;
        case Op::PutIndexMany:
            return Target::Elements;
        case Op::AppendElement:
            return Target::ElementsText;
        case Op::CallHost:
        case Op::PutHost:
        case Op::CallMember:
        case Op::PutMember:
        case Op::CallValue:
        case Op::CallStatement:
        case Op::CallLate:
            return Target::Arguments;
#define X(name, ...)               \
    case Op::JumpIf##name##RR:     \
    case Op::JumpIf##name##RK:     \
    case Op::JumpUnless##name##RR: \
    case Op::JumpUnless##name##RK: \
    case Op::LoopIf##name##RR:     \
    case Op::LoopIf##name##RK:
            TOLVAN_COMPARISONS(X)
#undef X
            return Target::Nothing;
        default:
            return Target::Register;
    }
}

constexpr std::size_t opCount = [] {
    std::size_t count = 0;
#define X(name, words) ++count;
    TOLVAN_ALL_OPCODES
#undef X
    return count;
}();

constexpr auto targets = [] {
    std::array<Target, opCount> table{};
    for (std::size_t i = 0; i < opCount; ++i) table[i] = targetOf(static_cast<Op>(i));
    return table;
}();

Value encoded(std::uint32_t number, std::uint32_t element) {
    Value reference;
    reference.tag = bits(Type::Reference);
    reference.as.c = static_cast<std::int64_t>(std::uint64_t{number} << 32U | element);
    return reference;
}

constexpr std::size_t mostElementPlaces = 4096;
// Longer texts are worth a look at what has changed in them.
constexpr std::size_t longText = 256;

}  // namespace

Recorder::Recorder(Machine& machine, Recording& recording)
    : machine_(machine), recording_(recording), firstRegister_(machine.stack_), endOfRegisters_(machine.stackEnd_) {
    recording_.walkTo(recording_.changeEnd_);
    recording_.registers_.clear();
    recording_.outside_.clear();
    recording_.frames_.clear();
    recording_.recorder_ = this;
    for (std::size_t i = 0; i < machine.depth_; ++i) entered(machine.frames_[i]);
}

Recorder::~Recorder() {
    goOn();
    capture();
    recording_.position_ = recording_.changeEnd_;
    if (recording_.outputCount_ != nullptr) recording_.lastOutput_ = *recording_.outputCount_;
    recording_.recorder_ = nullptr;
}

// Rows and calls ------------------------------------------------------------------------------------------------------

std::uint32_t Recorder::numberOf(const Procedure& procedure) {
    if (&procedure == lastProcedure_) return lastNumber_;
    const auto [place, isNew] =
        numbers_.try_emplace(&procedure, static_cast<std::uint32_t>(recording_.procedures_.size()));
    if (isNew) {
        Recording::Procedure& known = recording_.procedures_.emplace_back();
        known.name = machine_.names().spelling(procedure.name);
        known.parameters = procedure.parameterCount;
        for (const NameId name : procedure.variableNames)
            known.variables.emplace_back(name == 0 ? std::string_view() : machine_.names().spelling(name));
        auto& marks = recording_.lines_.emplace_back();
        for (const LineMark& mark : procedure.lines) marks.push_back({mark.pc, mark.line});
    }
    lastProcedure_ = &procedure;
    return lastNumber_ = place->second;
}

void Recorder::beginRow(const Frame& frame, const Instruction* pc) {
    if (recording_.frames_.empty()) return;
    recording_.frames_.back().pc = static_cast<std::uint32_t>(pc - frame.procedure->code.data());
    addRow();
}

// Of the line where the innermost procedure is.
void Recorder::addRow() {
    settle();
    Recording& to = recording_;
    const Recording::Call& call = to.frames_.back();
    if (to.rowEnd_ - to.rowBegin_ == to.rows_.size()) to.growRows();
    to.rowAt(to.rowEnd_++) = {to.isOpen_ ? to.changeEnd_ : to.closedAt_,
                              to.outputCount_ != nullptr ? *to.outputCount_ : 0, call.pc, call.procedure,
                              static_cast<std::uint32_t>(to.frames_.size())};
    to.isOpen_ = true;
    if (to.rowEnd_ - to.rowBegin_ > to.mostRows_) to.dropRow();
    if (to.frames_.size() == 1 && elements_.size() > mostElementPlaces) elements_.clear();
}

// A further row for the line that called.
void Recorder::reopen() {
    Recording& to = recording_;
    if (to.isOpen_ || to.frames_.empty() || to.rowBegin_ == to.rowEnd_) return;
    addRow();
}

void Recorder::entered(const Frame& frame) {
    if (!frame.procedure->hasPolls) return;
    reopen();
    const auto base = static_cast<std::uint32_t>(frame.base - firstRegister_);
    const std::uint32_t number = numberOf(*frame.procedure);
    Recording::Change& change = recording_.push();
    change.kind = Recording::Kind::Enter;
    change.number = base;
    change.element = number;
    recording_.frames_.push_back({number, base, 0});
}

// The last values of the variables are the beginning of what follows.
void Recorder::leaving(const Frame& frame) {
    settle();
    Recording& to = recording_;
    if (!frame.procedure->hasPolls || to.frames_.empty()) return;
    if (to.isOpen_) {
        to.closedAt_ = to.changeEnd_;
        to.isOpen_ = false;
    }
    const auto base = static_cast<std::uint32_t>(frame.base - firstRegister_);
    for (std::uint32_t i = 0; i < frame.procedure->variableCount; ++i)
        noteAt({base + i, Recording::whole}, frame.base[i]);
    Recording::Change& change = to.push();
    change.kind = Recording::Kind::Leave;
    change.number = base;
    change.element = to.frames_.back().procedure;
    to.frames_.pop_back();
}

// Values --------------------------------------------------------------------------------------------------------------

// What the log may keep of a value: no object, and no address.
Value Recorder::kept(const Value& value) {
    if (value.is(Type::Object)) return Value::nothing();
    if (value.is(Type::Array) && machine_.instances_ != nullptr) return {};
    if (!value.is(Type::Reference)) return value.is(Type::Pin) ? Value() : value;
    const Place place = placeOf(*value.as.ref);
    return encoded(place.number, place.element);
}

void Recorder::noteAt(Place place, const Value& value) {
    if (value.isOneOf(Value::heapTypes | bits(Type::Reference))) {
        settle();
        recording_.pushHeld(place, kept(value));
        if (value.is(Type::String) && value.view().size() > longText) expectText(place, value);
        return;
    }
    Recording::Change& change = recording_.push();
    change.value = value;
    change.number = place.number;
    change.element = place.element;
    change.kind = Recording::Kind::Value;
}

void Recorder::noteHeld(const Value& reg) {
    noteAt({static_cast<std::uint32_t>(&reg - firstRegister_), Recording::whole}, reg);
}

// Only of a variable that is there until its row is over.
void Recorder::expectText(Place place, const Value& variable) {
    if (place.element != Recording::whole) return;
    if (place.number < Recording::outside) {
        const auto& calls = recording_.frames_;
        const auto next =
            std::upper_bound(calls.begin(), calls.end(), place.number,
                             [](std::uint32_t number, const Recording::Call& call) { return number < call.base; });
        if (next == calls.begin()) return;
        const Recording::Call& call = *std::prev(next);
        if (place.number - call.base >= recording_.procedures_[call.procedure].variables.size()) return;
    }
    expected_ = &variable;
    expectedEnd_ = recording_.changeEnd_;
}

void Recorder::settleText() {
    const Value& now = *std::exchange(expected_, nullptr);
    if (recording_.changeEnd_ == expectedEnd_ && recording_.changeBegin_ < expectedEnd_) recording_.keepDifference(now);
}

void Recorder::noteGrowth(Place place, const Value& text) {
    Recording::Change& change = recording_.push();
    change.value = Value::currency(static_cast<std::int64_t>(text.view().size()));
    change.number = place.number;
    change.element = place.element;
    change.kind = Recording::Kind::Growth;
}

// Of the variables that are recorded; those of others have no place.
Recorder::Place Recorder::placeOf(const Value& variable) {
    if (&variable >= firstRegister_ && &variable < endOfRegisters_)
        return {static_cast<std::uint32_t>(&variable - firstRegister_), Recording::whole};
    const auto element = elements_.find(&variable);
    if (element != elements_.end()) return element->second;
    const auto known = outside_.find(&variable);
    if (known != outside_.end()) return {known->second, Recording::whole};
    const NameId name = machine_.symbols().nameOf(&variable);
    if (name == 0) return {};
    auto& names = recording_.procedures_[0].variables;
    const auto number = Recording::outside + static_cast<std::uint32_t>(names.size());
    names.emplace_back(machine_.names().spelling(name));
    outside_.emplace(&variable, number);
    return {number, Recording::whole};
}

void Recorder::noteReferred(const Value& variable) {
    const Place place = placeOf(variable);
    if (place.number == Recording::noPlace) return;
    reopen();
    noteAt(place, variable);
}

void Recorder::noteReferredText(const Value& variable, bool grows) {
    if (!grows) return noteReferred(variable);
    const Place place = placeOf(variable);
    if (place.number == Recording::noPlace) return;
    reopen();
    noteGrowth(place, variable);
}

void Recorder::noteText(const Value& reg) {
    reopen();
    noteGrowth({static_cast<std::uint32_t>(&reg - firstRegister_), Recording::whole}, reg);
}

// Of an array within an array the whole inner array is kept.
void Recorder::noteElements(const Value& array, const Value* indexes, std::uint32_t count, bool grows) {
    if (!array.is(Type::Array)) return;
    Place place = placeOf(array);
    if (place.number == Recording::noPlace) return;
    if (place.element != Recording::whole) return noteReferred(array);
    const ArrayCell& cell = *array.array();
    std::size_t number = 0;
    try {
        if (std::any_of(indexes, indexes + count, [](const Value& index) { return index.is(Type::Object); }))
            return noteReferred(array);
        number = machine_.elementNumber(cell, {indexes, count});
    } catch (const ScriptError&) {
        return;  // and so the instruction will fail
    }
    place.element = static_cast<std::uint32_t>(number);
    reopen();
    if (grows && cell.items[number].is(Type::String))
        noteGrowth(place, cell.items[number]);
    else
        noteAt(place, cell.items[number]);
}

void Recorder::noteArguments(const Value* base, std::uint32_t count) {
    reopen();
    for (std::uint32_t i = 1; i <= count; ++i)
        if (base[i].is(Type::Reference)) noteReferred(*base[i].as.ref);
}

void Recorder::referred(const Value& reference, const Value& array) {
    if (!reference.is(Type::Reference) || !array.is(Type::Array)) return;
    Place place = placeOf(array);
    if (place.number == Recording::noPlace || place.element != Recording::whole) {
        elements_.erase(reference.as.ref);
        return;
    }
    place.element = static_cast<std::uint32_t>(reference.as.ref - array.array()->items);
    elements_[reference.as.ref] = place;
}

void Recorder::noteAssigned(const Value& variable, const Value* element) {
    Place place = placeOf(variable);
    if (place.number == Recording::noPlace) return;
    if (element == nullptr || place.element != Recording::whole) return noteAt(place, variable);
    place.element = static_cast<std::uint32_t>(element - variable.array()->items);
    noteAt(place, *element);
}

void Recorder::note(const Frame& frame, const Instruction* pc) {
    Value* const R = frame.base;
    Value& a = R[pc->a];
    const std::uint32_t variables = frame.procedure->hasPolls ? frame.procedure->variableCount : 0;
    switch (targets[static_cast<std::size_t>(pc->op)]) {
        case Target::Nothing:
            return;
        case Target::Register:
            if (pc->a < variables) noteRegister(a);
            return;
        case Target::Text: {
            if (pc->a >= variables) return;
            const bool grows = pc->a == pc->b && a.is(Type::String) &&
                               (pc->op == Op::ConcatenateRR || pc->op == Op::ConcatenateRK ||
                                (pc->op == Op::AddRR ? R[pc->c] : frame.procedure->constants[pc->c]).is(Type::String));
            return grows ? noteText(a) : noteRegister(a);
        }
        case Target::Referred:
            return noteReferred(followed(a));
        case Target::ReferredText: {
            const Value& text = followed(a);
            const bool isUnchanged =
                pc->op == Op::Append || (R[pc->b].is(Type::String) && R[pc->b].as.cell == text.as.cell);
            return noteReferredText(text, text.is(Type::String) && isUnchanged);
        }
        case Target::Outside:
            return noteReferred(*pc[1].word<Value*>());
        case Target::Element:
            return noteElements(followed(a), &R[pc->b], 1, false);
        case Target::Elements:
            return noteElements(followed(a), &R[pc->b], pc[1].word<std::uint32_t>(), false);
        case Target::ElementsText:
            return noteElements(followed(a), &R[pc->b], pc[1].word<std::uint32_t>(), true);
        case Target::Arguments:
            return noteArguments(&a, pc->b);
    }
}

// The present ---------------------------------------------------------------------------------------------------------

void Recorder::capture() {
    Recording& to = recording_;
    to.registers_.clear();
    to.outside_.clear();
    for (const Recording::Call& call : to.frames_) {
        const auto count = static_cast<std::uint32_t>(to.procedures_[call.procedure].variables.size());
        for (std::uint32_t i = 0; i < count; ++i) {
            const Value& value = firstRegister_[call.base + i];
            to.valueAt({call.base + i, Recording::whole}) = kept(value);
            if (!value.is(Type::Reference)) continue;
            // A temporary that was passed by reference is no variable of a call.
            const Place place = placeOf(*value.as.ref);
            if (place.number < Recording::outside && place.element == Recording::whole)
                to.valueAt(place) = kept(followed(*value.as.ref));
        }
    }
    machine_.symbols().forEachVariable([&](NameId, const Value& value) {
        const Place place = placeOf(value);
        if (place.number != Recording::noPlace) to.valueAt(place) = kept(value);
    });
}

}  // namespace tolvan::script
