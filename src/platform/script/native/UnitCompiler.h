// Translates the instructions of a loop or procedure into one Unit.
//
// There is no intermediate code. Each place of the code is translated once for each combination of kinds of the
// registers that reaches it ("version"); every register of the machine has two registers of the translated code, one
// for whole numbers and one for reals, and the version's kinds say which of them holds its number. Where an assumption
// does not hold, the code writes what it has in registers to the window and hands the instruction back to the
// interpreter, which does it from its start. Only the interpreter raises errors.
//
// Templates.cpp has the code of each instruction, TemplateTable.cpp which instruction has which.
#pragma once

#include "platform/script/native/Unit.h"

#include <functional>
#include <map>
#include <optional>
#include <span>

namespace tolvan::script {
class Machine;
}

namespace tolvan::script::native {

// What machine code reaches of the machine.
struct Surroundings {
    Machine* machine = nullptr;
    std::size_t* depth = nullptr;
    int* ticks = nullptr;
    Value** stackEnd = nullptr;
    Frame** deepestFrame = nullptr;          // no calls from machine code beyond this one
    std::uint32_t* failCountdown = nullptr;  // null unless guards are to fail by force
    std::uint64_t* executed = nullptr;       // by operation; null unless they are counted
    // All return `returned` or `failed`, and throw nothing.
    using OfInstruction = std::uint64_t (*)(Machine*, const Instruction*);
    OfInstruction step = nullptr;     // does one instruction as the interpreter does
    OfInstruction tick = nullptr;     // looks at the clock
    OfInstruction ask = nullptr;      // at a Poll; or `answered`: goes on at the frame's pc
    OfInstruction builtin = nullptr;  // calls a built-in function
    void (*release)(Value*) = nullptr;
    // One character of a text; else it returns `failed` and changes nothing. R[0] is the result, R[1] the text.
    std::uint64_t (*character)(Machine*, Value* window, std::int32_t place) = nullptr;
    // Below, at or above 0: as the left text is less than, equal to or greater than the right one.
    int (*compareTexts)(const Value* left, const Value* right) = nullptr;
    // Appends a text where it fits into the block; else it returns `failed` and changes nothing.
    std::uint64_t (*append)(Machine*, Value* text, const Value* tail) = nullptr;
    const std::size_t* longestText = nullptr;
};

class UnitCompiler {
  public:
    UnitCompiler(const Surroundings& surroundings, const Procedure& procedure, const ProcedureCode& known, Unit& unit);

    // The window tells what kinds there are at the moment. False if the code would be too big.
    bool compileLoop(std::uint32_t head, CodeShape::Range range, Value* window);
    bool compileProcedure(Value* window);
    asmjit::CodeHolder& code() { return holder_; }

    using Template = void (UnitCompiler::*)();

  private:
    using Gp = asmjit::x86::Gp;
    using Xmm = asmjit::x86::Xmm;
    using Mem = asmjit::x86::Mem;
    using Label = asmjit::Label;
    using Condition = asmjit::x86::CondCode;
    using Kinds = std::vector<Kind>;

    struct Version {
        Kinds kinds;
        Label label;
        bool isTranslated = false;
    };
    struct Temporaries {
        std::size_t wholes = 0;
        std::size_t reals = 0;
    };
    // Code to be written later: from its label on, with these kinds.
    struct Pending {
        Label label;
        std::uint32_t pc;
        Kinds kinds;
        Temporaries temporaries;     // in use
        std::function<void()> then;  // null: the instructions from pc on
    };
    struct Number {
        Kind kind;
        bool isConstant;
        std::uint32_t reg;
        Value constant;
        bool isWhole() const { return native::isWhole(kind); }
    };
    enum class Relation : std::uint8_t { Equal, NotEqual, Less, LessEqual, Greater, GreaterEqual };

