// Cells of tables that show values of a program: drawn in the fonts that the program prints with, read in Unicode.
#pragma once

#include "dialogs/LookColours.h"
#include "dialogs/StyledLine.h"

#include <QStyledItemDelegate>

#include <string_view>

namespace tolvan {

// What a model tells of a cell besides Qt::DisplayRole, which is Unicode.
enum CellRole : int {
    InternalTextRole = Qt::UserRole + 1,  // QByteArray in internal text form
    ChangedRole,                          // bool: the last line has changed it
    DimRole,                              // bool: of less importance
    MarkedRole,                           // bool: of the row that is looked at
};

// Text in internal text form with its fonts; line ends and further lines are left out.
StyledText lineOfInternalText(std::string_view internalText);
ControlText controlTextOf(std::string_view internalText);

class CellDelegate : public QStyledItemDelegate {
    Q_OBJECT
  public:
    enum class Ground : bool { Paper, Board };
    CellDelegate(QObject* parent, Ground ground) : QStyledItemDelegate(parent), ground_(ground) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  private:
    void paintOnPaper(QPainter& painter, const QRectF& cell, bool isChosen, const QModelIndex& index) const;
    void paintOnBoard(QPainter& painter, const QRectF& cell, bool isChosen, const QModelIndex& index) const;

    Ground ground_;
};

}  // namespace tolvan
