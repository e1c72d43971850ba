#include "editor/guide/ProblemPanel.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"
#include "editor/panes/LineMarkShape.h"
#include "guide/HelpTopics.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/UnicodeText.h"
#include "platform/transliteration/ReplaceRomanChars.h"

#include <QBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QStyledItemDelegate>

#include <algorithm>

namespace tolvan {
namespace {

constexpr int mostRows = 4;
constexpr std::string_view titleText = "Afc[I"_deva;
constexpr std::string_view mendText = "ÊéSt kr"_deva;
constexpr std::string_view lineText = "Aae¦ "_deva;
constexpr int errorRole = Qt::UserRole + 1;

// A row: the mark, and the text in its fonts. Rows without a mark go on with the one above.
class SentenceDelegate : public QStyledItemDelegate {
  public:
    SentenceDelegate(QObject* parent, const std::vector<ControlText>& texts)
        : QStyledItemDelegate(parent), texts_(texts) {}

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override { return {1, look::em(1.7)}; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const bool chosen = (option.state & QStyle::State_Selected) != 0;
        if (chosen) painter->fillRect(option.rect, look::colours().accentLight);
        const QRectF row = option.rect;
        const qreal height = row.height();
        const QVariant isError = index.data(errorRole);
        if (isError.isValid()) drawLineMark(*painter, QRectF(row.left(), row.top(), height, height), isError.toBool());
        const auto number = static_cast<std::size_t>(index.row());
        if (number >= texts_.size()) return;
        drawStyledLine(*painter, row.adjusted(height, 0, -look::em(0.4), 0), texts_[number], look::colours().text);
    }

