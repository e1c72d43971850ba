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
}  // namespace marker

class WorkingLine {
  public:
    explicit WorkingLine(StyledView text) : text_(text) {}

    Position pos(std::string_view word) const {
        const std::size_t found = text_.text().find(word);
        return found == std::string_view::npos ? 0 : static_cast<Position>(found) + 1;
    }
    bool contains(std::string_view word) const { return pos(word) > 0; }

    // At most `count` characters from position `start`; none if `count` is negative.
    StyledView piece(Position start, Position count) const {
        if (count <= 0) return {};
        return text_.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(count));
    }
    StyledView head(Position count) const { return piece(1, count); }
    StyledView from(Position start) const { return piece(start, static_cast<Position>(text_.size())); }
    StyledView text() const { return text_; }

  private:
    StyledView text_;
};

class PartList {
  public:
    explicit PartList(std::vector<StatementPart>& parts) : parts_(parts) {}

    void script(std::string_view text) { parts_.push_back({StatementPart::Kind::Script, text, {}}); }
    void variable(StyledView name) { parts_.push_back({StatementPart::Kind::Variable, {}, StyledText(name)}); }
    void line(StyledView text) { parts_.push_back({StatementPart::Kind::Line, {}, workingLine(text)}); }
    void argument(StyledView text) { parts_.push_back({StatementPart::Kind::Line, {}, workingStatement(text)}); }

    // "(10, 20)": without the character at either end.
    void coordinates(StyledView pair) { argument(pair.size() < 2 ? StyledView() : pair.substr(1, pair.size() - 2)); }

  private:
    std::vector<StatementPart>& parts_;
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
    parts.line(line.head(line.pos(words::comment) - 1));
}

void cutCountedLoop(const WorkingLine& whole, PartList& parts) {
    const StyledText shortened = withoutWord(whole.text(), upTo);
    const WorkingLine line(shortened);
    const Position s = line.pos(words::loopVariable);
    const Position t = line.pos(words::loopEnd);
    parts.script("for ");
    parts.variable(line.head(s - 1));
    parts.script(" = ");
    parts.argument(line.piece(s + 5, t - s - 5));
    parts.script(" to ");
    parts.argument(line.from(t + 3));
}

// End point, start point and colour of a line or a box. The host takes the end point first.
void cutTwoPoints(const WorkingLine& line, std::string_view colourMarker, PartList& parts) {
    const Position p = line.pos(marker::from);
    const Position q = line.pos(marker::upTo);
    const Position r = line.pos(colourMarker);
    parts.coordinates(trimBlanks(p > 0 ? line.piece(p + 6, q - p - 6) : line.head(q)));
    if (p > 0) {
        parts.script(",");
        parts.coordinates(trimBlanks(line.head(p)));
    }
    if (r > 0) {
        parts.script(p > 0 ? "," : ",,,");
        parts.argument(trimBlanks(line.piece(q + 6, r - q - 6)));
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
    parts.coordinates(trimBlanks(line.head(v)));
    if (r > 0) {
        parts.script(",");
        parts.argument(line.piece(v + 3, r - v - 2));
    }
}

void cutCircle(const WorkingLine& line, PartList& parts) {
    const Position p = line.pos(marker::from);
    const Position r = line.pos(marker::colour);
    const Position ofRadius = line.pos(marker::ofRadius);
    const Position radiusEnd = ofRadius > 0 ? ofRadius : line.pos(marker::radius);
    const Position a = ofRadius > 0 ? ofRadius : line.pos(marker::which);
    parts.script("ParentForm.DrawCircle ");
    parts.coordinates(trimBlanks(line.head(p - 1)));
    parts.script(", ");
    parts.argument(line.piece(p + 6, radiusEnd - p - 6));
    parts.script(",");
    if (r > 0) parts.argument(line.piece(a + 8, r - a - 8));
    parts.script(line.contains(marker::filled) ? ", TRUE" : ", FALSE");
}

void cutFunctionEnd(const WorkingLine&, PartList& parts) {
    parts.script("End Function");
}

struct StatementForm {
    enum class Order {
        Any,
        AsListed
    };  // where the later words may begin: anywhere, or behind the beginning of the first
    std::array<std::string_view, 4> words;  // unused ones are empty, which every line holds
    Order order;
    void (*cut)(const WorkingLine&, PartList&);
};

constexpr auto forms = std::to_array<StatementForm>({
    {{words::comment}, StatementForm::Order::Any, cutComment},
    {{words::loopEnd, words::loopVariable}, StatementForm::Order::Any, cutCountedLoop},
    {{upTo, "re\""_deva, "Aao"_deva}, StatementForm::Order::Any, cutLine},
    {{upTo, "Aayt"_deva, "kaF"_deva}, StatementForm::Order::Any, cutBox},
    {{" ib<Ë "_deva, " kaF"_deva}, StatementForm::Order::Any, cutPoint},
    {{"iÇJya"_deva, "pasun"_deva, "vtuR¦"_deva, "kaF"_deva}, StatementForm::Order::Any, cutCircle},
    {{words::function, words::end}, StatementForm::Order::AsListed, cutFunctionEnd},
});

bool hasForm(const StatementForm& form, std::string_view line) {
    const std::size_t first = line.find(form.words[0]);
    if (first == std::string_view::npos) return false;
    const std::size_t start = form.order == StatementForm::Order::AsListed ? first + 1 : 0;
    return std::all_of(form.words.begin() + 1, form.words.end(),
                       [&](std::string_view word) { return line.find(word, start) != std::string_view::npos; });
}

}  // namespace

StyledText workingLine(StyledView line) {
    StyledText text(" ", Font::Latin);
    text.append(line);
    return text;
}

StyledText workingStatement(StyledView line) {
    StyledText text = workingLine(line);
    text.append(" ", Font::Latin);
    return text;
}

void cutStatement(const StyledText& line, std::vector<StatementPart>& parts) {
    const auto* form =
        std::find_if(forms.begin(), forms.end(), [&](const StatementForm& one) { return hasForm(one, line.text()); });
    if (form == forms.end()) return;
    PartList list(parts);
    form->cut(WorkingLine(line), list);
}

}  // namespace tolvan
