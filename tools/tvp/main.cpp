// tvp: Tolvan Basic without a window, for teachers and tests.

#include "tvp/Commands.h"

int main(int count, char** arguments) {
    return tolvan::runCommandLine({arguments + 1, arguments + count});
}
