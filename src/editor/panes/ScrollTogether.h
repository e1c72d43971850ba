// The same lines are in view in two panes, whichever of them is scrolled.
#pragma once

#include <QObject>

namespace tolvan {

class TextPane;

class ScrollTogether : public QObject {
    Q_OBJECT
  public:
    // Both must outlive it. Where they differ, `second` follows `first`.
    ScrollTogether(TextPane& first, TextPane& second);

  private:
    void showSameBars();
    void align(const TextPane& leader, TextPane& follower);

    TextPane& first_;
    TextPane& second_;
    bool aligning_ = false;
};

}  // namespace tolvan
