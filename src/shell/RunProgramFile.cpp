#include "shell/RunProgramFile.h"

#include "platform/files/PathLookup.h"
#include "runtime/RunState.h"
#include "runtime/frmExec.h"
#include "translator/ProgramFile.h"
#include "translator/ProgramText.h"
#include "translator/Translator.h"

#include <QFile>

#include <string>

namespace tolvan {

bool loadProgramFile(const QString& path, RunState& state) {
    const std::string found = findPath(forwardSlashes(QFile::encodeName(path).toStdString()));
    QFile file(QFile::decodeName(found.c_str()));
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QByteArray bytes = file.readAll();
    if (file.error() != QFile::NoError) return false;
    const ProgramFile program = readProgramFile(bytes.toStdString());
    state.ProgramCaption = program.caption;
    state.CompiledScript = Translator().Compile(ProgramText(program.roman));
    return true;
}

void runInConsole(RunState& state) {
    auto* const console = new frmExec(state);
    console->setAttribute(Qt::WA_DeleteOnClose);
    console->show();
    console->execute();
}

}  // namespace tolvan
