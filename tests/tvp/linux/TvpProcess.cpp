#include "tvp/TvpProcess.h"

#include "support/Folders.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tolvan {
namespace {

void redirect(int descriptor, const std::string& path, int flags) {
    const int file = ::open(path.c_str(), flags, 0600);
    if (file < 0 || ::dup2(file, descriptor) < 0) ::_exit(127);
}

}  // namespace

TvpResult TvpProcess::run(const std::vector<std::string>& arguments, std::string_view input) {
    const std::string program = programFolder() + "/tvp";
    folder_.write(".input", input);
    std::vector<char*> words{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    const std::string inputPath = folder_ / ".input";
    const std::string errorPath = folder_ / ".errors";

    const pid_t child = ::fork();
    if (child == 0) {
        ::signal(SIGINT, SIG_DFL);  // who runs the tests in the background has it ignored
        if (::chdir(folder_.path().c_str()) != 0) ::_exit(127);
        redirect(STDIN_FILENO, inputPath, O_RDONLY);
        redirect(STDOUT_FILENO, outputPath_, O_WRONLY | O_CREAT | O_TRUNC);
        redirect(STDERR_FILENO, errorPath, O_WRONLY | O_CREAT | O_TRUNC);
        ::execv(words[0], words.data());
        ::_exit(127);
    }
    if (signal_ != 0) {
        siginfo_t ended{};
        while (!ready_() && ended.si_pid == 0) {
            ::usleep(10'000);
            ::waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOWAIT | WNOHANG);
        }
        ::kill(child, signal_);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return {WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status), folder_.read(".output"),
            folder_.read(".errors")};
}

TvpResult TvpProcess::runProgram(std::vector<std::string> arguments, std::string_view roman, std::string_view input) {
    folder_.write("program.tvp", "caption\r\n" + std::string(roman) + "\r\n");
    arguments.emplace_back("program.tvp");
    return run(arguments, input);
}

}  // namespace tolvan
