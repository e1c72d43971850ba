// The variables of a program as a model: a row for each, with its word, kind and value, and under an array its
// elements, which are only asked for when they are shown.
#pragma once

#include "runtime/host/ValueTable.h"

#include <QAbstractItemModel>

#include <cstddef>
#include <functional>
#include <map>
#include <vector>

namespace tolvan {

class ValueModel : public QAbstractItemModel {
    Q_OBJECT
  public:
    using QAbstractItemModel::QAbstractItemModel;

    enum Column : int { NameColumn, KindColumn, ValueColumn, columnTotal };

    // Where values come from, besides the rows. Rows are named by their number.
    struct Source {
        std::function<std::vector<ValueTable::Element>(std::size_t row, std::size_t first, std::size_t most)> elements;
        // Null: nothing can be changed.
        std::function<bool(std::size_t row, const std::vector<std::uint32_t>& indexes, std::string_view roman)> assign;
    };
    // Another moment. What is unfolded stays so where the variables are the same.
    void show(std::vector<ValueTable::Row> rows, Source source);
    // Values are shown as question marks, until it is called again with false.
    void setConcealed(bool concealed);

    bool isConcealed() const { return isConcealed_; }

    const std::vector<ValueTable::Row>& rows() const { return rows_; }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    // Qt::EditRole: what is typed, in Roman letters, as toQString makes it of bytes.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  signals:
    void assigned();

  private:
    struct Cell {
        std::string text;  // in internal text form
        bool isChanged = false;
        bool isDim = false;
    };
    Cell cell(const QModelIndex& index) const;
    Cell rowCell(const ValueTable::Row& row, int column) const;
    const ValueTable::Element* element(std::size_t row, std::size_t number) const;
    void tellChange(int row);
    bool isElement(const QModelIndex& index) const { return index.internalId() != 0; }
    std::string nameOf(const ValueTable::Row& row) const;

    std::vector<ValueTable::Row> rows_;
    Source source_;
    bool isConcealed_ = false;
    // Pages of elements, by row and number of the page; forgotten with each moment.
    mutable std::map<std::pair<std::size_t, std::size_t>, std::vector<ValueTable::Element>> pages_;
};

}  // namespace tolvan
