#include "editor/steps/frmTrace.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"
#include "dialogs/WindowFrame.h"
#include "editor/steps/Cells.h"
#include "editor/steps/EditorSteps.h"
#include "platform/devanagariinput/LineEditText.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/UnicodeText.h"
#include "runtime/host/InputValue.h"
#include "runtime/host/TraceText.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <set>

namespace tolvan {
namespace {

constexpr double rowHeight = 1.9;  // em
constexpr double widestText = 16;
constexpr double widestValue = 12;
constexpr double leastValue = 3;

// The head of the board, with the words in the fonts of the program.
class BoardHeader : public QHeaderView {
  public:
    explicit BoardHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
        setSectionsClickable(false);
        setFixedHeight(look::em(rowHeight + 0.2));
    }

  protected:
    void paintSection(QPainter* painter, const QRect& area, int section) const override {
        const look::Colours& colours = look::colours();
        const QByteArray title = model()->headerData(section, Qt::Horizontal, InternalTextRole).toByteArray();
        painter->fillRect(area, colours.board);
        painter->fillRect(QRect(area.right(), area.top(), 1, area.height()), colours.boardLine);
        const int rule = std::max(2, look::em(0.12));
        painter->fillRect(QRect(area.left(), area.bottom() + 1 - rule, area.width(), rule), colours.chalk);
        ControlText text = controlTextOf({title.constData(), static_cast<std::size_t>(title.size())});
        embolden(text, 0, static_cast<std::size_t>(text.text.size()));
        drawStyledLine(*painter, QRectF(area).adjusted(look::em(0.5), 0, 0, -rule), text, colours.chalk);
    }
};

// Columns in the list, in the fonts of the program.
class ColumnDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {look::em(7), look::em(1.7)};
    }
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);  // the box to tick
        const QByteArray title = index.data(InternalTextRole).toByteArray();
        const bool isChosen = (option.state & QStyle::State_Selected) != 0;
        drawStyledLine(*painter, QRectF(option.rect).adjusted(look::em(1.9), 0, 0, 0),
                       controlTextOf({title.constData(), static_cast<std::size_t>(title.size())}),
                       isChosen ? look::colours().textOnAccent : look::colours().text);
    }
};

void setLabel(QLabel& label, std::string_view codes) {
    label.setText(toQString(codes));
    label.setAccessibleName(accessible::unicode(codes));
}

}  // namespace

