// tvp-sheet: the programs of a class on paper, as one PDF file with a sheet for each.

#include "classroom/HandIns.h"
#include "classroom/Problem.h"
#include "platform/files/ReplaceFile.h"
#include "sheet/Sheet.h"
#include "translator/ProgramFile.h"

#include <QGuiApplication>

#include <cstdio>
#include <cstring>

namespace tolvan {
namespace {

constexpr const char* usage =
    "Usage: tvp-sheet [--roman] [--findings] FOLDER OUT.pdf\n\n"
    "Writes a sheet for each program below the folder.\n"
    "  --roman     the Roman text beside the program\n"
    "  --findings  what is wrong with the program, in Marathi\n";

struct Request {
    std::vector<std::string> places;  // the folder and the file
    bool roman = false;
    bool findings = false;
    bool isUsable = true;
};

Request read(const QStringList& arguments) {
    Request request;
    for (const QString& argument : arguments) {
        if (argument == QLatin1String("--roman"))
            request.roman = true;
        else if (argument == QLatin1String("--findings"))
            request.findings = true;
        else if (argument.startsWith(QLatin1Char('-')))
            request.isUsable = false;
        else
            request.places.push_back(argument.toLocal8Bit().toStdString());
    }
    request.isUsable = request.isUsable && request.places.size() == 2;
    return request;
}

// What cannot be read has a sheet with the name alone.
Sheet sheetOf(const classroom::HandIn& handIn, const Request& request) {
    Sheet sheet;
    sheet.name = handIn.name;
    const ProgramFile program = readProgramFile(classroom::readHandIn(handIn).bytes);
    sheet.caption = program.caption;
    sheet.roman = program.roman;
    sheet.withRoman = request.roman;
    sheet.withFindings = request.findings;
    return sheet;
}

int write(const Request& request) {
    PdfDocument document = newSheets();
    for (const classroom::HandIn& handIn : classroom::findHandIns(request.places[0], {}))
        addSheet(sheetOf(handIn, request), document);
    if (document.pages() == 0) {
        std::fprintf(stderr, "tvp-sheet: there is no program in %s\n", request.places[0].c_str());
        return 1;
    }
    const QByteArray file = document.bytes("Tolvan Basic");
    const int error = replaceFile(request.places[1], {file.data(), static_cast<std::size_t>(file.size())});
    if (error != 0)
        std::fprintf(stderr, "tvp-sheet: cannot write %s: %s\n", request.places[1].c_str(), std::strerror(error));
    return error == 0 ? 0 : 2;
}

}  // namespace
}  // namespace tolvan

int main(int count, char** arguments) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");  // no window is shown
    const QGuiApplication application(count, arguments);
    const tolvan::Request request = tolvan::read(QCoreApplication::arguments().mid(1));
    if (!request.isUsable) {
        std::fputs(tolvan::usage, stderr);
        return 2;
    }
    try {
        return tolvan::write(request);
    } catch (const tolvan::classroom::Problem& problem) {
        std::fprintf(stderr, "tvp-sheet: %s\n", problem.english.c_str());
        return 2;
    }
}
