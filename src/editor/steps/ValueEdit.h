// Cells of values that can be changed: what is typed is Roman text, as a running program gets it from its user.
#pragma once

#include "editor/steps/Cells.h"

namespace tolvan {

class ValueEdit : public CellDelegate {
    Q_OBJECT
  public:
    explicit ValueEdit(QObject* parent) : CellDelegate(parent, Ground::Paper) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    // The box begins with the value as one would type it.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
};

}  // namespace tolvan
