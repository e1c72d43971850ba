#include "editor/steps/ValueModel.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"
#include "editor/steps/Cells.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/UnicodeText.h"

#include <algorithm>
#include <utility>

namespace tolvan {
namespace {

constexpr std::size_t pageSize = 64;  // elements
constexpr std::string_view titles[] = {"nav"_deva, "àkar"_deva, "ik<mt"_deva};
constexpr std::string_view changedText = "bdlle"_deva;
// By ValueTable::Kind.
constexpr std::string_view kinds[] = {"AjUn ik<mt nahI"_deva, "s<Oya"_deva, "mjkªr"_deva, "ore oaeqe"_deva,
                                      "tarIo"_deva,           "yadI"_deva,  "#tr"_deva};

bool haveSameShape(const std::vector<ValueTable::Row>& some, const std::vector<ValueTable::Row>& others) {
    return std::equal(some.begin(), some.end(), others.begin(), others.end(), [](const auto& one, const auto& other) {
        return one.word == other.word && one.function == other.function && one.elements == other.elements;
    });
}

}  // namespace

void ValueModel::show(std::vector<ValueTable::Row> rows, Source source) {
    pages_.clear();
    source_ = std::move(source);
    if (!haveSameShape(rows_, rows)) {
        beginResetModel();
        rows_ = std::move(rows);
        return endResetModel();
    }
    std::swap(rows_, rows);
    for (int row = 0; row < rowCount(); ++row) {
        const ValueTable::Row& before = rows[static_cast<std::size_t>(row)];
        const ValueTable::Row& now = rows_[static_cast<std::size_t>(row)];
        if (now.isChanged || now.isChanged != before.isChanged || now.text != before.text || now.kind != before.kind)
            tellChange(row);
    }
}

// With the elements of an array.
void ValueModel::tellChange(int row) {
    const QModelIndex name = index(row, 0);
    emit dataChanged(name, index(row, ValueColumn));
    if (const int elements = rowCount(name); elements > 0)
        emit dataChanged(index(0, 0, name), index(elements - 1, ValueColumn, name));
}

void ValueModel::setConcealed(bool concealed) {
    if (std::exchange(isConcealed_, concealed) == concealed) return;
    for (int row = 0; row < rowCount(); ++row) tellChange(row);
}

// The internal number of an element's index is its row's, from 1.
QModelIndex ValueModel::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent)) return {};
    return createIndex(row, column, static_cast<quintptr>(parent.isValid() ? parent.row() + 1 : 0));
}

QModelIndex ValueModel::parent(const QModelIndex& index) const {
    if (!index.isValid() || !isElement(index)) return {};
    return createIndex(static_cast<int>(index.internalId()) - 1, 0, quintptr{0});
}

int ValueModel::rowCount(const QModelIndex& parent) const {
    if (!parent.isValid()) return static_cast<int>(rows_.size());
    if (isElement(parent) || parent.column() != 0) return 0;
    constexpr std::size_t most = 1'000'000;
    return static_cast<int>(std::min(rows_[static_cast<std::size_t>(parent.row())].elements, most));
}

int ValueModel::columnCount(const QModelIndex&) const {
    return columnTotal;
}

const ValueTable::Element* ValueModel::element(std::size_t row, std::size_t number) const {
    const auto [page, isNew] = pages_.try_emplace({row, number / pageSize});
    if (isNew && source_.elements) page->second = source_.elements(row, number / pageSize * pageSize, pageSize);
    const std::size_t place = number % pageSize;
    return place < page->second.size() ? &page->second[place] : nullptr;
}

// A function's own names stand after its name; where it is active several times, after the number of the call.
std::string ValueModel::nameOf(const ValueTable::Row& row) const {
    if (row.function.empty()) return row.word;
    const bool isRepeated = std::any_of(rows_.begin(), rows_.end(), [&row](const ValueTable::Row& other) {
        return other.function == row.function && other.depth != row.depth;
    });
    return row.function + (isRepeated ? "{ (}" + std::to_string(row.depth - 1) + "{)}" : "") + "{: }" + row.word;
}

ValueModel::Cell ValueModel::rowCell(const ValueTable::Row& row, int column) const {
    if (column == NameColumn) return {nameOf(row), false, row.level > 0};
    if (column == KindColumn) return {std::string(kinds[static_cast<std::size_t>(row.kind)]), false, true};
    return {isConcealed_ ? "{?}" : row.text, row.isChanged && !isConcealed_, false};
}

ValueModel::Cell ValueModel::cell(const QModelIndex& index) const {
    if (!isElement(index)) return rowCell(rows_[static_cast<std::size_t>(index.row())], index.column());
    const ValueTable::Element* const found =
        element(static_cast<std::size_t>(index.internalId()) - 1, static_cast<std::size_t>(index.row()));
    if (found == nullptr) return {};
    if (index.column() == KindColumn) return {std::string(kinds[static_cast<std::size_t>(found->kind)]), false, true};
    if (index.column() == ValueColumn)
        return {isConcealed_ ? "{?}" : found->text, found->isChanged && !isConcealed_, false};
    std::string name = "{(}";
    for (const std::uint32_t number : found->indexes)
        name.append(name.size() > 3 ? "{, }" : "").append(std::to_string(number));
    return {name + "{)}", false, true};
}

QVariant ValueModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const Cell shown = cell(index);
    switch (role) {
        case Qt::DisplayRole:
            return QString::fromStdString(unicodeOfInternalText(shown.text));
        case Qt::AccessibleTextRole: {
            const QString text = QString::fromStdString(unicodeOfInternalText(shown.text));
            return shown.isChanged ? text + QStringLiteral(", ") + accessible::unicode(changedText) : text;
        }
        case Qt::ToolTipRole:
            return QString::fromStdString(unicodeOfInternalText(shown.text)).toHtmlEscaped();
        case InternalTextRole:
            return QByteArray::fromStdString(shown.text);
        case ChangedRole:
            return shown.isChanged;
        case DimRole:
            return shown.isDim;
        default:
            return {};
    }
}

QVariant ValueModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    const std::string_view title = titles[section];
    if (role == Qt::DisplayRole) return toQString(title);
    if (role == Qt::AccessibleTextRole) return accessible::unicode(title);
    if (role == Qt::FontRole) return look::controlFont(Font::Devanagari);
    return {};
}

Qt::ItemFlags ValueModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    if (!index.isValid() || index.column() != ValueColumn || !source_.assign || isConcealed_) return flags;
    const bool isArray = !isElement(index) && rows_[static_cast<std::size_t>(index.row())].elements > 0;
    const bool isObject =
        !isElement(index) && rows_[static_cast<std::size_t>(index.row())].kind == ValueTable::Kind::Other;
    return isArray || isObject ? flags : flags | Qt::ItemIsEditable;
}

bool ValueModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !index.isValid() || !source_.assign) return false;
    std::vector<std::uint32_t> indexes;
    auto row = static_cast<std::size_t>(index.row());
    if (isElement(index)) {
        const std::size_t number = std::exchange(row, static_cast<std::size_t>(index.internalId()) - 1);
        const ValueTable::Element* const found = element(row, number);
        if (found == nullptr) return false;
        indexes = found->indexes;
    }
    if (!source_.assign(row, indexes, toFontEncoded(value.toString()))) return false;
    emit assigned();
    return true;
}

}  // namespace tolvan
