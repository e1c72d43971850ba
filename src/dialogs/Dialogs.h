// Every message, question and error that the system shows in Devanagari. The calls wait until the user has answered;
// the application's events go on meanwhile. The box belongs to the window in front, or to the one that is given. When
// the application ends or the parent goes while a box is up, the box counts as closed without a button.
//
// A text is a rich-text fragment (see MessageDialog::setMessage): its backslashes and braces are escaped by the caller.
#pragma once

#include "dialogs/Answer.h"
#include "dialogs/ReplacedAnswers.h"

#include <cstdint>
#include <string_view>

class QWidget;

namespace tolvan {

void ShowMessage(std::string_view text);

// No, if the box was closed without a button.
Answer AskQuestion(std::string_view text);

// A question whose careful answer is no, which Enter gives. True: yes.
bool AskConsent(std::string_view text);

// The error `number` of a script or a data file; the program line `errorLine` is told where no message is known for it.
// True: the program is to go on. The box belongs to `window`, in which the program runs; it need not be in front yet.
bool ShowError(std::int32_t number, int errorLine, QWidget* window = nullptr);

// What answers those calls: the boxes, unless a test puts something else in their place.
class DialogAnswers {
  public:
    DialogAnswers() = default;
    DialogAnswers(const DialogAnswers&) = delete;
    DialogAnswers& operator=(const DialogAnswers&) = delete;
    virtual ~DialogAnswers() = default;

    virtual void ShowMessage(std::string_view text);
    virtual Answer AskQuestion(std::string_view text);
    virtual bool AskConsent(std::string_view text);
    virtual bool ShowError(std::int32_t number, int errorLine, QWidget* window);
};

// As long as it lives, `answers` answers. These nest.
using ReplacedDialogs = ReplacedAnswers<DialogAnswers>;

}  // namespace tolvan
