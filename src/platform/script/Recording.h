// What a run did, row by row: a log that the engine keeps while it runs and from which every earlier moment can be seen
// again, without running anything twice. A row is a poll that let the script go on, and what happened until the next
// one: a line of a program with its effect. The line that goes on after a call, and then changes or shows something,
// has a further row.
//
// What is kept are changes: which variable or element, and the value that it had before. Going to a moment swaps old
// values and current ones; the same log leads back and forth. Objects are not kept. The log is a ring: when it is full
// its beginning is given up, and so it is when the script would otherwise run out of memory.
//
// Given to an engine with Executor::setRecording; the host may read it while the script calls the host, and after the
// run. It must outlive the engine's use of it, until Executor::reset.
#pragma once

#include "platform/script/Value.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan::script {

class Recorder;

class Recording {
  public:
    static constexpr std::size_t defaultRows = 10'000;
    static constexpr std::size_t defaultBytes = std::size_t{64} << 20;

    explicit Recording(std::size_t mostRows = defaultRows, std::size_t mostBytes = defaultBytes);
    ~Recording();
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    // Forgets everything; not while an engine uses it.
    void clear();

    // A number that the host counts up with everything that it shows; each row keeps what it was. Null: none.
    void setOutputCount(const std::uint64_t* count) { outputCount_ = count; }

    // Rows are counted from 0 on; those before the first are gone.
    std::uint64_t firstRow() const { return rowBegin_; }
    std::uint64_t endRow() const { return rowEnd_; }
    bool isBeginningGone() const { return rowBegin_ != 0; }
    // What the log takes; never more than the bound, but for what a single row may add before it is looked at.
    std::size_t bytes() const;

    // Of the module, 1-based: the line of the poll.
    int line(std::uint64_t row) const;
    // How many of the script's procedures were active; 1: the one that the host called.
    std::size_t depth(std::uint64_t row) const { return rowAt(row).depth; }
    // Which of procedures() the line belongs to.
    std::size_t procedure(std::uint64_t row) const { return rowAt(row).procedure; }
    // The host's count when the row was over.
    std::uint64_t outputAfter(std::uint64_t row) const;

    struct Procedure {
        std::string name;  // empty: the statements outside procedures
        // The names of its variables, at their places: the result of a function, parameters, the others. Empty where a
        // place has no name.
        std::vector<std::string> variables;
        std::size_t parameters = 0;  // the places 1 to this one
    };
    // Those that have appeared in rows. The first stands for the variables outside procedures.
    const std::vector<Procedure>& procedures() const { return procedures_; }

    // Goes to the moment at which a row was over: right before the next one, or before its procedure was left.
    void goTo(std::uint64_t row);
    // What was active at that moment. Level 0 is the innermost, level depth() the variables outside procedures.
    std::size_t depth() const { return frames_.size(); }
    std::size_t procedureAt(std::size_t level) const;
    // The innermost level at which a procedure was active; nowhere if it was not.
    static constexpr std::size_t nowhere = SIZE_MAX;
    std::size_t levelOf(std::size_t procedure) const;
    // Valid until the next goTo, or until the script goes on. Nothing stands for every object.
    const Value& value(std::size_t level, std::size_t place) const;
    // Whether the row that was gone to made the value another one. A parameter that got its value there counts.
    bool isChanged(std::size_t level, std::size_t place) const;
    // The same for an element of an array, by its number in the order of ArrayCell.
    bool isElementChanged(std::size_t level, std::size_t place, std::uint32_t element) const;

  private:
    friend class Recorder;

    // Where a value lies: a register by its distance from the machine's first, or a variable outside procedures.
    static constexpr std::uint32_t noPlace = UINT32_MAX;
    static constexpr std::uint32_t whole = UINT32_MAX;   // no element
    static constexpr std::uint32_t outside = 1U << 24U;  // from here on
    struct Place {
        std::uint32_t number = noPlace;
        std::uint32_t element = whole;
        bool operator==(const Place&) const = default;
    };

