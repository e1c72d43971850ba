#include "classroom/HtmlParts.h"
#include "classroom/PictureSvg.h"
#include "classroom/ReportTexts.h"
#include "classroom/Reports.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace tolvan::classroom {
namespace {

// When the page has grown to so many bytes, programs, pictures and what was printed are left out.
constexpr std::size_t largeForAPage = std::size_t{24} << 20;

std::string verdictClass(const CaseResult& result) {
    const std::string code = codeOf(result);
    return code.substr(0, code.find(' '));
}

std::string blanksMarked(std::string_view text) {
    std::string marked;
    for (const char c : text) {
        if (c == ' ' || c == '\t')
            marked += "<span class='blank'>␣</span>";
        else
            marked += c;
    }
    return marked;
}

class Page {
  public:
    Page(const ClassResult& result, Language language) : result_(result), language_(language) {}

    std::string make() {
        writeHead();
        writeClass();
        for (std::size_t i = 0; i < result_.handIns.size(); ++i) writeHandIn(result_.handIns[i], i);
        page_.append("<script>").append(pageScript).append("</script></body></html>\n");
        return std::move(page_);
    }

  private:
    std::string say(Text text, std::initializer_list<std::string> values = {}) const {
        return escaped(filled(text, language_, values));
    }
    std::string number(std::size_t value) const { return shownNumber(value, language_); }
    void paragraph(const std::string& html) {
        if (!html.empty()) page_ += "<p>" + html + "</p>\n";
    }
    void note(const std::string& html) {
        if (!html.empty()) page_ += "<p class='dim'>" + html + "</p>\n";
    }

    void writeHead();
    void writeClass();
    void writeRow(const HandInResult& handIn, std::size_t place);
    void writeHandIn(const HandInResult& handIn, std::size_t place);
    void writeAlike(const HandInResult& handIn, std::size_t place);
    void writeCase(const HandInResult& handIn, std::size_t number);
    void writeWhy(const HandInResult& handIn, const CaseResult& one);
    void writeError(const HandInResult& handIn, const CaseResult& one);
    void writeDifference(const Difference& difference);
    std::string excerptHtml(const Excerpt& excerpt) const;
    std::string cutMark(std::size_t letters) const;
    void writePrinted(const PrintedExcerpt& printed);
    void writeLines(const std::vector<PrintedLine>& lines);
    void writePictures(const CaseResult& one, std::size_t number);
    void writeProgram(const HandInResult& handIn);
    std::string seconds(double value) const;

