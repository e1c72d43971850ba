#include "editor/panes/RomanColours.h"

#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"
#include "editor/panes/RomanInput.h"
#include "platform/encoding/Ascii.h"
#include "platform/transliteration/ReplaceRomanChars.h"

#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>

namespace tolvan {
namespace {

constexpr char mark = '#';
constexpr std::size_t longestWord = 100;  // that is looked at letter by letter; nobody types a longer one

// Walks along a Roman line and its program line together, word by word: what a word becomes depends on nothing else.
class Walk {
  public:
    Walk(std::string_view roman, bool inSpan, const ProgramLine& program, const std::vector<ColourRun>& colours)
        : roman_(roman), inSpan_(inSpan), colours_(colours) {
        const bool isOdd = std::count(roman.begin(), roman.end(), mark) % 2 == 1;
        const bool endsInSpan = program.lineEnd != Font::Devanagari;
        if ((inSpan != isOdd) != endsInSpan) dropped_ = roman.rfind(mark);
    }

    std::vector<ColourRun> run() {
        while (at_ < roman_.size()) {
            if (roman_[at_] == mark)
                takeMark();
            else if (!inSpan_ && isLetter(roman_[at_]))
                takeWord();
            else
                add(1, colourAt(column_++));
        }
        return std::move(runs_);
    }

  private:
    void takeMark() {
        if (at_ == dropped_) return add(1, {});
        inSpan_ = !inSpan_;
        add(1, inSpan_ ? colourAt(column_) : column_ > 0 ? colourAt(column_ - 1) : QColor());
    }

    // A colour may change within a word: a comment can begin there.
    void takeWord() {
        const auto* const first = roman_.begin() + at_;
        const std::string_view word(first, std::find_if_not(first, roman_.end(), isLetter));
        const std::size_t start = column_;
        column_ += LineConvert(word).size();
        for (std::size_t done = 0; done < word.size();) {
            const std::size_t from = start + (done == 0 ? 0 : LineConvert(word.substr(0, done)).size());
            const std::size_t change = nextChange(from);
            std::size_t end = word.size();
            if (change < column_ && word.size() <= longestWord)
                for (end = done + 1; end < word.size() && start + LineConvert(word.substr(0, end)).size() < change;)
                    ++end;
            add(end - done, colourAt(from));
            done = end;
        }
    }

    void add(std::size_t length, QColor colour) {
        if (colour.isValid()) appendRun(runs_, at_, length, colour);
        at_ += length;
    }

    // The first run that ends after the column.
    const ColourRun* runAt(std::size_t column) const {
        const auto found =
            std::upper_bound(colours_.begin(), colours_.end(), column,
                             [](std::size_t at, const auto& run) { return at < run.start + run.length; });
        return found == colours_.end() ? nullptr : &*found;
    }
    QColor colourAt(std::size_t column) const {
        const ColourRun* const run = runAt(column);
        return run != nullptr && run->start <= column ? run->colour : QColor();
    }
    std::size_t nextChange(std::size_t column) const {
        const ColourRun* const run = runAt(column);
        if (run == nullptr) return std::string_view::npos;
        return run->start > column ? run->start : run->start + run->length;
    }

    std::string_view roman_;
    bool inSpan_;
    const std::vector<ColourRun>& colours_;
    std::size_t dropped_ = std::string_view::npos;  // the "#" that is never closed
    std::size_t at_ = 0;
    std::size_t column_ = 0;  // of the program line
    std::vector<ColourRun> runs_;
};

// The text that an input method shows and has not given stands within the line and keeps its own look.
QList<QTextLayout::FormatRange> formatsOf(const std::vector<ColourRun>& runs, const QTextLayout& layout) {
    const int at = layout.preeditAreaPosition();
    const auto preedit = static_cast<int>(layout.preeditAreaText().size());
    QList<QTextLayout::FormatRange> formats;
    for (const ColourRun& run : runs) {
        QTextCharFormat colour;
        colour.setForeground(run.colour);
        const auto start = static_cast<int>(run.start);
        const auto end = static_cast<int>(run.start + run.length);
        if (preedit == 0 || end <= at) {
            formats.append({start, end - start, colour});
        } else {
            if (start < at) formats.append({start, at - start, colour});
            const int rest = std::max(start, at);
            formats.append({rest + preedit, end - rest, colour});
        }
    }
    if (preedit > 0)
        for (const auto& range : layout.formats())
            if (range.start >= at && range.start + range.length <= at + preedit) formats.append(range);
    return formats;
}

}  // namespace

std::vector<ColourRun> romanColours(std::string_view roman, bool startsInSpan, const ProgramLine& program,
                                    const std::vector<ColourRun>& colours) {
    return Walk(roman, startsInSpan, program, colours).run();
}

RomanColours::RomanColours(RomanBox& roman, const ProgramBox& program, const RomanInput& input)
    : QObject(&roman), roman_(roman), program_(program), input_(input) {
    connect(&program, &ProgramBox::lineColoured, this,
            [this](int number) { colour(roman_.document()->findBlockByNumber(number)); });
    connect(&roman, &RomanBox::preeditChanged, this, [this] { colour(roman_.textCursor().block()); });
    for (QTextBlock block = roman.document()->begin(); block.isValid(); block = block.next()) colour(block);
}

void RomanColours::colour(const QTextBlock& block) {
    const auto line = static_cast<std::size_t>(block.blockNumber());
    const ProgramLine* const program = program_.line(block.blockNumber());
    if (!block.isValid() || program == nullptr || line >= input_.lines().count()) return;
    block.layout()->setFormats(formatsOf(romanColours(input_.lines().roman(line), input_.lines().isInSpan(line, 0),
                                                      *program, program_.coloursOf(program->text)),
                                         *block.layout()));
    roman_.document()->markContentsDirty(block.position(), block.length());
}

}  // namespace tolvan
