// The box in which a program's input is typed in Roman letters, while the console shows what it means.
#pragma once

#include <QLineEdit>

namespace tolvan {

class InputBox : public QLineEdit {
    Q_OBJECT

  public:
    explicit InputBox(QWidget* parent);

    // Once more than this are in the box it takes no key any more that stands for a character, Enter and Backspace
    // included; Delete stands for none. What is pasted or dropped is cut to this length.
    static constexpr int mostCharacters = 200;
    bool isFull() const { return text().size() >= mostCharacters; }

    // As 8-bit text.
    std::string roman() const;
    // Grows with its text and with what an input method is still composing, up to this width.
    void fitText(int mostWidth);

  signals:
    void entered();
    // What was pasted did not fit and has been cut.
    void wasCut();
    void focusLost();
    // A Devanagari character was typed that cannot be taken.
    void refused();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

  private:
    class Text;
    int mostWidth_ = 0;
    QString composed_;
    bool isTyping_ = false;  // while a key is handled that does not paste
};

}  // namespace tolvan
