#include "classroom/Sandbox.h"

#include "platform/files/Descriptor.h"

#include <array>
#include <cmath>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <fstream>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/landlock.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace tolvan::classroom {
namespace {

// Rights on files that the headers of Debian 12 do not name yet, with the version of Landlock that brought them.
constexpr std::uint64_t referRight = 1ULL << 13;     // version 2
constexpr std::uint64_t truncateRight = 1ULL << 14;  // 3
constexpr std::uint64_t deviceRight = 1ULL << 15;    // 5
constexpr std::uint64_t rightsOfFirstVersion = (1ULL << 13) - 1;
constexpr std::uint64_t connectAndBind = 3;     // of TCP; version 4
constexpr std::uint64_t socketsAndSignals = 3;  // to other processes; version 6

constexpr std::uint64_t rightsInFolder = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR |
                                         LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_MAKE_REG | truncateRight;

// What the kernel is given; an older kernel gets only the first members, see sizeOfRuleset.
struct Ruleset {
    std::uint64_t files = 0;
    std::uint64_t network = 0;
    std::uint64_t scopes = 0;
};

// 0 where the kernel has no Landlock.
long landlockVersion() {
    const long version = ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    return version > 0 ? version : 0;
}

Ruleset rulesetOf(long version) {
    Ruleset rules;
    rules.files = rightsOfFirstVersion;
    if (version >= 2) rules.files |= referRight;
    if (version >= 3) rules.files |= truncateRight;
    if (version >= 4) rules.network = connectAndBind;
    if (version >= 5) rules.files |= deviceRight;
    if (version >= 6) rules.scopes = socketsAndSignals;
    return rules;
}

std::size_t sizeOfRuleset(long version) {
    return version >= 6 ? sizeof(Ruleset) : version >= 4 ? offsetof(Ruleset, scopes) : offsetof(Ruleset, network);
}

void confineFiles(const std::string& folder) {
    const long version = landlockVersion();
    if (version == 0) return;
    const Ruleset rules = rulesetOf(version);
    const Descriptor ruleset(
        static_cast<int>(::syscall(SYS_landlock_create_ruleset, &rules, sizeOfRuleset(version), 0)));
    const Descriptor place(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    landlock_path_beneath_attr own{};
    own.allowed_access = rightsInFolder & rules.files;
    own.parent_fd = place.number();
    ::syscall(SYS_landlock_add_rule, ruleset.number(), LANDLOCK_RULE_PATH_BENEATH, &own, 0);
    ::syscall(SYS_landlock_restrict_self, ruleset.number(), 0);
}

// Calls without use for a program that only computes and has its files open()ed: processes, other processes, sockets,
// the system's own state, and those changes of files that Landlock does not look at.
constexpr auto deniedCalls = std::to_array<unsigned>({
    SYS_clone,
    SYS_clone3,
    SYS_execve,
    SYS_execveat,
    SYS_kill,
    SYS_tkill,
    SYS_ptrace,
    SYS_unshare,
    SYS_setns,
    SYS_socket,
    SYS_socketpair,
    SYS_truncate,
    SYS_fchmod,
    SYS_fchmodat,
    SYS_fchown,
    SYS_fchownat,
    SYS_utimensat,
    SYS_mount,
    SYS_setxattr,
    SYS_lsetxattr,
    SYS_fsetxattr,
    SYS_bpf,
    SYS_keyctl,
    SYS_add_key,
    SYS_perf_event_open,
    SYS_io_uring_setup,
    SYS_userfaultfd,
    SYS_pidfd_open,
    SYS_shmget,
    SYS_msgget,
    SYS_process_vm_readv,
    SYS_process_vm_writev,
    SYS_rt_sigqueueinfo,
    SYS_mq_open,
    SYS_prlimit64,
    SYS_setpriority,
#ifdef SYS_fork
    SYS_fork,
    SYS_vfork,
    SYS_chmod,
    SYS_chown,
    SYS_lchown,
    SYS_utime,
    SYS_utimes,
    SYS_futimesat,
#endif
});

#if defined(__x86_64__)
constexpr unsigned ownMachine = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr unsigned ownMachine = AUDIT_ARCH_AARCH64;
#else
constexpr unsigned ownMachine = 0;
#endif
constexpr unsigned otherTable = 0x40000000;  // numbers from here on are a second way to the same calls

bool hasCallFilter() {
    return ownMachine != 0 && ::prctl(PR_GET_SECCOMP, 0, 0, 0, 0) >= 0;
}

// Each denied call fails with EPERM; calls of another machine's numbering end the process.
void confineCalls() {
    if (!hasCallFilter()) return;
    std::vector<sock_filter> filter;
    const auto load = [&](unsigned offset) { filter.push_back(BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offset)); };
    const auto answer = [&](unsigned action) { filter.push_back(BPF_STMT(BPF_RET | BPF_K, action)); };
    load(offsetof(seccomp_data, arch));
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, ownMachine, 1, 0));
    answer(SECCOMP_RET_KILL_PROCESS);
    load(offsetof(seccomp_data, nr));
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JGE | BPF_K, otherTable, 0, 1));
    answer(SECCOMP_RET_KILL_PROCESS);
    for (const unsigned call : deniedCalls) {
        filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 1));
        answer(SECCOMP_RET_ERRNO | EPERM);
    }
    answer(SECCOMP_RET_ALLOW);
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program, 0, 0);
}

