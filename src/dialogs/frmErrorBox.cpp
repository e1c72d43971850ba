#include "dialogs/frmErrorBox.h"

#include "platform/encoding/Deva.h"
#include "translator/MessageTable.h"

#include <QPushButton>

#include <utility>

namespace tolvan {

std::string errorMessage(std::int32_t number, int errorLine) {
    if (auto known = messageFragment(number)) return *std::move(known);
    std::string message("\\f1tolvn beiskla Aae¦ "_deva);
    return message.append(std::to_string(errorLine)).append(" Cya vaKyrcne mxe gfbf AaF¦lI Aahe"_deva);
}

frmErrorBox::frmErrorBox(QWidget* parent) : MessageDialog("gfbf"_deva, MessageSign::Kind::Error, "txtError", parent) {
    connect(addButton("cmdRun", "calu Qev"_deva), &QPushButton::clicked, this, [this] {
        decision_ = true;
        accept();
    });
    QPushButton* const stop = addButton("cmdStop", "wa<bv"_deva);
    connect(stop, &QPushButton::clicked, this, &QDialog::reject);
    stop->setDefault(true);
    stop->setFocus();
}

}  // namespace tolvan
