// Shows in Devanagari, at every key, what is typed in Roman letters.
#pragma once

#include "dialogs/RichTextView.h"

class QLineEdit;

namespace tolvan {

class RomanPreview : public RichTextView {
    Q_OBJECT
  public:
    // Of `typed`, which has the same parent.
    explicit RomanPreview(QLineEdit& typed);
};

}  // namespace tolvan
