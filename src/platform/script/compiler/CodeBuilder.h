// Writes the instructions of one procedure: registers, constants, jumps and lines.
#pragma once

#include "platform/script/compiler/Procedure.h"

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace tolvan::script {

// A place in the code to jump to, before or after it is known.
class Label {
  public:
    bool isBound() const { return pc_ >= 0; }

  private:
    friend class CodeBuilder;
    std::int64_t pc_ = -1;
    std::vector<std::uint32_t> jumps_;
};

class CodeBuilder {
  public:
    explicit CodeBuilder(Procedure& procedure) : procedure_(procedure) {}

    // Throws SyntaxError 1001 (line 0) where a procedure gets too big for the machine's operands.
    std::uint32_t emit(Op op, std::uint32_t a = 0, std::uint32_t b = 0, std::uint32_t c = 0);
    std::uint32_t emitWide(Op op, std::uint32_t a, std::int32_t bc);
    template <class T>
    std::uint32_t emitWithWord(Op op, std::uint32_t a, std::uint32_t b, std::uint32_t c, T word) {
        const std::uint32_t pc = emit(op, a, b, c);
        procedure_.code.push_back(Instruction::ofWord(word));
        return pc;
    }
    // A jump whose offset is in bc, and one whose offset is in the second word.
    void jump(Op op, std::uint32_t a, Label& target);
    void jumpWithWord(Op op, std::uint32_t a, std::uint32_t b, Label& target);
    // A jump back to the Poll at the start of a loop; the jump itself counts the budget down.
    void loopWithPoll(Op op, std::uint32_t a, std::uint32_t b, Label& target);
    // Whether a label that is bound has a Poll already.
    bool isAtPoll(const Label& label) const;
    // Emits a Poll or PollAgain, which jumps to `exhausted` when the budget is used up.
    void poll(Op op, int* budget, Label& exhausted);
    void bind(Label& label);

    // A statement begins; its instructions have no place in the line but what a CodePlace says.
    void mark(std::uint32_t line);
    // What follows is rarely needed.
    void markColdCode() { procedure_.coldCode = here(); }

    // Of the instructions that are emitted now.
    Columns place() const { return place_; }

    // Registers after the variables, taken and given back like a stack.
    std::uint32_t takeRegisters(std::uint32_t count = 1);
    std::uint32_t registerMark() const { return next_; }
    void releaseTo(std::uint32_t mark) { next_ = mark; }
    void startRegistersAt(std::uint32_t first);

    std::uint32_t constant(const Value& value);

    Procedure& procedure() { return procedure_; }

  private:
    std::uint32_t here() const { return static_cast<std::uint32_t>(procedure_.code.size()); }
    void patch(std::uint32_t pc, std::int64_t target);

    friend class CodePlace;

    Procedure& procedure_;
    std::uint32_t next_ = 0;
    Columns place_;                                                             // of the instructions that are emitted
    Columns marked_;                                                            // of those before
    std::map<std::pair<std::uint32_t, std::uint64_t>, std::uint32_t> numbers_;  // by tag and bits
    std::unordered_map<std::string, std::uint32_t> texts_;
};

// Says of what place of the line the instructions are that are emitted in a block.
class CodePlace {
  public:
    CodePlace(CodeBuilder& code, Columns columns) : code_(code), outer_(code.place_) { code.place_ = columns; }
    CodePlace(const CodePlace&) = delete;
    CodePlace& operator=(const CodePlace&) = delete;
    ~CodePlace() { code_.place_ = outer_; }

  private:
    CodeBuilder& code_;
    Columns outer_;
};

// Gives temporaries back at the end of a block.
class Temporaries {
  public:
    explicit Temporaries(CodeBuilder& code) : code_(code), mark_(code.registerMark()) {}
    Temporaries(const Temporaries&) = delete;
    Temporaries& operator=(const Temporaries&) = delete;
    ~Temporaries() { code_.releaseTo(mark_); }

  private:
    CodeBuilder& code_;
    std::uint32_t mark_;
};

}  // namespace tolvan::script
