// Windows copies no process. The work is done by another start of tvp, which gets it through its standard input and
// tells the result on its standard output.
#include "classroom/ChildProcess.h"

#include "classroom/Pack.h"
#include "classroom/ProcessWork.h"
#include "platform/files/windows/SystemPath.h"
#include "platform/process/Interruption.h"
#include "platform/process/OwnProgram.h"

#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <thread>
#include <utility>

namespace tolvan::classroom {
namespace {

using windows::Handle;

constexpr std::string_view workOption = "--process-of-a-class";
constexpr std::size_t mostWork = std::size_t{256} << 20;
constexpr std::size_t pieceSize = std::size_t{64} << 10;
constexpr UINT endedFromOutside = 9;

// tvp, which stands beside each program of this project.
std::string workProgram() {
    const std::string own = ownProgramFile();
    return own.substr(0, own.rfind('/') + 1) + "tvp.exe";
}

// Both ends of a pipe that takes so many bytes before somebody reads; the new process inherits one of them.
struct Pipe {
    Handle readEnd;
    Handle writeEnd;

    bool open(std::size_t size, Handle Pipe::*inherited) {
        HANDLE ends[2] = {INVALID_HANDLE_VALUE, INVALID_HANDLE_VALUE};
        if (::CreatePipe(&ends[0], &ends[1], nullptr, static_cast<DWORD>(size)) == 0) return false;
        readEnd = Handle(ends[0]);
        writeEnd = Handle(ends[1]);
        return ::SetHandleInformation((this->*inherited).get(), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT) != 0;
    }
};

std::string request(const ProcessWork& work, const std::string& folder, const ProcessLimits& limits) {
    PackWriter pack;
    pack.text(folder);
    pack.real(limits.seconds);
    pack.number(static_cast<std::int64_t>(limits.memoryBytes));
    pack.number(static_cast<std::int64_t>(limits.largestFile));
    pack.text(packWork(work));
    return pack.bytes();
}

HANDLE handleOf(std::intptr_t process) {
    return reinterpret_cast<HANDLE>(process);
}

double secondsOf(const FILETIME& time) {
    return static_cast<double>((std::uint64_t{time.dwHighDateTime} << 32U) | time.dwLowDateTime) / 1e7;
}

// Whether there is something to read, or never will be again.
bool tells(const Descriptor& pipe) {
    DWORD waiting = 0;
    const auto handle = reinterpret_cast<HANDLE>(::_get_osfhandle(pipe.number()));
    return ::PeekNamedPipe(handle, nullptr, 0, nullptr, &waiting, nullptr) == 0 || waiting > 0;
}

}  // namespace

std::optional<int> ChildProcess::runIfChild(const std::vector<std::string>& words) {
    if (words.size() != 1 || words.front() != workOption) return std::nullopt;
    std::string bytes;
    if (Descriptor::standard(0).readAll(bytes, mostWork) != 0) return 1;
    PackReader pack(bytes);
    const std::string folder = pack.text();
    ProcessLimits limits;
    limits.seconds = pack.real();
    limits.memoryBytes = static_cast<std::uint64_t>(pack.number());
    limits.largestFile = static_cast<std::uint64_t>(pack.number());
    const ProcessWork work = unpackWork(pack.text());
    limitProcess(limits);
    confineProcess(folder);
    doWork(work, folder, Descriptor::standard(1));
    endNow(0);
}

ChildProcess ChildProcess::start(const ProcessWork& work, const std::string& folder, const ProcessLimits& limits) {
    ChildProcess child;
    const std::string bytes = request(work, folder, limits);
    Pipe input;
    Pipe output;
    const std::string program = workProgram();
    const std::optional<std::wstring> place = windows::wideText(folder);
    std::optional<std::wstring> line = windows::wideText("\"" + program + "\" " + std::string(workOption));
    if (!place || !line || !input.open(bytes.size() + pieceSize, &Pipe::readEnd) ||
        !output.open(pieceSize, &Pipe::writeEnd)) {
        errno = windows::lastErrorNumber();
        return child;
    }
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = input.readEnd.get();
    start.hStdOutput = output.writeEnd.get();
    PROCESS_INFORMATION process{};
    if (::CreateProcessW(nullptr, line->data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr, place->c_str(),
                         &start, &process) == 0) {
        errno = windows::lastErrorNumber();
        return child;
    }
    ::CloseHandle(process.hThread);
    child.process_ = reinterpret_cast<std::intptr_t>(process.hProcess);
    DWORD written = 0;
    ::WriteFile(input.writeEnd.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    child.pipe_ = Descriptor(
        ::_open_osfhandle(reinterpret_cast<std::intptr_t>(output.readEnd.release()), _O_BINARY | _O_NOINHERIT));
    child.setLatest(limits);
    return child;
}

std::vector<bool> ChildProcess::waitFor(const std::vector<const ChildProcess*>& processes, int milliseconds) {
    constexpr int interval = 5;
    std::vector<bool> ready(processes.size());
    for (int waited = 0;; waited += interval) {
        bool anyIsReady = false;
        for (std::size_t i = 0; i < processes.size(); ++i) {
            ready[i] = tells(processes[i]->pipe_);
            anyIsReady = anyIsReady || ready[i];
        }
        if (anyIsReady || waited >= milliseconds) return ready;
        std::this_thread::sleep_for(std::chrono::milliseconds(interval));
    }
}

void ChildProcess::end() {
    const HANDLE process = handleOf(std::exchange(process_, 0));
    if (process == nullptr) return;
    ::TerminateProcess(process, endedFromOutside);
    ::WaitForSingleObject(process, INFINITE);
    FILETIME created{};
    FILETIME ended{};
    FILETIME kernel{};
    FILETIME user{};
    ::GetProcessTimes(process, &created, &ended, &kernel, &user);
    processorSeconds_ = secondsOf(kernel) + secondsOf(user);
    DWORD status = 0;
    ::GetExitCodeProcess(process, &status);
    signal_ = static_cast<int>(status);
    ::CloseHandle(process);
    pipe_.close();
}

}  // namespace tolvan::classroom
