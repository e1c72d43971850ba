#include "tvp/TvpProcess.h"

#include "platform/files/windows/SystemPath.h"
#include "support/Folders.h"

namespace tolvan {
namespace {

using windows::Handle;

// A file that the process inherits.
Handle openFor(const std::string& path, DWORD access, DWORD creation) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return Handle(::CreateFileW(windows::systemPath(path)->c_str(), access, FILE_SHARE_READ, &inherited, creation,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
}

// The word as the C library's start-up code reads it.
std::string quoted(const std::string& word) {
    std::string quoted = "\"";
    std::size_t backslashes = 0;
    for (const char c : word) {
        if (c == '"') quoted.append(backslashes + 1, '\\');
        backslashes = c == '\\' ? backslashes + 1 : 0;
        quoted += c;
    }
    return quoted.append(backslashes, '\\') + "\"";
}

}  // namespace

TvpResult TvpProcess::run(const std::vector<std::string>& arguments, std::string_view input) {
    folder_.write(".input", input);
    std::string line = quoted(programFolder() + "/tvp.exe");
    for (const std::string& argument : arguments) line += " " + quoted(argument);
    std::wstring commandLine = *windows::wideText(line);
    const std::wstring folder = *windows::wideText(folder_.path());
    PROCESS_INFORMATION process{};
    {
        const Handle in = openFor(folder_ / ".input", GENERIC_READ, OPEN_EXISTING);
        const Handle out = openFor(outputPath_, GENERIC_WRITE, CREATE_ALWAYS);
        const Handle errors = openFor(folder_ / ".errors", GENERIC_WRITE, CREATE_ALWAYS);
        STARTUPINFOW start{};
        start.cb = sizeof start;
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdInput = in.get();
        start.hStdOutput = out.get();
        start.hStdError = errors.get();
        if (::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, folder.c_str(), &start,
                             &process) == 0)
            return {};
    }
    const Handle thread(process.hThread);
    const Handle running(process.hProcess);
    ::WaitForSingleObject(running.get(), INFINITE);
    DWORD status = 0;
    ::GetExitCodeProcess(running.get(), &status);
    return {static_cast<int>(status), folder_.read(".output"), folder_.read(".errors")};
}

TvpResult TvpProcess::runProgram(std::vector<std::string> arguments, std::string_view roman, std::string_view input) {
    folder_.write("program.tvp", "caption\r\n" + std::string(roman) + "\r\n");
    arguments.emplace_back("program.tvp");
    return run(arguments, input);
}

}  // namespace tolvan
