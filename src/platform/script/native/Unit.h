// One piece of machine code: a loop, or a procedure from its first instruction on, for certain kinds of contents of the
// registers.
#pragma once

#include "platform/script/compiler/Procedure.h"
#include "platform/script/native/CodeShape.h"

#include <asmjit/x86.h>
#include <cstdint>
#include <deque>
#include <memory>
#include <unordered_map>
#include <vector>

namespace tolvan::script {
struct Frame;
}

namespace tolvan::script::native {

// What is known of a register at a place of the code. Unboxed: its number is in a register of the processor, and the
// window (the machine's own register) has an older value, which holds nothing that has to be released.
enum class Kind : std::uint8_t {
    Any,     // in the window, of any type
    Simple,  // in the window, not a text, an array or an object
    Text,    // in the window, a text
    Items,   // in the window, an array or a reference to one; registers of the processor say where its elements are
    Integer,
    Long,
    Double,
    Boolean,
};

constexpr std::uint32_t wholeTags = bits(Type::Integer, Type::Long);
constexpr std::uint32_t numberTags = wholeTags | bits(Type::Double);
constexpr std::uint32_t unboxedTags = numberTags | bits(Type::Boolean);

constexpr bool isUnboxed(Kind kind) {
    return kind >= Kind::Integer;
}
constexpr bool isWhole(Kind kind) {
    return kind == Kind::Integer || kind == Kind::Long;
}
constexpr bool isNumber(Kind kind) {
    return isWhole(kind) || kind == Kind::Double;
}
constexpr std::uint32_t tagOf(Kind kind) {
    switch (kind) {
        case Kind::Integer:
            return bits(Type::Integer);
        case Kind::Long:
            return bits(Type::Long);
        case Kind::Double:
            return bits(Type::Double);
        default:
            return bits(Type::Boolean);
    }
}
constexpr Kind kindOf(std::uint32_t tag) {
    if (tag == bits(Type::Integer)) return Kind::Integer;
    if (tag == bits(Type::Long)) return Kind::Long;
    if (tag == bits(Type::Double)) return Kind::Double;
    if (tag == bits(Type::Boolean)) return Kind::Boolean;
    if (tag == bits(Type::String)) return Kind::Text;
    return (tag & Value::heapTypes) == 0 ? Kind::Simple : Kind::Any;
}

// Allocates machine code. The pages are mapped twice: writable at one address, executable at another.
class CodeMemory {
  public:
    CodeMemory();
    void* add(asmjit::CodeHolder& code);  // null if there is no room, or the system refuses
    void release(void* code);
    asmjit::Environment environment() const { return runtime_.environment(); }
    std::size_t bytes() const { return runtime_.allocator()->statistics().usedSize(); }

  private:
    asmjit::JitRuntime runtime_;
};

// Where machine code hands back to the interpreter, which goes on at `pc`.
struct Unit;
struct Exit {
    using Why = MachineCodeExit;
    Unit* unit;
    std::uint32_t pc;
    Why why;
    std::uint8_t slot = 0;   // which of the instruction's values
    std::uint32_t seen = 0;  // of Kind: the value's type; of Growth: what it would have become
    std::uint32_t count = 0;
    const Procedure* callee = nullptr;
};

// What the code returns: one of the first two, or the address of its Exit.
constexpr std::uint64_t returned = 0;
constexpr std::uint64_t failed = 1;
// What a question to the host may return as well: the code has to be left, and everything is where it belongs.
constexpr std::uint64_t answered = 2;
using Entry = std::uint64_t (*)(Value* base, Frame* frame);

struct Unit {
    explicit Unit(std::shared_ptr<CodeMemory> from) : memory(std::move(from)) {}
    Unit(const Unit&) = delete;
    Unit& operator=(const Unit&) = delete;
    ~Unit() {
        if (code != nullptr) memory->release(code);
    }
    Entry entry() const { return reinterpret_cast<Entry>(code); }

    std::shared_ptr<CodeMemory> memory;
    void* code = nullptr;
    struct Expected {
        std::uint32_t reg;
        Kind kind;
    };
    std::vector<Expected> expected;  // of a loop: what registers have to hold at its start
    std::deque<Exit> exits;
    std::vector<std::weak_ptr<const Procedure>> callees;  // so that no other procedure gets their addresses
    const int* passes = nullptr;                          // counts down with each pass
    int shortRuns = 0;                                    // that ended after a few passes, one after the other
    bool isStale = false;                                 // more has become known of the types: compile it again
};

// Types that were seen by the values of instructions, as a set of tags.
class Feedback {
  public:
    static constexpr std::uint8_t growth = 3;  // the slot for what a result grew into
    std::uint32_t seen(std::uint32_t pc, std::uint8_t slot) const {
        const auto place = seen_.find(pc * 4 + slot);
        return place == seen_.end() ? 0 : place->second;
    }
    void add(std::uint32_t pc, std::uint8_t slot, std::uint32_t tags) { seen_[pc * 4 + slot] |= tags; }

  private:
    std::unordered_map<std::uint32_t, std::uint32_t> seen_;
};

// Of one procedure.
class ProcedureCode {
  public:
    ProcedureCode(const Procedure& procedure, std::shared_ptr<CodeMemory> from)
        : memory(std::move(from)), shape(procedure) {}

    struct Place {
        std::uint32_t head = 0;
        std::vector<std::shared_ptr<Unit>> units;
        int compilations = 0;
        bool isRefused = false;
    };
    std::shared_ptr<CodeMemory> memory;
    CodeShape shape;
    Feedback feedback;
    std::deque<Place> loops;
    Place whole;
};

}  // namespace tolvan::script::native