frmTrace::frmTrace(EditorSteps& steps, std::function<bool(const QKeyEvent&)> takesKey, QWidget* parent)
    : QWidget(parent, Qt::Window),
      steps_(steps),
      takesKey_(std::move(takesKey)),
      model_([this] { return steps_.trace(); }, this),
      tblTrace_(new QTableView(this)),
      lstColumns_(new QListWidget(this)),
      chkGuess_(new QCheckBox(look::captionText("AaxI A<daj"_deva), this)),
      lblGuess_(addLabel("lblGuess")),
      txtGuess_(new QLineEdit(this)),
      lblAnswer_(addLabel("lblAnswer")),
      cmdUncover_(addButton("cmdUncover", "%Är daov"_deva)),
      cmdCopy_(addButton("cmdCopy", "àt"_deva)),
      cmdCsv_(addButton("cmdCsv", "saQv"_deva)),
      cmdPrint_(addButton("cmdPrint", "DapŽ Ž Ž "_deva)),
      cmdPdf_(addButton("cmdPdf", "DapIl àt"_deva)),
      lblRow_(addLabel("lblRow")) {
    setObjectName(QStringLiteral("frmTrace"));
    auto* const frame = new WindowFrame(*this, WindowFrame::Kind::Resizable);
    frame->setTitle(StyledText("magaeva"_deva, Font::Devanagari));
    chkGuess_->setObjectName(QStringLiteral("chkGuess"));
    chkGuess_->setFont(look::controlFont(Font::Devanagari));
    chkGuess_->setAccessibleName(accessible::unicode("AaxI A<daj"_deva));
    cmdCsv_->setToolTip(QStringLiteral("CSV"));
    cmdPdf_->setToolTip(QStringLiteral("PDF"));
    setUpGuess();
    setUpBoard();
    setUpLayout();
    applyLook();
    resize(look::em(46), look::em(24));

    connect(&steps_, &EditorSteps::moved, this, &frmTrace::refresh);
    connect(&steps_, &EditorSteps::asked, this, &frmTrace::refresh);
    connect(&steps_, &EditorSteps::forgotten, this, &frmTrace::refresh);
    connect(&steps_, &EditorSteps::begun, this, [this] { model_.begin(steps_.programText()); });
    connect(&model_, &TraceModel::variablesChanged, this, &frmTrace::fillColumnList);
    connect(tblTrace_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &frmTrace::chose);
    connect(lstColumns_, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) {
        model_.setWanted(static_cast<std::size_t>(lstColumns_->row(item)), item->checkState() == Qt::Checked);
        fitColumns();
    });
    connect(chkGuess_, &QCheckBox::toggled, this, &frmTrace::guess);
    connect(cmdUncover_, &QPushButton::clicked, this, &frmTrace::uncover);
    connect(cmdCopy_, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(QString::fromStdString(text(false))); });
    connect(cmdCsv_, &QPushButton::clicked, this, &frmTrace::csvWanted);
    connect(cmdPrint_, &QPushButton::clicked, this, &frmTrace::printWanted);
    connect(cmdPdf_, &QPushButton::clicked, this, &frmTrace::pdfWanted);
    guess(false);
    model_.begin(steps_.programText());
    refresh();
}

frmTrace::~frmTrace() = default;

QPushButton* frmTrace::addButton(const char* name, std::string_view caption) {
    auto* const button = new QPushButton(look::captionText(caption), this);
    button->setObjectName(QLatin1String(name));
    button->setAccessibleName(accessible::unicode(caption));
    button->setFont(look::controlFont(Font::Devanagari));
    return button;
}

QLabel* frmTrace::addLabel(const char* name) {
    auto* const label = new QLabel(this);
    label->setObjectName(QLatin1String(name));
    label->setFont(look::controlFont(Font::Devanagari));
    label->setTextFormat(Qt::PlainText);
    return label;
}

// What is guessed is typed as a running program gets it.
void frmTrace::setUpGuess() {
    constexpr int longest = 200;
    txtGuess_->setObjectName(QStringLiteral("txtGuess"));
    txtGuess_->setMaxLength(longest);
    txtGuess_->setFont(look::controlFont(Font::Latin));
    new DevanagariInput(*txtGuess_, std::make_unique<LineEditText>(*txtGuess_, longest));
    lblGuess_->setBuddy(txtGuess_);
    for (QLabel* label : {lblGuess_, lblAnswer_}) label->setWordWrap(true);
    connect(txtGuess_, &QLineEdit::returnPressed, this, &frmTrace::checkGuess);
}

void frmTrace::setUpBoard() {
    tblTrace_->setObjectName(QStringLiteral("tblTrace"));
    tblTrace_->setAccessibleName(accessible::unicode("magaeva"_deva));
    tblTrace_->setHorizontalHeader(new BoardHeader(tblTrace_));
    tblTrace_->setModel(&model_);
    tblTrace_->setItemDelegate(new CellDelegate(tblTrace_, CellDelegate::Ground::Board));
    tblTrace_->verticalHeader()->hide();
    tblTrace_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    tblTrace_->verticalHeader()->setDefaultSectionSize(look::em(rowHeight));
    tblTrace_->setShowGrid(false);
    tblTrace_->setSelectionBehavior(QAbstractItemView::SelectRows);
    tblTrace_->setTabKeyNavigation(false);
    tblTrace_->setFrameShape(QFrame::NoFrame);
    tblTrace_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
}

