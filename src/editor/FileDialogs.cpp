#include "editor/FileDialogs.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QHeaderView>
#include <QPointer>
#include <QStandardPaths>
#include <QTreeView>

namespace tolvan {
namespace {

// A proposed name comes from the user's caption of the program, which may hold anything; Windows and
// memory sticks refuse these.
QString asFileName(QString name) {
    for (QChar& character : name)
        if (QLatin1String("/\\:*?\"<>|").contains(character) || character < QLatin1Char(' '))
            character = QLatin1Char('-');
    return name.trimmed();
}

// Says in Marathi of what kind the files of the dialog's list are; the system knows them in English at best.
class MarathiTypes : public QFileIconProvider {
  public:
    QString type(const QFileInfo& file) const override {
        if (file.isDir()) return QStringLiteral("फोल्डर");
        const QString suffix = file.suffix().toLower();
        if (suffix == QLatin1String("tvp")) return QStringLiteral("प्रायोजन");
        if (suffix == QLatin1String("task")) return QStringLiteral("प्रश्न");
        return QStringLiteral("फाइल");
    }
};

QString ask(const FileRequest& request, QFileDialog::AcceptMode mode) {
    const QList<FileKind> kinds = QList<FileKind>{{request.kind, request.suffix}} + request.otherKinds;
    QStringList filters;
    for (const FileKind& kind : kinds) filters << QStringLiteral("%1 (*.%2)").arg(kind.name, kind.suffix);
    MarathiTypes types;  // outlives the dialog, which does not own it
    const QPointer<QFileDialog> dialog =
        new QFileDialog(QApplication::activeWindow(), request.title, request.folder, filters.join(QLatin1String(";;")));
    dialog->setIconProvider(&types);
    dialog->setAcceptMode(mode);
    dialog->setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog->setOption(QFileDialog::DontConfirmOverwrite, !request.asksBeforeReplacing);
    dialog->setDefaultSuffix(request.suffix);
    QObject::connect(dialog, &QFileDialog::filterSelected, dialog, [&](const QString& filter) {
        dialog->setDefaultSuffix(kinds.value(filters.indexOf(filter)).suffix);
    });
    if (mode == QFileDialog::AcceptSave) dialog->selectFile(asFileName(request.name));
    // Where the dialog is Qt's own, its list would cut sizes and dates off.
    if (auto* list = dialog->findChild<QTreeView*>())
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog) return {};  // deleted together with its parent
    const QString path = accepted ? dialog->selectedFiles().value(0) : QString();
    delete dialog;
    return path;
}

}  // namespace

QString askOpenFile(const FileRequest& request) {
    return ReplacedFileDialogs::current().askOpenFile(request);
}

QString askSaveFile(const FileRequest& request) {
    return ReplacedFileDialogs::current().askSaveFile(request);
}

QString startFolder() {
    QString application = QCoreApplication::applicationDirPath();
    // On Windows the folder of an installation, where nobody looks for programs, is the user's own.
    const bool isInstalled = QFileInfo::exists(application + QStringLiteral("/uninstall.exe"));
    if (QFileInfo(application).isWritable() && !isInstalled) return application;
    // A fresh account may have no such folder yet; the dialog would propose its name for the file.
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

QString examplesFolder() {
    const QDir application(QCoreApplication::applicationDirPath());
    for (const char* place : {"examples", "../../share/tolbasic/examples", "../../../examples"}) {
        const QDir folder(application.filePath(QLatin1String(place)));
        if (folder.exists()) return folder.canonicalPath();
    }
    return {};
}

QString FileAnswers::askOpenFile(const FileRequest& request) {
    return ask(request, QFileDialog::AcceptOpen);
}

QString FileAnswers::askSaveFile(const FileRequest& request) {
    return ask(request, QFileDialog::AcceptSave);
}

}  // namespace tolvan
