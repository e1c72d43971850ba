// A double quote typed into Devanagari text would be a letter there. The quotes of a text stand in "#" spans, so that
// is what typing one puts in; inside a span it is a plain quote.
#pragma once

#include <QObject>

namespace tolvan {

class RomanBox;
class RomanInput;

class QuoteSpans : public QObject {
    Q_OBJECT
  public:
    // Both must outlive it.
    QuoteSpans(RomanBox& roman, const RomanInput& input);

    void setEnabled(bool enabled) { enabled_ = enabled; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    RomanBox& roman_;
    const RomanInput& input_;
    bool enabled_ = true;
};

}  // namespace tolvan
