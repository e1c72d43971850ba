#include "editor/guide/FindingMarks.h"

#include "dialogs/LookColours.h"
#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"
#include "editor/panes/RomanInput.h"
#include "guide/HelpTopics.h"
#include "platform/richtext/UnicodeText.h"

#include <QHelpEvent>
#include <QTextBlock>
#include <QToolTip>

#include <algorithm>

namespace tolvan {
namespace {

// An empty place gets one column, so that its underline can be seen.
guide::Columns seen(guide::Columns place, std::size_t length) {
    place.to = std::min(std::max(place.to, place.from + 1), length);
    place.from = std::min(place.from, place.to > 0 ? place.to - 1 : 0);
    return place;
}

QTextCharFormat waveOf(guide::Weight weight) {
    QTextCharFormat format;
    const bool isError = weight == guide::Weight::Error;
    format.setUnderlineStyle(isError ? QTextCharFormat::WaveUnderline : QTextCharFormat::DotLine);
    format.setUnderlineColor(isError ? look::colours().error : look::colours().advice);
    return format;
}

}  // namespace

FindingMarks::FindingMarks(RomanBox& roman, ProgramBox& program, const RomanInput& input)
    : roman_(roman), program_(program), input_(input) {
    roman.viewport()->installEventFilter(this);
    program.viewport()->installEventFilter(this);
    connect(&roman, &TextPane::lookChanged, this, [this] {
        markPlaces(roman_, false);
        markPlaces(program_, true);
    });
}

void FindingMarks::setFindings(const std::vector<guide::Finding>& findings) {
    findings_ = findings;
    show();
}

void FindingMarks::setRunFailure(const std::optional<guide::RunFailure>& failure) {
    if (!failure && !failure_) return;
    failure_.reset();
    if (failure && failure->line > 0 && failure->line <= input_.lines().count()) {
        failure_.emplace();
        failure_->line = failure->line;
        failure_->roman = romanPlace(*failure);
        failure_->kind = guide::failedRun;
        failure_->text = failure->message;
    }
    show();
}

void FindingMarks::show() {
    shown_ = findings_;
    if (failure_) shown_.push_back(*failure_);
    markPlaces(roman_, false);
    markPlaces(program_, true);
}

guide::Columns FindingMarks::programPlace(const guide::Finding& finding) const {
    const std::size_t line = finding.line - 1;
    if (line >= input_.lines().count()) return finding.program;
    return {input_.lines().programColumn(line, finding.roman.from),
            input_.lines().programColumn(line, finding.roman.to)};
}

// Where it is not known what failed in the line, it is the line without the blanks before it.
guide::Columns FindingMarks::romanPlace(const guide::RunFailure& failure) const {
    const std::size_t line = failure.line - 1;
    if (failure.program.to > failure.program.from)
        return {input_.lines().romanColumn(line, failure.program.from),
                input_.lines().romanColumn(line, failure.program.to)};
    const std::string& roman = input_.lines().roman(line);
    return {std::min(roman.find_first_not_of(' '), roman.size()), roman.size()};
}

void FindingMarks::markPlaces(TextPane& pane, bool isProgram) {
    QList<QTextEdit::ExtraSelection> places;
    std::map<int, TextPane::LineMark> lines;
    for (const guide::Finding& finding : shown_) {
        const int line = static_cast<int>(finding.line);
        const QTextBlock block = pane.document()->findBlockByNumber(line - 1);
        if (!block.isValid()) continue;
        const bool isError = finding.weight == guide::Weight::Error;
        TextPane::LineMark& mark = lines.emplace(line, TextPane::LineMark::Advice).first->second;
        if (isError) mark = TextPane::LineMark::Error;
        const guide::Columns place =
            seen(isProgram ? programPlace(finding) : finding.roman, static_cast<std::size_t>(block.length() - 1));
        QTextCursor cursor(block);
        cursor.setPosition(block.position() + static_cast<int>(place.from));
        cursor.setPosition(block.position() + static_cast<int>(place.to), QTextCursor::KeepAnchor);
        places.append({cursor, waveOf(finding.weight)});
    }
    pane.setExtraSelections(places);
    pane.setLineMarks(std::move(lines));
}

const guide::Finding* FindingMarks::at(int line, std::size_t column, bool inProgram) const {
    const guide::Finding* inLine = nullptr;
    for (const guide::Finding& finding : shown_) {
        if (static_cast<int>(finding.line) != line) continue;
        const guide::Columns place = inProgram ? programPlace(finding) : finding.roman;
        if (place.from <= column && column <= place.to) return &finding;
        if (inLine == nullptr) inLine = &finding;
    }
    return inLine;
}

const guide::Finding* FindingMarks::atCaret() const {
    const QTextCursor caret = roman_.textCursor();
    return at(caret.blockNumber() + 1, static_cast<std::size_t>(caret.positionInBlock()), false);
}

bool FindingMarks::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QObject::eventFilter(watched, event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const bool isProgram = watched == program_.viewport();
    TextPane& pane = isProgram ? static_cast<TextPane&>(program_) : roman_;
    const QTextCursor place = pane.cursorForPosition(help->pos());
    const guide::Finding* finding =
        at(place.blockNumber() + 1, static_cast<std::size_t>(place.positionInBlock()), isProgram);
    if (finding == nullptr)
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), QString::fromStdString(unicodeOf(finding->text)), pane.viewport());
    return true;
}

}  // namespace tolvan