    // Flow (UnitCompiler.cpp).
    void begin();
    bool finish();
    void findRegisters();
    void write();
    void instructions();
    void continueAt(std::uint32_t next);
    void end() { isEnded_ = true; }
    Label place(std::uint32_t target);
    Version* findVersion(std::uint32_t pc);
    Version* newVersion(std::uint32_t pc);
    void forgetUnneeded(std::uint32_t pc);
    void forgetContents();
    Version* findVersionWithLess(std::uint32_t pc);
    bool isInside(std::uint32_t pc) const;
    void store(std::uint32_t reg, Kind kind);
    void storeAll(const Kinds& kinds, std::uint32_t pc);
    void boxAll();
    Label exit(Exit::Why why, std::uint8_t slot = 0, const Gp* seen = nullptr, std::uint32_t wouldBe = 0);
    Label exitAt(std::uint32_t pc, Exit::Why why);
    void writeExit(Exit& exit);
    void forgetExits() {
        plainExit_.reset();
        leave_.reset();
    }
    Label leave();
    void guard(Condition fails, const Label& otherwise);
    Label later(std::function<void()> then);
    Label forked(std::function<void()> then);
    Label aside(std::function<void()> then);
    void aside(const Label& label, std::function<void()> then);
    void helpAside(const Label& label, const Label& back);

    // Registers (UnitCompiler.cpp).
    Gp whole(std::uint32_t reg);
    Xmm real(std::uint32_t reg);
    Gp temporary32();
    Gp temporary64();
    Xmm temporaryReal();
    Mem tagOfSlot(std::uint32_t reg) const;
    Mem slotOf(std::uint32_t reg) const;
    Mem payload(std::uint32_t reg) const;
    Gp fixedAddress(const void* of);
    template <class T>
    Gp address(const T* of) {
        return fixedAddress(static_cast<const void*>(of));
    }
    static asmjit::Imm pointer(const void* to) { return asmjit::imm(reinterpret_cast<std::uintptr_t>(to)); }
    bool isHeld(std::uint32_t reg) const {
        return kinds_[reg] == Kind::Any || kinds_[reg] == Kind::Text || kinds_[reg] == Kind::Items;
    }
    void overwrite(std::uint32_t reg);
    void setWhole(std::uint32_t reg, Kind kind, const Gp& number);
    void setReal(std::uint32_t reg, const Xmm& number);
    void load(std::uint32_t reg, Kind kind, const Mem& from);
    std::uint32_t expected(std::uint8_t slot, std::uint32_t otherwise) const;
    bool choose(const Gp& tag, std::uint32_t tags, std::uint8_t slot, bool again,
                const std::function<void(Kind)>& take);
    bool unbox(std::uint32_t reg, std::uint8_t slot);
    bool unboxNumbers(std::initializer_list<std::uint32_t> registers);

    // Operands (Templates.cpp).
    const Instruction* at() const { return code_ + pc_; }
    std::uint32_t next() const { return pc_ + wordsOf(at()->op); }
    const Value& constant(std::uint32_t index) const { return procedure_.constants[index]; }
    Number number(std::uint32_t reg) const { return {kinds_[reg], false, reg, {}}; }
    std::optional<Number> constantNumber(const Value& value) const;
    bool numbers(std::uint32_t left, std::uint32_t right, bool isConstant, Number& first, Number& second);
    Gp wholeCopy(const Number& number);
    void wholeOperation(asmjit::x86::Inst::Id operation, const Gp& target, const Number& right);
    Xmm realOf(const Number& number);
    Xmm realCopy(const Number& number);
    void checkReal(const Xmm& number);
    void checkInteger(const Gp& number, const std::function<void()>& grown);
    void grow(Condition when, Kind into, const std::function<void()>& grown);
    struct Comparison {
        Relation relation;
        enum class Form : std::uint8_t { Value, JumpIf, JumpUnless } form;
        bool isConstant;
    };
    static Comparison comparisonOf(Op op);
    bool comparable(std::uint32_t left, std::uint32_t right, bool isConstant, Number& first, Number& second);
    void jumpWhere(Relation relation, const Number& left, const Number& right, bool holds, const Label& target);
    void leaveWherePast(const Number& counter, const Number& limit, const Number& step, const Label& target);
    Gp dividedByConstant(const Number& left, std::int32_t divisor, bool wantsQuotient);
    void loadFrom(const Gp& variable, std::uint32_t guess);
    void storeTo(const Gp& variable, const Number& value);
    std::optional<Gp> referredBy(std::uint32_t reg, std::uint8_t slot);

