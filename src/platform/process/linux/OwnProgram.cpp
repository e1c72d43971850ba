#include "platform/process/OwnProgram.h"

#include <algorithm>
#include <cstdlib>
#include <unistd.h>

namespace tolvan {

std::string ownProgramFile() {
    return "/proc/self/exe";
}

std::vector<std::string> commandLineWords(int count, char** arguments) {
    return {arguments + std::min(1, count), arguments + count};
}

std::string userCacheFolder() {
    const char* const caches = std::getenv("XDG_CACHE_HOME");
    if (caches != nullptr && *caches == '/') return std::string(caches) + "/tolbasic";
    const char* const home = std::getenv("HOME");
    return home != nullptr && *home == '/' ? std::string(home) + "/.cache/tolbasic" : std::string();
}

void prepareStandardStreams() {}

bool isTerminal(int descriptor) {
    return ::isatty(descriptor) == 1;
}

bool tellTerminal(std::string_view) {
    return false;
}

}  // namespace tolvan
