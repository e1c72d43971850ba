#include "dialogs/RichTextView.h"

#include "dialogs/Look.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/fonts/Fonts.h"
#include "platform/richtext/RtfReader.h"

#include <QHash>
#include <QPainter>
#include <QScrollBar>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace tolvan {
namespace {

// The head line of a letter reaches a little beyond its own width, so that words look whole.
constexpr int overhang = 2;

QColor colourOf(const RichFormat& format) {
    if (!format.colour) return look::text;
    const std::uint32_t colour = *format.colour;
    return {static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
            static_cast<int>(colour >> 16 & 0xFF)};
}

QTextCharFormat charFormat(const RichFormat& format, const RichDocument& document) {
    // Sizes out of this range can only come from a damaged document.
    constexpr double least = 6, most = 72;
    const std::string& name = document.fontNames.at(format.fontName);
    const Font kind = fontOfName(name);
    QFont font = qtFont(kind, std::clamp(format.halfPoints / 2.0 * RichTextView::sizeScale, least, most));
    if (kind == Font::Other) font.setFamily(toQString(name));
    QTextCharFormat result;
    result.setFont(font);
    result.setForeground(colourOf(format));
    return result;
}

// The formats of a part of the text, whose first character is number 0 for them.
QList<QTextLayout::FormatRange> formatsWithin(const QList<QTextLayout::FormatRange>& formats, qsizetype from,
                                              qsizetype to) {
    QList<QTextLayout::FormatRange> within;
    for (const auto& range : formats) {
        const qsizetype start = std::max<qsizetype>(range.start, from);
        const qsizetype end = std::min<qsizetype>(range.start + range.length, to);
        if (start < end) within.append({static_cast<int>(start - from), static_cast<int>(end - start), range.format});
    }
    return within;
}

// A text is measured in pieces, because finding a character's place takes longer the farther from the start it stands.
qsizetype pieceEnd(const QString& text, qsizetype begin) {
    constexpr qsizetype longest = 200;
    if (text.size() - begin <= longest) return text.size();
    const qsizetype blank = QStringView(text).sliced(begin, longest).lastIndexOf(u' ');
    return begin + (blank >= 0 ? blank + 1 : longest);
}

// One line, without breaks, in a layout that is used at once.
void layOutLine(QTextLayout& layout, const QList<QTextLayout::FormatRange>& formats) {
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.setFormats(formats);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
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
    lines_.clear();
    paragraphs_.clear();
    QString text = toQString(document.text.text());
    for (const auto& [position, unit] : document.wide) text[static_cast<qsizetype>(position)] = unit;
    for (qsizetype begin = 0; begin <= text.size();) {
        const qsizetype lineEnd = text.indexOf(QLatin1String("\r\n"), begin);
        const qsizetype end = lineEnd < 0 ? text.size() : lineEnd;
        addParagraph(text.sliced(begin, end - begin), formatsWithin(formats, begin, end));
        begin = end + 2;
    }
    layOut();
}

void RichTextView::addParagraph(const QString& text, QList<QTextLayout::FormatRange> formats) {
    Paragraph paragraph{text, std::move(formats), {0}, 0};
    qsizetype begin = 0;
    do {  // once also for an empty paragraph, which has a height
        const qsizetype end = pieceEnd(paragraph.text, begin);
        measure(paragraph, begin, end);
        begin = end;
    } while (begin < paragraph.text.size());
    paragraphs_.push_back(std::move(paragraph));
}

void RichTextView::measure(Paragraph& paragraph, qsizetype begin, qsizetype end) {
    QTextLayout layout(paragraph.text.mid(begin, end - begin));
    layOutLine(layout, formatsWithin(paragraph.formats, begin, end));
    const QTextLine line = layout.lineAt(0);
    const double left = paragraph.edges.back();
    for (int i = 1; i <= end - begin; ++i) paragraph.edges.push_back(left + line.cursorToX(i));
    paragraph.lineHeight = std::max(paragraph.lineHeight, std::ceil(line.height()));
}

QString RichTextView::text() const {
    QStringList texts;
    for (const Paragraph& paragraph : paragraphs_) texts.append(paragraph.text);
    return texts.join(QLatin1Char('\n'));
}

std::vector<RichTextView::Line> RichTextView::linesFor(double width) const {
    std::vector<Line> lines;
    double top = 0;
    for (const Paragraph& paragraph : paragraphs_) {
        for (const LineRange& range : breakLines(paragraph.text, paragraph.edges, width - overhang)) {
            lines.push_back({&paragraph, range, top});
            top += paragraph.lineHeight;
        }
    }
    return lines;
}

int RichTextView::heightFor(double width) const {
    const std::vector<Line> lines = linesFor(width);
    return lines.empty() ? 0 : static_cast<int>(lines.back().top + lines.back().paragraph->lineHeight);
}

int RichTextView::naturalWidth() const {
    double width = 0;
    for (const Paragraph& paragraph : paragraphs_) width = std::max(width, paragraph.edges.back());
    return static_cast<int>(std::ceil(width)) + overhang;
}

// Makes lines as even as possible, so that the last one is not a single word.
int RichTextView::narrowestOfHeight(int height, int width) const {
    int tooNarrow = 0;
    while (width - tooNarrow > 1) {
        const int middle = (tooNarrow + width) / 2;
        (heightFor(middle) > height ? tooNarrow : width) = middle;
    }
    return width;
}

QSize RichTextView::sizeFor(QSize most) const {
    const int comfortable = std::min({naturalWidth(), look::em(30), most.width()});
    const int height = heightFor(comfortable);
    if (height <= most.height()) return {narrowestOfHeight(height, comfortable), height};
    const int wideHeight = heightFor(most.width() - verticalScrollBar()->sizeHint().width());
    return {most.width(), std::min(wideHeight, most.height())};
}

void RichTextView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.setPen(look::text);
    painter.translate(0, -verticalScrollBar()->value());
    const QRect shown = event->rect().translated(0, verticalScrollBar()->value());
    for (const auto& [paragraph, range, top] : lines_) {
        // Marks may reach beyond their line.
        if (top > shown.bottom() + paragraph->lineHeight || top + 2 * paragraph->lineHeight < shown.top()) continue;
        QTextLayout layout(paragraph->text.mid(range.begin, range.end - range.begin));
        layOutLine(layout, formatsWithin(paragraph->formats, range.begin, range.end));
        layout.draw(&painter, {0, top});
    }
}

void RichTextView::resizeEvent(QResizeEvent*) {
    layOut();
}

void RichTextView::layOut() {
    QScrollBar& bar = *verticalScrollBar();
    const QSize whole = maximumViewportSize();
    const bool scrolls = heightFor(whole.width()) > whole.height();
    const int width = scrolls ? whole.width() - bar.sizeHint().width() : whole.width();
    lines_ = linesFor(width);
    bar.setRange(0, scrolls ? std::max(0, heightFor(width) - whole.height()) : 0);
    bar.setPageStep(whole.height());
    bar.setSingleStep(look::em(1));
    viewport()->update();
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
