#include "dialogs/Dialogs.h"

#include "dialogs/frmErrorBox.h"
#include "dialogs/frmMMsgbox.h"
#include "dialogs/frmMQuestionBox.h"

#include <QApplication>
#include <QPointer>

namespace tolvan {
namespace {

// Shows a box until it is closed. `read` takes the answer from it, unless it went with its parent.
template <class Box, class Answer>
Answer ask(std::string_view message, Answer (*read)(const Box&), Answer closed, void (Box::*prepare)() = nullptr) {
    const QPointer<Box> box = new Box(QApplication::activeWindow());
    box->setMessage(message);
    if (prepare != nullptr) (box->*prepare)();
    box->exec();
    if (!box) return closed;
    const Answer answer = read(*box);
    delete box;
    return answer;
}

}  // namespace

void ShowMessage(std::string_view text) {
    ReplacedDialogs::current().ShowMessage(text);
}
int AskQuestion(std::string_view text) {
    return ReplacedDialogs::current().AskQuestion(text);
}
bool AskConsent(std::string_view text) {
    return ReplacedDialogs::current().AskConsent(text);
}
bool ShowError(std::int32_t number, int errorLine) {
    return ReplacedDialogs::current().ShowError(number, errorLine);
}

void DialogAnswers::ShowMessage(std::string_view text) {
    ask<frmMMsgbox, int>(
        text, [](const frmMMsgbox& box) { return box.result(); }, 0);
}

int DialogAnswers::AskQuestion(std::string_view text) {
    return ask<frmMQuestionBox, int>(
        text, [](const frmMQuestionBox& box) { return box.answer(); }, 0);
}

bool DialogAnswers::AskConsent(std::string_view text) {
    constexpr int yes = 1;
    const int answer = ask<frmMQuestionBox, int>(
        text, [](const frmMQuestionBox& box) { return box.answer(); }, 0, &frmMQuestionBox::preferNo);
    return answer == yes;
}

bool DialogAnswers::ShowError(std::int32_t number, int errorLine) {
    return ask<frmErrorBox, bool>(
        errorMessage(number, errorLine), [](const frmErrorBox& box) { return box.decision(); }, false);
}

}  // namespace tolvan
