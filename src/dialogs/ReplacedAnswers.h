// Who answers what a user is asked: the windows, or for as long as a replacement lives, somebody else.
#pragma once

#include <utility>

namespace tolvan {

// `Answers` shows the windows, and is derived from for other answers. Replacements nest; one thread at a time.
template <class Answers>
class ReplacedAnswers {
  public:
    explicit ReplacedAnswers(Answers& answers) : replaced_(std::exchange(current_, &answers)) {}
    ReplacedAnswers(const ReplacedAnswers&) = delete;
    ReplacedAnswers& operator=(const ReplacedAnswers&) = delete;
    ~ReplacedAnswers() { current_ = replaced_; }

    static Answers& current() {
        static Answers windows;
        return current_ != nullptr ? *current_ : windows;
    }

  private:
    static inline Answers* current_ = nullptr;  // null: the windows
    Answers* replaced_;
};

}  // namespace tolvan
