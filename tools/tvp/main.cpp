// tvp: Tolvan Basic without a window, for teachers and tests.

#include "classroom/ChildProcess.h"
#include "platform/process/OwnProgram.h"
#include "tvp/Commands.h"

int main(int count, char** arguments) {
    tolvan::prepareStandardStreams();
    const std::vector<std::string> words = tolvan::commandLineWords(count, arguments);
    if (const auto status = tolvan::classroom::ChildProcess::runIfChild(words)) return *status;
    return tolvan::runCommandLine(words);
}
