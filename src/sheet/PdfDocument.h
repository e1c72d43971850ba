// A PDF file whose text can be searched and copied as Unicode although the Devanagari font knows nothing of it: each
// letter, as a reader counts them, is written with the glyphs of the font and with the characters that it stands for.
// Needs a QGuiApplication.
#pragma once

#include "sheet/SheetPages.h"

#include <QByteArray>
#include <QRawFont>
#include <QSizeF>

#include <array>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace tolvan {

class PdfDocument : public SheetPages {
  public:
    explicit PdfDocument(QSizeF page);

    void newPage() override;
    int pages() const override { return static_cast<int>(pages_.size()); }
    void setPage(int number) override { current_ = static_cast<std::size_t>(number) - 1; }
    void drawText(QPointF baseline, StyledView text, double points, QColor colour) override;
    double width(StyledView text, double points) override;
    void fillRectangle(const QRectF& area, QColor colour) override;
    void drawImage(const QRectF& area, const QImage& image) override;

    // The file.
    QByteArray bytes(const QByteArray& title) const;

  private:
    struct Glyph {
        quint32 index;
        std::string utf8;  // what it stands for; empty for those after the first of a letter
        double width = 0;  // of the whole letter, so that readers see no gap within it; 0 after the first
        bool operator<(const Glyph& other) const { return std::tie(index, utf8) < std::tie(other.index, other.utf8); }
    };
    struct PlacedGlyph {
        int code;
        QPointF place;  // for a font of one point
    };
    struct Letter {
        std::vector<PlacedGlyph> glyphs;
        double width = 0;
    };
    struct UsedFont {
        QRawFont raw;
        std::map<Glyph, int> codes;
        std::vector<Glyph> glyphs;  // by codes
        std::map<std::string, Letter> letters;
    };
    class File;

    const Letter& letterOf(std::string_view codes, Font font);
    Letter shape(std::string_view codes, Font font);
    int codeOf(UsedFont& font, const Glyph& glyph);
    UsedFont& usedFont(Font font) { return fonts_[font == Font::Devanagari ? 1 : 0]; }
    QByteArray& page() { return pages_[current_]; }
    QByteArray placeOf(QPointF point) const;

    QSizeF size_;
    std::array<UsedFont, 2> fonts_;
    std::vector<QByteArray> pages_;  // what is drawn on each
    std::vector<QImage> images_;
    std::size_t current_ = 0;
};

}  // namespace tolvan
