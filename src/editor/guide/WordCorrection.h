// Puts a word right that has just been finished with a blank or Enter, where nothing but a vowel's length, a nasal or a
// doubled letter was wrong: as a step of undo, with a short flash. Backspace right after it brings back what was
// typed.
#pragma once

#include <QObject>

#include <string>

namespace tolvan {

class RomanBox;

class WordCorrection : public QObject {
    Q_OBJECT
  public:
    // The box must outlive it.
    explicit WordCorrection(RomanBox& roman);

    void setEnabled(bool enabled) { enabled_ = enabled; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void correct();
    bool takeBack();

    RomanBox& roman_;
    bool enabled_ = true;
    std::size_t place_ = 0;  // of the word put right last
    std::string typed_;      // as it was typed; empty: there is nothing to bring back
    std::string put_;
    std::string kept_;  // a word that the user brought back, which is not corrected again
};

}  // namespace tolvan
