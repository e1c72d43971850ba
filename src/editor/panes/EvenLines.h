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

  private:
    qreal height_ = 0;
    qreal baseLine_ = 0;
};

}  // namespace tolvan
