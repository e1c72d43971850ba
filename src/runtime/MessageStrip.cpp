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
    setAccessibleName(content());
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

QString MessageStrip::content() const {
    QStringList texts;
    for (const std::string& sentence : sentences_)
        texts += QString::fromStdString(unicodeOfInternalText(sentence)).trimmed();
    return texts.join(u'\n');
}

std::vector<accessible::DrawnLine> MessageStrip::drawnLines() {
    std::vector<accessible::DrawnLine> lines;
    const std::vector<QPointF> starts = places();
    int start = 0;
    for (std::size_t i = 0; i < sentences_.size(); ++i) {
        const std::vector<InternalTextRun> runs = ConsoleText::visibleRuns(sentences_[i]);
        std::vector<double> edges;
        for (const float edge : text_.edges(runs)) edges.push_back(starts[i].x() + edge);
        const StyledText codes = styledText(runs);
        lines.push_back({start, codes, std::move(edges), y() + starts[i].y(), text_.LineHeight()});
        start += accessible::unicodeSize(codes) + 1;
    }
    return lines;
}

// Where each sentence begins.
std::vector<QPointF> MessageStrip::places() {
    const bool onOneLine = ScaleHeight() < 2 * text_.LineHeight();
    std::vector<QPointF> places;
    QPointF place(ConsoleText::leftMargin, ruler);
    for (const std::string& sentence : sentences_) {
        places.push_back(place);
        place += onOneLine ? QPointF(widthOf(sentence) + gap, 0) : QPointF(0, text_.LineHeight());
    }
    return places;
}

void MessageStrip::draw() {
    Cls();
    Box(0, 0, ScaleWidth(), ruler - 1, look::console::selection, FillStyle::Solid);
    const std::vector<QPointF> starts = places();
    for (std::size_t i = 0; i < sentences_.size(); ++i) {
        CurrentX = static_cast<float>(starts[i].x());
        CurrentY = static_cast<float>(starts[i].y());
        text_.drawRuns(*this, sentences_[i]);
    }
}

float MessageStrip::widthOf(const std::string& sentence) {
    return text_.edges(ConsoleText::visibleRuns(sentence)).back();
}

}  // namespace tolvan
