#include "platform/richtext/RtfReader.h"

#include "platform/encoding/Ascii.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace tolvan {
namespace {

constexpr std::string_view latinName = "Times New Roman";

// A document while it is being read: characters in the format that is given with them.
class DocumentBuilder {
  public:
    void append(std::string_view text, const RichFormat& format) {
        if (text.empty()) return;
        endParagraph();
        if (wide_) document_.wide.push_back({document_.text.size(), *wide_});
        wide_.reset();
        appendText(text, format);
    }
    // The first character that is appended next stands for this one.
    void wideCharacter(char16_t unit) { wide_ = unit; }
    // The break is written when text follows: the last paragraph has none.
    void paragraph(const RichFormat& format) {
        endParagraph();
        paragraphEnd_ = format;
    }
    std::uint32_t fontIndex(std::string_view name) {
        const auto [entry, added] =
            indexOfName_.try_emplace(std::string(name), static_cast<std::uint32_t>(document_.fontNames.size()));
        if (added) document_.fontNames.emplace_back(name);
        return entry->second;
    }
    bool empty() const { return document_.text.empty() && !paragraphEnd_; }
    RichDocument take() { return std::move(document_); }

  private:
    void endParagraph() {
        if (paragraphEnd_) appendText(lineEnd, *paragraphEnd_);
        paragraphEnd_.reset();
    }
    void appendText(std::string_view text, const RichFormat& format) {
        document_.text.append(text, fontOfName(document_.fontNames[format.fontName]));
        if (document_.runs.empty() || document_.runs.back().format != format) document_.runs.push_back({0, format});
        document_.runs.back().length += text.size();
    }

    RichDocument document_;
    std::unordered_map<std::string, std::uint32_t> indexOfName_;
    std::optional<RichFormat> paragraphEnd_;
    std::optional<char16_t> wide_;
};

// The tables at the head of a document, while they are being read and then as what \f and \cf refer to.
class FontTable {
  public:
    void number(int fontNumber) { number_ = fontNumber; }
    void text(std::string_view piece) {
        for (const char character : piece) {
            if (character == ';')
                endEntry();
            else if (!name_.empty() || character != ' ')
                name_ += character;
        }
    }
    void endEntry() {
        if (!name_.empty()) names_.insert_or_assign(number_, std::move(name_));
        name_.clear();
    }
    const std::string* find(int fontNumber) const {
        const auto found = names_.find(fontNumber);
        return found == names_.end() ? nullptr : &found->second;
    }

  private:
    std::unordered_map<int, std::string> names_;
    int number_ = 0;
    std::string name_;
};

class ColourTable {
  public:
    void component(unsigned shift, int value) {
        colour_ = colour_.value_or(0) & ~(0xFFU << shift);
        *colour_ |= static_cast<std::uint32_t>(std::clamp(value, 0, 255)) << shift;
    }
    void text(std::string_view piece) {
        for (const char character : piece)
            if (character == ';') {
                colours_.push_back(colour_);
                colour_.reset();
            }
    }
    std::optional<std::uint32_t> find(int index) const {
        const auto position = static_cast<std::size_t>(index);
        return index >= 0 && position < colours_.size() ? colours_[position] : std::nullopt;
    }

  private:
    std::vector<std::optional<std::uint32_t>> colours_;
    std::optional<std::uint32_t> colour_;
};

class RtfReader {
  public:
    explicit RtfReader(std::string_view rtf) : rtf_(rtf) { setFont(defaultFont_); }

    RichDocument read() {
        while (position_ < rtf_.size() && !ended_) readNext();
        return builder_.take();
    }

  private:
    enum class Destination : std::uint8_t { Body, Fonts, Colours, Skipped };
    struct Group {
        int fontNumber = 0;
        RichFormat format;
        Destination destination = Destination::Body;
    };
    struct ControlWord {
        std::string_view name;
        std::optional<int> number;
    };
    // Deeper groups are read like the text around them.
    static constexpr std::size_t maxGroups = 1000;

    void readNext() {
        switch (rtf_[position_]) {
            case '{':
                ++position_;
                openGroup();
                break;
            case '}':
                ++position_;
                closeGroup();
                break;
            case '\\':
                ++position_;
                readControl();
                break;
            case '\r':
            case '\n':
                ++position_;
                break;
            default:
                readText();
        }
    }

