#include "dialogs/frmMQuestionBox.h"

#include "platform/encoding/Deva.h"

#include <QPushButton>

namespace tolvan {

frmMQuestionBox::frmMQuestionBox(QWidget* parent)
    : MessageDialog("àZn"_deva, MessageSign::Kind::Question, "txtQuestion", parent) {
    addAnswer("cmdYes", "hae"_deva, Answer::Yes);
    addAnswer("cmdNo", "nahI"_deva, Answer::No);
    // Not "no", which throws an unsaved text away.
    addAnswer("cmdCancel", "rÎ"_deva, Answer::Cancel)->setShortcut(Qt::Key_Escape);
}

void frmMQuestionBox::preferNo() {
    auto* const no = findChild<QPushButton*>(QStringLiteral("cmdNo"));
    no->setDefault(true);
    no->setFocus();
}

QPushButton* frmMQuestionBox::addAnswer(const char* name, std::string_view caption, Answer answer) {
    QPushButton* button = addButton(name, caption);
    connect(button, &QPushButton::clicked, this, [this, answer] {
        answer_ = answer;
        accept();
    });
    return button;
}

}  // namespace tolvan
