// The runtime of stand-alone executables: a program of its own, which runs the program that follows it in its file.
#include "dialogs/Dialogs.h"
#include "dialogs/Look.h"
#include "dialogs/NoDisplay.h"
#include "platform/encoding/Deva.h"
#include "platform/files/FilePath.h"
#include "platform/fonts/Fonts.h"
#include "platform/process/OwnProgram.h"
#include "runtime/DataFiles.h"
#include "runtime/ProgramRun.h"
#include "runtime/frmExec.h"
#include "stub/OwnPayload.h"
#include "stub/RuntimeSeal.h"
#include "translator/ModuleLines.h"

#include <QApplication>
#include <QTimer>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <utility>

namespace {

using tolvan::operator""_deva;

// Written by the build after linking; volatile, since the compiler is not to know the checksum.
const volatile tolvan::RuntimeSeal seal = {TOLVAN_SEAL_MARK, 0};

bool isWhole(const std::string& path) {
    std::string mark;
    for (const volatile char& c : seal.mark)
        if (c != '\0') mark += c;
    std::ifstream file(tolvan::filePath(path), std::ios::binary);
    const auto check = tolvan::checkRuntime(file, mark);
    return check && check->checksum == seal.checksum;
}

constexpr std::string_view damaged = "\\f1hI )a#l ib\"flelI Aahe\\f0. \\f1te àayaejn calvta yet nahI\\f0."_deva;

// With TOLVAN_SEED, a number, chance and the clock are those of "tvp run --seed=NUMBER --no-wait".
void repeatIfWanted(tolvan::frmExec& console) {
    const char* const seed = std::getenv("TOLVAN_SEED");
    if (seed == nullptr) return;
    console.scriptLibrary().setSeed(static_cast<std::uint32_t>(std::strtoul(seed, nullptr, 10)));
    console.scriptLibrary().simulateTime(tolvan::simulatedStart());
}

// Writes the program's console calls to the file that TOLVAN_TRACE names, one a line, as "tvp run --trace" does, so
// that a program can be checked as it is handed in.
void traceIfWanted(tolvan::frmExec& console) {
    const char* const path = std::getenv("TOLVAN_TRACE");
    if (path == nullptr) return;
    const auto file = std::make_shared<std::ofstream>(path, std::ios::binary);
    console.setTrace([file](std::string_view call) { *file << call << '\n' << std::flush; });
}

}  // namespace

int main(int, char** arguments) {
    int one = 1;  // the program's name; what follows it is not for Qt to read
    tolvan::NoDisplayMessage noDisplay(arguments[0]);
    QApplication application(one, arguments);
    noDisplay.end();
    QApplication::setOrganizationName(QStringLiteral("Tolbasic"));
    QApplication::setApplicationName(QStringLiteral("Tolbasic"));
    tolvan::loadStandIns();
    tolvan::look::apply(application);

    const std::string ownFile = tolvan::ownProgramFile();
    auto payload = tolvan::payloadOf(ownFile);
    if (!payload || !isWhole(ownFile)) {
        tolvan::ShowMessage(damaged);
        return EXIT_FAILURE;
    }
    tolvan::ProgramRun run;
    run.ProgramCaption = std::move(payload->caption);
    tolvan::frmExec console(run);
    console.setFiles(tolvan::dataFilesOf(QApplication::applicationFilePath()));
    traceIfWanted(console);
    repeatIfWanted(console);
    QTimer::singleShot(0, &console, [&console, &payload] {
        console.show();
        console.execute(payload->module, {});  // the executable does not hold where its lines came from
    });
    return QApplication::exec();
}
