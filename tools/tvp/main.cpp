// tvp: Tolvan Basic without a window, for teachers and tests.

#include "platform/process/OwnProgram.h"
#include "tvp/Commands.h"

int main(int count, char** arguments) {
    tolvan::prepareStandardStreams();
    return tolvan::runCommandLine(tolvan::commandLineWords(count, arguments));
}
