#include "sheet/Sheet.h"

#include "guide/Guide.h"
#include "guide/Line.h"
#include "platform/encoding/Ascii.h"
#include "platform/encoding/Unicode.h"
#include "platform/encoding/Utf8.h"
#include "platform/encoding/Windows1252.h"
#include "platform/richtext/Letters.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "platform/transliteration/UnicodeToRoman.h"

#include <algorithm>

namespace tolvan {
namespace {

// In points.
constexpr double margin = 48;
constexpr double textWidth = sheetSize.width() - 2 * margin;
constexpr double bottom = sheetSize.height() - margin - 20;  // the footer is below
constexpr double programSize = 13;
constexpr double romanSize = 9;
constexpr double smallSize = 10;
constexpr double lineHeight = 20;
constexpr double smallLine = 16;
constexpr double numberWidth = 28;

// Told apart on a grey printer by their lightness, too.
constexpr QColor ink(0, 0, 0);
constexpr QColor languageColour(20, 50, 130);
constexpr QColor literalColour(20, 90, 50);
constexpr QColor commentColour(110, 110, 110);
constexpr QColor dim(90, 90, 90);
constexpr QColor rule(190, 190, 190);

StyledText marathi(std::string_view utf8) {
    return styledOfUnicode(utf8);
}

StyledText digits(std::size_t number) {
    return {std::to_string(number), Font::Devanagari};
}

struct ColouredText {
    StyledText text;
    std::vector<QColor> colours;  // by characters
};

QColor colourOf(const guide::Word& word) {
    if (word.kind == guide::Word::Kind::Language) return languageColour;
    return word.kind == guide::Word::Kind::Literal ? literalColour : ink;
}

ColouredText coloured(const guide::Line& line) {
    ColouredText result{line.program, std::vector<QColor>(line.program.size(), ink)};
    std::size_t end = 0;
    for (const guide::Word& word : line.words) {
        for (std::size_t i = word.program.from; i < std::min(word.program.to, result.colours.size()); ++i)
            result.colours[i] = colourOf(word);
        end = std::max(end, word.program.to);
    }
    if (line.comment)
        std::fill(result.colours.begin() + static_cast<std::ptrdiff_t>(std::min(end, result.colours.size())),
                  result.colours.end(), commentColour);
    return result;
}

class SheetWriter {
  public:
    SheetWriter(const Sheet& sheet, SheetPages& document) : sheet_(sheet), document_(document) {}

    void write() {
        firstPage_ = document_.pages() + 1;
        beginPage();
        writeHead();
        writeProgram();
        writeRun();
        numberPages();
    }

  private:
    void beginPage();
    void makeRoom(double height);
    void writeHead();
    void writeField(double x, double width, std::string_view caption, const std::string& value);
    void heading(std::string_view text);
    void writeProgram();
    void writeRun();
    void numberPages();
    void paragraph(StyledView text, double x, QColor colour);
    std::vector<StyledView> wrapped(StyledView text, double size, double width);
    void drawColoured(double x, const ColouredText& text, StyledView part);
    StyledText caption() const { return {ReplaceRomanChars(sheet_.caption), Font::Devanagari}; }

