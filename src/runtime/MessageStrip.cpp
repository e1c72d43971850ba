#include "runtime/MessageStrip.h"

#include "dialogs/Look.h"
#include "platform/richtext/UnicodeText.h"

#include <cmath>
#include <utility>

namespace tolvan {
namespace {

constexpr float gap = 40;   // between sentences on one line
constexpr float ruler = 2;  // over the text

}  // namespace

MessageStrip::MessageStrip(PictureBox& display) : PictureBox(&display), text_(*this) {
    setFocusPolicy(Qt::NoFocus);
    setForeground(look::console::note);
    hide();
}

void MessageStrip::tell(std::vector<std::string> sentences) {
    sentences_ = std::move(sentences);
    std::string together;
    for (const std::string& sentence : sentences_) together += unicodeOfInternalText(sentence) + '\n';
    setAccessibleName(QString::fromStdString(together).trimmed());
    show();
    raise();
    placeAtBottom();
}

void MessageStrip::placeAtBottom() {
    if (!isTelling()) return;
    float together = ConsoleText::leftMargin;
    for (const std::string& sentence : sentences_) together += widthOf(sentence) + gap;
    const int width = parentWidget()->width();
    const bool onOneLine = together - gap <= static_cast<float>(width);
    const auto lines = onOneLine ? 1.F : static_cast<float>(sentences_.size());
    const int height = static_cast<int>(std::ceil(lines * text_.LineHeight() + ruler));
    setGeometry(0, parentWidget()->height() - height, width, height);
    draw();
}

void MessageStrip::draw() {
    Cls();
    Box(0, 0, ScaleWidth(), ruler - 1, look::console::selection, FillStyle::Solid);
    const bool onOneLine = ScaleHeight() < 2 * text_.LineHeight();
    CurrentX = ConsoleText::leftMargin;
    CurrentY = ruler;
    for (const std::string& sentence : sentences_) {
        text_.drawRuns(*this, sentence);
        CurrentX = onOneLine ? CurrentX + gap : ConsoleText::leftMargin;
        if (!onOneLine) CurrentY += text_.LineHeight();
    }
}

float MessageStrip::widthOf(const std::string& sentence) {
    return text_.edges(ConsoleText::visibleRuns(sentence)).back();
}

}  // namespace tolvan
