#include "editor/steps/TraceModel.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"
#include "editor/steps/Cells.h"
#include "platform/encoding/Deva.h"
#include "platform/richtext/InternalText.h"
#include "platform/richtext/UnicodeText.h"
#include "runtime/host/TraceText.h"

#include <algorithm>
#include <utility>

namespace tolvan {
namespace {

constexpr std::string_view lineTitle = "Aae¦"_deva;
constexpr std::string_view textTitle = "vaKy"_deva;
constexpr std::string_view changedText = "bdlle"_deva;
constexpr std::string_view coveredCell = "{?}";
constexpr std::size_t mostKnown = 500;  // rows

}  // namespace

std::string TraceModel::rowText(int row, int rows) {
    return std::to_string(rows) + std::string(" pEkI ra<g "_deva) + std::to_string(row + 1);
}

TraceModel::TraceModel(std::function<TraceTable*()> table, QObject* parent)
    : QAbstractTableModel(parent), table_(std::move(table)) {}

void TraceModel::begin(const StyledText& program) {
    beginResetModel();
    lines_.clear();
    for (const StyledView line : trimmedLines(program)) lines_.push_back(RomanMark(line));
    titles_.clear();
    wanted_.clear();
    shown_.clear();
    known_.clear();
    first_ = end_ = 0;
    if (covered_) covered_ = 0;
    endResetModel();
    emit variablesChanged();
}

void TraceModel::refresh() {
    TraceTable* const table = table_();
    if (table == nullptr) {
        if (end_ != first_) begin({});
        return;
    }
    addVariables();
    const std::uint64_t first = table->firstRow();
    const std::uint64_t end = table->endRow();
    known_.erase(end_ == 0 ? 0 : end_ - 1);  // the last row may have gone on
    if (first != first_ || end < end_) {
        beginResetModel();
        known_.erase(known_.begin(), known_.lower_bound(first));
        first_ = first;
        end_ = end;
        return endResetModel();
    }
    if (end_ > first_) emit dataChanged(index(rowCount() - 1, 0), index(rowCount() - 1, columnCount() - 1));
    if (end == end_) return;
    beginInsertRows({}, rowCount(), static_cast<int>(end - first) - 1);
    end_ = end;
    endInsertRows();
}

// Variables of functions come when these are called first.
void TraceModel::addVariables() {
    const std::vector<TraceTable::Column>& all = table_()->columns();
    if (all.size() == titles_.size()) return;
    for (std::size_t i = titles_.size(); i < all.size(); ++i) {
        titles_.push_back(all[i].internalTitle());
        const auto wanted = static_cast<std::size_t>(std::count(wanted_.begin(), wanted_.end(), true));
        wanted_.push_back(wanted < mostAtFirst && !unwanted_.contains(titles_.back()));
    }
    chooseColumns();
    emit variablesChanged();
}

void TraceModel::setWanted(std::size_t variable, bool wanted) {
    if (variable >= wanted_.size() || wanted_[variable] == wanted) return;
    wanted_[variable] = wanted;
    if (wanted)
        unwanted_.erase(titles_[variable]);
    else
        unwanted_.insert(titles_[variable]);
    chooseColumns();
}

void TraceModel::chooseColumns() {
    beginResetModel();
    shown_.clear();
    for (std::size_t i = 0; i < wanted_.size(); ++i)
        if (wanted_[i]) shown_.push_back(i);
    known_.clear();
    endResetModel();
}

void TraceModel::setGuessing(std::optional<std::uint64_t> after) {
    covered_ = after;
    if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

std::optional<std::uint64_t> TraceModel::nextCovered() const {
    if (!covered_ || std::max(*covered_ + 1, first_) >= end_) return std::nullopt;
    return std::max(*covered_ + 1, first_);
}

std::optional<TraceModel::Guess> TraceModel::nextGuess() const {
    TraceTable* const table = table_();
    const std::optional<std::uint64_t> row = nextCovered();
    if (!row || table == nullptr) return std::nullopt;
    const std::vector<TraceTable::Cell> cells = table->cells(*row, shown_);
    const auto changed =
        std::find_if(cells.begin(), cells.end(), [](const TraceTable::Cell& cell) { return cell.isChanged; });
    if (changed == cells.end()) return Guess{};
    const std::size_t column = shown_[static_cast<std::size_t>(changed - cells.begin())];
    return Guess{table->columns()[column].word, changed->text};
}

std::optional<std::uint64_t> TraceModel::uncover() {
    const std::optional<std::uint64_t> next = nextCovered();
    if (!next) return std::nullopt;
    covered_ = next;
    const int row = static_cast<int>(*next - first_);
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
    return next;
}

int TraceModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(end_ - first_);
}

int TraceModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : firstVariable + static_cast<int>(shown_.size());
}

TraceModel::Cell TraceModel::cell(const QModelIndex& index) const {
    const std::uint64_t row = recordedRow(index.row());
    TraceTable* const table = table_();
    if (table == nullptr || row < table->firstRow() || row >= table->endRow()) return {};
    if (index.column() < firstVariable) {
        const auto line = static_cast<std::size_t>(table->programLine(row));
        if (index.column() == LineColumn) return {std::to_string(line)};
        return {line >= 1 && line <= lines_.size() ? lines_[line - 1] : std::string()};
    }
    if (isCovered(row)) return {std::string(coveredCell)};
    if (known_.size() > mostKnown) known_.clear();
    const auto [known, isNew] = known_.try_emplace(row);
    if (isNew) known->second = table->cells(row, shown_);
    const TraceTable::Cell& value = known->second[static_cast<std::size_t>(index.column() - firstVariable)];
    return {value.text, value.isChanged};
}

QVariant TraceModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    switch (role) {
        case Qt::DisplayRole:
        case Qt::ToolTipRole:
            return QString::fromStdString(unicodeOfInternalText(cell(index).text));
        case Qt::AccessibleTextRole: {
            const Cell shown = cell(index);
            const QString text = QString::fromStdString(unicodeOfInternalText(shown.text));
            return shown.isChanged ? text + QStringLiteral(", ") + accessible::unicode(changedText) : text;
        }
        case Qt::AccessibleDescriptionRole:
            return accessible::unicode(rowText(index.row(), rowCount()));
        case InternalTextRole:
            return QByteArray::fromStdString(cell(index).text);
        case ChangedRole:
            return cell(index).isChanged;
        case DimRole:
            return index.column() < firstVariable;
        default:
            return {};
    }
}

QVariant TraceModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    const auto place = static_cast<std::size_t>(section) - firstVariable;
    const std::string title = section == LineColumn   ? std::string(lineTitle)
                              : section == TextColumn ? std::string(textTitle)
                              : place < shown_.size() ? titles_[shown_[place]]
                                                      : std::string();
    if (role == InternalTextRole) return QByteArray::fromStdString(title);
    if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole)
        return QString::fromStdString(unicodeOfInternalText(title));
    return {};
}

}  // namespace tolvan
