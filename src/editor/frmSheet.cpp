#include "editor/frmSheet.h"

#include "dialogs/Accessibility.h"
#include "dialogs/DevanagariControl.h"
#include "dialogs/Look.h"
#include "platform/encoding/Deva.h"
#include "platform/settings/Settings.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QDate>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

namespace tolvan {
namespace {

const QString section = QStringLiteral("Sheet");
constexpr int longestField = 60;

}  // namespace

frmSheet::frmSheet(Settings& settings, QWidget* parent) : FramedDialog("DapIl àt"_deva, parent), settings_(settings) {
    setObjectName(QStringLiteral("frmSheet"));
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(look::em(1));
    grid->setVerticalSpacing(look::em(0.5));
    body().addLayout(grid, 1);
    const auto remembered = [&](const char* key) { return settings.GetSetting(section, QLatin1String(key)); };
    txtName_ = addField(*grid, "txtName", "nav"_deva, remembered("Name"));
    txtClass_ = addField(*grid, "txtClass", "vgR"_deva, remembered("Class"));
    txtRoll_ = addField(*grid, "txtRoll", "³ma<k"_deva, remembered("Roll"));
    txtDate_ = addField(*grid, "txtDate", "idna<k"_deva, QDate::currentDate().toString(QStringLiteral("dd-MM-yyyy")));
    chkRoman_ = addChoice(*grid, "chkRoman", "bajUla raemn A]re"_deva);
    chkFindings_ = addChoice(*grid, "chkFindings", "sucv{ya Dapa"_deva);
    chkRun_ = addChoice(*grid, "chkRun", "kay Daple Aai[ kaFle"_deva);
    chkRun_->setChecked(true);
    connect(addButton("cmdSave", "saQv"_deva), &QPushButton::clicked, this, &QDialog::accept);
    connect(addButton("cmdPrint", "DapŽ Ž Ž "_deva), &QPushButton::clicked, this, [this] { done(toPrinterResult); });
    connect(addButton("cmdCancel", "rÎ"_deva), &QPushButton::clicked, this, &QDialog::reject);
}

QLineEdit* frmSheet::addField(QGridLayout& grid, const char* name, std::string_view caption, const QString& value) {
    const int row = grid.rowCount();
    auto* const field = new QLineEdit(value, this);
    field->setObjectName(QLatin1String(name));
    field->setMaxLength(longestField);
    field->setMinimumWidth(look::em(20));
    auto* const label = devanagariControl<QLabel>(caption, {}, this);
    label->setBuddy(field);
    field->setAccessibleName(label->accessibleName());
    grid.addWidget(label, row, 0);
    grid.addWidget(field, row, 1);
    return field;
}

QCheckBox* frmSheet::addChoice(QGridLayout& grid, const char* name, std::string_view caption) {
    auto* const choice = devanagariControl<QCheckBox>(caption, QLatin1String(name), this);
    grid.addWidget(choice, grid.rowCount(), 1);
    return choice;
}

Sheet frmSheet::sheet() const {
    Sheet sheet;
    sheet.name = txtName_->text().trimmed().toStdString();
    sheet.className = txtClass_->text().trimmed().toStdString();
    sheet.roll = txtRoll_->text().trimmed().toStdString();
    sheet.date = txtDate_->text().trimmed().toStdString();
    sheet.withRoman = chkRoman_->isChecked();
    sheet.withFindings = chkFindings_->isChecked();
    return sheet;
}

bool frmSheet::withRun() const {
    return chkRun_->isChecked();
}

void frmSheet::remember() {
    settings_.SaveSetting(section, QStringLiteral("Name"), txtName_->text());
    settings_.SaveSetting(section, QStringLiteral("Class"), txtClass_->text());
    settings_.SaveSetting(section, QStringLiteral("Roll"), txtRoll_->text());
}

std::optional<AskedSheet> askSheet(Settings& settings, QWidget* parent) {
    const QPointer<frmSheet> dialog = new frmSheet(settings, parent);
    const bool accepted = dialog->exec() != QDialog::Rejected;
    std::optional<AskedSheet> asked;
    if (dialog && accepted) {
        dialog->remember();
        asked = AskedSheet{dialog->sheet(), dialog->withRun(), dialog->toPrinter()};
    }
    delete dialog;
    return asked;
}

}  // namespace tolvan
