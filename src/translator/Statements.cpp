#include "translator/Statements.h"

#include "platform/encoding/Deva.h"
#include "translator/Blanks.h"
#include "translator/Keywords.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tolvan {
namespace {

using Position = std::ptrdiff_t;  // of a character in a working line, from 1; 0: not there

constexpr std::string_view upTo = "py¡t"_deva;

// Arguments stand between these; the blanks belong to them.
namespace marker {
constexpr std::string_view from = " pasun "_deva;
constexpr std::string_view upTo = " py¡t "_deva;
constexpr std::string_view on = " vr "_deva;
constexpr std::string_view lineColour = " r<gacI "_deva;
constexpr std::string_view colour = " r<gace "_deva;
constexpr std::string_view pointColour = " r<gaca "_deva;
constexpr std::string_view filled = " -rlele "_deva;
constexpr std::string_view radius = " iÇJya "_deva;
constexpr std::string_view ofRadius = " iÇJyace "_deva;
constexpr std::string_view which = " Aaslele "_deva;
static_assert(which.size() == ofRadius.size(), "either one stands before the colour of a circle");
}  // namespace marker

class WorkingLine {
  public:
    explicit WorkingLine(StyledView text) : text_(text) {}

    Position pos(std::string_view word) const {
        const std::size_t found = text_.text().find(word);
        return found == std::string_view::npos ? 0 : static_cast<Position>(found) + 1;
    }
    bool contains(std::string_view word) const { return pos(word) > 0; }

    // From position `start` to the one before `end`; nothing if `end` is not after it.
    StyledView between(Position start, Position end) const {
        if (end <= start) return {};
        return text_.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(end - start));
    }
    StyledView upTo(Position last) const { return between(1, last + 1); }
    StyledView from(Position start) const { return text_.substr(static_cast<std::size_t>(start - 1)); }
    StyledView text() const { return text_; }

  private:
    StyledView text_;
};

// An argument begins with the blank that ends the marker before it. A missing marker counts like one at position 0.
constexpr Position lastOf(std::string_view marker, Position position) {
    return position + static_cast<Position>(marker.size()) - 1;
}

class PartList {
  public:
    PartList(std::vector<StatementPart>& parts, StyledView line) : parts_(parts), line_(line) {}

    // What is added from now on is cut out of `shortened`, which is the line without this word.
    void takeFrom(StyledView shortened, std::string_view word) {
        shortened_ = shortened;
        removed_ = word;
    }

    void script(std::string_view text) { parts_.push_back({StatementPart::Kind::Script, text, {}}); }
    void variable(StyledView name) {
        const StyledView word = trimBlanks(name);
        parts_.push_back({StatementPart::Kind::Variable, {}, StyledText(word), startOf(word)});
    }
    void line(StyledView text) { parts_.push_back({StatementPart::Kind::Line, {}, workingLine(text), startOf(text)}); }
    void argument(StyledView text) {
        parts_.push_back({StatementPart::Kind::Line, {}, workingStatement(text), startOf(text)});
    }

    // "(10, 20)": without the character at either end.
    void coordinates(StyledView pair) { argument(pair.size() < 2 ? StyledView() : pair.substr(1, pair.size() - 2)); }

  private:
    std::ptrdiff_t startOf(StyledView slice) const {
        if (slice.empty()) return 0;
        if (shortened_.empty()) return slice.text().data() - line_.text().data();
        const std::ptrdiff_t start = slice.text().data() - shortened_.text().data();
        std::ptrdiff_t removed = 0;
        for (std::size_t found = 0; (found = line_.text().find(removed_, found)) != std::string_view::npos;) {
            if (static_cast<std::ptrdiff_t>(found) > start + removed) break;
            found += removed_.size();
            removed += static_cast<std::ptrdiff_t>(removed_.size());
        }
        return start + removed;
    }

    std::vector<StatementPart>& parts_;
    StyledView line_;
    StyledView shortened_;
    std::string_view removed_;
};

StyledText withoutWord(StyledView line, std::string_view word) {
    StyledText rest;
    std::size_t start = 0;
    for (std::size_t found = 0; (found = line.text().find(word, start)) != std::string_view::npos;) {
        rest.append(line.substr(start, found - start));
        start = found + word.size();
    }
    rest.append(line.substr(start));
    return rest;
}

void cutComment(const WorkingLine& line, PartList& parts) {
    parts.line(line.upTo(line.pos(words::comment) - 1));
}

void cutCountedLoop(const WorkingLine& whole, PartList& parts) {
    const StyledText shortened = withoutWord(whole.text(), upTo);
    parts.takeFrom(shortened, upTo);
    const WorkingLine line(shortened);
    const Position s = line.pos(words::loopVariable);
    const Position t = line.pos(words::loopEnd);
    parts.script("for ");
    parts.variable(line.upTo(s - 1));
    parts.script(" = ");
    parts.argument(line.between(lastOf(words::loopVariable, s), t));
    parts.script(" to ");
    parts.argument(line.from(lastOf(words::loopEnd, t)));
}