void frmTrace::setUpLayout() {
    auto* const columns = new QLabel(toQString("rkane"_deva), this);
    columns->setFont(look::controlFont(Font::Devanagari));
    columns->setAccessibleName(accessible::unicode("rkane"_deva));
    columns->setBuddy(lstColumns_);
    lstColumns_->setObjectName(QStringLiteral("lstColumns"));
    lstColumns_->setAccessibleName(columns->accessibleName());
    lstColumns_->setItemDelegate(new ColumnDelegate(lstColumns_));
    auto* const side = new QVBoxLayout;
    side->addWidget(chkGuess_);
    for (QWidget* part : std::initializer_list<QWidget*>{lblGuess_, txtGuess_, lblAnswer_, cmdUncover_})
        side->addWidget(part);
    side->addSpacing(look::em(0.5));
    side->addWidget(columns);
    side->addWidget(lstColumns_, 1);
    lstColumns_->setFixedWidth(look::em(11));
    lstColumns_->setMinimumHeight(look::em(3));
    auto* const middle = new QHBoxLayout;
    middle->addWidget(tblTrace_, 1);
    middle->addLayout(side);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(look::em(0.5), look::em(0.5), look::em(0.5), look::em(0.3));
    layout->setSpacing(look::em(0.3));
    layout->addLayout(middle, 1);
    auto* const foot = new QHBoxLayout;
    lblRow_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    foot->addWidget(lblRow_, 1);
    for (QPushButton* button : {cmdCopy_, cmdCsv_, cmdPrint_, cmdPdf_}) foot->addWidget(button);
    layout->addLayout(foot);
    const std::initializer_list<QWidget*> order = {tblTrace_, chkGuess_, txtGuess_, cmdUncover_, lstColumns_,
                                                   cmdCopy_,  cmdCsv_,   cmdPrint_, cmdPdf_};
    for (const auto* part = order.begin(); part + 1 != order.end(); ++part) setTabOrder(part[0], part[1]);
}

// A wooden frame would be too much.
void frmTrace::applyLook() {
    const look::Colours& colours = look::colours();
    QPalette palette = tblTrace_->palette();
    palette.setColor(QPalette::Base, colours.board);
    palette.setColor(QPalette::Text, colours.chalk);
    tblTrace_->setPalette(palette);
    tblTrace_->viewport()->setPalette(palette);
    tblTrace_->setStyleSheet(
        QStringLiteral("QTableView { background: %1; color: %2; } QHeaderView { background: %1; border: none; }")
            .arg(colours.board.name(), colours.chalk.name()));
}

void frmTrace::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !isRefreshing_) {
        isRefreshing_ = true;  // the board's own palette
        applyLook();
        isRefreshing_ = false;
    }
}

// While the table is seen, runs are recorded from their first line on.
void frmTrace::showEvent(QShowEvent* event) {
    steps_.setRecordAll(true);
    QWidget::showEvent(event);
    refresh();
}

void frmTrace::hideEvent(QHideEvent* event) {
    steps_.setRecordAll(false);
    steps_.showMoment(std::nullopt);
    steps_.setConcealed(false);
    QWidget::hideEvent(event);
}

void frmTrace::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        tblTrace_->setCurrentIndex({});
    else if (!takesKey_(*event))
        QWidget::keyPressEvent(event);
}

// The newest row is seen, unless the user looks at an earlier one.
void frmTrace::refresh() {
    if (!isVisible()) return;
    const QScrollBar& bar = *tblTrace_->verticalScrollBar();
    const bool wasAtEnd = bar.value() == bar.maximum();
    const int hadRows = model_.rowCount();
    isRefreshing_ = true;
    tblTrace_->setCurrentIndex({});
    tblTrace_->clearSelection();
    model_.refresh();
    if (model_.rowCount() != hadRows) fitColumns(hadRows);
    if (wasAtEnd) tblTrace_->scrollToBottom();
    isRefreshing_ = false;
    conceal();
    askGuess();
    tell();
}

