// tvp-sheet: the programs of a class on paper, as one PDF file with a sheet for each.

#include "classroom/Checker.h"
#include "classroom/HandIns.h"
#include "classroom/Problem.h"
#include "classroom/ReportTexts.h"
#include "platform/files/ReplaceFile.h"
#include "sheet/Sheet.h"
#include "translator/ProgramFile.h"

#include <QGuiApplication>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <thread>

namespace tolvan {
namespace {

using namespace classroom;

constexpr const char* usage =
    "Usage: tvp-sheet [--roman] [--findings] [--task TASK] [--no-run] FOLDER OUT.pdf\n\n"
    "Writes a sheet for each program below the folder, with what it prints and draws in a run.\n"
    "  --roman      the Roman text beside the program\n"
    "  --findings   what is wrong with the program, in Marathi\n"
    "  --task TASK  run it with the first case of this task; without it nothing is typed\n"
    "  --no-run     do not run it\n";

struct Request {
    std::vector<std::string> places;  // the folder and the file
    std::string task;
    bool roman = false;
    bool findings = false;
    bool run = true;
    bool isUsable = true;
};

Request read(const std::vector<std::string>& arguments) {
    Request request;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--roman")
            request.roman = true;
        else if (argument == "--findings")
            request.findings = true;
        else if (argument == "--no-run")
            request.run = false;
        else if (argument == "--task" && i + 1 < arguments.size())
            request.task = arguments[++i];
        else if (argument.starts_with("--task="))
            request.task = argument.substr(argument.find('=') + 1);
        else if (argument.starts_with('-'))
            request.isUsable = false;
        else
            request.places.push_back(argument);
    }
    request.isUsable = request.isUsable && request.places.size() == 2;
    return request;
}

// With one case, whose right output is of no interest.
Task taskOf(const Request& request) {
    Task task;
    if (!request.task.empty()) task = readTask(request.task);
    task.cases.resize(1);
    task.cases[0].output = "";
    task.cases[0].picture.reset();
    task.solution.clear();
    return task;
}

// Each as `tvp check` runs it: in a process of its own that can harm nobody.
std::vector<HandInResult> run(const std::vector<HandIn>& handIns, const Request& request) {
    const Task task = taskOf(request);
    CheckOptions options;
    options.jobs = std::max(std::thread::hardware_concurrency(), 1U);
    options.mostFigures = Picture::mostKept;
    return Checker(task, options).check(handIns).handIns;
}

std::vector<StyledText> printedLines(const PrintedExcerpt& printed) {
    std::vector<StyledText> lines;
    lines.reserve(printed.first.size() + 1 + printed.last.size());
    for (const PrintedLine& line : printed.first) lines.push_back(styledOfUnicode(line.text));
    constexpr Language marathi = Language::Marathi;
    if (printed.leftOut > 0)
        lines.push_back(styledOfUnicode(filled(texts::linesLeftOut, marathi, {shownNumber(printed.leftOut, marathi)})));
    for (const PrintedLine& line : printed.last) lines.push_back(styledOfUnicode(line.text));
    return lines;
}

QImage imageOf(const Screen& screen) {
    if (screen.figures.empty()) return {};
    Picture picture;
    for (const Figure& figure : screen.figures) picture.add(figure);
    QImage image(displayWidth, displayHeight, QImage::Format_RGB32);
    for (int y = 0; y < displayHeight; ++y)
        for (int x = 0; x < displayWidth; ++x) {
            const Colour colour =
                picture.pixels()[static_cast<std::size_t>(y) * displayWidth + static_cast<std::size_t>(x)];
            image.setPixel(x, y, qRgb(colour & 0xFFU, colour >> 8 & 0xFFU, colour >> 16 & 0xFFU));
        }
    return image;
}

void addRun(Sheet& sheet, CaseResult result) {
    sheet.printed = printedLines(result.printed);
    sheet.picture = imageOf(result.screen);
    result.difference.reset();  // from the case's output, which it has not
    for (const std::string& sentence : sentencesOf(result, Language::Marathi))
        sheet.end += (sheet.end.empty() ? "" : " ") + sentence;
}

// What cannot be read has a sheet with the name alone.
Sheet sheetOf(const HandIn& handIn, const Request& request) {
    Sheet sheet;
    sheet.name = handIn.name;
    const ProgramFile program = readProgramFile(readHandIn(handIn).bytes);
    sheet.caption = program.caption;
    sheet.roman = program.roman;
    sheet.withRoman = request.roman;
    sheet.withFindings = request.findings;
    return sheet;
}

// Programs run before there is an application, which has threads.
std::vector<Sheet> sheetsOf(const Request& request) {
    const std::vector<HandIn> handIns = findHandIns(request.places[0], request.task);
    const std::vector<HandInResult> results = request.run ? run(handIns, request) : std::vector<HandInResult>();
    std::vector<Sheet> sheets;
    for (std::size_t i = 0; i < handIns.size(); ++i) {
        sheets.push_back(sheetOf(handIns[i], request));
        if (request.run && results[i].problem == HandInContent::Problem::None)
            addRun(sheets.back(), results[i].cases[0]);
    }
    return sheets;
}

int write(const std::vector<Sheet>& sheets, const Request& request) {
    if (sheets.empty()) {
        std::fprintf(stderr, "tvp-sheet: there is no program in %s\n", request.places[0].c_str());
        return 1;
    }
    PdfDocument document(sheetSize);
    for (const Sheet& sheet : sheets) addSheet(sheet, document);
    const QByteArray file = document.bytes("Tolvan Basic");
    const int error = replaceFile(request.places[1], {file.data(), static_cast<std::size_t>(file.size())});
    if (error != 0)
        std::fprintf(stderr, "tvp-sheet: cannot write %s: %s\n", request.places[1].c_str(), std::strerror(error));
    return error == 0 ? 0 : 2;
}

}  // namespace
}  // namespace tolvan

int main(int count, char** arguments) {
    const tolvan::Request request = tolvan::read({arguments + std::min(count, 1), arguments + count});
    if (!request.isUsable) {
        std::fputs(tolvan::usage, stderr);
        return 2;
    }
    try {
        const std::vector<tolvan::Sheet> sheets = tolvan::sheetsOf(request);
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");  // no window is shown
        int one = 1;
        const QGuiApplication application(one, arguments);
        return tolvan::write(sheets, request);
    } catch (const tolvan::classroom::Problem& problem) {
        std::fprintf(stderr, "tvp-sheet: %s\n", problem.english.c_str());
        return 2;
    }
}
