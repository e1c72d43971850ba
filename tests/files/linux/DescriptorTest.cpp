// Descriptors, with signals and pipes.
#include "platform/files/Descriptor.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <thread>
#include <unistd.h>

namespace tolvan {
namespace {

struct Pipe {
    Pipe() {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
        readEnd = Descriptor(ends[0]);
        writeEnd = Descriptor(ends[1]);
    }
    Descriptor readEnd;
    Descriptor writeEnd;
};

// A write that a signal interrupts has taken a part of the bytes, or none.
TEST(Descriptor, WritesAllBytesWhateverInterrupts) {
    struct sigaction ignored {};
    ignored.sa_handler = [](int) {};
    ASSERT_EQ(::sigaction(SIGUSR1, &ignored, nullptr), 0);  // without SA_RESTART
    std::string sent;
    for (int i = 0; i < 200'000; ++i) sent += std::to_string(i);
    Pipe pipe;
    int error = -1;
    std::thread writer([&] {
        error = pipe.writeEnd.write(sent);
        pipe.writeEnd.close();
    });
    std::string received;
    while (received.size() < sent.size()) {
        ::pthread_kill(writer.native_handle(), SIGUSR1);
        const std::size_t before = received.size();
        ASSERT_EQ(pipe.readEnd.read(received, 5000), 0);
        if (received.size() == before) break;
    }
    writer.join();
    EXPECT_EQ(error, 0);
    EXPECT_TRUE(received == sent) << received.size() << " of " << sent.size();
}

TEST(Descriptor, ReadsOnAfterASignal) {
    struct sigaction ignored {};
    ignored.sa_handler = [](int) {};
    ASSERT_EQ(::sigaction(SIGUSR1, &ignored, nullptr), 0);
    Pipe pipe;
    std::string received;
    int error = -1;
    std::thread reader([&] { error = pipe.readEnd.read(received, 5000); });
    for (int i = 0; i < 100; ++i) {
        ::pthread_kill(reader.native_handle(), SIGUSR1);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_EQ(pipe.writeEnd.write("abc"), 0);
    reader.join();
    EXPECT_EQ(error, 0);
    EXPECT_EQ(received, "abc");
}

TEST(Descriptor, ReadsPiecesUpToTheEndOrTheLimit) {
    const struct {
        std::size_t most;
        int error;
    } cases[] = {{8, 0}, {9, 0}, {7, EFBIG}};
    for (const auto& [most, error] : cases) {
        Pipe pipe;
        std::thread writer([&] {
            for (const char* piece : {"abc", "d", "efgh"}) EXPECT_EQ(pipe.writeEnd.write(piece), 0);
            pipe.writeEnd.close();
        });
        std::string text = ">";
        EXPECT_EQ(pipe.readEnd.readAll(text, most), error) << most;
        EXPECT_TRUE(error != 0 || text == ">abcdefgh") << text;
        writer.join();
    }
}

TEST(Descriptor, ReportsWhatTheSystemRefuses) {
    std::string text = "kept";
    EXPECT_EQ(Descriptor().read(text, 10), EBADF);
    EXPECT_EQ(text, "kept");
    EXPECT_EQ(Descriptor(::open("/", O_RDONLY)).readAll(text, 10), EISDIR);
    const Descriptor full(::open("/dev/full", O_WRONLY));
    EXPECT_EQ(full.write("a"), full.isOpen() ? ENOSPC : EBADF);
    Pipe pipe;
    Descriptor moved = std::move(pipe.writeEnd);
    EXPECT_EQ(moved.close(), 0);
    EXPECT_FALSE(moved.isOpen());
    EXPECT_EQ(moved.close(), 0);
    EXPECT_EQ(::write(Descriptor::standard(STDERR_FILENO).number(), "", 0), 0);  // still open
}

}  // namespace
}  // namespace tolvan
