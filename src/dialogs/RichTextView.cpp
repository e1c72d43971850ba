#include "dialogs/RichTextView.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/fonts/Fonts.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/UnicodeText.h"

#include <QHash>
#include <QMimeData>
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
    const look::Colours& own = look::colours();
    if (!format.colour) return own.text;
    const std::uint32_t value = *format.colour;
    const QColor colour(static_cast<int>(value & 0xFF), static_cast<int>(value >> 8 & 0xFF),
                        static_cast<int>(value >> 16 & 0xFF));
    constexpr double readable = 4.5;  // on dark ground; messages name colours for white paper
    const bool isLost = look::kind() != look::Kind::Light && look::contrast(colour, own.background) < readable;
    return isLost ? own.text : colour;
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

class TextInterface : public accessible::ReadText {
  public:
    explicit TextInterface(RichTextView& view) : ReadText(view, QAccessible::StaticText), view_(view) {}
    using ReadText::text;
    QString content() const override { return view_.unicodeText().trimmed(); }
    std::vector<accessible::DrawnLine> drawnLines() const override { return view_.drawnLines(); }
    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Name && view_.accessibleName().isEmpty() ? content() : ReadText::text(which);
    }
    int childCount() const override { return 0; }

  private:
    RichTextView& view_;
};

QAccessibleInterface* textInterface(const QString& className, QObject* object) {
    return className == QLatin1String("tolvan::RichTextView") ? new TextInterface(static_cast<RichTextView&>(*object))
                                                              : nullptr;
}

}  // namespace

RichTextView::RichTextView(QWidget* parent) : QAbstractScrollArea(parent) {
    [[maybe_unused]] static const bool installed = (QAccessible::installFactory(textInterface), true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
}

void RichTextView::setTextRtf(std::string_view rtf) {
    rtf_ = rtf;
    const RichDocument document = readRtf(rtf);
    QList<QTextLayout::FormatRange> formats;
    int start = 0;
    unicode_.clear();
    html_.clear();
    for (const auto& [length, format] : document.runs) {
        addUnicode(document, static_cast<std::size_t>(start), length, format);
        formats.append({start, static_cast<int>(length), charFormat(format, document)});
        start += static_cast<int>(length);
    }
    lines_.clear();
    paragraphs_.clear();
    QString text = toQString(document.text.text());
    StyledText codes;
    for (const auto& [position, unit] : document.wide) {
        text[static_cast<qsizetype>(position)] = unit;
        codes.append(document.text.view().substr(codes.size(), position - codes.size()));
        codes.append("?", Font::Latin);
    }
    codes.append(document.text.view().substr(codes.size()));
    for (qsizetype begin = 0; begin <= text.size();) {
        const qsizetype lineEnd = text.indexOf(QLatin1String("\r\n"), begin);
        const qsizetype end = lineEnd < 0 ? text.size() : lineEnd;
        const auto size = static_cast<std::size_t>(end - begin);
        addParagraph(text.sliced(begin, end - begin), codes.view().substr(static_cast<std::size_t>(begin), size),
                     formatsWithin(formats, begin, end));
        begin = end + 2;
    }
    layOut();
}

// A run of one format. Characters beyond 8 bits stand in `wide`.
void RichTextView::addUnicode(const RichDocument& document, std::size_t start, std::size_t length,
                              const RichFormat& format) {
    QString text;
    std::size_t done = start;
    const auto add = [&](std::size_t end) {
        text += QString::fromStdString(unicodeOf(document.text.view().substr(done, end - done)));
        done = end;
    };
    for (const auto& [position, unit] : document.wide) {
        if (position < start || position >= start + length) continue;
        add(position);
        text += QChar(unit);
        ++done;
    }
    add(start + length);
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    unicode_ += text;
    html_ += QStringLiteral("<span style=\"color:%1\">%2</span>").arg(colourOf(format).name(), text.toHtmlEscaped());
}

std::unique_ptr<QMimeData> RichTextView::toMimeData() const {
    auto copied = std::make_unique<QMimeData>();
    copied->setText(unicode_.trimmed());
    copied->setHtml(QStringLiteral("<div style=\"white-space: pre-wrap; background-color:%1\">%2</div>")
                        .arg(look::colours().paper.name(), html_));
    return copied;
}

void RichTextView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !rtf_.empty()) setTextRtf(std::string(rtf_));
}

void RichTextView::addParagraph(const QString& text, StyledView codes, QList<QTextLayout::FormatRange> formats) {
    Paragraph paragraph{text, StyledText(codes), std::move(formats), {0}, 0};
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

std::vector<accessible::DrawnLine> RichTextView::drawnLines() const {
    std::vector<accessible::DrawnLine> drawn;
    const QString whole = unicodeText();
    const auto isBlank = [](QChar c) { return c.isSpace(); };
    auto start = static_cast<int>(std::find_if_not(whole.begin(), whole.end(), isBlank) - whole.begin()) * -1;
    const Paragraph* current = nullptr;
    for (const auto& [paragraph, range, top] : lines_) {
        if (current != nullptr && current != paragraph) start += accessible::unicodeSize(current->codes) + 1;
        current = paragraph;
        const double y = top - verticalScrollBar()->value();
        if (y + paragraph->lineHeight <= 0 || y >= viewport()->height()) continue;
        const auto begin = static_cast<std::size_t>(range.begin);
        const StyledView before = paragraph->codes.view().substr(0, begin);
        const StyledView shown = paragraph->codes.view().substr(begin, static_cast<std::size_t>(range.end) - begin);
        std::vector<double> edges;
        for (std::size_t i = begin; i <= begin + shown.size(); ++i)
            edges.push_back(viewport()->x() + paragraph->edges[i] - paragraph->edges[begin]);
        drawn.push_back({start + accessible::unicodeSize(before), StyledText(shown), std::move(edges),
                         viewport()->y() + y, paragraph->lineHeight});
    }
    return drawn;
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
    painter.setPen(look::colours().text);
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