    // Arrays (TemplatesOfArraysAndCalls.cpp).
    const Value* arrayNow(std::uint32_t reg) const;
    std::uint32_t sampleOf(std::uint32_t array) const;
    Gp cellOf(std::uint32_t array);
    Gp itemsOf(std::uint32_t array);
    void findItems(std::uint32_t array, bool mayBeReference, const std::function<void(const Gp&)>& check);
    void refreshItems(std::uint32_t otherwise);
    bool startsWithItems(std::uint32_t reg) const;
    std::optional<Gp> elementOf(std::uint32_t array, std::uint32_t firstIndex, std::uint32_t count,
                                const Label* shared);

    // Templates.
    void interpret();  // the instruction is left to the interpreter
    void helper();     // it is done by the interpreter's own code, and the machine code goes on
    Gp callMachine(Surroundings::OfInstruction function);
    void callHelper();
    void loadConstant();
    void copy();
    void copyText(const Mem& from, bool isKnown, bool isTaken);
    void clear();
    void loadReferred();
    void letReferred();
    void loadGlobal();
    void letGlobal();
    void referGlobal();
    void add();
    void subtract();
    void multiply();
    void arithmetic(asmjit::x86::Inst::Id wholes, asmjit::x86::Inst::Id reals, const Number& left, const Number& right,
                    const std::function<void()>& after);
    void binary(asmjit::x86::Inst::Id wholes, asmjit::x86::Inst::Id reals, bool isConstant);
    void addInteger();
    void divide();
    void integerDivide();
    void modulo();
    void wholeDivision(bool isConstant, bool wantsQuotient);
    void concatenate();
    void negate();
    void logicalNot();
    void logical();
    void compare();
    void compareAndJump();
    void jump();
    void jumpOnValue();
    void tick();
    void poll();
    void nothing() {}
    void forPrepare();
    void forNextOne();
    void forNext();
    void index();
    void putIndex();
    void callProcedure();
    void returnFromProcedure();
    void callBuiltin();
    bool numericBuiltin(std::string_view name);
    bool characterOfText();
    void compareTexts(std::uint32_t left, std::uint32_t right);

    friend struct TemplateTable;

    const Surroundings& around_;
    const Procedure& procedure_;
    const Instruction* code_;
    const CodeShape& shape_;
    const Feedback& feedback_;
    Unit& unit_;
    Value* window_ = nullptr;
    CodeShape::Range range_{};
    bool isLoop_ = false;

    asmjit::CodeHolder holder_;
    asmjit::x86::Compiler cc_;
    asmjit::FuncNode* function_ = nullptr;
    Gp base_;
    Gp frame_;
    std::vector<Gp> wholes_;
    std::vector<Xmm> reals_;
    std::vector<Gp> cells_;  // of arrays
    std::vector<Gp> items_;
    std::vector<bool> isArray_;  // the register is used as one
    std::vector<Gp> temporaries_;
    std::vector<Xmm> realTemporaries_;
    Temporaries usedTemporaries_;
    std::vector<bool> isUsed_;
    std::vector<bool> isWritten_;

    std::uint32_t pc_ = 0;
    std::uint32_t following_ = 0;  // where to go on after the instruction
    Kinds kinds_;
    bool isEnded_ = false;
    bool isFork_ = false;  // the instruction is translated once more, for another kind of one of its values
    std::map<std::uint32_t, std::deque<Version>> versions_;
    std::deque<Pending> pending_;
    std::deque<Pending> cold_;
    std::optional<Label> plainExit_;                 // of the instruction
    std::optional<Label> leave_;                     // what its exits have in common
    Gp leaving_;                                     // the address of the Exit there
    std::map<std::uint32_t, const Value*> globals_;  // that registers refer to, as far as seen
    std::size_t translated_ = 0;
};

}  // namespace tolvan::script::native
