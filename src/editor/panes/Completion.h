// Offers the words of the language and the library while the Roman text is typed: on demand, and after two letters of a
// word.
//
// Up and Down choose, Enter or Tab or a click puts the word in, Escape closes the list. A list that came by itself has
// no word chosen yet, so that Enter still ends the line, unless the first word was typed whole in another spelling.
#pragma once

#include "translator/LanguageWords.h"

#include <QObject>

#include <string>
#include <vector>

namespace tolvan {

class CompletionList;
class RomanBox;
class RomanInput;

// The words whose spelling begins like `start`, those in the very letters first, of these the language's before the
// library's. Large and small letters, and single and double vowels, are not told apart, and from the third letter on
// neither is what sounds alike. All words if it is empty; none of the library if it is a word of the language already.
std::vector<const LanguageWord*> wordsBeginning(std::string_view start);

class Completion : public QObject {
    Q_OBJECT
  public:
    // Both must outlive it.
    Completion(RomanBox& roman, const RomanInput& input);

    // Whether the list comes by itself.
    void setAutomatic(bool automatic) { automatic_ = automatic; }

    bool isOpen() const;
    // At the caret, with the first word chosen; nothing in a "#" span or where no word fits.
    void open();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool takeKey(int key);
    bool isTypedToItsEnd() const;
    std::string typedStart() const;
    void follow();
    bool offer(const std::string& start);
    void close();
    void putIn(int row);

    RomanBox& roman_;
    const RomanInput& input_;
    CompletionList* list_;  // owned by the box
    bool automatic_ = true;
    bool typed_ = false;  // the caret moves because a letter was typed
};

}  // namespace tolvan
