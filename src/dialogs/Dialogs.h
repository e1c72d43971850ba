// Every message, question and error that the system shows in Devanagari. The calls wait until the user has answered;
// the application's events go on meanwhile, and the window in front is the box's parent. When the application ends or
// the parent goes while a box is up, the box counts as closed without a button.
//
// A text is a rich-text fragment (see messageDocument): its backslashes and braces are escaped by the caller.
#pragma once

#include "dialogs/ReplacedAnswers.h"

#include <cstdint>
#include <string_view>

namespace tolvan {

void ShowMessage(std::string_view text);

// 1: yes, 0: no, or closed without a button; -1: cancel.
int AskQuestion(std::string_view text);

// A question whose careful answer is no, which Enter gives. True: yes.
bool AskConsent(std::string_view text);

// The error `number` of a script or a data file; the program line `errorLine` is told where no message is known for it.
// True: the program is to go on.
bool ShowError(std::int32_t number, int errorLine);

// What answers those calls: the boxes, unless a test puts something else in their place.
class DialogAnswers {
  public:
    DialogAnswers() = default;
    DialogAnswers(const DialogAnswers&) = delete;
    DialogAnswers& operator=(const DialogAnswers&) = delete;
    virtual ~DialogAnswers() = default;

    virtual void ShowMessage(std::string_view text);
    virtual int AskQuestion(std::string_view text);
    virtual bool AskConsent(std::string_view text);
    virtual bool ShowError(std::int32_t number, int errorLine);
};

// As long as it lives, `answers` answers. These nest.
using ReplacedDialogs = ReplacedAnswers<DialogAnswers>;

}  // namespace tolvan
