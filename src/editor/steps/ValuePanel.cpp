#include "editor/steps/ValuePanel.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"
#include "editor/steps/ValueEdit.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QToolButton>
#include <QTreeView>

#include <algorithm>

namespace tolvan {
namespace {

constexpr std::string_view closeText = "b<d kr"_deva;

QHeaderView* preparedHeader(QTreeView& view) {
    QHeaderView* const header = view.header();
    header->setFont(look::controlFont(Font::Devanagari));
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header->setSectionsMovable(false);
    header->setStretchLastSection(true);
    header->resizeSection(ValueModel::NameColumn, look::em(9.5));
    header->resizeSection(ValueModel::KindColumn, look::em(7.5));
    return header;
}

}  // namespace

ValuePanel::ValuePanel(QWidget* parent) : QWidget(parent), title_(new QLabel(this)), treValues_(new QTreeView(this)) {
    setObjectName(QStringLiteral("ValuePanel"));
    treValues_->setObjectName(QStringLiteral("treValues"));
    treValues_->setAccessibleName(accessible::unicode(titleText));
    treValues_->setModel(&model_);
    treValues_->setItemDelegate(new ValueEdit(treValues_));
    treValues_->setUniformRowHeights(true);
    treValues_->setAllColumnsShowFocus(true);
    treValues_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    treValues_->setIndentation(look::em(1.2));
    treValues_->setFrameShape(QFrame::NoFrame);
    preparedHeader(*treValues_);
    title_->setFont(look::controlFont(Font::Devanagari));
    title_->setTextFormat(Qt::PlainText);
    auto* const close = new QToolButton(this);
    close->setObjectName(QStringLiteral("cmdCloseValues"));
    close->setText(QStringLiteral("×"));
    close->setAccessibleName(accessible::unicode(closeText));
    close->setToolTip(close->accessibleName());
    connect(close, &QToolButton::clicked, this, &ValuePanel::closed);
    auto* const head = new QHBoxLayout;
    head->addWidget(title_, 1);
    head->addWidget(close);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(look::em(0.5), look::em(0.2), look::em(0.2), 0);
    layout->setSpacing(look::em(0.1));
    layout->addLayout(head);
    layout->addWidget(treValues_, 1);
    const auto note = [this](const QModelIndex& index, bool isUnfolded) {
        const ValueTable::Row& row = model_.rows()[static_cast<std::size_t>(index.row())];
        const std::pair name(row.function, row.word);
        std::erase(unfolded_, name);
        if (isUnfolded) unfolded_.push_back(name);
    };
    connect(treValues_, &QTreeView::expanded, this, [note](const QModelIndex& index) { note(index, true); });
    connect(treValues_, &QTreeView::collapsed, this, [note](const QModelIndex& index) { note(index, false); });
    connect(&model_, &QAbstractItemModel::modelReset, this, &ValuePanel::restoreUnfolded);
    setTitle(std::string(titleText));
}

void ValuePanel::setTitle(const std::string& text) {
    title_->setText(toQString(text));
    title_->setAccessibleName(accessible::unicode(text));
}

QSize ValuePanel::sizeHint() const {
    constexpr double rows = 8;
    return {look::em(30), look::em(1.8 * (rows + 2))};
}

void ValuePanel::restoreUnfolded() {
    for (std::size_t row = 0; row < model_.rows().size(); ++row) {
        const ValueTable::Row& shown = model_.rows()[row];
        if (std::find(unfolded_.begin(), unfolded_.end(), std::pair(shown.function, shown.word)) != unfolded_.end())
            treValues_->expand(model_.index(static_cast<int>(row), 0));
    }
}

}  // namespace tolvan
