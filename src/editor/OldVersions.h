// Copies of what programs were before: texts that were thrown away, and files as they were saved. Each program has a
// folder of its own in one folder for all; a copy is a program file that is named after the moment of its making.
//
// They stay for a month; of a program's saved files only the last ten stay.
#pragma once

#include "editor/EditorDocument.h"

#include <QString>

namespace tolvan {

class OldVersions {
  public:
    static constexpr int mostSaved = 10;
    static constexpr int mostDays = 30;

    // The folder is made when it is asked for or the first copy is kept.
    explicit OldVersions(QString folder) : folder_(std::move(folder)) {}

    // The folder of all versions; one for those of a program file, which need not exist.
    QString folder() const;
    QString folderOf(const QString& path) const;

    // Keeps a file as it is now. Nothing happens if there is no such file, or if the last version is the same.
    void keepSaved(const QString& path);

    // False if it could not be written. Text of nothing but blanks is not kept.
    bool keepDiscarded(const UnsavedText& unsaved);

  private:
    bool keep(const QString& path, const QByteArray& content, const QString& kind);
    void removeOld();

    QString folder_;
    bool swept_ = false;  // old copies of all programs were removed, once in a process
};

}  // namespace tolvan
