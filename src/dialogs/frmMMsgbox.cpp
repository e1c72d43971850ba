#include "dialogs/frmMMsgbox.h"

#include "platform/encoding/Deva.h"

#include <QPushButton>

namespace tolvan {

frmMMsgbox::frmMMsgbox(QWidget* parent)
    : MessageDialog("tolvn beisk"_deva, MessageSign::Kind::Information, "txtMessage", parent) {
    connect(addButton("cmdOK", "QIk Aahe"_deva), &QPushButton::clicked, this, &QDialog::accept);
}

}  // namespace tolvan
