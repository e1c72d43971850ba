// Shows in Devanagari, at every key, what is typed in Roman letters.
#pragma once

#include "dialogs/RichTextView.h"

#include <string>
#include <string_view>

class QLineEdit;

namespace tolvan {

class RomanPreview : public RichTextView {
    Q_OBJECT
  public:
    using Spelling = std::string (*)(std::string_view);
    // Of `typed`, which has the same parent. What is typed stands for what `spelling` makes of it, if there is one.
    explicit RomanPreview(QLineEdit& typed, Spelling spelling = nullptr);
};

}  // namespace tolvan
