#include "dialogs/Dialogs.h"

#include "dialogs/frmErrorBox.h"
#include "dialogs/frmMMsgbox.h"
#include "dialogs/frmMQuestionBox.h"

#include <QApplication>
#include <QPointer>

#include <utility>

namespace tolvan {
namespace {

DialogAnswers* current = nullptr;  // null: the boxes

DialogAnswers& answers() {
    static DialogAnswers boxes;
    return current ? *current : boxes;
}

// Shows a box until it is closed. `read` takes the answer from it, unless it went with its parent.
template <class Box, class Answer>
Answer ask(std::string_view message, Answer (*read)(const Box&), Answer closed) {
    const QPointer<Box> box = new Box(QApplication::activeWindow());
    box->setMessage(message);
    box->exec();
    if (!box) return closed;
    const Answer answer = read(*box);
    delete box;
    return answer;
}

}  // namespace

void ShowMessage(std::string_view text) {
    answers().ShowMessage(text);
}
int AskQuestion(std::string_view text) {
    return answers().AskQuestion(text);
}
bool ShowError(std::int32_t number, int errorLine) {
    return answers().ShowError(number, errorLine);
}

void DialogAnswers::ShowMessage(std::string_view text) {
    ask<frmMMsgbox, int>(
        text, [](const frmMMsgbox& box) { return box.result(); }, 0);
}

int DialogAnswers::AskQuestion(std::string_view text) {
    return ask<frmMQuestionBox, int>(
        text, [](const frmMQuestionBox& box) { return box.answer(); }, 0);
}

bool DialogAnswers::ShowError(std::int32_t number, int errorLine) {
    return ask<frmErrorBox, bool>(
        errorMessage(number, errorLine), [](const frmErrorBox& box) { return box.decision(); }, false);
}

ReplacedDialogs::ReplacedDialogs(DialogAnswers& answers) : replaced_(std::exchange(current, &answers)) {}
ReplacedDialogs::~ReplacedDialogs() {
    current = replaced_;
}

}  // namespace tolvan
