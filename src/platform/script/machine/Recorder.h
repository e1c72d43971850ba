// Fills a Recording while the machine runs: the second way through the instructions (MachineDispatchRecorded.cpp) tells
// it of each instruction that is about to store something.
#pragma once

#include "platform/script/Heap.h"
#include "platform/script/Recording.h"
#include "platform/script/compiler/Procedure.h"

#include <cstdint>
#include <unordered_map>

namespace tolvan::script {

class Machine;
struct Frame;

class Recorder : public HeapReserve {
  public:
    // The procedures that are active belong to the recording from now on.
    Recorder(Machine& machine, Recording& recording);
    // The run is over; the recording keeps how it ended.
    ~Recorder() override;
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    // A poll lets the procedure go on.
    void beginRow(const Frame& frame, const Instruction* pc);
    void entered(const Frame& frame);
    void leaving(const Frame& frame);
    // The script goes on after the host may have looked.
    void goOn() {
        if (recording_.isWalking_) [[unlikely]]
            recording_.backToPresent();
    }

    // The instruction at pc is about to run.
    void note(const Frame& frame, const Instruction* pc);
    // A register that is a variable is about to change.
    void noteRegister(const Value& reg) {
        if (!recording_.isOpen_) [[unlikely]]
            reopen();
        if (reg.isOneOf(Value::heapTypes | bits(Type::Reference))) return noteHeld(reg);
        Recording::Change& change = recording_.push();
        change.value.tag = reg.tag;
        change.value.as = reg.as;
        change.number = static_cast<std::uint32_t>(&reg - firstRegister_);
        change.element = Recording::whole;
        change.kind = Recording::Kind::Value;
    }
    // A register is about to get a text appended if it is one; else it changes.
    void noteText(const Value& reg);
    // An element was made a reference.
    void referred(const Value& reference, const Value& array);
    // A variable that the host sets.
    void noteAssigned(const Value& variable, const Value* element);

    // What the log holds is given up before the script lacks memory.
    bool giveUp() noexcept override { return recording_.giveUp(); }

    const Recording& recording() const { return recording_; }

    // The recording wants to go to an earlier moment: gives it the values of the present.
    void capture();

  private:
    using Place = Recording::Place;

    void noteHeld(const Value& reg);
    void expectText(Place place, const Value& variable);
    // What has become of the long text that the last change keeps can be seen now.
    void settle() {
        if (expected_ != nullptr) [[unlikely]]
            settleText();
    }
    void settleText();
    void noteAt(Place place, const Value& value);
    void noteGrowth(Place place, const Value& text);
    void noteReferred(const Value& variable);
    void noteReferredText(const Value& variable, bool grows);
    void noteElements(const Value& array, const Value* indexes, std::uint32_t count, bool grows);
    void noteArguments(const Value* base, std::uint32_t count);
    void addRow();
    void reopen();
    Place placeOf(const Value& variable);
    Value kept(const Value& value);
    std::uint32_t numberOf(const script::Procedure& procedure);

    Machine& machine_;
    Recording& recording_;
    const Value* firstRegister_;
    const Value* endOfRegisters_;
    const Value* expected_ = nullptr;  // the variable of the change before expectedEnd_, which held a long text
    std::uint64_t expectedEnd_ = 0;
    const script::Procedure* lastProcedure_ = nullptr;
    std::uint32_t lastNumber_ = 0;
    std::unordered_map<const script::Procedure*, std::uint32_t> numbers_;
    std::unordered_map<const Value*, std::uint32_t> outside_;
    std::unordered_map<const Value*, Place> elements_;  // those that references were made to
};

}  // namespace tolvan::script
