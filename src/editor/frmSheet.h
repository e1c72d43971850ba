// Asks what stands on the sheet that is handed in on paper; the answers are remembered.
#pragma once

#include "dialogs/FramedDialog.h"
#include "sheet/Sheet.h"

#include <optional>

class QCheckBox;
class QGridLayout;
class QLineEdit;

namespace tolvan {

class Settings;

class frmSheet : public FramedDialog {
    Q_OBJECT

  public:
    frmSheet(Settings& settings, QWidget* parent);

    // What was asked; the program and its run are left empty.
    Sheet sheet() const;
    bool withRun() const;
    bool toPrinter() const { return result() == toPrinterResult; }
    void remember();

  private:
    static constexpr int toPrinterResult = QDialog::Accepted + 1;

    QLineEdit* addField(QGridLayout& grid, const char* name, std::string_view caption, const QString& value);
    QCheckBox* addChoice(QGridLayout& grid, const char* name, std::string_view caption);

    Settings& settings_;
    QLineEdit* txtName_;
    QLineEdit* txtClass_;
    QLineEdit* txtRoll_;
    QLineEdit* txtDate_;
    QCheckBox* chkRoman_;
    QCheckBox* chkFindings_;
    QCheckBox* chkRun_;
};

struct AskedSheet {
    Sheet sheet;
    bool withRun = false;
    bool toPrinter = false;  // else it becomes a file
};

// Nothing if the user wants none.
std::optional<AskedSheet> askSheet(Settings& settings, QWidget* parent);

}  // namespace tolvan
