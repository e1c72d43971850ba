// The walls around a process, tried by one that means harm and is not kept back by the language.
#include "classroom/ChildProcess.h"
#include "host/TemporaryFolder.h"

#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tolvan::classroom {
namespace {

struct Walls : testing::Test {
    // What `attack` returns in a confined process: 0 if it did what it wanted, else why not (errno).
    int after(const std::function<int()>& attack, double seconds = 5) {
        child = ChildProcess::start([&](const Descriptor& result) { result.write(std::to_string(attack())); },
                                    own.path(), {seconds, std::uint64_t{256} << 20, 1000});
        EXPECT_TRUE(child.isStarted());
        while (child.read()) continue;
        child.end();
        return child.result().empty() ? -1 : std::stoi(child.result());
    }

    static int errnoUnless(bool succeeded) { return succeeded ? 0 : errno; }

    TemporaryFolder own;
    TemporaryFolder others;
    ChildProcess child;
};

TEST_F(Walls, LeaveTheOwnFolderOnly) {
    if (!missingWalls().empty()) GTEST_SKIP() << "this system lacks a wall";
    others.write("solution", "42");
    const std::string secret = others / "solution";
    EXPECT_EQ(after([&] { return errnoUnless(::open(secret.c_str(), O_RDONLY) >= 0); }), EACCES);
    EXPECT_EQ(after([&] { return errnoUnless(::open((others / "new").c_str(), O_CREAT | O_WRONLY, 0600) >= 0); }),
              EACCES);
    EXPECT_NE(after([&] { return errnoUnless(::truncate(secret.c_str(), 0) == 0); }), 0);
    EXPECT_EQ(after([&] { return errnoUnless(::chmod(secret.c_str(), 0777) == 0); }), EPERM);
    EXPECT_EQ(after([&] { return errnoUnless(::unlink(secret.c_str()) == 0); }), EACCES);
    EXPECT_EQ(others.read("solution"), "42");
    EXPECT_EQ(after([&] { return errnoUnless(::open("mine", O_CREAT | O_RDWR, 0600) >= 0); }), 0);
    EXPECT_EQ(after([&] { return errnoUnless(::symlink(secret.c_str(), "link") == 0); }), EACCES);
}

TEST_F(Walls, KeepFromProcessesSocketsAndTheTerminal) {
    if (!missingWalls().empty()) GTEST_SKIP() << "this system lacks a wall";
    EXPECT_EQ(after([] { return errnoUnless(::fork() >= 0); }), EPERM);
    EXPECT_EQ(after([] { return errnoUnless(::execl("/bin/true", "true", nullptr) == 0); }), EPERM);
    EXPECT_EQ(after([] { return errnoUnless(::socket(AF_INET, SOCK_STREAM, 0) >= 0); }), EPERM);
    EXPECT_EQ(after([] { return errnoUnless(::kill(::getppid(), 0) == 0); }), EPERM);
    EXPECT_NE(after([] { return errnoUnless(::open("/dev/tty", O_RDWR) >= 0); }), 0);
    const Descriptor inherited(::fcntl(STDIN_FILENO, F_DUPFD, 20));
    EXPECT_EQ(after([&] { return errnoUnless(::fcntl(inherited.number(), F_GETFD) >= 0); }), EBADF);
}

TEST_F(Walls, HoldTheLimits) {
    EXPECT_EQ(after([] {
                  return errnoUnless(::mmap(nullptr, std::size_t{1} << 30, PROT_READ | PROT_WRITE,
                                            MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) != MAP_FAILED);
              }),
              ENOMEM);
    EXPECT_EQ(after([] {
                  const int file = ::open("large", O_CREAT | O_WRONLY, 0600);
                  const std::string kilobyte(1000, 'x');
                  static_cast<void>(!::write(file, kilobyte.data(), kilobyte.size()));
                  return errnoUnless(::write(file, kilobyte.data(), kilobyte.size()) > 0);
              }),
              EFBIG);
    EXPECT_EQ(after(
                  []() -> int {
                      for (volatile int forever = 0;;) forever = forever + 1;
                  },
                  0.2),
              -1);
    EXPECT_EQ(child.signal(), SIGPROF);
    EXPECT_LT(child.processorSeconds(), 1);
}

}  // namespace
}  // namespace tolvan::classroom