// End point, start point and colour of a line or a box. The host takes the end point first.
void cutTwoPoints(const WorkingLine& line, std::string_view colourMarker, PartList& parts) {
    const Position p = line.pos(marker::from);
    const Position q = line.pos(marker::upTo);
    const Position r = line.pos(colourMarker);
    parts.coordinates(trimBlanks(p > 0 ? line.between(lastOf(marker::from, p), q) : line.upTo(q)));
    if (p > 0) {
        parts.script(",");
        parts.coordinates(trimBlanks(line.upTo(p)));
    }
    if (r > 0) {
        parts.script(p > 0 ? "," : ",,,");
        parts.argument(trimBlanks(line.between(lastOf(marker::upTo, q) + 1, r)));
    }
}

void cutLine(const WorkingLine& line, PartList& parts) {
    parts.script("parentform.DrawLine ");
    cutTwoPoints(line, marker::lineColour, parts);
}

void cutBox(const WorkingLine& line, PartList& parts) {
    parts.script("parentform.DrawBox ");
    cutTwoPoints(line, marker::colour, parts);
    if (line.contains(marker::filled)) parts.script(", TRUE");
}

void cutPoint(const WorkingLine& line, PartList& parts) {
    const Position v = line.pos(marker::on);
    const Position r = line.pos(marker::pointColour);
    parts.script("ParentForm.DrawPoint ");
    parts.coordinates(trimBlanks(line.upTo(v)));
    if (r > 0) {
        parts.script(",");
        parts.argument(line.between(lastOf(marker::on, v), r + 1));
    }
}

void cutCircle(const WorkingLine& line, PartList& parts) {
    const Position p = line.pos(marker::from);
    const Position r = line.pos(marker::colour);
    const Position ofRadius = line.pos(marker::ofRadius);
    const Position radiusEnd = ofRadius > 0 ? ofRadius : line.pos(marker::radius);
    const Position a = ofRadius > 0 ? ofRadius : line.pos(marker::which);  // before the colour
    parts.script("ParentForm.DrawCircle ");
    parts.coordinates(trimBlanks(line.upTo(p - 1)));
    parts.script(", ");
    parts.argument(line.between(lastOf(marker::from, p), radiusEnd));
    parts.script(",");
    if (r > 0) parts.argument(line.between(lastOf(marker::which, a), r));
    parts.script(line.contains(marker::filled) ? ", TRUE" : ", FALSE");
}

void cutFunctionEnd(const WorkingLine&, PartList& parts) {
    parts.script("End Function");
}

struct StatementForm {
    enum class Order { Any, FirstBeforeOthers };

    std::array<std::string_view, 4> words;  // unused ones are empty, which every line holds
    Order order;
    StatementKind kind;
    void (*cut)(const WorkingLine&, PartList&);
};

// In the order in which a line is tested for them.
constexpr auto forms = std::to_array<StatementForm>({
    {{words::comment}, StatementForm::Order::Any, StatementKind::Comment, cutComment},
    {{words::loopEnd, words::loopVariable}, StatementForm::Order::Any, StatementKind::CountedLoop, cutCountedLoop},
    {{upTo, "re\""_deva, "Aao"_deva}, StatementForm::Order::Any, StatementKind::Line, cutLine},
    {{upTo, "Aayt"_deva, "kaF"_deva}, StatementForm::Order::Any, StatementKind::Box, cutBox},
    {{" ib<Ë "_deva, " kaF"_deva}, StatementForm::Order::Any, StatementKind::Point, cutPoint},
    {{"iÇJya"_deva, "pasun"_deva, "vtuR¦"_deva, "kaF"_deva},
     StatementForm::Order::Any,
     StatementKind::Circle,
     cutCircle},
    {{words::function, words::end},
     StatementForm::Order::FirstBeforeOthers,
     StatementKind::FunctionEnd,
     cutFunctionEnd},
});

bool hasForm(const StatementForm& form, std::string_view line) {
    const std::size_t first = line.find(form.words[0]);
    if (first == std::string_view::npos) return false;
    const std::size_t start = form.order == StatementForm::Order::FirstBeforeOthers ? first + 1 : 0;
    return std::all_of(form.words.begin() + 1, form.words.end(),
                       [&](std::string_view word) { return line.find(word, start) != std::string_view::npos; });
}

const StatementForm* findForm(std::string_view line) {
    const auto* form =
        std::find_if(forms.begin(), forms.end(), [&](const StatementForm& one) { return hasForm(one, line); });
    return form == forms.end() ? nullptr : form;
}

}  // namespace

StatementKind statementKind(std::string_view line) {
    const StatementForm* form = findForm(line);
    return form == nullptr ? StatementKind::General : form->kind;
}

bool isFunctionHead(std::string_view line) {
    return line.find(words::function) != std::string_view::npos && line.find(words::end) == std::string_view::npos;
}

StyledText workingLine(StyledView line) {
    StyledText text(" ", Font::Latin);
    text.append(line);
    return text;
}

StyledText workingStatement(StyledView line) {
    StyledText text;
    setWorkingStatement(line, text);
    return text;
}

void setWorkingStatement(StyledView line, StyledText& text) {
    text.clear();
    text.append(" ", Font::Latin);
    text.append(line);
    text.append(" ", Font::Latin);
}

void cutStatement(const StyledText& line, std::vector<StatementPart>& parts) {
    const StatementForm* form = findForm(line.text());
    if (form == nullptr) return;
    PartList list(parts, line);
    form->cut(WorkingLine(line), list);
}

}  // namespace tolvan