void limitResource(__rlimit_resource resource, std::uint64_t soft, std::uint64_t hard) {
    const rlimit limit{soft, hard};
    ::setrlimit(resource, &limit);
}

volatile std::sig_atomic_t timeIsOver = 0;

std::uint64_t addressSpaceUsed() {
    std::uint64_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    return pages * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
}

}  // namespace

std::vector<Wall> missingWalls() {
    std::vector<Wall> missing;
    if (landlockVersion() == 0) missing.push_back(Wall::Files);
    if (!hasCallFilter()) missing.push_back(Wall::SystemCalls);
    return missing;
}

void limitProcess(const ProcessLimits& limits) {
    const auto whole = static_cast<std::uint64_t>(std::ceil(limits.seconds)) + 1;  // what is counted there
    limitResource(RLIMIT_CPU, whole, whole);
    const std::uint64_t memory = addressSpaceUsed() + limits.memoryBytes;
    limitResource(RLIMIT_AS, memory, memory);
    limitResource(RLIMIT_FSIZE, limits.largestFile, limits.largestFile);
    limitResource(RLIMIT_CORE, 0, 0);
    limitResource(RLIMIT_NPROC, 0, 0);
    limitResource(RLIMIT_NOFILE, 32, 32);
    std::signal(SIGXFSZ, SIG_IGN);  // writing fails, which is an error of the program
    itimerval time{};
    time.it_value.tv_sec = static_cast<time_t>(limits.seconds);
    time.it_value.tv_usec = static_cast<suseconds_t>(std::fmod(limits.seconds, 1) * 1e6);
    time.it_interval.tv_usec = 200'000;
    ::setitimer(ITIMER_PROF, &time, nullptr);
}

void watchTime() {
    timeIsOver = 0;
    std::signal(SIGPROF, [](int) {
        if (timeIsOver != 0)
            std::signal(SIGPROF, SIG_DFL);  // it never looks whether it is late: the next signal ends it
        timeIsOver = 1;
    });
}

bool isTimeOver() {
    return timeIsOver != 0;
}

bool isSignalOfTime(int signal) {
    return signal == SIGPROF || signal == SIGXCPU || signal == SIGKILL;
}

void confineProcess(const std::string& folder) {
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    ::prctl(PR_SET_DUMPABLE, 0, 0, 0, 0);
    confineFiles(folder);
    confineCalls();
}

}  // namespace tolvan::classroom
