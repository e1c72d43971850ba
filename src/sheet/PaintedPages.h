// Pages for a printer: what is drawn on them is kept, and painted when it is known which of them are wanted. Letters
// stand where they stand in a PdfDocument, and are painted as outlines: a printer need not have the fonts.
#pragma once

#include "sheet/PdfDocument.h"

#include <QPainterPath>

#include <functional>

class QPainter;

namespace tolvan {

class PaintedPages : public SheetPages {
  public:
    explicit PaintedPages(QSizeF page) : size_(page), measure_(page) {}

    void newPage() override;
    int pages() const override { return static_cast<int>(pages_.size()); }
    void setPage(int number) override { current_ = static_cast<std::size_t>(number) - 1; }
    void drawText(QPointF baseline, StyledView text, double points, QColor colour) override;
    double width(StyledView text, double points) override { return measure_.width(text, points); }
    void fillRectangle(const QRectF& area, QColor colour) override;
    void drawImage(const QRectF& area, const QImage& image) override;

    // In the middle of the paper, whose size is in the painter's units; smaller if the paper is.
    void paint(int page, QPainter& painter, QSizeF paper, double unitsPerPoint) const;

  private:
    using Drawing = std::function<void(QPainter&)>;

    QSizeF size_;
    PdfDocument measure_;
    std::vector<std::vector<Drawing>> pages_;
    std::size_t current_ = 0;
};

}  // namespace tolvan
