// A font of picture boxes, with the pictures of the pieces of text that were printed in it. Programs print the same
// words again and again, and shaping a run costs far more than copying its picture.
#pragma once

#include "platform/picturebox/PixelSurface.h"

#include <QFont>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class QTextLayout;

namespace tolvan {

class PictureFont {
  public:
    struct Run {
        Coverage coverage;   // from the top left corner of the text's line
        double advance = 0;  // device pixels to where the next text starts
    };

    explicit PictureFont(const QFont& font) : font_(font) {}

    const QFont& font() const { return font_; }

    // How far below the top of the line the letters stand, in logical pixels; the font's own ascent if not set. The
    // height of the line stays what it is.
    double baseline() const;
    void setBaseline(double logicalPixels);

    // The height of a line in device pixels; whole, so that a scroll by lines is a scroll by rows.
    int lineHeight(double pixelRatio);
    // Where a text can be cut so that few pieces make many texts: a digit is a piece of its own, since numbers are what
    // differs most from line to line. Characters of the first piece; the text is not empty.
    static std::size_t firstPiece(std::string_view text);
    // Text is font-encoded, without line breaks. Valid until the next call.
    const Run& run(std::string_view text, double pixelRatio);
    // Where the characters of a text of any length start, in device pixels from where the text does, and where the last
    // one ends: one number more than characters. Marks on a letter start where it ends.
    std::vector<double> edges(std::string_view text, double pixelRatio);

  private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    void forget();
    void usePixelRatio(double pixelRatio);
    std::unique_ptr<QTextLayout> layOut(std::string_view text) const;
    Run draw(std::string_view text) const;

    QFont font_;
    std::optional<double> baseline_;
    double pixelRatio_ = 0;
    int ascent_ = 0;  // device pixels, like the line height
    int lineHeight_ = 0;
    std::size_t bytes_ = 0;  // of the pictures kept
    std::unordered_map<std::string, Run, Hash, std::equal_to<>> runs_;
};

}  // namespace tolvan
