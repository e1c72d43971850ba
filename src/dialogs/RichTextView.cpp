#include "dialogs/RichTextView.h"

#include "dialogs/Look.h"
#include "dialogs/ProvisionalFonts.h"
#include "platform/richtext/RtfReader.h"

#include <QHash>
#include <QPainter>
#include <QScrollBar>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace tolvan {
namespace {

constexpr double unlimited = 1e6;

QColor colourOf(const RichFormat& format) {
    if (!format.colour) return look::text;
    const std::uint32_t colour = *format.colour;
    return {static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
            static_cast<int>(colour >> 16 & 0xFF)};
}

QTextCharFormat charFormat(const RichFormat& format, const RichDocument& document) {
    // A size of nothing or of a wall would only be damage.
    constexpr double least = 6, most = 72;
    const std::string& name = document.fontNames.at(format.fontName);
    QFont font = qtFont(fontOfName(name));
    if (fontOfName(name) == Font::Other) font.setFamily(toQString(name));
    font.setPointSizeF(std::clamp(format.halfPoints / 2.0 * RichTextView::sizeScale, least, most));
    QTextCharFormat result;
    result.setFont(font);
    result.setForeground(colourOf(format));
    return result;
}

// Ends the line at the last blank that it reaches; in a word that is longer than the line, where the line ends.
void breakAtBlank(QTextLine& line, const QString& text) {
    const auto start = line.textStart();
    const auto end = start + line.textLength();
    if (end >= text.size() || end == start) return;
    if (text[end - 1] == QLatin1Char(' ')) return;
    if (text[end] == QLatin1Char(' ')) return line.setNumColumns(end + 1 - start);
    const auto blank = text.lastIndexOf(QLatin1Char(' '), end - 1);
    if (blank > start) line.setNumColumns(static_cast<int>(blank) + 1 - start);
}

// The formats of a part of the text, whose first character is number 0 for them.
QList<QTextLayout::FormatRange> formatsWithin(const QList<QTextLayout::FormatRange>& formats, std::size_t from,
                                              std::size_t to) {
    QList<QTextLayout::FormatRange> within;
    for (const auto& range : formats) {
        const int start = std::max(range.start, static_cast<int>(from));
        const int end = std::min(range.start + range.length, static_cast<int>(to));
        if (start < end) within.append({start - static_cast<int>(from), end - start, range.format});
    }
    return within;
}

// The height of the lines.
double layOutLines(QTextLayout& layout, double width) {
    double height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        breakAtBlank(line, layout.text());
        line.setPosition({0, height});
        height += std::ceil(line.height());
    }
    layout.endLayout();
    return height;
}

}  // namespace

RichTextView::RichTextView(QWidget* parent) : QAbstractScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
}

void RichTextView::setTextRtf(std::string_view rtf) {
    const RichDocument document = readRtf(rtf);
    QList<QTextLayout::FormatRange> formats;
    int start = 0;
    for (const auto& [length, format] : document.runs) {
        formats.append({start, static_cast<int>(length), charFormat(format, document)});
        start += static_cast<int>(length);
    }
    paragraphs_.clear();
    const std::string_view text = document.text.text();
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find("\r\n", begin), text.size());
        addParagraph(text.substr(begin, end - begin), formatsWithin(formats, begin, end));
        begin = end + 2;
    }
    updateScrollBar();
    viewport()->update();
}

void RichTextView::addParagraph(std::string_view text, const QList<QTextLayout::FormatRange>& formats) {
    auto layout = std::make_unique<QTextLayout>(toQString(text));
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAnywhere);
    layout->setTextOption(option);
    layout->setFormats(formats);
    layout->setCacheEnabled(true);
    paragraphs_.push_back({std::move(layout), 0});
}

QString RichTextView::text() const {
    QStringList texts;
    for (const Paragraph& paragraph : paragraphs_) texts.append(paragraph.layout->text());
    return texts.join(QLatin1Char('\n'));
}

double RichTextView::layOut(double width) const {
    double height = 0;
    for (Paragraph& paragraph : paragraphs_) {
        paragraph.top = height;
        height += layOutLines(*paragraph.layout, width);
    }
    return height;
}

double RichTextView::naturalWidth() const {
    layOut(unlimited);
    double width = 0;
    for (const Paragraph& paragraph : paragraphs_)
        width = std::max(width, paragraph.layout->lineAt(0).naturalTextWidth());
    return width;
}

// So that the last line is not a single word: lines as even as they can be.
int RichTextView::narrowestOfHeight(int height, int width) const {
    int tooNarrow = 0;
    while (width - tooNarrow > 1) {
        const int middle = (tooNarrow + width) / 2;
        (layOut(middle) > height ? tooNarrow : width) = middle;
    }
    return width;
}

QSize RichTextView::sizeFor(QSize most) const {
    const int comfortable = std::min({static_cast<int>(std::ceil(naturalWidth())), look::em(30), most.width()});
    const int height = static_cast<int>(layOut(comfortable));
    if (height <= most.height()) return {narrowestOfHeight(height, comfortable), height};
    const int wideHeight = static_cast<int>(layOut(most.width() - verticalScrollBar()->sizeHint().width()));
    return {most.width(), std::min(wideHeight, most.height())};
}

void RichTextView::paintEvent(QPaintEvent*) {
    layOut(viewport()->width());  // sizeFor tries other widths
    QPainter painter(viewport());
    painter.setPen(look::text);
    painter.translate(0, -verticalScrollBar()->value());
    for (const Paragraph& paragraph : paragraphs_) paragraph.layout->draw(&painter, {0, paragraph.top});
}

void RichTextView::resizeEvent(QResizeEvent*) {
    updateScrollBar();
}

void RichTextView::updateScrollBar() {
    QScrollBar& bar = *verticalScrollBar();
    const QSize whole = maximumViewportSize();
    double height = layOut(whole.width());
    if (height > whole.height()) height = layOut(whole.width() - bar.sizeHint().width());
    bar.setRange(0, std::max(0, static_cast<int>(height) - whole.height()));
    bar.setPageStep(viewport()->height());
    bar.setSingleStep(look::em(1));
}

bool RichTextView::scrollByKey(int key) {
    static const QHash<int, QScrollBar::SliderAction> actions = {
        {Qt::Key_PageUp, QScrollBar::SliderPageStepSub},
        {Qt::Key_PageDown, QScrollBar::SliderPageStepAdd},
        {Qt::Key_Home, QScrollBar::SliderToMinimum},
        {Qt::Key_End, QScrollBar::SliderToMaximum},
    };
    const auto action = actions.find(key);
    if (action == actions.end()) return false;
    verticalScrollBar()->triggerAction(*action);
    return true;
}

}  // namespace tolvan
