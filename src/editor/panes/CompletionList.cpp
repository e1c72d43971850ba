#include "editor/panes/CompletionList.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"
#include "dialogs/StyledLine.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/transliteration/ReplaceRomanChars.h"

#include <QHeaderView>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>
#include <utility>

namespace tolvan {
namespace {

constexpr int mostRows = 8;
constexpr std::string_view keysText = "zBd \"etat"_deva;

// The three columns are in three fonts; their letters stand on one line.
class OnBaseLine : public QStyledItemDelegate {
  public:
    OnBaseLine(QObject* parent, int baseLine) : QStyledItemDelegate(parent), baseLine_(baseLine) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem cell = option;
        initStyleOption(&cell, index);
        const QString text = std::exchange(cell.text, {});
        option.widget->style()->drawControl(QStyle::CE_ItemViewItem, &cell, painter, option.widget);
        const bool chosen = (cell.state & QStyle::State_Selected) != 0;
        painter->setFont(cell.font);
        painter->setPen(cell.palette.color(chosen ? QPalette::HighlightedText : QPalette::Text));
        painter->drawText(cell.rect.left() + look::em(0.4), cell.rect.top() + baseLine_, text);
    }

  private:
    int baseLine_;
};

// The keys that take a word, below the list.
class KeysLine : public QWidget {
  public:
    explicit KeysLine(QWidget* list) : QWidget(list), text_("Tab, ", Font::Latin) {
        text_.append("Enter: ", Font::Latin);
        text_.append(keysText, Font::Devanagari);
    }
    static int lineHeight() { return look::em(1.6); }
    int textWidth() const { return static_cast<int>(styledLineSize(controlText(text_)).width()) + look::em(1); }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), look::colours().footer);
        drawStyledLine(painter, QRectF(rect()).adjusted(look::em(0.4), 0, 0, 0), controlText(text_),
                       look::colours().dimText);
    }

  private:
    StyledText text_;
};

QTableWidgetItem* cell(const QString& text, const QFont& font, QColor colour) {
    auto* item = new QTableWidgetItem(text);  // the table owns it
    item->setFont(font);
    item->setForeground(colour);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    return item;
}

}  // namespace

CompletionList::CompletionList(QWidget* owner)
    : QTableWidget(0, 3, owner), fonts_(PaneFonts::ofZoom(90)), keys_(new KeysLine(this)) {
    setViewportMargins(0, 0, 0, KeysLine::lineHeight());
    setItemDelegate(new OnBaseLine(this, static_cast<int>(fonts_.baseLine)));
    setWindowFlags(Qt::ToolTip);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(accessible::unicode(keysText));
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setShowGrid(false);
    setMouseTracking(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    horizontalHeader()->hide();
    verticalHeader()->hide();
    connect(this, &QTableWidget::cellClicked, this, [this](int row) { emit clicked(row); });
}

void CompletionList::setWords(const std::vector<const LanguageWord*>& words) {
    if (words_ == words) return choose(-1);
    words_ = words;
    setRowCount(0);
    for (const LanguageWord* word : words) addRow(*word);
    choose(-1);
    fit();
}

void CompletionList::addRow(const LanguageWord& word) {
    const int row = rowCount();
    insertRow(row);
    setRowHeight(row, static_cast<int>(fonts_.lineHeight));
    setItem(row, 0,
            cell(QString::fromLatin1(word.roman.data(), static_cast<qsizetype>(word.roman.size())), fonts_.roman,
                 look::colours().text));
    setItem(row, 1, cell(toQString(LineConvert(word.roman)), fonts_.devanagari, look::colours().accent));
    const auto reads = [](std::string_view roman) { return accessible::unicode(LineConvert(roman)); };
    item(row, 0)->setData(Qt::AccessibleTextRole, item(row, 0)->text() + QLatin1String(", ") + reads(word.roman) +
                                                      QLatin1String(": ") + reads(word.meaning));
    item(row, 1)->setData(Qt::AccessibleTextRole, reads(word.roman));
    setItem(row, 2,
            cell(toQString(LineConvert(word.meaning)), look::controlFont(Font::Devanagari), look::colours().dimText));
    item(row, 2)->setData(Qt::AccessibleTextRole, reads(word.meaning));
}

void CompletionList::fit() {
    resizeColumnsToContents();
    int width = 2 * frameWidth();
    for (int column = 0; column < columnCount(); ++column) {
        setColumnWidth(column, columnWidth(column) + look::em(0.8));
        width += columnWidth(column);
    }
    if (rowCount() > mostRows) width += verticalScrollBar()->sizeHint().width();
    width = std::max(width, static_cast<KeysLine*>(keys_)->textWidth());
    const int rows = std::min(rowCount(), mostRows) * (rowCount() > 0 ? rowHeight(0) : 0);
    resize(width, rows + KeysLine::lineHeight() + 2 * frameWidth());
    keys_->setGeometry(frameWidth(), frameWidth() + rows, width - 2 * frameWidth(), KeysLine::lineHeight());
}

void CompletionList::openAt(const QRect& place) {
    const QRect screenArea = screen()->availableGeometry();
    QPoint corner = place.bottomLeft();
    if (corner.y() + height() > screenArea.bottom()) corner.setY(place.top() - height());
    corner.setX(std::max(screenArea.left(), std::min(corner.x(), screenArea.right() - width())));
    move(corner);
    show();
    raise();
}

void CompletionList::choose(int row) {
    if (row < 0)
        setCurrentItem(nullptr);
    else
        setCurrentCell(std::min(row, rowCount() - 1), 0);
}

}  // namespace tolvan
