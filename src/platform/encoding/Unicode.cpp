#include "platform/encoding/Unicode.h"

#include "platform/encoding/EncodingTable.h"
#include "platform/encoding/Utf8.h"
#include "platform/encoding/Windows1252.h"

#include <algorithm>

namespace tolvan {
namespace {

constexpr std::string_view shortI = "ि";
constexpr std::string_view virama = "्";
constexpr std::string_view nukta = "़";
constexpr std::string_view rephLetters = "र्";
constexpr std::string_view nonJoiner = "\u200C";
constexpr std::size_t letterSize = virama.size();  // every character of the block has three bytes

struct Composition {
    char32_t first;
    char32_t second;
    char32_t whole;
};
constexpr auto vowelCompositions = std::to_array<Composition>({
    {U'अ', U'ा', U'आ'},
    {U'अ', U'ॅ', U'ॲ'},
    {U'अ', U'ॉ', U'ऑ'},
    {U'अ', U'ो', U'ओ'},
    {U'अ', U'ौ', U'औ'},
    {U'आ', U'े', U'ओ'},
    {U'आ', U'ै', U'औ'},
    {U'आ', U'ॅ', U'ऑ'},
    {U'ए', U'े', U'ऐ'},
    {U'ए', U'ॅ', U'ऍ'},
    {U'ा', U'े', U'ो'},
    {U'ा', U'ै', U'ौ'},
    {U'ा', U'ॅ', U'ॉ'},
});

// What a code is written as, and what it has to do with the codes around it.
struct Glyph {
    GlyphKind kind = GlyphKind::Unused;
    std::string text;
    char32_t letter = 0;   // the first character of the text
    bool hasHalf = false;  // the font has the same with a virama that joins
    bool isVirama = false;
    bool isNukta = false;
};

std::array<Glyph, 256> makeGlyphs() {
    const auto& rows = encodingTable();
    std::array<Glyph, 256> glyphs;
    for (std::size_t code = 0; code < glyphs.size(); ++code) {
        Glyph& glyph = glyphs[code];
        glyph.kind = rows[code].kind;
        glyph.text = rows[code].draws;
        if (glyph.text.empty()) appendUtf8(windows1252ToUnicode(static_cast<std::uint8_t>(code)), glyph.text);
        glyph.letter = firstCharacter(glyph.text);
        glyph.isVirama = glyph.text == virama;
        glyph.isNukta = glyph.text == nukta;
    }
    for (const Glyph& half : glyphs) {
        if (half.kind != GlyphKind::Half) continue;
        const std::string_view full = std::string_view(half.text).substr(0, half.text.size() - virama.size());
        for (Glyph& glyph : glyphs) glyph.hasHalf = glyph.hasHalf || glyph.text == full;
    }
    return glyphs;
}

const std::array<Glyph, 256>& allGlyphs() {
    static const std::array<Glyph, 256> glyphs = makeGlyphs();
    return glyphs;
}

// Codes stand in the order in which they are read off the page, Unicode in the order in which it is spoken.
class UnicodeWriter {
  public:
    explicit UnicodeWriter(std::string& utf8) : utf8_(utf8) {}

    void write(std::string_view codes) {
        while (!codes.empty()) {
            if (codes.front() == logotype_.codes.front() && codes.starts_with(logotype_.codes)) {
                endCluster();
                utf8_ += logotype_.draws;
                codes.remove_prefix(logotype_.codes.size());
            } else {
                take(glyphs_[static_cast<unsigned char>(codes.front())]);
                codes.remove_prefix(1);
            }
        }
        endCluster();
    }

  private:
    static constexpr std::size_t none = std::string::npos;

    void take(const Glyph& glyph) {
        switch (glyph.kind) {
            case GlyphKind::Consonant:
            case GlyphKind::Conjunct:
            case GlyphKind::Syllable:
            case GlyphKind::Half:
                takeLetters(glyph);
                break;
            case GlyphKind::Form:
                utf8_ += glyph.text;
                last_ = &glyph;
                lastHasNukta_ = separated_ = joins_ = false;
                vowel_ = 0;
                break;
            case GlyphKind::Reph:
                takeReph(glyph);
                break;
            case GlyphKind::Sign:
                takeSign(glyph);
                break;
            case GlyphKind::SignBefore:
                takeShortI();
                break;
            case GlyphKind::Mark:
                takeMark(glyph);
                break;
            case GlyphKind::Vowel:
                takeOther(glyph);
                vowel_ = glyph.letter;
                break;
            default:
                takeOther(glyph);
        }
    }

    void takeLetters(const Glyph& glyph) {
        const bool apart = separated_ && wouldJoin(glyph);
        if (apart) utf8_ += nonJoiner;
        if (!joins_ && cluster_ != none) endCluster();
        if (!joins_ || (apart && !shortI_)) cluster_ = utf8_.size();
        if (nukta_)
            writeWithNukta(glyph);
        else
            utf8_ += glyph.text;
        last_ = &glyph;
        lastHasNukta_ = nukta_;
        joins_ = glyph.kind == GlyphKind::Half;
        nukta_ = separated_ = false;
        vowel_ = 0;
    }