// Columns become as wide as their heads and the rows from `first` on need, and never narrower.
void frmTrace::fitColumns(int first) {
    constexpr int measured = 40;  // rows
    first = std::max({first, 0, model_.rowCount() - measured});
    for (int column = 0; column < model_.columnCount(); ++column) {
        const QByteArray title = model_.headerData(column, Qt::Horizontal, InternalTextRole).toByteArray();
        double width = first > 0 ? tblTrace_->columnWidth(column)
                                 : styledLineSize(controlTextOf(title.toStdString())).width() * 1.1 + look::em(1.2);
        for (int row = first; row < model_.rowCount(); ++row)
            width = std::max<double>(
                width, tblTrace_->itemDelegate()->sizeHint(QStyleOptionViewItem(), model_.index(row, column)).width());
        const double widest = column == TraceModel::TextColumn ? widestText : widestValue;
        const int fitting = std::clamp(qRound(width), look::em(leastValue), look::em(widest));
        if (fitting != tblTrace_->columnWidth(column)) tblTrace_->setColumnWidth(column, fitting);
    }
}

void frmTrace::fillColumnList() {
    const QSignalBlocker quiet(lstColumns_);
    lstColumns_->clear();
    for (std::size_t i = 0; i < model_.variableCount(); ++i) {
        auto* const item = new QListWidgetItem(lstColumns_);
        item->setData(InternalTextRole, QByteArray::fromStdString(model_.variableTitle(i)));
        item->setData(Qt::AccessibleTextRole, QString::fromStdString(unicodeOfInternalText(model_.variableTitle(i))));
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(model_.isWanted(i) ? Qt::Checked : Qt::Unchecked);
    }
    fitColumns();
}

void frmTrace::chose(const QModelIndex& index) {
    if (isRefreshing_) return;
    const bool mayBeSeen = index.isValid() && steps_.phase() != EditorSteps::Phase::OnTheWay &&
                           !model_.isCovered(model_.recordedRow(index.row()));
    steps_.showMoment(mayBeSeen ? std::optional(model_.recordedRow(index.row())) : std::nullopt);
    tell();
}

// From the chosen row on, or the last one.
void frmTrace::guess(bool guessing) {
    cmdUncover_->setEnabled(guessing);
    lblAnswer_->clear();
    const QModelIndex chosen = tblTrace_->currentIndex();
    const std::uint64_t last = std::max<std::uint64_t>(model_.endRow(), 1) - 1;
    model_.setGuessing(!guessing          ? std::nullopt
                       : chosen.isValid() ? std::optional(model_.recordedRow(chosen.row()))
                                          : std::optional(last));
    conceal();
    askGuess();
    if (guessing && txtGuess_->isEnabled()) txtGuess_->setFocus();
}

void frmTrace::askGuess() {
    const std::optional<TraceModel::Guess> guess = model_.nextGuess();
    for (QWidget* part : std::initializer_list<QWidget*>{lblGuess_, txtGuess_, lblAnswer_})
        part->setVisible(model_.isGuessing());
    txtGuess_->setEnabled(guess && !guess->word.empty());
    const std::string question = !guess                ? std::string("puFe @khI Aae¦ nahI"_deva)
                                 : guess->word.empty() ? std::string("ya Aae¦It ik<mt bdlt nahI"_deva)
                                                       : std::string("puFcI ik<mt "_deva) + guess->word;
    setLabel(*lblGuess_, question);
    txtGuess_->setAccessibleName(lblGuess_->accessibleName());
    stayOnScreen();
}

