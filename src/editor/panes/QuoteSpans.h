// In the Devanagari font the double quote is a letter. So a quote that is typed outside a "#" span is put in with a
// span around it; inside a span it is a plain quote.
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
