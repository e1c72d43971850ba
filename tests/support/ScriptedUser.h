// A user of the boxes whose answers are given beforehand.
#pragma once

#include "dialogs/Dialogs.h"

#include <deque>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace tolvan {

// A question that was not expected fails the test; its answer is cancel.
class ScriptedUser : public DialogAnswers {
  public:
    std::deque<int> answers;                  // to questions: 1 yes, 0 no, -1 cancel
    std::deque<bool> errorAnswers;            // to errors of a program: whether it goes on
    std::vector<std::string> told;            // messages, questions
    std::vector<std::pair<int, int>> errors;  // their numbers and lines

    void ShowMessage(std::string_view text) override { told.emplace_back(text); }
    Answer AskQuestion(std::string_view text) override {
        told.emplace_back(text);
        return static_cast<Answer>(next(answers, -1));
    }
    bool AskConsent(std::string_view text) override { return AskQuestion(text) == Answer::Yes; }
    bool ShowError(std::int32_t number, int errorLine, QWidget*) override {
        errors.emplace_back(number, errorLine);
        return next(errorAnswers, false);
    }

    std::vector<std::string> takeTold() { return std::exchange(told, {}); }

  protected:
    template <class Prepared>
    static Prepared next(std::deque<Prepared>& prepared, Prepared otherwise) {
        if (prepared.empty()) {
            ADD_FAILURE() << "an unexpected question";
            return otherwise;
        }
        const Prepared answer = prepared.front();
        prepared.pop_front();
        return answer;
    }
};

}  // namespace tolvan
