// The one document of the editor: the Roman program text with its caption, its file and its title.
//
// Questions, messages and file dialogs are asked of the user through dialogs/Dialogs.h and FileDialogs.h, which tests
// replace.
#pragma once

#include "editor/FileDialogs.h"
#include "translator/ProgramFile.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <optional>
#include <string>
#include <string_view>

namespace tolvan {

// Where the document's text is: the pane in which it is typed.
class DocumentText {
  public:
    DocumentText() = default;
    DocumentText(const DocumentText&) = delete;
    DocumentText& operator=(const DocumentText&) = delete;
    virtual ~DocumentText() = default;

    // Lines are separated by CR LF.
    virtual std::string romanText() const = 0;
    // Another document: nothing of it can be undone.
    virtual void setRomanText(std::string_view text) = 0;
    // A change of the text that can be undone.
    virtual void replaceRomanText(std::string_view text) = 0;
    // False: the present text is that of the file. True: it is not, and undoing cannot bring the file's text back.
    virtual void setChanged(bool changed) = 0;
};

// A document with what it takes to go on with it.
struct UnsavedText {
    QString path;
    QByteArray fingerprint;  // of the file as it was read or written last; empty without file
    std::string caption;
    std::string text;
};

class EditorDocument : public QObject {
    Q_OBJECT

  public:
    static const QString newTitle;

    // `caption` is the program caption that the whole application shares. Both must outlive it.
    EditorDocument(DocumentText& text, std::string& caption);

    // Full path of the file; empty while the document has never been saved.
    const QString& path() const { return path_; }
    // The file's name, followed by a "*" while there are unsaved changes.
    QString title() const;
    bool isDirty() const { return textChanged_ || captionChanged_; }

    const std::string& caption() const { return caption_; }
    // Another caption makes the document dirty, the same one does not.
    void setCaption(std::string_view caption);

    // Whether the text differs from that of the file, after each change of it; undoing can make them equal again.
    void setTextChanged(bool changed);

    // Each returns false when the user cancelled, or when it failed, which has been told; nothing is lost then.
    //
    // FileNew and FileOpen ask about unsaved text first, OpenFile does not. An empty path asks for one.
    bool FileNew();
    bool FileOpen();
    bool OpenFile(const QString& path);
    // The folders in which the file dialogs start as long as the document has none of its own.
    void setFolders(const QString& forOpening, const QString& forSaving);
    bool OpenRecent(const QString& path);
    // Asks for one of the old versions in a folder. One from `own`, the folder of the present program's versions, takes
    // the place of the text, which can be undone; any other becomes a document without a file.
    void OpenOldVersion(const QString& folder, const QString& own);
    // Opens the text of a program file as a new document, after the question about unsaved text.
    bool OpenCopy(const QString& path);
    bool FileSave();
    bool FileSaveAs();
    // A copy of the program in Unicode, as it is shown: caption and lines in UTF-8. The document stays what it is.
    bool FileSaveUnicode();
    bool saveTo(const QString& path);
    // False if the program has no file and did not get one: it is not to run then. One that cannot be saved to its file
    // runs; without unsaved changes, as an example in a folder of the system, nothing is told either.
    bool saveBeforeRun();
    // Before the window closes: whether it may.
    bool mayClose();

    // The document is being replaced by another one.
    bool isLoading() const { return loading_; }

    // The document as it is now; and such a document opened again, as unsaved changes.
    UnsavedText unsaved() const;
    void takeUp(const UnsavedText& unsaved);

  signals:
    void titleChanged();
    // The document was opened from this path or saved to it.
    void filed(const QString& path);
    void saved(const QString& path);
    // The file is about to be written with another content.
    void replacing(const QString& path);
    // The program that was opened is in Unicode and held characters that have no place in a program.
    void charactersLeftOut(const std::u32string& characters);
    // The user discards the document, which may have unsaved changes.
    void discarding();

  private:
    void setState(const QString& name, bool textChanged);
    bool mayGo(std::string_view question);
    struct ProgramContent {
        ProgramFile program;
        QByteArray fingerprint;
    };
    static std::optional<ProgramContent> read(const QString& path);
    bool load(const QString& path);
    bool write(const QString& path);
    void replaceBy(const QString& path, std::string_view text);
    bool changedOnDisk(const QString& path) const;

    DocumentText& text_;
    std::string& caption_;
    QString openFolder_ = startFolder();
    QString saveFolder_ = startFolder();
    QString path_;
    QString name_;  // of the file
    QByteArray fingerprint_;
    bool textChanged_ = false;
    bool captionChanged_ = false;
    bool loading_ = false;
};

}  // namespace tolvan
