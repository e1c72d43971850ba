// Pages on which a sheet is written, whatever they become.
//
// Lengths are in points (1/72 inch) from the top left corner of the page.
#pragma once

#include "platform/richtext/StyledText.h"

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QRectF>

namespace tolvan {

class SheetPages {
  public:
    SheetPages() = default;
    SheetPages(const SheetPages&) = delete;
    SheetPages& operator=(const SheetPages&) = delete;
    virtual ~SheetPages() = default;

    // Before the first thing on each page.
    virtual void newPage() = 0;
    virtual int pages() const = 0;
    // Pages are counted from 1. Draws on a page that was begun before.
    virtual void setPage(int number) = 0;

    // Letters stand at the base line. What does not fit on the page is not seen.
    virtual void drawText(QPointF baseline, StyledView text, double points, QColor colour) = 0;
    virtual double width(StyledView text, double points) = 0;
    virtual void fillRectangle(const QRectF& area, QColor colour) = 0;
    virtual void drawImage(const QRectF& area, const QImage& image) = 0;
};

}  // namespace tolvan
