#include "dialogs/Dialogs.h"

#include "dialogs/frmErrorBox.h"
#include "dialogs/frmMMsgbox.h"
#include "dialogs/frmMQuestionBox.h"

#include <QApplication>
#include <QPointer>

namespace tolvan {
namespace {

// Shows a box until it is closed. `read` takes the result from it, unless the box was deleted with its parent.
template <class Box, class Result>
Result ask(std::string_view message, QWidget* parent, Result (*read)(const Box&), Result closed,
           void (Box::*prepare)() = nullptr) {
    const QPointer<Box> box = new Box(parent);
    box->setMessage(message);
    if (prepare != nullptr) (box->*prepare)();
    box->exec();
    if (!box) return closed;
    const Result result = read(*box);
    delete box;
    return result;
}

}  // namespace

void ShowMessage(std::string_view text) {
    ReplacedDialogs::current().ShowMessage(text);
}
Answer AskQuestion(std::string_view text) {
    return ReplacedDialogs::current().AskQuestion(text);
}
bool AskConsent(std::string_view text) {
    return ReplacedDialogs::current().AskConsent(text);
}
bool ShowError(std::int32_t number, int errorLine, QWidget* window) {
    return ReplacedDialogs::current().ShowError(number, errorLine, window);
}

void DialogAnswers::ShowMessage(std::string_view text) {
    ask<frmMMsgbox, int>(
        text, QApplication::activeWindow(), [](const frmMMsgbox& box) { return box.result(); }, 0);
}

Answer DialogAnswers::AskQuestion(std::string_view text) {
    return ask<frmMQuestionBox, Answer>(
        text, QApplication::activeWindow(), [](const frmMQuestionBox& box) { return box.answer(); }, Answer::No);
}

bool DialogAnswers::AskConsent(std::string_view text) {
    const Answer answer = ask<frmMQuestionBox, Answer>(
        text, QApplication::activeWindow(), [](const frmMQuestionBox& box) { return box.answer(); }, Answer::No,
        &frmMQuestionBox::preferNo);
    return answer == Answer::Yes;
}

bool DialogAnswers::ShowError(std::int32_t number, int errorLine, QWidget* window) {
    return ask<frmErrorBox, bool>(
        errorMessage(number, errorLine), window != nullptr ? window : QApplication::activeWindow(),
        [](const frmErrorBox& box) { return box.decision(); }, false);
}

}  // namespace tolvan