  private:
    const std::vector<ControlText>& texts_;
};

StyledText withLine(std::size_t line, const StyledText& text) {
    StyledText row;
    if (line > 0) {
        row.append(StyledText(std::string(lineText) + std::to_string(line), Font::Devanagari));
        row.append(": ", Font::Latin);
    }
    row.append(text);
    return row;
}

void setCaption(QPushButton& button, const QString& shown) {
    button.setText(shown);
    button.setAccessibleName(accessible::unicode(shown));
}

StyledText headOf(const guide::RunFailure& failure) {
    StyledText text(failure.message);
    if (failure.sentence.empty()) return text;
    text.append(": ", Font::Latin);
    text.append(failure.sentence);
    return text;
}

}  // namespace

ProblemPanel::ProblemPanel(QWidget* parent)
    : QWidget(parent),
      lstProblems_(new QListWidget(this)),
      cmdMend_(addButton("cmdMend", 0)),
      cmdMendOther_(addButton("cmdMendOther", 1)) {
    setObjectName(QStringLiteral("ProblemPanel"));
    lstProblems_->setObjectName(QStringLiteral("lstProblems"));
    lstProblems_->setItemDelegate(new SentenceDelegate(lstProblems_, rows_));
    lstProblems_->setFocusPolicy(Qt::ClickFocus);
    lstProblems_->setFrameShape(QFrame::NoFrame);
    lstProblems_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstProblems_->setAccessibleName(accessible::unicode(titleText));
    cmdMend_->setToolTip(QStringLiteral("Alt+Enter"));
    auto* const title = new QLabel(toQString(titleText), this);
    title->setObjectName(QStringLiteral("lblProblems"));
    title->setTextFormat(Qt::PlainText);
    title->setAccessibleName(accessible::unicode(titleText));
    title->setFont(look::controlFont(Font::Devanagari));
    auto* const side = new QVBoxLayout;
    side->addWidget(title);
    side->addWidget(cmdMend_);
    side->addWidget(cmdMendOther_);
    side->addStretch();
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(look::em(0.5), look::em(0.3), look::em(0.5), look::em(0.3));
    layout->addLayout(side);
    layout->addWidget(lstProblems_, 1);
    connect(lstProblems_, &QListWidget::itemClicked, this, [this] { chose(lstProblems_->currentRow()); });
    connect(lstProblems_, &QListWidget::itemActivated, this, [this] { chose(lstProblems_->currentRow()); });
    connect(lstProblems_, &QListWidget::currentRowChanged, this, &ProblemPanel::showButtons);
    setTabOrder(cmdMend_, cmdMendOther_);
    setTabOrder(cmdMendOther_, lstProblems_);
    fill();
}

QPushButton* ProblemPanel::addButton(const char* name, std::size_t correction) {
    auto* const button = new QPushButton(this);
    button->setObjectName(QLatin1String(name));
    button->setFont(look::controlFont(Font::Devanagari));
    button->setFocusPolicy(Qt::TabFocus);
    setCaption(*button, look::captionText(mendText));
    connect(button, &QPushButton::clicked, this, [this, correction] { emit correctionWanted(correction); });
    return button;
}

void ProblemPanel::setFindings(const std::vector<guide::Finding>& findings) {
    const guide::Finding* before = current();
    const std::size_t line = before == nullptr ? 0 : before->line;
    const std::string_view kind = before == nullptr ? std::string_view() : before->kind;
    findings_ = findings;
    fill();
    const guide::Finding* after = current();
    isAtChosen_ = isAtChosen_ && (failure_ || (after != nullptr && after->line == line && after->kind == kind));
}

void ProblemPanel::setRunFailure(const std::optional<guide::RunFailure>& failure) {
    if (!failure_ && !failure) return;
    failure_ = failure;
    fill();
    isAtChosen_ = false;
    if (failure_) lstProblems_->setCurrentRow(0);
}

void ProblemPanel::addRow(const StyledText& text, std::optional<bool> isError) {
    rows_.push_back(controlText(text));
    auto* const item = new QListWidgetItem(QString::fromStdString(unicodeOf(text)), lstProblems_);  // the list owns it
    if (isError) item->setData(errorRole, *isError);
    item->setToolTip(item->text());
}

void ProblemPanel::fill() {
    const int chosenRow = std::max(0, lstProblems_->currentRow());
    const QSignalBlocker quiet(lstProblems_);
    rows_.clear();
    lstProblems_->clear();
    if (failure_) {
        addRow(withLine(failure_->line, headOf(*failure_)), true);
        for (const StyledText& line : failure_->explanation) addRow(line, std::nullopt);
    }
    for (const guide::Finding& finding : findings_) {
        addRow(withLine(finding.line, finding.text), finding.weight == guide::Weight::Error);
        const std::size_t shift = static_cast<std::size_t>(rows_.back().text.size()) - finding.text.size();
        for (const guide::Columns& part : finding.emphasis)
            embolden(rows_.back(), shift + part.from, part.to - part.from);
    }
    lstProblems_->setCurrentRow(std::min(chosenRow, lstProblems_->count() - 1));
    const int count = std::clamp(lstProblems_->count(), 2, std::max(mostRows, failureRows() + 1));
    lstProblems_->setFixedHeight(count * look::em(1.7) + 2 * lstProblems_->frameWidth());
    setVisible(!rows_.empty());
    showButtons();
}

const guide::Finding* ProblemPanel::current() const {
    const int row = lstProblems_->currentRow() - failureRows();
    return row < 0 || row >= static_cast<int>(findings_.size()) ? nullptr : &findings_[static_cast<std::size_t>(row)];
}

const guide::Correction* ProblemPanel::correction(std::size_t number) const {
    const guide::Finding* finding = current();
    return finding == nullptr || number >= finding->corrections.size() ? nullptr : &finding->corrections[number];
}

std::string_view ProblemPanel::kind() const {
    if (lstProblems_->currentRow() < failureRows() && failure_) return guide::failedRun;
    const guide::Finding* finding = current();
    return finding == nullptr ? std::string_view() : finding->kind;
}

// Of two corrections each button says what it puts in.
void ProblemPanel::showButtons() {
    const guide::Correction* const other = correction(1);
    const auto captionOf = [](const guide::Correction& one) { return toQString(LineConvert(one.text)); };
    setCaption(*cmdMend_, other != nullptr ? captionOf(*correction()) : look::captionText(mendText));
    cmdMend_->setEnabled(correction() != nullptr);
    cmdMendOther_->setVisible(other != nullptr);
    if (other != nullptr) setCaption(*cmdMendOther_, captionOf(*other));
}

void ProblemPanel::chose(int row) {
    if (row < 0) return;
    lstProblems_->setCurrentRow(row);
    isAtChosen_ = true;
    if (const guide::Finding* finding = current())
        emit chosen(finding->line, finding->roman);
    else if (failure_ && failure_->line > 0)
        emit failureChosen();
}

bool ProblemPanel::chooseNext() {
    if (lstProblems_->count() == 0) return false;
    const int row = std::max(0, lstProblems_->currentRow());
    const int next = std::max(row + 1, failureRows());
    chose(isAtChosen_ ? next % lstProblems_->count() : row);
    return true;
}

void ProblemPanel::chooseLine(std::size_t line) {
    const guide::Finding* now = current();
    if (now != nullptr && now->line == line) return;
    for (std::size_t i = 0; i < findings_.size(); ++i) {
        if (findings_[i].line != line) continue;
        isAtChosen_ = true;
        return lstProblems_->setCurrentRow(static_cast<int>(i) + failureRows());
    }
}

}  // namespace tolvan
