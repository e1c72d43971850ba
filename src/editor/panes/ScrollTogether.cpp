#include "editor/panes/ScrollTogether.h"

#include "editor/panes/TextPane.h"

#include <QScrollBar>

#include <utility>

namespace tolvan {

ScrollTogether::ScrollTogether(TextPane& first, TextPane& second) : first_(first), second_(second) {
    // A pane that scrolls to show its caret does not say so by its bar.
    connect(&first, &TextPane::updateRequest, this, [this] { align(first_, second_); });
    connect(&second, &TextPane::updateRequest, this, [this] { align(second_, first_); });
    for (TextPane* pane : {&first, &second}) {
        connect(pane->verticalScrollBar(), &QScrollBar::rangeChanged, this, [this] { align(first_, second_); });
        connect(pane->horizontalScrollBar(), &QScrollBar::rangeChanged, this, &ScrollTogether::showSameBars);
    }
    showSameBars();
    align(first_, second_);
}

// A pane with a bar below its text shows fewer lines, and would scroll farther than the other.
void ScrollTogether::showSameBars() {
    const bool needed = first_.horizontalScrollBar()->maximum() > 0 || second_.horizontalScrollBar()->maximum() > 0;
    for (TextPane* pane : {&first_, &second_})
        pane->setHorizontalScrollBarPolicy(needed ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
}

// While a text changes, one pane has its new lines sooner than the other and cannot follow yet; it must not lead then.
void ScrollTogether::align(const TextPane& leader, TextPane& follower) {
    if (std::exchange(aligning_, true)) return;
    follower.verticalScrollBar()->setValue(leader.verticalScrollBar()->value());
    aligning_ = false;
}

}  // namespace tolvan