    void openGroup() {
        if (groups_.size() < maxGroups)
            groups_.push_back(group_);
        else
            ++groupsTooDeep_;
    }
    void closeGroup() {
        if (groupsTooDeep_ > 0) {
            --groupsTooDeep_;
            return;
        }
        if (groups_.empty()) return;
        if (group_.destination == Destination::Fonts) fonts_.endEntry();
        const bool endsTable = isTable(group_.destination) && !isTable(groups_.back().destination);
        group_ = groups_.back();
        groups_.pop_back();
        if (endsTable) endTable();
        ended_ = groups_.empty();
    }
    static bool isTable(Destination destination) {
        return destination == Destination::Fonts || destination == Destination::Colours;
    }
    // Blanks between the tables of the head are no text.
    void endTable() {
        setFont(group_.fontNumber);
        if (!builder_.empty()) return;
        while (position_ < rtf_.size() && rtf_[position_] == ' ') ++position_;
    }

    void readText() {
        const std::size_t end = std::min(rtf_.find_first_of("\\{}\r\n", position_), rtf_.size());
        addText(rtf_.substr(position_, end - position_));
        position_ = end;
    }
    void addText(std::string_view text) {
        switch (group_.destination) {
            case Destination::Body:
                builder_.append(text, group_.format);
                break;
            case Destination::Fonts:
                fonts_.text(text);
                break;
            case Destination::Colours:
                colours_.text(text);
                break;
            case Destination::Skipped:
                break;
        }
    }

    void readControl() {
        if (position_ == rtf_.size()) return;
        if (isLetter(rtf_[position_]))
            obey(readControlWord());
        else
            obeySymbol(rtf_[position_++]);
    }
    ControlWord readControlWord() {
        const std::size_t start = position_;
        while (position_ < rtf_.size() && isLetter(rtf_[position_])) ++position_;
        ControlWord word{rtf_.substr(start, position_ - start), readNumber()};
        if (position_ < rtf_.size() && rtf_[position_] == ' ') ++position_;
        return word;
    }
    std::optional<int> readNumber() {
        static constexpr int limit = 100'000'000;  // no number of a real document is larger
        const bool negative = position_ + 1 < rtf_.size() && rtf_[position_] == '-' && isDigit(rtf_[position_ + 1]);
        if (negative) ++position_;
        if (position_ == rtf_.size() || !isDigit(rtf_[position_])) return std::nullopt;
        int number = 0;
        for (; position_ < rtf_.size() && isDigit(rtf_[position_]); ++position_)
            if (number < limit) number = number * 10 + (rtf_[position_] - '0');
        return negative ? -number : number;
    }

    void obeySymbol(char symbol) {
        switch (symbol) {
            case '\\':
            case '{':
            case '}':
                addText(std::string_view(&symbol, 1));
                break;
            case '\'':
                readCode();
                break;
            case '*':
                setDestination(Destination::Skipped);
                break;
            case '~':
                addText("\xA0");
                break;
            case '_':
                addText("-");
                break;
            case '\r':
            case '\n':
                endParagraph();
                break;
            default:
                break;
        }
    }
    void readCode() {
        if (rtf_.size() - position_ < 2) {
            position_ = rtf_.size();
            return;
        }
        const int high = digitValue(rtf_[position_]);
        const int low = digitValue(rtf_[position_ + 1]);
        if (high == noDigit || low == noDigit) return;
        position_ += 2;
        const char character = static_cast<char>(high * 16 + low);
        addText(std::string_view(&character, 1));
    }
    void endParagraph() {
        if (group_.destination == Destination::Body) builder_.paragraph(group_.format);
    }

    void readWide(int unit) {
        if (group_.destination == Destination::Body) builder_.wideCharacter(static_cast<char16_t>(unit));
    }

