// Shows the example programs by title and picture, so that one can be taken up.
#pragma once

#include "dialogs/FramedDialog.h"

#include <QString>

class QListWidget;

namespace tolvan {

class frmExamples : public FramedDialog {
    Q_OBJECT

  public:
    // The programs of a folder, with pictures of their runs as PNG files of the same name in "pictures" below it. A
    // program without a picture is shown all the same; what is no program is left out.
    frmExamples(const QString& folder, QWidget* parent);

    // The path of the chosen program.
    QString chosen() const;

  private:
    void addProgram(const QString& path);

    QListWidget* lstExamples_;
};

// Asks for one of them; empty if the user wants none.
QString askExample(const QString& folder, QWidget* parent);

}  // namespace tolvan
