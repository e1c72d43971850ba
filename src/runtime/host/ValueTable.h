// The variables of a program that stands still, as a table: names, kinds and values as the program would print them,
// and what has changed since one looked last. Without windows.
//
// Only while the program asks its console something (Executor::inspect). Nothing of the program is held in between.
#pragma once

#include "library/AddLibrary.h"
#include "platform/script/Executor.h"
#include "runtime/host/ValueText.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tolvan {

class ValueTable {
  public:
    // Both must outlive the table.
    ValueTable(script::Executor& executor, const RunnableProgram& program) : executor_(executor), program_(program) {}

    enum class Kind : std::uint8_t { NoValue, Number, Text, Truth, Date, Array, Other };
    struct Row {
        std::string word;      // of the variable, in font codes
        std::string function;  // that it belongs to; empty: the main program
        Kind kind = Kind::NoValue;
        std::string text;  // in internal text form; of an array its first elements
        bool isChanged = false;
        std::size_t elements = 0;  // of an array
        std::size_t level = 0;     // as Inspection counts: 0 is the innermost
        std::size_t depth = 0;     // of its procedure; 1 is the main program
    };
    // Those of the innermost procedure first; of a deep recursion only so many of these, and the main program. What has
    // changed is told against the last call. What the program has no word for is left out, as in TraceTable.
    const std::vector<Row>& read(std::size_t mostLevels = SIZE_MAX);

    struct Element {
        std::vector<std::uint32_t> indexes;
        Kind kind = Kind::NoValue;
        std::string text;
        bool isChanged = false;  // not told of the present
    };
    static Kind kindOf(const script::Value& value);
    // Elements of an array among the rows that were read last, from number `first` on.
    std::vector<Element> elements(std::size_t row, std::size_t first, std::size_t most) const;

    // Gives a variable, or an element of an array, what was typed in Roman letters, as the word for input does: a text.
    // False if it is not there or the whole of an array.
    bool assign(std::size_t row, std::span<const std::uint32_t> indexes, std::string_view roman);

    // The text of a variable by its word, in a function or (empty) in the main program: of its innermost call. Empty if
    // there is none.
    std::string textOf(std::string_view word, std::string_view function);

    // Before another run: nothing has changed in it yet.
    void forget() { last_.clear(); }

  private:
    script::Executor& executor_;
    const RunnableProgram& program_;
    mutable ValueText text_;
    std::vector<Row> rows_;
    std::vector<std::string> names_;  // of the rows, in the script
    std::map<std::pair<std::size_t, std::string>, std::pair<std::string, std::size_t>> last_;  // by depth and name
};

}  // namespace tolvan
