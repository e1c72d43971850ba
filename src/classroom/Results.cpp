#include "classroom/Results.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace tolvan::classroom {
namespace {

constexpr std::size_t keptLines = 30;      // at each end
constexpr std::size_t longestKept = 2000;  // bytes of a line

void cut(std::string& text) {
    if (text.size() <= longestKept) return;
    std::size_t end = longestKept;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80) --end;
    text.resize(end);
}

void writeLines(PackWriter& pack, const std::vector<PrintedLine>& lines) {
    pack.list(lines, [&](const PrintedLine& line) {
        pack.text(line.text);
        pack.number(static_cast<std::int64_t>(line.kind));
    });
}

void readLines(PackReader& pack, std::vector<PrintedLine>& lines) {
    pack.list(lines, [&] {
        std::string text = pack.text();
        return PrintedLine{std::move(text), pack.choice(PrintedLine::Kind::AlwaysAsked)};
    });
}

void writeFigures(PackWriter& pack, const std::vector<Figure>& figures) {
    Picture picture;
    for (const Figure& figure : figures) picture.keep(figure);
    picture.write(pack);
}

void writeCase(PackWriter& pack, const CaseResult& result) {
    for (const int value : {static_cast<int>(result.verdict), result.number, result.line, result.hurried ? 1 : 0,
                            result.difference ? 1 : 0})
        pack.number(value);
    for (const std::string* const text :
         {&result.message, &result.explanation, &result.english, &result.explanationInEnglish})
        pack.text(*text);
    pack.real(result.seconds);
    if (result.difference) result.difference->write(pack);
    writeLines(pack, result.printed.first);
    pack.number(static_cast<std::int64_t>(result.printed.leftOut));
    writeLines(pack, result.printed.last);
    writeFigures(pack, result.screen.figures);
    pack.list(result.screen.text, [&](const std::string& line) { pack.text(line); });
}

CaseResult readCase(PackReader& pack) {
    CaseResult result;
    result.verdict = pack.choice(Verdict::Unreadable);
    result.number = static_cast<int>(pack.number());
    result.line = static_cast<int>(pack.number());
    result.hurried = pack.number() != 0;
    const bool differs = pack.number() != 0;
    for (std::string* const text :
         {&result.message, &result.explanation, &result.english, &result.explanationInEnglish})
        *text = pack.text();
    result.seconds = pack.real();
    if (differs) result.difference = Difference::read(pack);
    readLines(pack, result.printed.first);
    result.printed.leftOut = static_cast<std::size_t>(pack.number());
    readLines(pack, result.printed.last);
    result.screen.figures = Picture::read(pack).figures();
    pack.list(result.screen.text, [&] { return pack.text(); });
    return result;
}

}  // namespace

PrintedExcerpt excerptOf(std::vector<PrintedLine> printed) {
    for (PrintedLine& line : printed) cut(line.text);
    PrintedExcerpt excerpt;
    const std::size_t count = printed.size();
    const std::size_t ends = 2 * keptLines;
    excerpt.leftOut = count > ends ? count - ends : 0;
    const auto first = std::make_move_iterator(printed.begin());
    const auto middle = static_cast<std::ptrdiff_t>(count > ends ? keptLines : count);
    excerpt.first.assign(first, first + middle);
    excerpt.last.assign(first + middle + static_cast<std::ptrdiff_t>(excerpt.leftOut),
                        first + static_cast<std::ptrdiff_t>(count));
    return excerpt;
}

Screen screenOf(const Picture& picture, const std::vector<PrintedLine>& printed, std::size_t shown,
                std::size_t mostFigures) {
    constexpr std::size_t mostLines = 15;  // the display shows no more
    Screen screen;
    if (picture.empty()) return screen;
    const std::vector<Figure>& figures = picture.figures();
    screen.figures.assign(figures.begin(),
                          figures.begin() + static_cast<std::ptrdiff_t>(std::min(figures.size(), mostFigures)));
    const std::size_t count = printed.size();
    for (std::size_t i = std::max(shown, count - std::min(count, mostLines)); i < count; ++i) {
        screen.text.push_back(printed[i].text);
        cut(screen.text.back());
    }
    return screen;
}

std::string codeOf(const CaseResult& result) {
    switch (result.verdict) {
        case Verdict::Right:
            return "right";
        case Verdict::Wrong:
            return "wrong";
        case Verdict::Error:
            return "error " + std::to_string(result.number) + " line " + std::to_string(result.line);
        case Verdict::Time:
            return "time";
        case Verdict::Output:
            return "output";
        case Verdict::Memory:
            return "memory";
        case Verdict::Files:
            return "files";
        case Verdict::Unreadable:
            break;
    }
    return "unreadable";
}

void groupAlike(std::vector<HandInResult>& handIns) {
    std::map<std::string_view, std::vector<HandInResult*>> byShape;
    for (HandInResult& handIn : handIns) {
        handIn.group = 0;
        if (!handIn.examination.shape.empty()) byShape[handIn.examination.shape].push_back(&handIn);
    }
    std::size_t number = 0;
    for (HandInResult& handIn : handIns) {
        if (handIn.group != 0 || handIn.examination.shape.empty()) continue;
        const std::vector<HandInResult*>& alike = byShape[handIn.examination.shape];
        if (alike.size() < 2 || alike.size() * 3 >= handIns.size()) continue;
        ++number;
        for (HandInResult* const one : alike) one->group = number;
    }
}

std::string packResult(const HandInResult& result) {
    PackWriter pack;
    pack.number(static_cast<std::int64_t>(result.problem));
    pack.text(writeExamination(result.examination));
    pack.list(result.cases, [&](const CaseResult& one) { writeCase(pack, one); });
    return pack.bytes();
}

std::optional<HandInResult> unpackResult(std::string_view packed) {
    PackReader pack(packed);
    HandInResult result;
    result.problem = pack.choice(HandInContent::Problem::NoProgram);
    result.examination = readExamination(pack.text());
    pack.list(result.cases, [&] { return readCase(pack); });
    return pack.isWhole() && pack.rest().empty() ? std::optional(std::move(result)) : std::nullopt;
}

}  // namespace tolvan::classroom
