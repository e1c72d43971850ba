#include "dialogs/NoDisplay.h"

#include <QtGlobal>

#include <cstdio>
#include <cstdlib>

namespace tolvan {
namespace {

const char* programName = "";

[[noreturn]] void endWithoutDisplay() {
    std::fprintf(stderr, "%s: no window can be opened here, since there is no display\n", programName);
    std::_Exit(EXIT_FAILURE);
}

void whileStarting(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type == QtFatalMsg) endWithoutDisplay();
}

}  // namespace

NoDisplayMessage::NoDisplayMessage(const char* program) {
    programName = program;
    qInstallMessageHandler(whileStarting);
}

void NoDisplayMessage::end() {
    qInstallMessageHandler(nullptr);
}

}  // namespace tolvan
