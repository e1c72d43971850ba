#include "editor/steps/frmScript.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"
#include "dialogs/WindowFrame.h"
#include "editor/steps/Cells.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/InternalText.h"
#include "platform/richtext/UnicodeText.h"
#include "runtime/host/TraceText.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTableView>

#include <algorithm>

namespace tolvan {
namespace {

constexpr std::string_view titles[] = {"Aae¦"_deva, "àayaejn"_deva, "iS³Pq"_deva};

}  // namespace

void ScriptModel::show(std::vector<ScriptLine> lines, const StyledText& program) {
    beginResetModel();
    lines_ = std::move(lines);
    program_.clear();
    for (const StyledView line : trimmedLines(program)) program_.push_back(RomanMark(line));
    endResetModel();
}

void ScriptModel::setStepLine(int line) {
    if (std::exchange(stepLine_, line) == line || lines_.empty()) return;
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnTotal - 1));
}

int ScriptModel::rowOf(int programLine) const {
    const auto found = std::find_if(lines_.begin(), lines_.end(),
                                    [&](const ScriptLine& line) { return line.programLine == programLine; });
    return found == lines_.end() || programLine == 0 ? -1 : static_cast<int>(found - lines_.begin());
}

int ScriptModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

int ScriptModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columnTotal;
}

// A line of the program stands beside the first of its script.
std::string ScriptModel::text(const QModelIndex& index) const {
    const auto row = static_cast<std::size_t>(index.row());
    const ScriptLine& line = lines_[row];
    if (index.column() == ScriptColumn) return line.text;
    const auto number = static_cast<std::size_t>(line.programLine);
    if (number == 0 || number > program_.size() || rowOf(line.programLine) != index.row()) return {};
    return index.column() == LineColumn ? std::to_string(number) : program_[number - 1];
}

QVariant ScriptModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return QString::fromStdString(unicodeOfInternalText(text(index)));
    if (role == InternalTextRole) return QByteArray::fromStdString(text(index));
    if (role == ChangedRole) return stepLine_ > 0 && programLine(index.row()) == stepLine_;
    if (role == DimRole) return index.column() == LineColumn;
    return {};
}

QVariant ScriptModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::DisplayRole) return toQString(titles[section]);
    if (role == Qt::AccessibleTextRole) return accessible::unicode(titles[section]);
    if (role == Qt::FontRole) return look::controlFont(Font::Devanagari);
    return {};
}

frmScript::frmScript(std::function<bool(const QKeyEvent&)> takesKey, QWidget* parent)
    : QWidget(parent, Qt::Window),
      takesKey_(std::move(takesKey)),
      tblScript_(new QTableView(this)),
      chkAsItIs_(new QCheckBox(look::captionText("jzICya tzI"_deva), this)) {
    setObjectName(QStringLiteral("frmScript"));
    auto* const frame = new WindowFrame(*this, WindowFrame::Kind::Resizable);
    frame->setTitle(StyledText("àayaejnacI iS³Pq"_deva, Font::Devanagari));
    tblScript_->setObjectName(QStringLiteral("tblScript"));
    tblScript_->setAccessibleName(accessible::unicode("àayaejnacI iS³Pq"_deva));
    tblScript_->setModel(&model_);
    tblScript_->setItemDelegate(new CellDelegate(tblScript_, CellDelegate::Ground::Paper));
    tblScript_->verticalHeader()->hide();
    tblScript_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    tblScript_->verticalHeader()->setDefaultSectionSize(look::em(1.8));
    tblScript_->setShowGrid(false);
    tblScript_->setSelectionBehavior(QAbstractItemView::SelectRows);
    tblScript_->setSelectionMode(QAbstractItemView::SingleSelection);
    tblScript_->setTabKeyNavigation(false);
    tblScript_->setFrameShape(QFrame::NoFrame);
    QHeaderView& header = *tblScript_->horizontalHeader();
    header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header.setHighlightSections(false);
    header.setStretchLastSection(true);
    header.resizeSection(ScriptModel::LineColumn, look::em(3));
    header.resizeSection(ScriptModel::ProgramColumn, look::em(20));
    chkAsItIs_->setObjectName(QStringLiteral("chkAsItIs"));
    chkAsItIs_->setFont(look::controlFont(Font::Devanagari));
    chkAsItIs_->setAccessibleName(accessible::unicode("jzICya tzI"_deva));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(look::em(0.5), look::em(0.3), look::em(0.5), look::em(0.3));
    layout->addWidget(tblScript_, 1);
    layout->addWidget(chkAsItIs_);
    resize(look::em(46), look::em(26));
    connect(chkAsItIs_, &QCheckBox::toggled, this, &frmScript::fill);
    connect(tblScript_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& index) {
                if (!isFollowing_ && index.isValid() && model_.programLine(index.row()) > 0)
                    emit lineChosen(model_.programLine(index.row()));
            });
}

void frmScript::show(RunnableProgram program, const StyledText& text) {
    program_ = std::move(program);
    text_ = text;
    fill();
}

void frmScript::fill() {
    isFollowing_ = true;
    const int row = tblScript_->currentIndex().row();
    model_.show(scriptLines(program_, chkAsItIs_->isChecked() ? ScriptForm::AsItIs : ScriptForm::ToRead), text_);
    if (row >= 0) tblScript_->setCurrentIndex(model_.index(std::min(row, model_.rowCount() - 1), 0));
    isFollowing_ = false;
}

void frmScript::showLine(int programLine) {
    const QModelIndex now = tblScript_->currentIndex();
    const int row = model_.rowOf(programLine);
    if (row < 0 || (now.isValid() && model_.programLine(now.row()) == programLine)) return;
    isFollowing_ = true;
    tblScript_->setCurrentIndex(model_.index(row, 0));
    isFollowing_ = false;
}

void frmScript::keyPressEvent(QKeyEvent* event) {
    if (!takesKey_(*event)) QWidget::keyPressEvent(event);
}

}  // namespace tolvan
