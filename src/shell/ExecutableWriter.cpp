#include "shell/ExecutableWriter.h"

#include "runtime/host/FileError.h"
#include "shell/Payload.h"
#include "translator/ProgramFile.h"
#include "translator/ProgramText.h"
#include "translator/Translator.h"

#include <array>
#include <cerrno>
#include <exception>
#include <fcntl.h>
#include <new>
#include <span>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace tolvan {
namespace {

// Beside those of FileError.
constexpr int unknownFailure = 0;
constexpr int overflow = 6;
constexpr int outOfMemory = 7;

struct Failure {
    int number;
};

[[noreturn]] void fail(FileError error) {
    throw Failure{static_cast<int>(error)};
}

// An open file. Every call throws Failure where the system refuses.
class File {
  public:
    File(const std::string& path, int flags) : descriptor_(::open(path.c_str(), flags | O_CLOEXEC, 0777)) {
        if (descriptor_ < 0) fail(openFileError(errno, path));
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }

    // As many bytes as are there, at most the size of `block`; none at the end of the file.
    std::string_view read(std::span<char> block) const {
        for (;;) {
            const ssize_t count = ::read(descriptor_, block.data(), block.size());
            if (count >= 0) return {block.data(), static_cast<std::size_t>(count)};
            if (errno != EINTR) fail(fileError(errno));
        }
    }

    void write(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t count = ::write(descriptor_, bytes.data(), bytes.size());
            if (count == 0) throw Failure{unknownFailure};  // a device that takes nothing and does not say why
            if (count > 0)
                bytes.remove_prefix(static_cast<std::size_t>(count));
            else if (errno != EINTR)
                fail(fileError(errno));
        }
    }

    // Tells what the system found out only now, such as a full disk.
    void close() {
        if (::close(std::exchange(descriptor_, -1)) != 0 && errno != EINTR) fail(fileError(errno));
    }

  private:
    int descriptor_;
};

// Calls `block(bytes)` for each piece of the rest of a file.
template <class BlockCall>
void forEachBlock(const File& file, const BlockCall& block) {
    std::array<char, std::size_t{64} << 10> buffer;
    for (std::string_view bytes; !(bytes = file.read(buffer)).empty();) block(bytes);
}

std::string contentOf(const File& file) {
    std::string content;
    forEachBlock(file, [&content](std::string_view bytes) { content += bytes; });
    return content;
}

void write(const ExecutableFiles& files, std::string& caption) {
    const File engine(files.engine, O_RDONLY);
    const File source(files.program, O_RDONLY);
    File executable(files.executable, O_WRONLY | O_CREAT | O_TRUNC);
    forEachBlock(engine, [&executable](std::string_view bytes) { executable.write(bytes); });
    const ProgramFile program = readProgramFile(contentOf(source));
    caption = program.caption;
    // A file without a line end is shorter than its first line and that line's end.
    if (program.problem == ProgramFile::Problem::FirstLineWithoutEnd) throw Failure{overflow};
    executable.write(buildPayload({program.caption, Translator().Compile(ProgramText(program.roman))}));
    executable.close();
}

}  // namespace

std::optional<int> writeExecutable(const ExecutableFiles& files, std::string& caption) {
    try {
        write(files, caption);
        return std::nullopt;
    } catch (const Failure& failure) {
        return failure.number;
    } catch (const std::bad_alloc&) {
        return outOfMemory;
    } catch (const std::exception&) {
        return unknownFailure;
    }
}

}  // namespace tolvan
