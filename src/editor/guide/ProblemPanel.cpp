#include "editor/guide/ProblemPanel.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"
#include "dialogs/StyledLine.h"
#include "editor/panes/LineMarkShape.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/UnicodeText.h"

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

// A row: the mark, the line's number, and the sentence in its fonts.
class SentenceDelegate : public QStyledItemDelegate {
  public:
    SentenceDelegate(QObject* parent, const std::vector<StyledText>& texts)
        : QStyledItemDelegate(parent), texts_(texts) {}

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override { return {1, look::em(1.7)}; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const bool chosen = (option.state & QStyle::State_Selected) != 0;
        if (chosen) painter->fillRect(option.rect, look::colours().accentLight);
        const QRectF row = option.rect;
        const qreal height = row.height();
        drawLineMark(*painter, QRectF(row.left(), row.top(), height, height), index.data(errorRole).toBool());
        const auto number = static_cast<std::size_t>(index.row());
        if (number >= texts_.size()) return;
        drawStyledLine(*painter, row.adjusted(height, 0, -look::em(0.4), 0), controlText(texts_[number]),
                       look::colours().text);
    }

  private:
    const std::vector<StyledText>& texts_;
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

StyledText failureText(const RunFailure& failure) {
    StyledText text(failure.message);
    if (!failure.sentence.empty()) {
        text.append(": ", Font::Latin);
        text.append(failure.sentence);
    }
    if (!failure.explanation.empty()) {
        text.append(" (", Font::Latin);
        text.append(failure.explanation);
        text.append(")", Font::Latin);
    }
    return text;
}

}  // namespace

ProblemPanel::ProblemPanel(QWidget* parent)
    : QWidget(parent), lstProblems_(new QListWidget(this)), cmdMend_(new QPushButton(this)) {
    setObjectName(QStringLiteral("ProblemPanel"));
    lstProblems_->setObjectName(QStringLiteral("lstProblems"));
    lstProblems_->setItemDelegate(new SentenceDelegate(lstProblems_, rows_));
    lstProblems_->setFocusPolicy(Qt::ClickFocus);
    lstProblems_->setFrameShape(QFrame::NoFrame);
    lstProblems_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    cmdMend_->setObjectName(QStringLiteral("cmdMend"));
    cmdMend_->setFont(look::controlFont(Font::Devanagari));
    cmdMend_->setFocusPolicy(Qt::NoFocus);
    cmdMend_->setAccessibleName(accessible::unicode(mendText));
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
    side->addStretch();
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(look::em(0.5), look::em(0.3), look::em(0.5), look::em(0.3));
    layout->addLayout(side);
    layout->addWidget(lstProblems_, 1);
    connect(lstProblems_, &QListWidget::itemClicked, this, [this] { chose(lstProblems_->currentRow()); });
    connect(lstProblems_, &QListWidget::currentRowChanged, this, &ProblemPanel::showButton);
    connect(cmdMend_, &QPushButton::clicked, this, &ProblemPanel::correctionWanted);
    fill();
}

void ProblemPanel::setFindings(const std::vector<guide::Finding>& findings) {
    findings_ = findings;
    fill();
}

void ProblemPanel::setRunFailure(const std::optional<RunFailure>& failure) {
    failure_ = failure;
    fill();
    if (failure_) lstProblems_->setCurrentRow(0);
}

void ProblemPanel::fill() {
    const int chosenRow = std::max(0, lstProblems_->currentRow());
    rows_.clear();
    if (failure_) rows_.push_back(withLine(failure_->line, failureText(*failure_)));
    for (const guide::Finding& finding : findings_) rows_.push_back(withLine(finding.line, finding.text));
    const QSignalBlocker quiet(lstProblems_);
    lstProblems_->clear();
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        auto* item = new QListWidgetItem(QString::fromStdString(unicodeOf(rows_[i])), lstProblems_);
        const bool isFailure = static_cast<int>(i) < failureRows();
        item->setData(errorRole, isFailure || findings_[i - static_cast<std::size_t>(failureRows())].weight ==
                                                  guide::Weight::Error);
        item->setToolTip(item->text());
    }
    lstProblems_->setCurrentRow(std::min(chosenRow, lstProblems_->count() - 1));
    const int count = std::clamp(lstProblems_->count(), 2, mostRows);
    lstProblems_->setFixedHeight(count * look::em(1.7) + 2 * lstProblems_->frameWidth());
    setVisible(!rows_.empty());
    showButton();
}

const guide::Finding* ProblemPanel::current() const {
    const int row = lstProblems_->currentRow() - failureRows();
    return row < 0 || row >= static_cast<int>(findings_.size()) ? nullptr : &findings_[static_cast<std::size_t>(row)];
}

const guide::Correction* ProblemPanel::correction() const {
    const guide::Finding* finding = current();
    return finding == nullptr || finding->corrections.empty() ? nullptr : &finding->corrections[0];
}

std::string_view ProblemPanel::kind() const {
    const guide::Finding* finding = current();
    return finding == nullptr ? std::string_view() : finding->kind;
}

void ProblemPanel::showButton() {
    cmdMend_->setText(look::captionText(mendText));
    cmdMend_->setEnabled(correction() != nullptr);
}

void ProblemPanel::chose(int row) {
    if (row < 0) return;
    lstProblems_->setCurrentRow(row);
    if (const guide::Finding* finding = current())
        emit chosen(finding->line, finding->roman);
    else if (failure_ && failure_->line > 0)
        emit chosen(failure_->line, {0, 0});
}

bool ProblemPanel::chooseNext() {
    if (lstProblems_->count() == 0) return false;
    chose(wentToOne_ ? (lstProblems_->currentRow() + 1) % lstProblems_->count() : 0);
    wentToOne_ = true;
    return true;
}

void ProblemPanel::chooseLine(std::size_t line) {
    const guide::Finding* now = current();
    if (now != nullptr && now->line == line) return;
    for (std::size_t i = 0; i < findings_.size(); ++i)
        if (findings_[i].line == line) return lstProblems_->setCurrentRow(static_cast<int>(i) + failureRows());
}

}  // namespace tolvan
