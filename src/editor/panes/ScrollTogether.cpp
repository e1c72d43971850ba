#include "editor/panes/ScrollTogether.h"

#include "editor/panes/TextPane.h"

#include <QScrollBar>

namespace tolvan {

ScrollTogether::ScrollTogether(TextPane& first, TextPane& second) : first_(first), second_(second) {
    QScrollBar* firstBar = first.verticalScrollBar();
    QScrollBar* secondBar = second.verticalScrollBar();
    connect(firstBar, &QScrollBar::valueChanged, secondBar, &QScrollBar::setValue);
    connect(secondBar, &QScrollBar::valueChanged, firstBar, &QScrollBar::setValue);
    for (TextPane* pane : {&first, &second}) {
        connect(pane->verticalScrollBar(), &QScrollBar::rangeChanged, this, &ScrollTogether::align);
        connect(pane->horizontalScrollBar(), &QScrollBar::rangeChanged, this, &ScrollTogether::showSameBars);
    }
    showSameBars();
    align();
}

// A pane with a bar below its text shows fewer lines, and would scroll farther than the other.
void ScrollTogether::showSameBars() {
    const bool needed = first_.horizontalScrollBar()->maximum() > 0 || second_.horizontalScrollBar()->maximum() > 0;
    for (TextPane* pane : {&first_, &second_})
        pane->setHorizontalScrollBarPolicy(needed ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
}

void ScrollTogether::align() {
    second_.verticalScrollBar()->setValue(first_.verticalScrollBar()->value());
}

}  // namespace tolvan
