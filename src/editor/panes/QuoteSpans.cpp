#include "editor/panes/QuoteSpans.h"

#include "editor/panes/RomanBox.h"
#include "editor/panes/RomanInput.h"

#include <QKeyEvent>

namespace tolvan {

QuoteSpans::QuoteSpans(RomanBox& roman, const RomanInput& input) : roman_(roman), input_(input) {
    roman.installEventFilter(this);
}

bool QuoteSpans::eventFilter(QObject* watched, QEvent* event) {
    if (enabled_ && event->type() == QEvent::KeyPress && !roman_.isLocked() &&
        static_cast<QKeyEvent*>(event)->text() == QStringLiteral("\"") && !input_.caretIsInSpan()) {
        roman_.replaceSelection("#\"#");
        return true;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace tolvan
