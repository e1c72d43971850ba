#include "editor/TaskTrial.h"

#include "classroom/Checker.h"
#include "classroom/ReportTexts.h"
#include "editor/DocumentMessages.h"
#include "platform/encoding/Unicode.h"
#include "platform/encoding/Utf8.h"
#include "platform/filenames/FileName.h"
#include "platform/richtext/RtfWriter.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "platform/transliteration/UnicodeToRoman.h"

#include <QCoreApplication>

namespace tolvan {
namespace {

using namespace classroom;

constexpr Language marathi = Language::Marathi;

bool isOfDevanagari(char32_t c) {
    return isDevanagari(c) || c == devanagari::joiner || c == devanagari::nonJoiner;
}

// Unicode text as a fragment of a message: Devanagari in the system's own font, the rest in the other one.
std::string fragmentOf(std::string_view utf8) {
    std::string fragment;
    while (!utf8.empty()) {
        const bool isLetters = isOfDevanagari(firstCharacter(utf8));
        std::string_view rest = utf8;
        while (!rest.empty() && isOfDevanagari(firstCharacter(rest)) == isLetters) takeCharacter(rest);
        const std::string_view run = utf8.substr(0, utf8.size() - rest.size());
        if (isLetters)
            fragment += "\\f1 " + RtfEscape(ReplaceRomanChars(romanOfUnicode(run)));
        else
            fragment +=
                "\\f0 " + messages::nameFragment(QString::fromUtf8(run.data(), static_cast<qsizetype>(run.size())));
        utf8 = rest;
    }
    return fragment;
}

std::string line(const std::string& utf8) {
    return fragmentOf(utf8) + "{\\line}";
}

std::string textOf(const Excerpt& excerpt) {
    return excerpt.before + excerpt.different + excerpt.after;
}

std::string caseMessage(const CaseHead& head, const CaseResult& result) {
    std::string message = line(head.name + ". " + shownVerdict(result, marathi));
    for (const std::string& sentence : sentencesOf(result, marathi)) message += line("      " + sentence);
    const bool hasLines = result.difference && result.difference->kind != Difference::Kind::Drawing;
    if (!hasLines) return message;
    const auto side = [&](Text caption, const Excerpt& excerpt) {
        const std::string text = textOf(excerpt);
        if (!text.empty()) message += line("      " + std::string(caption.in(marathi)) + ": " + text);
    };
    side(texts::expected, result.difference->expected);
    side(texts::printed, result.difference->printed);
    return message;
}

std::string resultMessage(const Task& task, const HandInResult& result) {
    std::string message = line(task.title);
    message += fragmentOf(shownProblem(result.problem, marathi));
    if (result.problem == HandInContent::Problem::None)
        for (std::size_t i = 0; i < result.cases.size(); ++i)
            message += caseMessage({task.cases[i].name, task.cases[i].points, {}}, result.cases[i]);
    return message + fragmentOf(std::string(texts::points.in(marathi)) + ": " + shownPoints(result.points, marathi) +
                                " / " + shownPoints(task.points(), marathi));
}

}  // namespace

std::string tryWithTask(const QString& taskFile, const std::string& program) {
    const auto staysAlive = [] {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        return false;
    };
    try {
        const Task task = readTask(fileBytes(taskFile));
        return resultMessage(task, Checker(task, {.jobs = 1, .mustStop = staysAlive}).checkProgram(program));
    } catch (const Problem& problem) {
        return fragmentOf(problem.marathi);
    }
}

}  // namespace tolvan
