#include "classroom/RunCase.h"

#include "classroom/CaseConsole.h"
#include "classroom/Sandbox.h"
#include "guide/Explanations.h"
#include "library/AddLibrary.h"
#include "platform/encoding/Ascii.h"
#include "platform/richtext/UnicodeText.h"
#include "runtime/host/RunModule.h"
#include "translator/ProgramFile.h"
#include "translator/ProgramText.h"

#include <new>
#include <optional>
#include <utility>

namespace tolvan::classroom {
namespace {

constexpr std::size_t mostPicture = std::size_t{12} << 20;  // bytes of a packed picture at its worst

// The text of a line of the module that does nothing but print it; nothing for any other line.
std::optional<std::string> printedByLine(std::string_view line) {
    constexpr std::string_view print = "parentform.PrintString \"";
    if (!line.starts_with(print) || !line.ends_with('"') || line.size() == print.size()) return std::nullopt;
    std::string text;
    const std::string_view literal = line.substr(print.size(), line.size() - print.size() - 1);
    for (std::size_t i = 0; i < literal.size(); ++i) {
        text += literal[i];
        if (literal[i] != '"') continue;
        if (i + 1 == literal.size() || literal[i + 1] != '"') return std::nullopt;
        ++i;
    }
    return text;
}

// The texts that are printed as they stand in the line before an input.
std::set<std::string> questionsOf(std::string_view module) {
    std::set<std::string> questions;
    std::optional<std::string> before;  // printed two lines before: between them is the poll
    std::optional<std::string> last;
    while (!module.empty()) {
        const std::string_view line = takeLine(module).text;
        if (before && line.starts_with("parentform.InputString")) questions.insert(*before);
        before = std::exchange(last, printedByLine(line));
    }
    return questions;
}

CaseRun::End endOf(const script::ErrorReport& report, const CaseConsole& console) {
    if (console.hasPrintedTooMuch()) return CaseRun::End::Output;
    if (console.isLate()) return CaseRun::End::Time;
    if (report.number == 0 || console.isStopped()) return CaseRun::End::Ended;
    if (report.number == script::errors::outOfMemory) return CaseRun::End::Memory;
    // The program has a folder that it may write: a file is refused only where it lies outside, or the limit is
    // reached.
    if (report.number == script::errors::diskFull || report.number == script::errors::permissionDenied)
        return CaseRun::End::Files;
    return CaseRun::End::Error;
}

void tellEnd(const script::ErrorReport& report, const RunnableProgram& program, CaseConsole& console) {
    const CaseRun::End end = endOf(report, console);
    PackWriter pack;
    pack.number(static_cast<std::int64_t>(end));
    pack.number(report.number);
    pack.number(program.lines.programLine(report.line));
    const bool failed = end != CaseRun::End::Ended;
    pack.text(failed ? unicodeOf(guide::errorMessageText(report.number)) : "");
    const auto wordOf = [&](std::string_view name) { return program.wordOf(name); };
    const auto causeIn = [&](guide::In language) {
        std::string cause;
        if (end == CaseRun::End::Error)
            for (const StyledText& line : guide::explain(report, wordOf, language))
                cause.append(cause.empty() ? "" : " ").append(unicodeOf(line));
        return cause;
    };
    pack.text(causeIn(guide::In::Marathi));
    pack.text(failed ? report.description : "");
    pack.text(causeIn(guide::In::English));
    console.picture().write(pack);
    console.tell(Told::End, pack.bytes());
    console.flush();
}

script::ErrorReport run(const RunnableProgram& program, const CaseInput& input, const CaseLimits& limits,
                        const std::string& folder, CaseConsole& console) {
    ConsoleObject object(console);
    object.scriptLibrary().setSeed(input.seed);
    object.scriptLibrary().simulateTime(simulatedStart());
    ReachableFiles files(folder);
    files.setSpace(limits.fileBytes);
    object.setFiles(std::move(files));
    script::Executor executor;
    executor.setMemoryLimit(limits.memoryBytes);
    return runModule(executor, object, program.module);
}

void readEnd(PackReader pack, CaseRun& run) {
    run.end = pack.choice(CaseRun::End::Crashed);
    run.number = static_cast<int>(pack.number());
    run.line = static_cast<int>(pack.number());
    run.message = pack.text();
    run.explanation = pack.text();
    run.english = pack.text();
    run.explanationInEnglish = pack.text();
    run.picture = Picture::read(pack);
    if (!pack.isWhole()) run.end = CaseRun::End::Crashed;
}

CaseRun::End endBySignal(int signal) {
    if (isSignalOfTime(signal)) return CaseRun::End::Time;
    return CaseRun::End::Crashed;
}

}  // namespace

void runCase(std::string_view file, const CaseInput& input, const CaseLimits& limits, const std::string& folder,
             const Descriptor& result) {
    try {
        const RunnableProgram program = runnableProgram(ProgramText(readProgramFile(file).roman));
        CaseConsole console(input, limits.outputBytes, questionsOf(program.module), result);
        tellEnd(run(program, input, limits, folder, console), program, console);
    } catch (const std::bad_alloc&) {
        PackWriter end;
        end.number(static_cast<std::int64_t>(CaseRun::End::Memory));
        PackWriter piece;
        piece.number(static_cast<std::int64_t>(Told::End));
        for (int empty = 0; empty < 2; ++empty) end.number(0);
        for (int empty = 0; empty < 4; ++empty) end.text({});
        Picture().write(end);
        piece.text(end.bytes());
        static_cast<void>(result.write(piece.bytes()));
    }
}

CaseRun readCaseRun(std::string_view result, int signal) {
    CaseRun run;
    run.end = endBySignal(signal);
    PackReader pieces(result);
    while (!pieces.rest().empty()) {
        const auto what = static_cast<Told>(pieces.number());
        const std::string text = pieces.text();
        if (!pieces.isWhole()) break;
        if (what == Told::Line) run.printed.push_back({text});
        if (what == Told::Cleared) run.shown = run.printed.size();
        if (what == Told::End) readEnd(PackReader(text), run);
        if (run.printed.empty()) continue;
        if (what == Told::Asked) run.printed.back().kind = PrintedLine::Kind::Asked;
        if (what == Told::AlwaysAsked) run.printed.back().kind = PrintedLine::Kind::AlwaysAsked;
    }
    return run;
}

std::size_t mostResult(const CaseLimits& limits) {
    // One printed byte may be a whole conjunct in UTF-8, and the shortest line, of one byte, has a frame of 16 more.
    return mostPicture + static_cast<std::size_t>(limits.outputBytes) * 20;
}

}  // namespace tolvan::classroom
