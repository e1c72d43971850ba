#include "tvp/Commands.h"

#include "classroom/Problem.h"
#include "guide/Explanations.h"
#include "guide/Guide.h"
#include "library/AddLibrary.h"
#include "platform/encoding/Ascii.h"
#include "platform/encoding/Deva.h"
#include "platform/encoding/Unicode.h"
#include "platform/files/FileEntry.h"
#include "platform/files/PathLookup.h"
#include "platform/process/Interruption.h"
#include "platform/richtext/InternalText.h"
#include "platform/richtext/UnicodeText.h"
#include "platform/transliteration/MarkRoman.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "platform/transliteration/UnicodeToRoman.h"
#include "runtime/host/InputValue.h"
#include "runtime/host/RunModule.h"
#include "translator/Formatter.h"
#include "translator/ProgramFile.h"
#include "translator/ProgramText.h"
#include "translator/Translator.h"
#include "tvp/CheckClass.h"
#include "tvp/Input.h"
#include "tvp/Limits.h"
#include "tvp/Output.h"
#include "tvp/TextConsole.h"
#include "tvp/TraceCsv.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <ctime>
#include <deque>
#include <functional>
#include <limits>
#include <new>
#include <optional>

namespace tolvan {
namespace {

constexpr int succeeded = 0;
constexpr int scriptFailed = 1;
constexpr int unusable = 2;

// What is wrong with the use of the command line; for the user, in English.
struct UsageFailure {
    std::string message;
};

struct Invocation {
    std::string file = {};
    bool trace = false;
    bool unicode = false;
    std::string keyFile = {};    // empty: no keys are pressed
    std::string inputFile = {};  // empty: standard input
    std::string columns = {};    // empty: all
    std::size_t lastRows = script::Recording::defaultRows;
    std::optional<std::uint32_t> seed = {};
    std::optional<std::time_t> simulatedStart = {};
    Limits limits{};
    CheckRequest check{};
    Output& output;
    Output& messages;
};

// Calls `line(text, end)` for each line and its own line end: LF, CR LF, or none after the last.
template <class LineCall>
void forEachLine(std::string_view text, const LineCall& line) {
    while (!text.empty()) {
        const Line next = takeLine(text);
        line(next.text, next.end);
    }
}

ProgramFile readProgram(const Invocation& invocation) {
    const std::string content = readInput(invocation.file);
    if (content.empty()) throw InputFailure{invocation.file + " is empty: a program begins with its caption"};
    ProgramFile file = readProgramFile(content);
    if (file.problem == ProgramFile::Problem::FirstLineWithoutEnd)
        throw InputFailure{invocation.file + " is no program: its first line, the caption, has no end"};
    return file;
}

std::string moduleOf(const ProgramFile& file) {
    return Translator().Compile(ProgramText(file.roman));
}

// Writes what `change` makes of each line, and its own line end.
template <class Change>
int changeLines(const Invocation& invocation, const Change& change) {
    forEachLine(readInput(invocation.file), [&](std::string_view line, std::string_view end) {
        invocation.output.write(change(line));
        invocation.output.write(end);
    });
    return succeeded;
}

int convertFile(const Invocation& invocation) {
    return changeLines(invocation, [&](std::string_view roman) {
        const std::string codes = ReplaceRomanChars(roman);
        return invocation.unicode ? unicodeOfCodes(codes) : codes;
    });
}

int showUnicode(const Invocation& invocation) {
    return changeLines(invocation, [](std::string_view codes) { return unicodeOfCodes(codes); });
}

int showRoman(const Invocation& invocation) {
    return changeLines(invocation, [](std::string_view utf8) { return romanOfUnicode(utf8); });
}

// Roman text, which is windows-1252.
void writeRoman(const Invocation& invocation, const std::string& roman) {
    std::string utf8;
    if (invocation.unicode) appendUnicodeOfLatin(roman, utf8);
    invocation.output.write(invocation.unicode ? utf8 : roman);
}

int markFile(const Invocation& invocation) {
    writeRoman(invocation, markRoman(readInput(invocation.file)));
    return succeeded;
}

int showProgram(const Invocation& invocation) {
    const StyledText text = Transliterate(readProgram(invocation).roman);
    std::size_t position = 0;
    forEachLine(text.text(), [&](std::string_view characters, std::string_view end) {
        const StyledView line = text.view().substr(position, characters.size());
        invocation.output.write(invocation.unicode ? unicodeOf(line) : RomanMark(line));
        if (!end.empty()) invocation.output.write("\n");
        position += characters.size() + end.size();
    });
    return succeeded;
}

int showModule(const Invocation& invocation) {
    invocation.output.write(moduleOf(readProgram(invocation)));
    return succeeded;
}

// Errors first, each part by lines.
int lintFile(const Invocation& invocation) {
    std::vector<guide::Finding> findings = guide::Guide().check(readProgram(invocation).roman);
    std::stable_partition(findings.begin(), findings.end(),
                          [](const guide::Finding& finding) { return finding.weight == guide::Weight::Error; });
    for (const guide::Finding& finding : findings)
        invocation.output.writeLine(std::to_string(finding.line) + ':' + std::to_string(finding.roman.from + 1) + '-' +
                                    std::to_string(std::max(finding.roman.to, finding.roman.from + 1)) + ' ' +
                                    std::string(finding.kind) + ' ' + unicodeOf(finding.text));
    return findings.empty() ? succeeded : scriptFailed;
}

int formatFile(const Invocation& invocation) {
    const ProgramFile file = readProgram(invocation);
    writeRoman(invocation, file.caption + std::string(lineEnd) + formatProgram(file.roman, ProgramText(file.roman)));
    return succeeded;
}

// One key a line, in Roman letters, as input would be read; an empty line is a look that finds none.
std::deque<std::string> readKeys(const std::string& file) {
    std::deque<std::string> keys;
    forEachLine(readInput(file), [&](std::string_view line, std::string_view) { keys.push_back(inputValue(line)); });
    return keys;
}

using TellError = std::function<void(const script::ErrorReport&, Output& messages)>;

void tellNumberAndLine(const script::ErrorReport& report, Output& messages) {
    messages.writeLine("error " + std::to_string(report.number) + " line " + std::to_string(report.line));
}

// The line of the program, the message and the sentence; then what is known of the cause, a line each.
void tellInMarathi(const guide::RunFailure& failure, Output& messages) {
    StyledText text("Aae¦ "_deva, Font::Devanagari);
    text.append(std::to_string(failure.line) + ": ", Font::Latin);
    text.append(failure.message);
    if (!failure.sentence.empty()) {
        text.append(": ", Font::Latin);
        text.append(failure.sentence);
    }
    messages.writeLine(unicodeOf(text));
    for (const StyledText& line : failure.explanation) messages.writeLine(unicodeOf(line));
}

// Both must outlive it.
TellError marathiTeller(const RunnableProgram& program, const StyledText& text) {
    return [&](const script::ErrorReport& report, Output& messages) {
        const auto wordOf = [&](std::string_view scriptName) { return program.wordOf(scriptName); };
        const int line = program.lines.programLine(report.line);
        tellInMarathi(guide::runFailure(report, line, text, wordOf), messages);
    };
}

ReachableFiles filesOf(const Invocation& invocation) {
    ReachableFiles files = invocation.limits.filesOf(findPath(forwardSlashes(invocation.file)));
    files.setSpace(invocation.limits.outputBytes);
    return files;
}

// A run whose table is still to be written is ended by the engine. Where that cannot do it, in a wait for input, the
// table is given up a little later.
void limitTime(std::uint64_t milliseconds, script::Executor& executor, bool isTraced) {
    constexpr std::uint64_t patience = 5000;
    if (milliseconds == Limits::none) return;
    if (isTraced)
        executor.setTimeout(static_cast<int>(std::min<std::uint64_t>(milliseconds, std::numeric_limits<int>::max())));
    endAfter(isTraced ? milliseconds + patience : milliseconds, timeIsOver, limitReached);
}

int runOnTextConsole(const std::string& module, const Invocation& invocation, const TellError& tellError,
                     script::Recording* recording = nullptr) {
    Output nowhere;
    const bool isUnicode = invocation.unicode || recording != nullptr;
    TextConsole console(isUnicode ? TextConsole::Lines::Unicode : TextConsole::Lines::FontCodes,
                        recording == nullptr ? invocation.output : nowhere, invocation.messages);
    if (!invocation.inputFile.empty()) console.setInput(LineReader(readInput(invocation.inputFile)));
    ConsoleObject object(console);
    if (invocation.trace) object.setTrace([&](std::string_view call) { invocation.messages.writeLine(call); });
    if (!invocation.keyFile.empty()) console.setKeys(readKeys(invocation.keyFile));
    if (invocation.seed) object.scriptLibrary().setSeed(*invocation.seed);
    if (invocation.simulatedStart) object.scriptLibrary().simulateTime(*invocation.simulatedStart);
    object.setFiles(filesOf(invocation));
    console.setMostOutput(invocation.limits.outputBytes);
    script::Executor executor;
    if (invocation.limits.memoryBytes != Limits::none) executor.setMemoryLimit(invocation.limits.memoryBytes);
    limitTime(invocation.limits.milliseconds, executor, recording != nullptr);
    if (recording != nullptr) recording->setOutputCount(object.callCount());
    executor.setRecording(recording);
    const script::ErrorReport report = runModule(executor, object, module);
    executor.setRecording(nullptr);
    if (console.hasPrintedTooMuch()) {
        invocation.messages.writeLine("tvp: stopped, it printed too much");
        return limitReached;
    }
    if (report.number == script::errors::timedOut) {
        invocation.messages.write(timeIsOver);
        return limitReached;
    }
    if (report.number == 0 || console.isStopped()) return succeeded;
    tellError(report, invocation.messages);
    return scriptFailed;
}

int runProgram(const Invocation& invocation) {
    const StyledText text = ProgramText(readProgram(invocation).roman);
    const RunnableProgram program = runnableProgram(text);
    return runOnTextConsole(program.module, invocation,
                            invocation.unicode ? marathiTeller(program, text) : tellNumberAndLine);
}

int runScript(const Invocation& invocation) {
    return runOnTextConsole(readInput(invocation.file), invocation, tellNumberAndLine);
}

int traceProgram(const Invocation& invocation) {
    const StyledText text = ProgramText(readProgram(invocation).roman);
    const RunnableProgram program = runnableProgram(text);
    std::vector<std::string> words;
    if (!invocation.columns.empty()) words = wordsOfList(invocation.columns, program);
    if (std::find(words.begin(), words.end(), "") != words.end())
        throw UsageFailure{"the program does not have all the names in " + invocation.columns};
    script::Recording recording(invocation.lastRows);
    const int status = runOnTextConsole(program.module, invocation, marathiTeller(program, text), &recording);
    TraceTable table(recording, program);
    writeTraceCsv(table, text, words, invocation.output);
    if (table.isBeginningGone())
        invocation.messages.writeLine("tvp: the table has the last " +
                                      std::to_string(table.endRow() - table.firstRow()) + " of " +
                                      std::to_string(table.endRow()) + " rows");
    return status;
}

std::uint32_t wholeNumber(std::string_view value) {
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
    if (error != std::errc() || end != value.data() + value.size())
        throw UsageFailure{"'" + std::string(value) + "' is no whole number"};
    return number;
}

int checkHandIns(const Invocation& invocation) {
    if (invocation.check.task.empty()) throw UsageFailure{"check needs --task"};
    return checkClass(invocation.file, invocation.check, invocation.output, invocation.messages);
}

int packTask(const Invocation& invocation) {
    return makeTaskFile(invocation.file, invocation.output);
}

// Each option, as a bit that the commands name which take it.
enum OptionBit : unsigned {
    noOption = 0,
    traceOption = 1U << 0U,
    runOption = 1U << 1U,
    unicodeOption = 1U << 2U,
    checkOption = 1U << 3U,
    tableOption = 1U << 4U,
};

struct Option {
    OptionBit bit;
    std::string_view name;  // one that ends in "=" has a value after it, or in the next argument
    std::string_view usage;
    // Throws UsageFailure where the value is not one.
    void (*set)(Invocation&, std::string_view value);
};

template <class Value>
Value required(std::optional<Value> value, std::string_view option, std::string_view text) {
    if (!value) throw UsageFailure{std::string(option) + " cannot be " + std::string(text)};
    return *value;
}

void setFiles(Invocation& invocation, std::string_view value) {
    const bool isWord = value == "own" || value == "none" || value == "all";
    if (!isWord && !isFolder(std::string(value))) throw UsageFailure{"there is no folder " + std::string(value)};
    invocation.limits.files = value;
}

std::size_t rowCount(std::string_view value) {
    constexpr std::uint32_t most = 1'000'000;
    const std::uint32_t count = wholeNumber(value);
    if (count < 1 || count > most) throw UsageFailure{"--last is 1 to " + std::to_string(most)};
    return count;
}

constexpr Option options[] = {
    {traceOption, "--trace", "also writes each console call to standard error",
     [](Invocation& invocation, std::string_view) { invocation.trace = true; }},
    {unicodeOption, "--unicode", "prints Unicode and takes it as input; run tells errors in Marathi",
     [](Invocation& invocation, std::string_view) { invocation.unicode = true; }},
    {runOption, "--seed=", "N: random numbers begin with this seed, and so repeat",
     [](Invocation& invocation, std::string_view value) { invocation.seed = wholeNumber(value); }},
    {runOption, "--keys=", "FILE: the keys that the program finds pressed, one a line; an empty line is none",
     [](Invocation& invocation, std::string_view value) { invocation.keyFile = value; }},
    {runOption, "--no-wait", "waiting takes no time; the program's clock starts at 10:08:30 on 26 January 2026",
     [](Invocation& invocation, std::string_view) { invocation.simulatedStart = simulatedStart(); }},
    {runOption, "--seconds=", "stops the program after so many seconds",
     [](Invocation& invocation, std::string_view value) {
         invocation.limits.milliseconds = required(readMilliseconds(value), "--seconds", value);
     }},
    {runOption, "--output=", "how many bytes it may print, and write into files; 64K, 10M, 1G",
     [](Invocation& invocation, std::string_view value) {
         invocation.limits.outputBytes = required(readBytes(value), "--output", value);
     }},
    {runOption, "--memory=", "how many bytes its texts, arrays and objects may take",
     [](Invocation& invocation, std::string_view value) {
         invocation.limits.memoryBytes = required(readBytes(value), "--memory", value);
     }},
    {runOption, "--files=", "the files it reaches: own (its folder and below, the default), none, all, or a folder",
     setFiles},
    {checkOption, "--task=", "the task: a folder with *.in, *.out or solution.tvp, or a .task file",
     [](Invocation& invocation, std::string_view value) { invocation.check.task = value; }},
    {checkOption, "--html=", "FILE: a page with all that is to be said of each program",
     [](Invocation& invocation, std::string_view value) { invocation.check.html = value; }},
    {checkOption, "--csv=", "FILE: a table for a spreadsheet",
     [](Invocation& invocation, std::string_view value) { invocation.check.csv = value; }},
    {checkOption, "--jobs=", "N: how many programs run at a time",
     [](Invocation& invocation, std::string_view value) {
         invocation.check.jobs = wholeNumber(value);
         if (invocation.check.jobs == 0 || invocation.check.jobs > 64) throw UsageFailure{"--jobs is 1 to 64"};
     }},
    {checkOption, "--english", "the table and the page in English",
     [](Invocation& invocation, std::string_view) { invocation.check.english = true; }},
    {checkOption, "--no-cache", "checks again what was checked before",
     [](Invocation& invocation, std::string_view) { invocation.check.useCache = false; }},
    {tableOption, "--columns=", "WORD,WORD...: the variables in the table, in Devanagari or Roman letters; else all",
     [](Invocation& invocation, std::string_view value) { invocation.columns = value; }},
    {tableOption, "--last=", "N: how many rows the table has at most, the last ones; else 10000",
     [](Invocation& invocation, std::string_view value) { invocation.lastRows = rowCount(value); }},
    {tableOption, "--input=", "FILE: what is typed, instead of standard input",
     [](Invocation& invocation, std::string_view value) { invocation.inputFile = value; }},
};

enum class NoFile : std::uint8_t { IsWrong, IsStandardInput };

struct Command {
    std::string_view name;
    std::string_view usage;
    int (*run)(const Invocation&);
    NoFile noFile = NoFile::IsWrong;
    unsigned options = noOption;
};

constexpr Command commands[] = {
    {"convert", "convert [FILE]      Roman text to font-encoded text, line by line", convertFile,
     NoFile::IsStandardInput, unicodeOption},
    {"mark", "mark [FILE]         Roman text with what stays Latin between \"#\" marks", markFile,
     NoFile::IsStandardInput, unicodeOption},
    {"unicode", "unicode [FILE]      font-encoded text to Unicode (UTF-8), line by line", showUnicode,
     NoFile::IsStandardInput},
    {"roman", "roman [FILE]        Unicode Devanagari to Roman text; what is not Devanagari stays", showRoman,
     NoFile::IsStandardInput},
    {"program", "program FILE.tvp    the program text, Latin runs in braces", showProgram, NoFile::IsWrong,
     unicodeOption},
    {"module", "module FILE.tvp     the script module that the program becomes", showModule},
    {"run", "run FILE.tvp        runs the program", runProgram, NoFile::IsWrong,
     traceOption | runOption | unicodeOption},
    {"script", "script FILE         runs a script module", runScript, NoFile::IsWrong,
     traceOption | runOption | unicodeOption},
    {"trace", "trace FILE.tvp      runs the program; a table of its lines and values as CSV, in Unicode", traceProgram,
     NoFile::IsWrong, runOption | tableOption},
    {"lint", "lint FILE.tvp       what is wrong with the program, in Marathi: LINE:FROM-TO KIND text", lintFile},
    {"check", "check FOLDER        checks every program of a class", checkHandIns, NoFile::IsWrong, checkOption},
    {"task", "task FOLDER         makes FOLDER.task, for pupils, of the task in the folder", packTask},
    {"format", "format FILE.tvp     the program file, indented", formatFile, NoFile::IsWrong, unicodeOption},
};

// "run, script": the commands that take the option.
std::string takers(const Option& option) {
    std::string names;
    for (const Command& command : commands)
        if ((command.options & option.bit) != 0) names.append(names.empty() ? "" : ", ").append(command.name);
    return names;
}

std::string usage() {
    std::string text = "Usage: tvp COMMAND [OPTION...] [FILE]\n\n";
    for (const Command& command : commands) text.append("  tvp ").append(command.usage).append("\n");
    text += "\n";
    for (const Option& option : options)
        text.append("  ").append(option.name).append("  ").append(option.usage).append(" (").append(takers(option)) +=
            ")\n";
    return text +
           "\nFILE is \"-\" for standard input, which [FILE] stands for when it is left out; otherwise an\n"
           "ordinary file of up to 64 MiB.\n"
           "Exit status: 0 ended or stopped itself, 1 script error or finding, 2 bad usage or unreadable file,\n"
           "3 stopped at a limit of time or output.\n";
}

const Command& findCommand(const std::string& name) {
    const auto* const found =
        std::find_if(std::begin(commands), std::end(commands), [&](const Command& c) { return c.name == name; });
    if (found == std::end(commands)) throw UsageFailure{"there is no command " + name};
    return *found;
}

bool isOption(const std::string& argument) {
    return argument.size() > 1 && argument[0] == '-';
}

bool takesValue(const Option& option) {
    return option.name.ends_with('=');
}

// "--task" alone: its value is the next argument.
bool wantsNextArgument(std::string_view argument) {
    return std::any_of(std::begin(options), std::end(options), [&](const Option& option) {
        return takesValue(option) && option.name.substr(0, option.name.size() - 1) == argument;
    });
}

void setOption(const Command& command, std::string_view argument, Invocation& invocation) {
    for (const Option& option : options) {
        const bool named = takesValue(option) ? argument.starts_with(option.name) : argument == option.name;
        if (named && (command.options & option.bit) != 0)
            return option.set(invocation, argument.substr(option.name.size()));
    }
    throw UsageFailure{std::string(command.name) + " has no option " + std::string(argument)};
}

// Reads what follows the command's name.
void parseArguments(const Command& command, const std::vector<std::string>& arguments, Invocation& invocation) {
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        if (wantsNextArgument(arguments[i]) && i + 1 < arguments.size()) {
            const std::string option = arguments[i] + '=' + arguments[i + 1];
            setOption(command, option, invocation);
            ++i;
        } else if (isOption(arguments[i])) {
            setOption(command, arguments[i], invocation);
        } else if (!invocation.file.empty()) {
            throw UsageFailure{arguments[0] + " takes one file, not also " + arguments[i]};
        } else {
            invocation.file = arguments[i];
        }
    }
    if (invocation.file.empty() && command.noFile == NoFile::IsWrong)
        throw UsageFailure{arguments[0] + " needs a file"};
    if (invocation.file.empty()) invocation.file = "-";
}

int runCommand(const std::vector<std::string>& arguments, Output& output, Output& messages) {
    if (arguments.empty()) throw UsageFailure{"a command is needed"};
    if (arguments[0] == "--help" || arguments[0] == "-h" || arguments[0] == "-?") {
        output.write(usage());
        return succeeded;
    }
    const Command& command = findCommand(arguments[0]);
    Invocation invocation{.output = output, .messages = messages};
    parseArguments(command, arguments, invocation);
    return command.run(invocation);
}

// Problems are told in Marathi unless English is asked for, wherever that stands.
classroom::Language languageOf(const std::vector<std::string>& arguments) {
    const bool english = std::find(arguments.begin(), arguments.end(), "--english") != arguments.end();
    return english ? classroom::Language::English : classroom::Language::Marathi;
}

}  // namespace

int runCommandLine(const std::vector<std::string>& arguments) {
    Output output(1);
    Output messages(2);
    int status = unusable;
    try {
        status = runCommand(arguments, output, messages);
    } catch (const UsageFailure& failure) {
        messages.write("tvp: " + failure.message + "\n\n" + usage());
    } catch (const InputFailure& failure) {
        messages.writeLine("tvp: " + failure.message);
    } catch (const classroom::Problem& problem) {
        messages.writeLine("tvp: " + problem.in(languageOf(arguments)));
    } catch (const std::bad_alloc&) {
        messages.writeLine("tvp: the text is too large for the memory of this machine");
    }
    output.flush();
    if (output.failure() == 0) return status;
    messages.writeLine(std::string("tvp: cannot write the output: ") + std::strerror(output.failure()));
    return unusable;
}

}  // namespace tolvan