    enum class Kind : std::uint8_t {
        Value,   // an old value
        Growth,  // a text had this length before something was appended; while undone, what was appended
        Part,    // see Difference: what a text had between a start and an end that stayed; while undone, what it gets
        Enter,   // number: of the first register, element: the procedure
        Leave,   // the same; the values that died come before it
        // Those of a procedure that was left stand at the beginning of the next row.
    };
    struct Change {
        Value value;
        std::uint32_t number = 0;
        std::uint32_t element = whole;
        Kind kind = Kind::Value;
    };
    // Of two long texts that are mostly the same; kept as a text.
    struct Difference {
        std::uint32_t start = 0;  // bytes that are the same
        std::uint32_t end = 0;
        std::string_view middle;  // of the one that is not there

        static Difference between(std::string_view gone, std::string_view now);
        static Difference readFrom(const Value& kept);
        Value toKeep() const;
    };
    struct Row {
        std::uint64_t firstChange;
        std::uint64_t output;
        std::uint32_t pc;
        std::uint32_t procedure;
        std::uint32_t depth;
    };
    struct Call {
        std::uint32_t procedure;
        std::uint32_t base;
        std::uint32_t pc;  // of its last row
    };
    struct LineMark {
        std::uint32_t pc;
        std::uint32_t line;
    };
    class OwnHeap;

    const Row& rowAt(std::uint64_t row) const { return rows_[row & (rows_.size() - 1)]; }
    Row& rowAt(std::uint64_t row) { return rows_[row & (rows_.size() - 1)]; }
    Change& changeAt(std::uint64_t change) { return changes_[change & (changes_.size() - 1)]; }
    const Change& changeAt(std::uint64_t change) const { return changes_[change & (changes_.size() - 1)]; }
    std::uint64_t changesBegin(std::uint64_t row) const;
    std::uint64_t changesEnd(std::uint64_t row) const;

    // Filling.
    Change& push() {
        if (changeEnd_ - changeBegin_ == changes_.size()) [[unlikely]]
            makeRoom();
        return changeAt(changeEnd_++);
    }
    void pushHeld(Place place, Value&& value);
    // The old text of the last change is gone from its variable, which holds `now`.
    void keepDifference(const Value& now);
    void makeRoom();
    void growRows();
    void dropRow();
    void dropChanges(std::uint64_t end);
    void drop(Change& change) {
        if (change.value.isOneOf(Value::heapTypes)) [[unlikely]]
            dropHeld(change);
    }
    void dropHeld(Change& change);
    bool giveUp();

    // Walking.
    void walkTo(std::uint64_t change);
    void undo(Change& change);
    void redo(Change& change);
    void swapValue(Change& change);
    void swapPart(Change& change);
    Value& valueAt(Place place);
    const Value& valueAt(Place place) const;
    Place placeOf(std::size_t level, std::size_t place) const;
    static Place decoded(const Value& reference);
    bool hasEntered(std::size_t level) const;
    void backToPresent();

    std::size_t mostRows_;
    std::size_t mostChanges_;
    std::size_t mostHeld_;
    const std::uint64_t* outputCount_ = nullptr;

    std::vector<Row> rows_;        // a ring of a size that is a power of two, as is:
    std::vector<Change> changes_;  // by the numbers below
    std::uint64_t rowBegin_ = 0;
    std::uint64_t rowEnd_ = 0;
    std::uint64_t changeBegin_ = 0;
    std::uint64_t changeEnd_ = 0;
    std::size_t held_ = 0;  // bytes of the texts and arrays in changes, where nothing is undone
    // False when the procedure of the last row has been left: what comes then is not the row's.
    bool isOpen_ = false;
    std::uint64_t closedAt_ = 0;
    std::uint64_t lastOutput_ = 0;  // when the run was over

    std::vector<Procedure> procedures_{1};
    std::vector<std::vector<LineMark>> lines_{1};  // of the procedures

    // The moment. There are values only while one walks, and after the run.
    std::vector<Call> frames_;  // the outermost first
    std::vector<Value> registers_;
    std::vector<Value> outside_;
    Value nowhere_;
    std::uint64_t position_ = 0;  // changes from here on are undone
    std::uint64_t row_ = 0;
    bool isWalking_ = false;
    std::vector<Call> present_;
    Recorder* recorder_ = nullptr;   // while an engine fills it
    std::unique_ptr<OwnHeap> heap_;  // for arrays that are changed while walking
};

}  // namespace tolvan::script
