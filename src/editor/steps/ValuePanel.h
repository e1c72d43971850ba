// The table of a program's variables below the panes, while the program is gone through.
#pragma once

#include "editor/steps/ValueModel.h"
#include "platform/encoding/Deva.h"

#include <QWidget>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

class QLabel;
class QTreeView;

namespace tolvan {

class ValuePanel : public QWidget {
    Q_OBJECT
  public:
    explicit ValuePanel(QWidget* parent);

    // The title as long as nothing is to be seen, font-encoded.
    static constexpr std::string_view titleText = "ik<mtI"_deva;

    ValueModel& model() { return model_; }
    QTreeView& view() { return *treValues_; }

    // What is seen, font-encoded: that the program stands, how it goes on, or which moment it is.
    void setTitle(const std::string& text);
    QSize sizeHint() const override;

  signals:
    void closed();

  private:
    void restoreUnfolded();

    ValueModel model_;
    QLabel* title_;
    QTreeView* treValues_;
    std::vector<std::pair<std::string, std::string>> unfolded_;  // function and word
};

}  // namespace tolvan
