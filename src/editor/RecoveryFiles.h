// Copies of unsaved text on disk, from which the next start restores it after a crash or a power cut.
//
// Each window locks its own copies as long as it lives; a copy that nobody has locked is left over from a crash. When
// the user empties the text, its copy is set aside: it is not overwritten any more and stays until the document is
// saved or discarded.
#pragma once

#include "editor/EditorDocument.h"

#include <QLockFile>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace tolvan {

class RecoveryFiles {
  public:
    // The folder is made when the first copy is kept.
    explicit RecoveryFiles(QString folder) : folder_(std::move(folder)) {}

    // Writes the copy of the present document over its last one. Text of blanks alone gets no copy; the last one is set
    // aside then. False if it could not be written.
    bool keep(const UnsavedText& unsaved);

    // The text of the present copy is being removed from the window: keeps the copy apart from the next text.
    void setAside();

    // What the copies of this window hold, the present one last.
    std::vector<UnsavedText> texts() const;

    // No copy of this window is needed any more.
    void removeAll();

    // The copies that crashed windows left, newest first. They are locked against other windows until one of the next
    // two calls, or the end of this object, which unlocks those that were not taken. Copies that cannot be read are
    // passed over, and removed when they are old.
    std::vector<UnsavedText> takeLeft();
    // The first of them becomes the copy of the present document; the others stay for the next start.
    void takeUpFirst();
    // None of them is needed any more.
    void removeLeft();

  private:
    struct Copy {
        QString file;
        std::unique_ptr<QLockFile> lock;
    };

    std::optional<Copy> lockedCopy(const QString& file) const;
    bool makePresent();

    QString folder_;
    std::optional<Copy> present_;
    std::vector<Copy> aside_;
    std::vector<Copy> left_;
};

// The content of a copy, and back; nothing for what is none.
QByteArray writeRecovery(const UnsavedText& unsaved);
std::optional<UnsavedText> readRecovery(const QByteArray& content);

}  // namespace tolvan
