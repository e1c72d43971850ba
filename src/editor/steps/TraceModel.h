// A recorded run as the table that a teacher draws on the board: a row for each line that was executed, a column for
// each variable that is wanted. Cells are worked out when they are shown.
//
// Who wants to guess first sees question marks in place of values that come after a row, and uncovers one row at a
// time.
#pragma once

#include "platform/richtext/StyledText.h"
#include "runtime/host/TraceTable.h"

#include <QAbstractTableModel>

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tolvan {

class TraceModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    // So many columns are wanted at first.
    static constexpr std::size_t mostAtFirst = 12;

    // `table` gives null while there is nothing to see.
    TraceModel(std::function<TraceTable*()> table, QObject* parent);

    // Another run, of this program.
    void begin(const StyledText& program);
    // Brings rows and columns up to date.
    void refresh();

    // All variables; wanted ones have a column. By their places in TraceTable::columns().
    std::size_t variableCount() const { return wanted_.size(); }
    std::string variableTitle(std::size_t variable) const { return titles_[variable]; }  // in internal text form
    bool isWanted(std::size_t variable) const { return wanted_[variable]; }
    void setWanted(std::size_t variable, bool wanted);
    const std::vector<std::size_t>& wantedColumns() const { return shown_; }

    // What follows this recorded row is to be guessed; nothing: no guessing.
    void setGuessing(std::optional<std::uint64_t> after);
    bool isGuessing() const { return covered_.has_value(); }
    bool isCovered(std::uint64_t row) const { return covered_ && row > *covered_; }
    // Uncovers the next row; its number, or nothing where there is none yet.
    std::optional<std::uint64_t> uncover();
    // The first value that the next row changes, among the columns; without a word if it changes none, and nothing
    // where there is no such row.
    struct Guess {
        std::string word;    // of the variable
        std::string answer;  // in internal text form
    };
    std::optional<Guess> nextGuess() const;

    std::uint64_t firstRow() const { return first_; }
    std::uint64_t endRow() const { return end_; }
    std::uint64_t recordedRow(int row) const { return first_ + static_cast<std::uint64_t>(row); }

    // "Row 40 of 312", font-encoded.
    static std::string rowText(int row, int rows);

    enum Column : int { LineColumn, TextColumn, firstVariable };

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  signals:
    void variablesChanged();

  private:
    std::optional<std::uint64_t> nextCovered() const;
    struct Cell {
        std::string text;
        bool isChanged = false;
    };
    Cell cell(const QModelIndex& index) const;
    void addVariables();
    void chooseColumns();

    std::function<TraceTable*()> table_;
    std::vector<std::string> lines_;  // of the program, in internal text form
    std::vector<std::string> titles_;
    std::vector<bool> wanted_;
    std::set<std::string> unwanted_;  // titles, in all runs
    std::vector<std::size_t> shown_;  // columns of the table
    std::uint64_t first_ = 0;
    std::uint64_t end_ = 0;
    std::optional<std::uint64_t> covered_;
    mutable std::map<std::uint64_t, std::vector<TraceTable::Cell>> known_;  // rows that were shown
};

}  // namespace tolvan
