// A recorded run as a table, the one that a teacher draws on the board: rows are the lines of the program that were
// executed, columns its variables. Without windows. Cells are worked out only for the rows that are asked for.
//
// What is read is the recording: while the program stands still, and after it has ended.
#pragma once

#include "library/AddLibrary.h"
#include "platform/script/Recording.h"
#include "runtime/host/ValueTable.h"
#include "runtime/host/ValueText.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tolvan {

class TraceTable {
  public:
    // Both must outlive the table.
    TraceTable(script::Recording& recording, const RunnableProgram& program)
        : recording_(recording), program_(program) {}

    struct Column {
        std::string word;      // of the variable, in font codes
        std::string function;  // that it belongs to; empty: the main program
        std::size_t procedure;
        std::size_t place;

        // "word", or "function: word".
        std::string unicodeTitle() const;
        std::string internalTitle() const;
    };
    // The main program's first, then those of functions, in the order in which they were called first. When a function
    // is called for the first time there are more of them at the end. What the program has no word for, as the count of
    // a loop without a name, is left out.
    const std::vector<Column>& columns();

    // Rows are numbered from 0, the first that was recorded; those before firstRow are gone.
    std::uint64_t firstRow() const { return recording_.firstRow(); }
    std::uint64_t endRow() const { return recording_.endRow(); }
    bool isBeginningGone() const { return recording_.isBeginningGone(); }
    // From 1, with blank lines.
    int programLine(std::uint64_t row) const { return program_.lines.programLine(recording_.line(row)); }
    // 1 in the main program.
    std::size_t depth(std::uint64_t row) const { return recording_.depth(row); }
    // How many calls of the console had been made when the row was over; see ConsoleObject::callCount.
    std::uint64_t callsAfter(std::uint64_t row) const { return recording_.outputAfter(row); }

    struct Cell {
        std::string text;  // after the row, in internal text form; empty where the variable's function was not active
        bool isChanged = false;  // by the row
    };
    // `columns`: by their places in columns().
    std::vector<Cell> cells(std::uint64_t row, std::span<const std::size_t> columns);

    // The elements of an array from `first` on, as many as `most`, in the order of their numbers. None where there is
    // no array.
    std::vector<ValueTable::Element> elements(std::uint64_t row, std::size_t column, std::size_t first,
                                              std::size_t most);
    // All variables of the procedures that were active after the row, as one who looked then would have seen them:
    // those of the function first; and which columns they are.
    struct Moment {
        std::vector<ValueTable::Row> values;
        std::vector<std::size_t> columns;
    };
    Moment moment(std::uint64_t row);
    std::size_t elementCount(std::uint64_t row, std::size_t column);

  private:
    const script::Value* find(std::uint64_t row, const Column& column, std::size_t& level);

    script::Recording& recording_;
    const RunnableProgram& program_;
    ValueText text_;
    std::vector<Column> columns_;
    std::size_t knownProcedures_ = 0;
};

}  // namespace tolvan
