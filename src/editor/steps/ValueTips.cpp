#include "editor/steps/ValueTips.h"

#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"
#include "guide/Line.h"
#include "platform/encoding/Unicode.h"
#include "platform/richtext/UnicodeText.h"

#include <QHelpEvent>
#include <QTextBlock>
#include <QToolTip>

namespace tolvan {

ValueTips::ValueTips(RomanBox& roman, ProgramBox& program, ValueOf valueOf)
    : roman_(roman), program_(program), valueOf_(std::move(valueOf)) {
    roman.viewport()->installEventFilter(this);
    program.viewport()->installEventFilter(this);
}

std::string ValueTips::wordAt(std::size_t line, std::size_t column, bool inProgram) const {
    const guide::Line read(roman_.line(line));
    for (const guide::Word& word : read.words) {
        const guide::Columns& place = inProgram ? word.program : word.roman;
        if (word.kind == guide::Word::Kind::Name && place.from <= column && column <= place.to)
            return std::string(word.glyphs);
    }
    return {};
}

bool ValueTips::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QObject::eventFilter(watched, event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const bool inProgram = watched == program_.viewport();
    TextPane& pane = inProgram ? static_cast<TextPane&>(program_) : roman_;
    const QTextCursor place = pane.cursorForPosition(help->pos());
    const std::string word = wordAt(static_cast<std::size_t>(place.blockNumber()),
                                    static_cast<std::size_t>(place.positionInBlock()), inProgram);
    const std::optional<std::string> value = word.empty() ? std::nullopt : valueOf_(word, place.blockNumber() + 1);
    if (!value) return false;
    QToolTip::showText(help->globalPos(),
                       QString::fromStdString(unicodeOfCodes(word) + " = " + unicodeOfInternalText(*value)),
                       pane.viewport());
    return true;
}

}  // namespace tolvan
