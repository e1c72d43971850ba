// Shows a rich text that is only read: a message.
#pragma once

#include "dialogs/LineBreaks.h"
#include "platform/richtext/StyledText.h"

#include <QAbstractScrollArea>
#include <QTextLayout>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QMimeData;

namespace tolvan {

namespace accessible {
struct DrawnLine;
}
struct RichDocument;
struct RichFormat;

class RichTextView : public QAbstractScrollArea {
    Q_OBJECT
    Q_PROPERTY(QString text READ text)
  public:
    // Message texts say 10 points, which is small for Devanagari letters: every size is shown this much larger.
    static constexpr double sizeScale = 1.4;

    explicit RichTextView(QWidget* parent = nullptr);

    // A complete rich-text document. A damaged one is shown as far as it can be read.
    void setTextRtf(std::string_view rtf);

    // The characters shown, paragraphs separated by line feeds.
    QString text() const;
    QString unicodeText() const { return unicode_; }
    // What is in view of that text, without the blanks around it.
    std::vector<accessible::DrawnLine> drawnLines() const;
    // The text in Unicode, with its colours for whatever takes them.
    std::unique_ptr<QMimeData> toMimeData() const;

    // The size in which the whole text is comfortably read; not larger than `most`, within which it scrolls.
    QSize sizeFor(QSize most) const;

    // Scrolls where the key (Qt::Key) is one that does; the view never has the keyboard itself.
    bool scrollByKey(int key);

  protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    struct Paragraph {
        QString text;
        StyledText codes;  // the same, with a Latin one for each character that is none
        QList<QTextLayout::FormatRange> formats;
        std::vector<double> edges;  // of the characters, see breakLines
        double lineHeight = 0;
    };

    struct Line {
        const Paragraph* paragraph;
        LineRange range;
        double top;
    };

    void addUnicode(const RichDocument& document, std::size_t start, std::size_t length, const RichFormat& format);
    void addParagraph(const QString& text, StyledView codes, QList<QTextLayout::FormatRange> formats);
    static void measure(Paragraph& paragraph, qsizetype begin, qsizetype end);
    std::vector<Line> linesFor(double width) const;
    int heightFor(double width) const;
    int naturalWidth() const;
    int narrowestOfHeight(int height, int width) const;
    void layOut();

    std::string rtf_;
    QString unicode_;
    QString html_;
    std::vector<Paragraph> paragraphs_;
    std::vector<Line> lines_;  // of paragraphs_, at the view's present width
};

}  // namespace tolvan