    const Sheet& sheet_;
    SheetPages& document_;
    int firstPage_ = 1;
    double y_ = 0;  // the top of what comes next
};

void SheetWriter::beginPage() {
    document_.newPage();
    y_ = margin;
    if (document_.pages() == firstPage_) return;
    StyledText head = caption();
    head.append("   ", Font::Latin);
    head.append(styledOfUnicode(sheet_.name));
    document_.drawText({margin, y_}, head, smallSize, dim);
    document_.fillRectangle({margin, y_ + 6, textWidth, 0.7}, rule);
    y_ += 16;
}

void SheetWriter::makeRoom(double height) {
    if (y_ + height > bottom) beginPage();
}

void SheetWriter::writeField(double x, double width, std::string_view caption, const std::string& value) {
    const StyledText label = marathi(caption);
    const double from = x + document_.width(label, smallSize) + 5;
    document_.drawText({x, y_ + 12}, label, smallSize, dim);
    document_.fillRectangle({from, y_ + 15, x + width - 8 - from, 0.6}, rule);
    document_.drawText({from + 2, y_ + 12}, styledOfUnicode(value), programSize, ink);
}

void SheetWriter::writeHead() {
    writeField(margin, textWidth * 0.64, "नाव", sheet_.name);
    writeField(margin + textWidth * 0.64, textWidth * 0.36, "दिनांक", sheet_.date);
    y_ += 26;
    writeField(margin, textWidth * 0.64, "वर्ग", sheet_.className);
    writeField(margin + textWidth * 0.64, textWidth * 0.36, "क्रमांक", sheet_.roll);
    y_ += 40;
    document_.drawText({margin, y_}, caption(), 18, ink);
    y_ += 14;
}

void SheetWriter::heading(std::string_view text) {
    makeRoom(lineHeight * 3);
    y_ += 10;
    document_.drawText({margin, y_ + 14}, marathi(text), smallSize + 2, dim);
    document_.fillRectangle({margin, y_ + 20, textWidth, 0.7}, rule);
    y_ += 26;
}

// Cut between letters where it is too wide, if possible at a blank.
std::vector<StyledView> SheetWriter::wrapped(StyledView text, double size, double width) {
    std::vector<StyledView> lines;
    std::size_t start = 0;
    std::size_t at = 0;
    std::size_t afterBlank = 0;
    double used = 0;
    for (const StyledView letter : lettersOf(text)) {
        const double wide = document_.width(letter, size);
        if (used + wide > width && at > start) {
            const std::size_t cut = afterBlank > start ? afterBlank : at;
            lines.push_back(text.substr(start, cut - start));
            start = cut;
            used = document_.width(text.substr(start, at - start), size);
        }
        used += wide;
        at += letter.size();
        if (letter.text() == " ") afterBlank = at;
    }
    lines.push_back(text.substr(start));
    return lines;
}

void SheetWriter::drawColoured(double x, const ColouredText& text, StyledView part) {
    const auto offset = static_cast<std::size_t>(part.text().data() - text.text.text().data());
    for (std::size_t i = 0; i < part.size();) {
        std::size_t end = i + 1;
        while (end < part.size() && text.colours[offset + end] == text.colours[offset + i]) ++end;
        const StyledView run = part.substr(i, end - i);
        document_.drawText({x, y_ + 14}, run, programSize, text.colours[offset + i]);
        x += document_.width(run, programSize);
        i = end;
    }
}

void SheetWriter::paragraph(StyledView text, double x, QColor colour) {
    for (const StyledView part : wrapped(text, smallSize, margin + textWidth - x)) {
        makeRoom(smallLine);
        document_.drawText({x, y_ + 11}, part, smallSize, colour);
        y_ += smallLine;
    }
}

void SheetWriter::writeProgram() {
    const double left = margin + numberWidth;
    const double columns = textWidth - numberWidth;
    const double programWidth = sheet_.withRoman ? columns * 0.56 : columns;
    const std::vector<guide::Finding> findings =
        sheet_.withFindings ? guide::Guide().check(sheet_.roman) : std::vector<guide::Finding>();
    std::string_view rest = sheet_.roman;
    while (rest.ends_with(lineEnd)) rest.remove_suffix(lineEnd.size());
    for (std::size_t number = 1; !rest.empty(); ++number) {
        const guide::Line line(takeLine(rest).text);
        const ColouredText program = coloured(line);
        const std::vector<StyledView> parts = wrapped(program.text, programSize, programWidth - 6);
        const StyledText roman(line.roman, Font::Latin);
        const std::vector<StyledView> romanParts =
            sheet_.withRoman ? wrapped(roman, romanSize, columns - programWidth) : std::vector<StyledView>();
        for (std::size_t i = 0; i < std::max(parts.size(), romanParts.size()); ++i) {
            makeRoom(lineHeight);
            if (i == 0) {
                const StyledText shown = digits(number);
                document_.drawText({left - 8 - document_.width(shown, smallSize), y_ + 14}, shown, smallSize, dim);
            }
            if (i < parts.size()) drawColoured(left, program, parts[i]);
            if (i < romanParts.size())
                document_.drawText({left + programWidth, y_ + 13}, romanParts[i], romanSize, dim);
            y_ += lineHeight;
        }
        for (const guide::Finding& finding : findings)
            if (finding.line == number) paragraph(finding.text, left + 12, dim);
    }
}

void SheetWriter::writeRun() {
    if (!sheet_.printed.empty() || !sheet_.end.empty()) heading("काय छापले");
    for (const StyledText& line : sheet_.printed) paragraph(line, margin, ink);
    if (!sheet_.end.empty()) paragraph(styledOfUnicode(sheet_.end), margin, dim);
    if (sheet_.picture.isNull()) return;
    const double width = textWidth * 0.7;
    const double height = width * sheet_.picture.height() / sheet_.picture.width();
    makeRoom(height + 50);
    heading("काय काढले");
    document_.drawImage({margin, y_, width, height}, sheet_.picture);
    y_ += height;
}

void SheetWriter::numberPages() {
    const int last = document_.pages();
    for (int page = firstPage_; page <= last; ++page) {
        StyledText text = marathi("पान ");
        text.append(digits(static_cast<std::size_t>(page - firstPage_) + 1));
        text.append(" / ", Font::Latin);
        text.append(digits(static_cast<std::size_t>(last - firstPage_) + 1));
        document_.setPage(page);
        document_.drawText({margin + textWidth - document_.width(text, smallSize), sheetSize.height() - margin}, text,
                           smallSize, dim);
    }
}

bool isOfDevanagari(char32_t c) {
    return isDevanagari(c) || c == devanagari::joiner || c == devanagari::nonJoiner;
}

}  // namespace

void addSheet(const Sheet& sheet, SheetPages& document) {
    SheetWriter(sheet, document).write();
}

StyledText styledOfUnicode(std::string_view utf8) {
    StyledText text;
    while (!utf8.empty()) {
        const bool isLetters = isOfDevanagari(firstCharacter(utf8));
        std::string_view rest = utf8;
        std::string latin;
        while (!rest.empty() && isOfDevanagari(firstCharacter(rest)) == isLetters) {
            const std::optional<std::uint8_t> code = unicodeToWindows1252(takeCharacter(rest));
            latin += static_cast<char>(code.value_or('?'));
        }
        const std::string_view run = utf8.substr(0, utf8.size() - rest.size());
        if (isLetters)
            text.append(ReplaceRomanChars(romanOfUnicode(run)), Font::Devanagari);
        else
            text.append(latin, Font::Latin);
        utf8 = rest;
    }
    return text;
}

}  // namespace tolvan
