// The Roman program text as the user types it: 8-bit characters, lines separated by CR LF. Any bytes can be set and
// come back as they were.
//
// Text in Unicode that is pasted or dropped becomes Roman text.
//
// The box leaves the keys of the edit commands to shortcuts of its window, and acts on them where there are none; but
// the key to copy does nothing without a selection. Tab indents the selected lines, Shift+Tab takes that back. Dropped
// files are not taken: they go on to the window.
#pragma once

#include "editor/panes/TextPane.h"

#include <QString>

#include <string>
#include <string_view>

namespace tolvan {

class RomanBox : public TextPane {
    Q_OBJECT
  public:
    explicit RomanBox(QWidget* parent = nullptr);

    std::string text() const;
    std::string line(std::size_t number) const;  // from 0, without its end

    // Sets the text of another document: the undo history is emptied, the caret is at the start.
    void setText(std::string_view bytes);

    // Changes the text as a command of the user does, as one step of undo; nothing happens if the new text is the same.
    // The caret stays on its line, between the same letters if only the line's indentation has changed.
    void replaceText(std::string_view bytes);

    std::string selectedText() const;

    // The letters at the caret, before and after it.
    std::string wordAtCaret() const;

    // Replaces the selection. Tabs in the new text become blanks up to the next multiple of six.
    void replaceSelection(std::string_view bytes);

    // Selects what the user is to look at, as `select` does. It is not the user's selection: typing and pasting put the
    // caret at its end instead of replacing it, and Backspace and Delete do nothing but that.
    void mark(std::size_t start, std::size_t length);

    // The commands of the same names; `cut` and `copy` put the selected text on the clipboard, an empty one too.
    void cut();
    void copy();
    void undo();
    void redo();

    // Where a mark is selected, the caret goes to its end: typing does not replace it.
    void leaveMark();

    // While a program runs: nothing can be typed, pasted, cut or undone, but the box scrolls, and text can be selected
    // and copied. setText works all the same.
    void setLocked(bool locked);
    bool isLocked() const { return isReadOnly(); }

  signals:
    // A character that has no 8-bit code was typed.
    void characterRefused(char32_t character);
    // The text would have been changed by a key.
    void typedWhileLocked();
    // What was pasted or dropped has been taken without these characters.
    void charactersLeftOut(const std::u32string& characters);
    // Only the first million characters of what was pasted or dropped have been taken.
    void pastedInPart();
    // What an input method shows in the caret's line, and has not given, is another text now.
    void preeditChanged();

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    void applyFonts(const PaneFonts& fonts) override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

  private:
    QString withKeyboardMarks(const QString& text) const;
    bool refuses(QStringView text);
    bool selectsLines() const;
    template <class Change>
    void changeSelectedLines(Change change);
    void indentLines();
    void unindentLines();
    void insertShown(const QString& shown);

    bool marked_ = false;  // what is selected
};

}  // namespace tolvan
