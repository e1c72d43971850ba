#include "shell/MakeExe.h"

#include "dialogs/Dialogs.h"
#include "editor/DocumentMessages.h"
#include "editor/FileDialogs.h"
#include "editor/frmEditor.h"
#include "platform/encoding/Deva.h"
#include "platform/files/PathLookup.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/RtfWriter.h"
#include "platform/settings/Settings.h"
#include "runtime/host/FileError.h"
#include "shell/ExecutableWriter.h"
#include "shell/mdlMain.h"
#include "translator/MessageTable.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <unistd.h>

namespace tolvan {
namespace {

constexpr std::string_view saveFirst =
    "\\f1hI )a#l saQvlelI nstan Svt<Ç bnvta yet nahI\\f0.\\f1 tI saQvaycI ka\\f0?"_deva;
constexpr std::string_view engineMissing = "\\f1@k mhTvacI )a$l n sapfLyamu¦e he kam pu[R hae[e zKy nahI\\f0."_deva;
constexpr std::string_view alreadyThere =
    "  \\f1ya navacI )a#l Aagaedr AaiStTvat Aahe\\f0. \\f1tI oaefaycI ka\\f0?"_deva;
constexpr std::string_view notMade =
    "\\f1tolvn beiskla he àayaejn Svt<Ç krta Aale nahI\\f0. \\f1tolvn beiskla gfbifce kar[ smjle nahI\\f0. "_deva;

constexpr int yes = 1;

// The runtime in the installation folder; empty when it is not there.
QString engineFile(const Settings& settings) {
    const QString folder = settings.GetSetting(QStringLiteral("Installation"), QStringLiteral("Directory"),
                                               QApplication::applicationDirPath());
    const std::string wanted = forwardSlashes(QFile::encodeName(folder).toStdString()) + "/engine.dat";
    const QString found = QFile::decodeName(findPath(wanted).c_str());
    return QFileInfo(found).isFile() ? found : QString();
}

bool mayBeReplaced(const QString& path) {
    return AskQuestion(std::string("\\f0").append(messages::nameFragment(path)).append(alreadyThere)) == yes;
}

// The number of the failure, or nothing.
std::optional<int> remove(const QString& path) {
    if (::unlink(QFile::encodeName(path).constData()) == 0) return std::nullopt;
    return static_cast<int>(fileError(errno));
}

std::optional<int> write(mdlMain& application, const QString& engine, const QString& source,
                         const QString& executable) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto bytes = [](const QString& path) { return QFile::encodeName(path).toStdString(); };
    const std::optional<int> failure =
        writeExecutable({bytes(engine), bytes(source), bytes(executable)}, application.state().run.ProgramCaption);
    QApplication::restoreOverrideCursor();
    return failure;
}

bool isUnsaved(const EditorDocument& document) {
    return document.isDirty() || document.path().isEmpty();
}

}  // namespace

void FileMakeEXE(mdlMain& application) {
    EditorDocument& document = application.editor().document();
    if (isUnsaved(document) && (AskQuestion(saveFirst) != yes || !document.FileSave())) return;
    FileRequest request;
    request.title = QStringLiteral("Make EXE as...");
    request.kind = QStringLiteral("Executable");
    request.suffix = QStringLiteral("exe");
    request.folder = QFileInfo(document.path()).absolutePath();
    request.name = toQString(document.caption());
    request.asksBeforeReplacing = false;  // MakeExe does
    const QString chosen = askSaveFile(request);
    if (!chosen.isEmpty()) MakeExe(application, document.path(), chosen);
}

void MakeExe(mdlMain& application, const QString& sourcePath, const QString& exePath) {
    // Copies: they may be the paths of a document that goes with its editor.
    const QString source = sourcePath;
    const QString executable = exePath;
    const bool wasVisible = application.editorIsVisible();
    if (!QFileInfo::exists(source)) return;
    const QString engine = engineFile(application.settings());
    if (engine.isEmpty()) return ShowMessage(engineMissing);

    std::optional<int> failure;
    if (QFileInfo::exists(executable)) {
        if (!mayBeReplaced(executable)) return;
        failure = remove(executable);
    }
    application.editor().unloadConsole();  // and with it the file that its program holds open
    if (!failure) failure = write(application, engine, source, executable);
    if (failure)
        ShowMessage(makeExeFailureText(*failure));
    else
        application.unloadEditor();
    if (!wasVisible) return;
    application.editor().show();
    application.editor().OpenFile(source);
}

std::string makeExeFailureText(int number) {
    return std::string(notMade).append(messageFragment(number).value_or(std::string()));
}

}  // namespace tolvan