    // The nukta belongs to the last consonant of the letters.
    void writeWithNukta(const Glyph& glyph) {
        std::size_t end = glyph.text.size();
        if (glyph.kind == GlyphKind::Half) end -= virama.size();
        if (glyph.kind == GlyphKind::Syllable) end = letterSize;
        const auto* const whole = std::find_if(nuktaLetters.begin(), nuktaLetters.end(), [&](const NuktaLetter& known) {
            return known.composed && known.letter == glyph.letter && end == letterSize;
        });
        if (whole != nuktaLetters.end())
            appendUtf8(whole->withNukta, utf8_);
        else
            utf8_.append(glyph.text, 0, end).append(nukta);
        utf8_.append(glyph.text, end);
    }

    // Whether the letters on both sides of a visible virama would be drawn as a conjunct without a non-joiner between
    // them.
    bool wouldJoin(const Glyph& next) const {
        if (last_->letter == U'र' && last_->kind == GlyphKind::Consonant)
            return !lastHasNukta_ || next.letter == U'य' || next.letter == U'ह';
        if (last_->hasHalf) return true;
        if (nukta_) return false;
        if (next.letter == U'य' || next.letter == U'र') return true;
        if (lastHasNukta_) return false;
        std::string pair = last_->text;
        pair.append(virama).append(next.text, 0, next.text.size() - (next.kind == GlyphKind::Half ? virama.size() : 0));
        for (const Glyph& glyph : glyphs_)
            if (glyph.kind == GlyphKind::Conjunct && glyph.text == pair) return true;
        return false;
    }

    void takeShortI() {
        const bool separated = separated_;
        endCluster();
        separated_ = separated;
        shortI_ = true;
    }

    void takeReph(const Glyph& glyph) {
        endShortI();
        utf8_.insert(cluster_ == none ? utf8_.size() : cluster_, rephLetters);
        utf8_.append(glyph.text, rephLetters.size());  // the anusvara
        cluster_ = none;
        joins_ = false;
        vowel_ = 0;
    }

    void takeSign(const Glyph& glyph) {
        endShortI();
        joins_ = false;
        const auto whole = vowel_ == 0 ? std::nullopt : composedVowel(vowel_, glyph.letter);
        if (whole) {
            utf8_.resize(utf8_.size() - letterSize);
            appendUtf8(*whole, utf8_);
        } else {
            utf8_ += glyph.text;
        }
        vowel_ = whole.value_or(glyph.letter);
    }

    void takeMark(const Glyph& glyph) {
        if (glyph.isNukta) {
            if (!joins_ && cluster_ != none) endCluster();
            nukta_ = true;
            return;
        }
        if (!glyph.isVirama) endShortI();
        utf8_ += glyph.text;
        joins_ = separated_ = glyph.isVirama && cluster_ != none;
        vowel_ = 0;
    }

    void takeOther(const Glyph& glyph) {
        endCluster();
        utf8_ += glyph.text;
    }

    void endShortI() {
        if (shortI_) utf8_ += shortI;
        shortI_ = false;
    }

    void endCluster() {
        endShortI();
        if (nukta_) utf8_ += nukta;
        cluster_ = none;
        nukta_ = joins_ = separated_ = false;
        vowel_ = 0;
    }

    const std::array<Glyph, 256>& glyphs_ = allGlyphs();
    const Logotype& logotype_ = logotype();
    std::string& utf8_;
    std::size_t cluster_ = none;   // where the consonants begin that the next reph is sounded before
    const Glyph* last_ = nullptr;  // the letters written last
    bool lastHasNukta_ = false;
    bool joins_ = false;      // the next letter belongs to the cluster
    bool separated_ = false;  // by a virama that is seen
    bool shortI_ = false;     // to be written at the end of the cluster
    bool nukta_ = false;      // to be written on the next letter
    char32_t vowel_ = 0;      // the vowel or sign written last, if nothing follows it yet
};

}  // namespace

std::optional<char32_t> composedVowel(char32_t first, char32_t second) {
    for (const Composition& composition : vowelCompositions)
        if (composition.first == first && composition.second == second) return composition.whole;
    return std::nullopt;
}

void appendUnicodeOfCodes(std::string_view codes, std::string& utf8) {
    UnicodeWriter(utf8).write(codes);
}

std::string unicodeOfCodes(std::string_view codes) {
    std::string utf8;
    utf8.reserve(codes.size() * 3);
    appendUnicodeOfCodes(codes, utf8);
    return utf8;
}

void appendUnicodeOfLatin(std::string_view text, std::string& utf8) {
    for (const char code : text) appendUtf8(windows1252ToUnicode(static_cast<std::uint8_t>(code)), utf8);
}

}  // namespace tolvan
