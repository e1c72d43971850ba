#include "shell/MakeExe.h"

#include "dialogs/Dialogs.h"
#include "editor/DocumentMessages.h"
#include "editor/FileDialogs.h"
#include "editor/frmEditor.h"
#include "platform/encoding/Deva.h"
#include "platform/filenames/FileName.h"
#include "platform/files/FileEntry.h"
#include "platform/files/FilePath.h"
#include "platform/files/PathLookup.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/RtfWriter.h"
#include "platform/settings/Settings.h"
#include "runtime/host/FileError.h"
#include "shell/ExecutableWriter.h"
#include "shell/mdlMain.h"
#include "translator/MessageTable.h"

#include <QApplication>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>

namespace tolvan {
namespace {

constexpr std::string_view saveFirst =
    "\\f1hI )a#l saQvlelI nstan Svt<Ç bnvta yet nahI\\f0.\\f1 tI saQvaycI ka\\f0?"_deva;
constexpr std::string_view engineMissing = "\\f1@k mhTvacI )a$l n sapfLyamu¦e he kam pu[R hae[e zKy nahI\\f0."_deva;
constexpr std::string_view alreadyThere =
    "  \\f1ya navacI )a#l Aagaedr AaiStTvat Aahe\\f0. \\f1tI oaefaycI ka\\f0?"_deva;
constexpr std::string_view notMade =
    "\\f1tolvn beiskla he àayaejn Svt<Ç krta Aale nahI\\f0. \\f1tolvn beiskla gfbifce kar[ smjle nahI\\f0. "_deva;

constexpr std::string_view isProgramFile =
    "\\f1 hI àayaejnacI )a#l Aahe\\f0.\\f1 itCyavr ilihta yet nahI\\f0.\\f1 Êsre nav *a\\f0."_deva;
constexpr std::string_view made = "\\f1Svt<Ç cal[are àayaejn tyar Hale\\f0: "_deva;

// That runtime in the installation folder; empty when it is not there.
QString engineFile(const Settings& settings, const char* runtime) {
    const QString folder = settings.GetSetting(QStringLiteral("Installation"), QStringLiteral("Directory"),
                                               QApplication::applicationDirPath());
    const std::string wanted = forwardSlashes(fileBytes(folder)) + "/" + runtime;
    const QString found = fileName(findPath(wanted));
    return QFileInfo(found).isFile() ? found : QString();
}

std::string aboutFile(const QString& path, std::string_view rest) {
    return std::string("\\f0").append(messages::nameFragment(path)).append(rest);
}

// One file, by whatever names.
bool isSameFile(const QString& one, const QString& other) {
    std::error_code missing;
    return std::filesystem::equivalent(filePath(fileBytes(one)), filePath(fileBytes(other)), missing);
}

bool isRuntime(const Settings& settings, const QString& file) {
    const auto runtimes = {ownRuntime, windowsRuntime.file, linuxRuntime.file};
    return std::any_of(runtimes.begin(), runtimes.end(),
                       [&](const char* runtime) { return isSameFile(file, engineFile(settings, runtime)); });
}

bool mayBeReplaced(const QString& path) {
    return AskQuestion(aboutFile(path, alreadyThere)) == Answer::Yes;
}

// The number of the failure, or nothing.
std::optional<int> remove(const QString& path) {
    const int error = removeFile(fileBytes(path));
    return error == 0 ? std::nullopt : std::optional(static_cast<int>(fileError(error)));
}

std::optional<int> write(const QString& engine, const QString& source, const QString& executable,
                         std::string& caption) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const std::optional<int> failure =
        writeExecutable({fileBytes(engine), fileBytes(source), fileBytes(executable)}, caption);
    QApplication::restoreOverrideCursor();
    return failure;
}

FileKind executablesFor(const OtherRuntime& runtime) {
    return {QStringLiteral("Executable for %1").arg(QLatin1String(runtime.system)), QLatin1String(runtime.suffix)};
}

bool isUnsaved(const EditorDocument& document) {
    return document.isDirty() || document.path().isEmpty();
}

}  // namespace

void FileMakeEXE(mdlMain& application) {
    EditorDocument& document = application.editor().document();
    if (isUnsaved(document) && (AskQuestion(saveFirst) != Answer::Yes || !document.FileSave())) return;
    FileRequest request;
    request.title = QStringLiteral("Make EXE as...");
    request.kind = QStringLiteral("Executable");
    request.suffix = QStringLiteral("exe");
    // Where the runtime of the other system is at hand, either kind may be made, and the ending tells which.
    const OtherRuntime* other = nullptr;
    if (!engineFile(application.settings(), windowsRuntime.file).isEmpty())
        other = &windowsRuntime;
    else if (!engineFile(application.settings(), linuxRuntime.file).isEmpty())
        other = &linuxRuntime;
    if (other != nullptr) {
        const FileKind own = executablesFor(other == &windowsRuntime ? linuxRuntime : windowsRuntime);
        request.kind = own.name;
        request.suffix = own.suffix;
        request.otherKinds = {executablesFor(*other)};
    }
    request.folder = QFileInfo(document.path()).absolutePath();
    request.name = toQString(document.caption());
    request.asksBeforeReplacing = false;  // MakeExe does
    const QString chosen = askSaveFile(request);
    if (chosen.isEmpty()) return;
    const bool isOther =
        other != nullptr && QFileInfo(chosen).suffix().compare(QLatin1String(other->suffix), Qt::CaseInsensitive) == 0;
    MakeExe(application, document.path(), chosen, isOther ? other->file : ownRuntime);
}

void MakeExe(mdlMain& application, const QString& source, const QString& executable, const char* runtime) {
    if (!QFileInfo::exists(source)) return;
    const QString engine = engineFile(application.settings(), runtime);
    if (engine.isEmpty()) return ShowMessage(engineMissing);
    if (executable.endsWith(QLatin1String(".tvp"), Qt::CaseInsensitive) || isSameFile(executable, source) ||
        isRuntime(application.settings(), executable))
        return ShowMessage(aboutFile(executable, isProgramFile));

    std::optional<int> failure;
    if (QFileInfo::exists(executable)) {
        if (!mayBeReplaced(executable)) return;
        failure = remove(executable);
    }
    application.editor().unloadConsole();  // and with it the file that its program holds open
    std::string caption = application.state().run.ProgramCaption;
    if (!failure) failure = write(engine, source, executable, caption);
    if (failure) return ShowMessage(makeExeFailureText(*failure));
    if (application.editorIsVisible())
        ShowMessage(std::string(made).append(messages::nameFragment(QFileInfo(executable).fileName())));
    else
        application.state().run.ProgramCaption = caption;
}

std::string makeExeFailureText(int number) {
    return std::string(notMade).append(messageFragment(number).value_or(std::string()));
}

}  // namespace tolvan
