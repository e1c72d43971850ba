// The file dialogs of the editor. They wait until the user has chosen.
#pragma once

#include "dialogs/ReplacedAnswers.h"

#include <QList>
#include <QString>

namespace tolvan {

struct FileKind {
    QString name;
    QString suffix;
};

struct FileRequest {
    QString title;
    QString kind;                     // of the files that are shown, such as "Tolvan Basic Program"
    QString suffix;                   // theirs, such as "tvp"
    QString folder;                   // where it begins
    QString name;                     // proposed; only for saving
    bool asksBeforeReplacing = true;  // an existing file; only for saving
    QList<FileKind> otherKinds = {};  // that may be chosen in place of that one
};

// The chosen path; empty when the user cancelled. An existing file can be chosen for saving after a question only,
// unless the request says otherwise; a name without a suffix gets the one of the chosen kind.
QString askOpenFile(const FileRequest& request);
QString askSaveFile(const FileRequest& request);

// Where a file dialog begins: the application's folder; where a user cannot write, or a setup program has put it, the
// one for documents, or the home folder.
QString startFolder();

// Where a user who has no programs yet finds some: the examples, installed or in the source tree. Empty if there are
// none.
QString examplesFolder();

// What answers those calls: the dialogs, unless a test puts something else in their place.
class FileAnswers {
  public:
    FileAnswers() = default;
    FileAnswers(const FileAnswers&) = delete;
    FileAnswers& operator=(const FileAnswers&) = delete;
    virtual ~FileAnswers() = default;

    virtual QString askOpenFile(const FileRequest& request);
    virtual QString askSaveFile(const FileRequest& request);
};

// As long as it lives, `answers` answers. These nest.
using ReplacedFileDialogs = ReplacedAnswers<FileAnswers>;

}  // namespace tolvan
