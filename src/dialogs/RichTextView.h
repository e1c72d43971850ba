// Shows a rich text that is only read: a message. Lines break at blanks alone, because any other character, also what
// Unicode takes for a hyphen or a bracket, may be a letter of the Devanagari font.
#pragma once

#include <QAbstractScrollArea>
#include <QTextLayout>

#include <memory>
#include <string_view>
#include <vector>

namespace tolvan {

class RichTextView : public QAbstractScrollArea {
    Q_OBJECT
  public:
    // Message texts say 10 points, which is small for Devanagari letters: every size is shown this much larger.
    static constexpr double sizeScale = 1.4;

    explicit RichTextView(QWidget* parent = nullptr);

    // A complete rich-text document. A damaged one is shown as far as it can be read.
    void setTextRtf(std::string_view rtf);

    // The characters shown, paragraphs parted by line feeds.
    QString text() const;

    // The size in which the whole text is comfortably read; not larger than `most`, within which it scrolls.
    QSize sizeFor(QSize most) const;

    // Scrolls where the key (Qt::Key) is one that does; the view never has the keyboard itself.
    bool scrollByKey(int key);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    // One paragraph's lines; positions are relative to the paragraph.
    struct Paragraph {
        std::unique_ptr<QTextLayout> layout;
        double top = 0;
    };

    void addParagraph(std::string_view text, const QList<QTextLayout::FormatRange>& formats);
    double layOut(double width) const;
    double naturalWidth() const;
    int narrowestOfHeight(int height, int width) const;
    void updateScrollBar();

    mutable std::vector<Paragraph> paragraphs_;
};

}  // namespace tolvan
