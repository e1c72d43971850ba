#include "classroom/Examination.h"

#include "classroom/Pack.h"
#include "guide/EnglishFindings.h"
#include "guide/Guide.h"
#include "guide/Line.h"
#include "library/LibraryWords.h"
#include "platform/encoding/Ascii.h"
#include "platform/encoding/Unicode.h"
#include "platform/richtext/UnicodeText.h"
#include "translator/ProgramFile.h"

#include <map>
#include <set>

namespace tolvan::classroom {
namespace {

constexpr std::size_t leastWords = 40;
constexpr std::size_t longestShownLine = 400;  // bytes

std::vector<std::string> linesOf(std::string_view roman) {
    std::vector<std::string> lines;
    while (!roman.empty()) lines.emplace_back(takeLine(roman).text);
    while (!lines.empty() && lines.back().empty()) lines.pop_back();
    return lines;
}

// The program word by word, with its own names numbered by their first use.
class Shape {
  public:
    void add(const guide::Line& line) {
        for (const guide::Word& word : line.words) {
            shape_ += formOf(word);
            shape_ += ' ';
            ++words_;
        }
        if (!line.words.empty()) shape_ += '\n';
    }

    std::string text() const { return words_ < leastWords ? std::string() : shape_; }

  private:
    std::string formOf(const guide::Word& word) {
        if (word.kind == guide::Word::Kind::Language) return std::string(word.language->roman);
        const bool isOwnName = word.kind == guide::Word::Kind::Name && findLibraryWord(word.glyphs) == nullptr;
        if (!isOwnName) return '=' + std::string(word.glyphs);
        const auto number = names_.try_emplace(std::string(word.glyphs), names_.size()).first->second;
        return '$' + std::to_string(number);
    }

    std::map<std::string, std::size_t> names_;
    std::string shape_;
    std::size_t words_ = 0;
};

std::string withoutBlanks(std::string_view text) {
    std::string kept;
    for (const char c : text)
        if (c != ' ' && c != '\t') kept += c;
    return kept;
}

std::string shapeOf(const std::vector<std::string>& lines, std::string_view start) {
    std::set<std::string> given;
    for (const std::string& line : linesOf(start)) given.insert(withoutBlanks(line));
    Shape shape;
    for (const std::string& line : lines)
        if (!given.contains(withoutBlanks(line))) shape.add(guide::Line(line));
    return shape.text();
}

ProgramLine shown(std::string_view roman) {
    roman = roman.substr(0, longestShownLine);
    ProgramLine line;
    appendUnicodeOfLatin(roman, line.roman);
    line.devanagari = unicodeOf(guide::Line(roman).program);
    return line;
}

}  // namespace

Examination examine(std::string_view program, std::string_view start) {
    constexpr std::size_t mostFindings = 30;
    const ProgramFile file = readProgramFile(program);
    Examination examination;
    if (file.problem != ProgramFile::Problem::None) examination.problem = Examination::Problem::NoProgram;
    const std::vector<std::string> lines = linesOf(file.roman);
    examination.lineCount = lines.size();
    for (const std::string& line : lines)
        if (examination.lines.size() < Examination::mostLines) examination.lines.push_back(shown(line));
    for (const guide::Finding& finding : guide::Guide().check(file.roman))
        if (examination.findings.size() < mostFindings)
            examination.findings.push_back({static_cast<int>(finding.line), finding.weight == guide::Weight::Error,
                                            unicodeOf(finding.text), std::string(guide::kindInEnglish(finding.kind))});
    examination.shape = shapeOf(lines, start.empty() ? std::string() : readProgramFile(start).roman);
    return examination;
}

std::string writeExamination(const Examination& examination) {
    PackWriter pack;
    pack.number(static_cast<std::int64_t>(examination.problem));
    pack.number(static_cast<std::int64_t>(examination.lineCount));
    pack.list(examination.lines, [&](const ProgramLine& line) {
        pack.text(line.roman);
        pack.text(line.devanagari);
    });
    pack.list(examination.findings, [&](const ShownFinding& finding) {
        pack.number(finding.line);
        pack.number(finding.isError ? 1 : 0);
        pack.text(finding.text);
        pack.text(finding.english);
    });
    pack.text(examination.shape);
    return pack.bytes();
}

Examination readExamination(std::string_view packed) {
    PackReader pack(packed);
    Examination examination;
    examination.problem = pack.number() == 0 ? Examination::Problem::None : Examination::Problem::NoProgram;
    examination.lineCount = static_cast<std::size_t>(pack.number());
    pack.list(examination.lines, [&] {
        ProgramLine line;
        line.roman = pack.text();
        line.devanagari = pack.text();
        return line;
    });
    pack.list(examination.findings, [&] {
        ShownFinding finding;
        finding.line = static_cast<int>(pack.number());
        finding.isError = pack.number() != 0;
        finding.text = pack.text();
        finding.english = pack.text();
        return finding;
    });
    examination.shape = pack.text();
    return pack.isWhole() ? examination : Examination{};
}

}  // namespace tolvan::classroom
