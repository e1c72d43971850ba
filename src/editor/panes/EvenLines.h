// Lays out a document in lines of one height on one base line, whatever fonts are on them; the lines are not broken.
#pragma once

#include <QPlainTextDocumentLayout>

namespace tolvan {

class EvenLines : public QPlainTextDocumentLayout {
    Q_OBJECT
  public:
    explicit EvenLines(QTextDocument* document) : QPlainTextDocumentLayout(document) {}

    // Logical pixels; the base line is counted from the top of the line.
    void setLine(qreal height, qreal baseLine);

    QRectF blockBoundingRect(const QTextBlock& block) const override;

  protected:
    // Lays out and paints the lines that now hold what was added. The base class looks for these lines after the
    // letters that went as well, and so paints everything when a line is replaced or coloured.
    void documentChanged(int from, int removed, int added) override;

  private:
    qreal height_ = 0;
    qreal baseLine_ = 0;
};

}  // namespace tolvan
