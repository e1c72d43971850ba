// Devanagari that is typed with a keyboard layout or an input method, as Roman text. Letters come one by one, and what
// a letter means depends on those before it: so the word at the caret is kept as it was typed, and spelled anew with
// each letter.
#pragma once

#include <QObject>
#include <QString>

#include <memory>

class QInputMethodEvent;
class QInputMethodQueryEvent;
class QKeyEvent;
class QWidget;

namespace tolvan {

// The Roman text of a box, as far as the input has to know and change it.
class RomanTextAtCaret {
  public:
    RomanTextAtCaret() = default;
    RomanTextAtCaret(const RomanTextAtCaret&) = delete;
    RomanTextAtCaret& operator=(const RomanTextAtCaret&) = delete;
    virtual ~RomanTextAtCaret() = default;

    // Whether text can be typed at all.
    virtual bool takesText() const = 0;
    virtual bool hasSelection() const = 0;
    // Of the caret's line.
    virtual QString beforeCaret() const = 0;
    // Whether what is typed at the caret goes into a "#" span.
    virtual bool isInSpan() const = 0;

    enum class UndoStep {
        New,
        Last,  // the change is undone together with the one before, where the box can do that
    };
    // Puts text in the place of the `length` characters before the caret, or in the place of the selection.
    virtual void replace(qsizetype length, const QString& text, UndoStep step) = 0;
    // Whether UndoStep::Last is obeyed. Where it is not, the undo key takes the word away while it is being typed.
    virtual bool joinsUndoSteps() const = 0;
};

class DevanagariInput : public QObject {
    Q_OBJECT
  public:
    // Acts on the keys and input-method events of `widget`, which deletes it unless somebody else does. In a line edit
    // it also takes Devanagari that is pasted.
    DevanagariInput(QWidget& widget, std::unique_ptr<RomanTextAtCaret> text);
    ~DevanagariInput() override;

    // Takes what an input method has not given yet; to be called before something is done with the text.
    void finish();

  signals:
    // A character that has neither a Roman spelling nor a code. It has not been taken.
    void refused(char32_t character);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool takeKey(QKeyEvent& event);
    bool paste();
    bool takeInputMethod(QInputMethodEvent& event);
    bool answerQuery(QInputMethodQueryEvent& event);

    bool isAtCaret() const;
    void type(const QString& text);
    void typeLetters(const QString& letters);
    void typeOther(const QString& text);
    void open();
    void close();
    bool spell(const QString& letters);
    void removeLetters(qsizetype start, qsizetype length);

    QWidget& widget_;
    std::unique_ptr<RomanTextAtCaret> text_;

    // The word that is being typed; without letters there is none.
    QString letters_;  // in Unicode, as they were typed
    QString roman_;    // what stands for them before the caret
    bool inSpan_ = false;
    bool isNew_ = false;  // nothing of it has been written yet

    QString preedit_;  // what the input method shows and has not given
    bool passing_ = false;
};

}  // namespace tolvan
