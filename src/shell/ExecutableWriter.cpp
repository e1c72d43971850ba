#include "shell/ExecutableWriter.h"

#include "library/AddLibrary.h"
#include "platform/files/OpenFile.h"
#include "platform/script/Errors.h"
#include "runtime/host/FileError.h"
#include "shell/Payload.h"
#include "translator/ProgramFile.h"
#include "translator/ProgramText.h"

#include <cerrno>
#include <exception>
#include <new>

namespace tolvan {
namespace {

constexpr int unknownFailure = 0;

constexpr std::size_t largestFile = std::size_t{1} << 30;  // bytes; no runtime and no program is larger

struct Failure {
    int number;
};

[[noreturn]] void fail(FileError error) {
    throw Failure{static_cast<int>(error)};
}

void check(int error) {
    if (error == Descriptor::withoutReason) throw Failure{unknownFailure};
    if (error != 0) fail(fileError(error));
}

Descriptor open(const std::string& path, FileUse use) {
    constexpr unsigned mayRun = 0777;
    Descriptor file = openFile(path, use, Links::Follow, mayRun);
    if (!file.isOpen()) fail(openFileError(errno, path));
    return file;
}

std::string contentOf(const Descriptor& file) {
    std::string content;
    check(file.readAll(content, largestFile));
    return content;
}

void write(const ExecutableFiles& files, std::string& caption) {
    const Descriptor source = open(files.program, FileUse::Read);
    const std::string engine = contentOf(open(files.engine, FileUse::Read));
    Descriptor executable = open(files.executable, FileUse::Replace);
    check(executable.write(engine));
    const ProgramFile program = readProgramFile(contentOf(source));
    caption = program.caption;
    // A file without a line end is shorter than its first line and that line's end.
    if (program.problem == ProgramFile::Problem::FirstLineWithoutEnd) throw Failure{script::errors::overflow};
    check(executable.write(buildPayload({program.caption, runnableModule(ProgramText(program.roman))})));
    check(executable.close());
}

}  // namespace

std::optional<int> writeExecutable(const ExecutableFiles& files, std::string& caption) {
    try {
        write(files, caption);
        return std::nullopt;
    } catch (const Failure& failure) {
        return failure.number;
    } catch (const std::bad_alloc&) {
        return script::errors::outOfMemory;
    } catch (const std::exception&) {
        return unknownFailure;
    }
}

}  // namespace tolvan
