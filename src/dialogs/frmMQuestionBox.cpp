#include "dialogs/frmMQuestionBox.h"

#include "platform/encoding/Deva.h"

#include <QPushButton>

namespace tolvan {

frmMQuestionBox::frmMQuestionBox(QWidget* parent)
    : MessageDialog("àZn"_deva, MessageSign::Kind::Question, "txtQuestion", parent) {
    addAnswer("cmdYes", "hae"_deva, 1);
    addAnswer("cmdNo", "nahI"_deva, 0);
    addAnswer("cmdCancel", "rÎ"_deva, -1);
}

void frmMQuestionBox::addAnswer(const char* name, std::string_view caption, int answer) {
    connect(addButton(name, caption), &QPushButton::clicked, this, [this, answer] {
        answer_ = answer;
        accept();
    });
}

}  // namespace tolvan
