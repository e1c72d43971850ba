// The list of words that may be meant: how each is typed, how it looks, what it does. It never has the keyboard.
#pragma once

#include "editor/panes/PaneFonts.h"
#include "translator/LanguageWords.h"

#include <QTableWidget>

#include <vector>

namespace tolvan {

class CompletionList : public QTableWidget {
    Q_OBJECT
  public:
    explicit CompletionList(QWidget* owner);

    void setWords(const std::vector<const LanguageWord*>& words);

    // Opens under the place (in global coordinates), or above it where the screen ends.
    void openAt(const QRect& place);

    // The row that is chosen; -1: none.
    int chosen() const { return currentRow(); }
    void choose(int row);
    const LanguageWord& word(int row) const { return *words_[static_cast<std::size_t>(row)]; }

  signals:
    void clicked(int row);

  private:
    void addRow(const LanguageWord& word);
    void fit();

    PaneFonts fonts_;
    QWidget* keys_;  // says which keys take a word
    std::vector<const LanguageWord*> words_;
};

}  // namespace tolvan