    void obey(const ControlWord& word);
    void setFont(int number) {
        group_.fontNumber = number;
        const std::string* name = fonts_.find(number);
        group_.format.fontName = builder_.fontIndex(name != nullptr          ? *name
                                                    : number == defaultFont_ ? latinName
                                                                             : std::string_view());
    }
    void setDestination(Destination destination) {
        if (group_.destination != Destination::Skipped) group_.destination = destination;
    }
    void setSize(int halfPoints) { group_.format.halfPoints = std::clamp(halfPoints, 2, 3200); }
    void setPlain() {
        group_.format = {};
        setFont(defaultFont_);
    }
    void setDefaultFont(int number) {
        defaultFont_ = number;
        setFont(number);
    }
    void setColour(int index) { group_.format.colour = colours_.find(index); }
    void takeFontNumber(int number) {
        if (group_.destination == Destination::Fonts)
            fonts_.number(number);
        else
            setFont(number);
    }
    static void skipGroup(RtfReader& reader, std::optional<int> /*number*/) {
        reader.setDestination(Destination::Skipped);
    }
    void skipBinary(int count) {
        position_ += std::min(static_cast<std::size_t>(std::max(count, 0)), rtf_.size() - position_);
    }

    std::string_view rtf_;
    std::size_t position_ = 0;
    bool ended_ = false;
    DocumentBuilder builder_;
    Group group_;
    std::vector<Group> groups_;  // those around the one being read
    std::size_t groupsTooDeep_ = 0;
    int defaultFont_ = 0;
    FontTable fonts_;
    ColourTable colours_;
};

// The control words that matter; all others are skipped.
void RtfReader::obey(const ControlWord& word) {
    struct Row {
        std::string_view name;
        void (*obey)(RtfReader& reader, std::optional<int> number);
    };
    static constexpr auto rows = std::to_array<Row>({
        {"f", [](RtfReader& reader, std::optional<int> number) { reader.takeFontNumber(number.value_or(0)); }},
        {"fs", [](RtfReader& reader, std::optional<int> number) { reader.setSize(number.value_or(24)); }},
        {"cf", [](RtfReader& reader, std::optional<int> number) { reader.setColour(number.value_or(0)); }},
        {"line", [](RtfReader& reader, std::optional<int>) { reader.addText(lineEnd); }},
        {"u", [](RtfReader& reader, std::optional<int> number) { reader.readWide(number.value_or('?')); }},
        {"par", [](RtfReader& reader, std::optional<int>) { reader.endParagraph(); }},
        {"tab", [](RtfReader& reader, std::optional<int>) { reader.addText("\t"); }},
        {"plain", [](RtfReader& reader, std::optional<int>) { reader.setPlain(); }},
        {"deff", [](RtfReader& reader, std::optional<int> number) { reader.setDefaultFont(number.value_or(0)); }},
        {"fonttbl", [](RtfReader& reader, std::optional<int>) { reader.setDestination(Destination::Fonts); }},
        {"colortbl", [](RtfReader& reader, std::optional<int>) { reader.setDestination(Destination::Colours); }},
        {"red", [](RtfReader& reader, std::optional<int> number) { reader.colours_.component(0, number.value_or(0)); }},
        {"green",
         [](RtfReader& reader, std::optional<int> number) { reader.colours_.component(8, number.value_or(0)); }},
        {"blue",
         [](RtfReader& reader, std::optional<int> number) { reader.colours_.component(16, number.value_or(0)); }},
        {"bin", [](RtfReader& reader, std::optional<int> number) { reader.skipBinary(number.value_or(0)); }},
        {"stylesheet", skipGroup},
        {"info", skipGroup},
        {"pict", skipGroup},
        {"object", skipGroup},
        {"header", skipGroup},
        {"footer", skipGroup},
        {"footnote", skipGroup},
    });
    const auto* row =
        std::find_if(rows.begin(), rows.end(), [&](const Row& candidate) { return candidate.name == word.name; });
    if (row != rows.end()) row->obey(*this, word.number);
}

}  // namespace

RichDocument readRtf(std::string_view rtf) {
    if (rtf.starts_with("{\\rtf")) return RtfReader(rtf).read();
    DocumentBuilder plain;
    plain.append(rtf, {plain.fontIndex(latinName), {}, RichFormat().halfPoints});
    return plain.take();
}

Font fontOfName(std::string_view name) {
    if (name == "Sanskrit 1.2") return Font::Devanagari;
    return name == latinName ? Font::Latin : Font::Other;
}

}  // namespace tolvan