    const ClassResult& result_;
    Language language_;
    std::string page_;
};

void Page::writeHead() {
    const std::string title = escaped(result_.title);
    page_ += std::string("<!doctype html>\n<html lang='") + (language_ == Language::Marathi ? "mr" : "en") +
             "'><head><meta charset='utf-8'>\n<meta name='viewport' content='width=device-width, initial-scale=1'>\n"
             "<meta http-equiv='Content-Security-Policy' content=\"default-src 'none'; style-src 'unsafe-inline'; "
             "script-src 'unsafe-inline'\">\n<title>" +
             title + "</title><style>" + std::string(pageStyle) + "</style></head><body>\n<h1>" + title + "</h1>\n";
    // The expected pictures stand here once, and are shown beside each that was drawn.
    page_ += "<svg width='0' height='0' style='position:absolute' aria-hidden='true'>";
    for (std::size_t i = 0; i < result_.cases.size(); ++i)
        if (!result_.cases[i].expected.figures.empty())
            page_ += "<symbol id='e" + std::to_string(i) + "' viewBox='0 0 800 600'>" +
                     svgOf(result_.cases[i].expected) + "</symbol>";
    page_ += "</svg>\n";
    const auto full = std::count_if(result_.handIns.begin(), result_.handIns.end(),
                                    [&](const HandInResult& handIn) { return handIn.points == result_.most; });
    note(say(texts::summary, {number(result_.handIns.size()), number(static_cast<std::size_t>(full))}));
    if (result_.handIns.size() < result_.handInCount)
        paragraph(say(texts::stopped, {number(result_.handInCount), number(result_.handIns.size())}));
    for (const Wall wall : result_.missing) note(escaped(shownMissing(wall, language_)));
}

void Page::writeClass() {
    page_ += "<div class='scroll'><table class='class'><thead><tr>";
    const auto head = [&](const std::string& text) { page_ += "<th><button>" + text + "</button></th>"; };
    head(say(texts::name));
    head(say(texts::points) + " / " + shownPoints(result_.most, language_));
    for (const CaseHead& one : result_.cases) head("<bdi>" + escaped(one.name) + "</bdi>");
    head(say(texts::alike));
    head(say(texts::time));
    page_ += "</tr></thead><tbody>\n";
    for (std::size_t i = 0; i < result_.handIns.size(); ++i) writeRow(result_.handIns[i], i);
    page_ += "</tbody></table></div>\n";
}

void Page::writeRow(const HandInResult& handIn, std::size_t place) {
    double time = 0;
    page_ += "<tr><td><a href='#p" + std::to_string(place) + "'><bdi>" + escaped(handIn.name) +
             "</bdi></a></td><td class='n' data-v='" + shownPoints(handIn.points, Language::English) + "'>" +
             shownPoints(handIn.points, language_) + "</td>";
    for (const CaseResult& one : handIn.cases) {
        time += one.seconds;
        page_ += "<td class='" + verdictClass(one) + "'>" + escaped(shownVerdict(one, language_)) + "</td>";
    }
    page_ += "<td>" + (handIn.group == 0 ? std::string() : number(handIn.group)) + "</td><td class='n' data-v='" +
             std::to_string(time) + "'>" + seconds(time) + "</td></tr>\n";
}

void Page::writeHandIn(const HandInResult& handIn, std::size_t place) {
    page_ += "<details class='pupil' id='p" + std::to_string(place) + "'><summary><bdi>" + escaped(handIn.name) +
             "</bdi> · " + shownPoints(handIn.points, language_) + " / " + shownPoints(result_.most, language_) +
             "</summary>\n";
    paragraph(escaped(shownProblem(handIn.problem, language_)));
    writeAlike(handIn, place);
    if (handIn.problem == HandInContent::Problem::None) {
        for (std::size_t i = 0; i < handIn.cases.size(); ++i) writeCase(handIn, i);
        if (page_.size() < largeForAPage)
            writeProgram(handIn);
        else
            note(say(texts::leftOutForSize));
    }
    page_ += "</details>\n";
}

void Page::writeAlike(const HandInResult& handIn, std::size_t place) {
    if (handIn.group == 0) return;
    std::string others;
    for (std::size_t i = 0; i < result_.handIns.size(); ++i)
        if (i != place && result_.handIns[i].group == handIn.group)
            others += (others.empty() ? "<a href='#p" : ", <a href='#p") + std::to_string(i) + "'><bdi>" +
                      escaped(result_.handIns[i].name) + "</bdi></a>";
    paragraph(say(texts::alikeTo) + " " + others);
}

void Page::writeCase(const HandInResult& handIn, std::size_t number) {
    const CaseResult& one = handIn.cases[number];
    page_ += "<div class='case " + verdictClass(one) + "'><h3><bdi>" + escaped(result_.cases[number].name) +
             "</bdi> · " + escaped(shownVerdict(one, language_)) + " <span class='dim'>" + seconds(one.seconds) +
             "</span></h3>\n";
    writeWhy(handIn, one);
    if (page_.size() < largeForAPage && one.verdict != Verdict::Unreadable) {
        writePictures(one, number);
        writePrinted(one.printed);
    }
    page_ += "</div>\n";
}

void Page::writeWhy(const HandInResult& handIn, const CaseResult& one) {
    for (const std::string& sentence : sentencesOf(one, language_)) paragraph(escaped(sentence));
    if (one.verdict == Verdict::Error || one.verdict == Verdict::Files) writeError(handIn, one);
    if (one.difference && one.difference->kind != Difference::Kind::Drawing) writeDifference(*one.difference);
}

void Page::writeError(const HandInResult& handIn, const CaseResult& one) {
    const std::vector<ProgramLine>& lines = handIn.examination.lines;
    if (one.line > 0 && static_cast<std::size_t>(one.line) <= lines.size()) {
        const ProgramLine& line = lines[static_cast<std::size_t>(one.line) - 1];
        page_ += "<pre>" + escaped(line.devanagari) + "\n<i>" + escaped(line.roman) + "</i></pre>\n";
    }
    note(escaped(language_ == Language::Marathi ? one.explanation : one.explanationInEnglish));
}

std::string Page::cutMark(std::size_t letters) const {
    return letters == 0 ? std::string()
                        : "<span class='cut'>" + say(texts::lettersLeftOut, {number(letters)}) + "</span>";
}

std::string Page::excerptHtml(const Excerpt& excerpt) const {
    std::string html = cutMark(excerpt.leftOutBefore) + escaped(excerpt.before);
    if (!excerpt.different.empty()) html += "<mark>" + blanksMarked(escaped(excerpt.different)) + "</mark>";
    return html + escaped(excerpt.after) + cutMark(excerpt.leftOutAfter);
}

void Page::writeDifference(const Difference& difference) {
    page_ += "<div class='scroll'><table class='diff'><tr><th>" + say(texts::expected) + "</th><th>" +
             say(texts::printed) + "</th></tr>\n";
    for (const std::string& line : difference.before)
        page_ += "<tr class='same'><td>" + escaped(line) + "</td><td>" + escaped(line) + "</td></tr>\n";
    const std::string none = "<span class='dim'>" + say(texts::noLine) + "</span>";
    const auto side = [&](const Excerpt& excerpt, bool isThere) {
        const std::string html = excerptHtml(excerpt);
        const std::string empty = "<span class='dim'>" + say(texts::emptyLine) + "</span>";
        page_ += "<td>" + (!isThere ? none : html.empty() ? empty : html) + "</td>";
    };
    page_ += "<tr>";
    side(difference.expected, difference.kind != Difference::Kind::TooMany);
    side(difference.printed, difference.kind != Difference::Kind::TooFew);
    page_ += "</tr></table></div>\n";
}

void Page::writeLines(const std::vector<PrintedLine>& lines) {
    for (const PrintedLine& line : lines) {
        const bool asks = line.kind != PrintedLine::Kind::Told;
        page_ += (asks ? "<i>" : "") + escaped(line.text) + (asks ? "</i>\n" : "\n");
    }
}

void Page::writePrinted(const PrintedExcerpt& printed) {
    if (printed.first.empty()) return note(say(texts::printedNothing));
    page_ += "<details><summary>" + say(texts::allPrinted) + "</summary><pre>";
    writeLines(printed.first);
    if (printed.leftOut > 0)
        page_ += "<span class='cut'>" + say(texts::linesLeftOut, {number(printed.leftOut)}) + "</span>\n";
    writeLines(printed.last);
    page_ += "</pre></details>\n";
}

void Page::writePictures(const CaseResult& one, std::size_t number) {
    const bool isExpected = !result_.cases[number].expected.figures.empty();
    if (!isExpected && one.screen.figures.empty()) return;
    const auto figure = [&](Text caption, const std::string& content) {
        page_ += "<figure><svg class='display' viewBox='0 0 800 600' role='img'>" + content + "</svg><figcaption>" +
                 say(caption) + "</figcaption></figure>";
    };
    page_ += "<div class='pictures'>";
    if (isExpected) figure(texts::expectedPicture, "<use href='#e" + std::to_string(number) + "'/>");
    figure(texts::drawnPicture, svgOf(one.screen));
    page_ += "</div>\n";
}

void Page::writeProgram(const HandInResult& handIn) {
    const Examination& examination = handIn.examination;
    if (examination.lines.empty()) return;
    std::vector<int> failed;
    for (const CaseResult& one : handIn.cases)
        if (one.verdict == Verdict::Error) failed.push_back(one.line);
    page_ += "<details><summary>" + say(texts::program) + "</summary><table class='program'>\n";
    for (std::size_t i = 0; i < examination.lines.size(); ++i) {
        const int line = static_cast<int>(i) + 1;
        const bool isAt = std::find(failed.begin(), failed.end(), line) != failed.end();
        page_ += (isAt ? "<tr class='at'><td>" : "<tr><td>") + number(i + 1) + "</td><td>" +
                 escaped(examination.lines[i].devanagari) + "</td><td>" + escaped(examination.lines[i].roman) +
                 "</td></tr>\n";
        for (const ShownFinding& finding : examination.findings)
            if (finding.line == line)
                page_ += "<tr><td></td><td colspan='2' class='finding'>" +
                         escaped(language_ == Language::Marathi ? finding.text : finding.english) + "</td></tr>\n";
    }
    page_ += "</table>";
    if (examination.lineCount > examination.lines.size())
        note(say(texts::linesLeftOut, {number(examination.lineCount - examination.lines.size())}));
    page_ += "</details>\n";
}

std::string Page::seconds(double value) const {
    std::array<char, 32> digits{};
    std::snprintf(digits.data(), digits.size(), "%.2f", value);
    return say(texts::seconds, {shownDigits(digits.data(), language_)});
}

}  // namespace

std::string htmlReport(const ClassResult& result, Language language) {
    return Page(result, language).make();
}

}  // namespace tolvan::classroom