// The fields for a guess can make the window higher than the room below it.
void frmTrace::stayOnScreen() {
    if (!isVisible() || !model_.isGuessing()) return;
    layout()->activate();
    const QRect room = screen()->availableGeometry();
    const int beyond = std::min(geometry().bottom() - room.bottom(), y() - room.top());
    if (beyond > 0) move(x(), y() - beyond);
}

// Blanks do not count.
void frmTrace::checkGuess() {
    const auto plain = [](std::string_view internalText) {
        std::string text = unicodeOfInternalText(internalText);
        std::erase(text, ' ');
        return text;
    };
    const std::optional<TraceModel::Guess> guess = model_.nextGuess();
    if (!guess || txtGuess_->text().trimmed().isEmpty()) return;
    const bool isRight = plain(inputValue(toFontEncoded(txtGuess_->text()))) == plain(guess->answer);
    setLabel(*lblAnswer_, isRight ? "AgdI braebr"_deva : "%Är veg¦e Aahe"_deva);
    txtGuess_->setAccessibleDescription(lblAnswer_->accessibleName());
    txtGuess_->clear();
    uncover();
    if (txtGuess_->isEnabled()) txtGuess_->setFocus();
}

void frmTrace::uncover() {
    const std::optional<std::uint64_t> row = model_.uncover();
    conceal();
    askGuess();
    if (!row) return;
    const QModelIndex index = model_.index(static_cast<int>(*row - model_.firstRow()), 0);
    tblTrace_->scrollTo(index);
    tblTrace_->setCurrentIndex(index);
}

// The table of values would tell what is to be guessed.
void frmTrace::conceal() {
    steps_.setConcealed(model_.isGuessing() && model_.endRow() > 0 && model_.isCovered(model_.endRow() - 1));
}

void frmTrace::tell() {
    const QModelIndex chosen = tblTrace_->currentIndex();
    const int rows = model_.rowCount();
    std::string text = std::string("Aae¦I "_deva) + std::to_string(rows);
    if (chosen.isValid()) text = TraceModel::rowText(chosen.row(), rows);
    if (rows == 0) text = "AjUn @khI Aae¦ callI nahI"_deva;
    if (model_.firstRow() > 0) text.append("   ").append("suévatICya Aae¦I QevleLya nahIt"_deva);
    setLabel(*lblRow_, text);
}

std::string frmTrace::text(bool asCsv) const {
    TraceTable* const table = steps_.trace();
    if (table == nullptr) return {};
    const TraceText lines(*table, steps_.programText(),
                          asCsv ? TraceText::Form::SpreadsheetCsv : TraceText::Form::Tabs);
    std::string text = lines.head(model_.wantedColumns()) + '\n';
    std::set<int> chosen;
    for (const QModelIndex& index : tblTrace_->selectionModel()->selectedRows()) chosen.insert(index.row());
    const bool isPart = chosen.size() > 1 && !asCsv;
    for (int row = 0; row < model_.rowCount(); ++row)
        if ((!isPart || chosen.contains(row)) && !model_.isCovered(model_.recordedRow(row)))
            text += lines.row(model_.recordedRow(row), model_.wantedColumns()) + '\n';
    return text;
}

TableSheet frmTrace::sheet(const StyledText& caption) const {
    TableSheet sheet{caption, {}, {}};
    for (int column = 0; column < model_.columnCount(); ++column)
        sheet.head.push_back(lineOfInternalText(
            model_.headerData(column, Qt::Horizontal, InternalTextRole).toByteArray().toStdString()));
    for (int row = 0; row < model_.rowCount(); ++row) {
        if (model_.isCovered(model_.recordedRow(row))) break;
        auto& cells = sheet.rows.emplace_back();
        for (int column = 0; column < model_.columnCount(); ++column) {
            const QModelIndex index = model_.index(row, column);
            cells.push_back({lineOfInternalText(index.data(InternalTextRole).toByteArray().toStdString()),
                             index.data(ChangedRole).toBool()});
        }
    }
    return sheet;
}

}  // namespace tolvan
