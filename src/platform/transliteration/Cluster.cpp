#include "platform/transliteration/Cluster.h"

#include "platform/transliteration/Glyphs.h"
#include "platform/transliteration/RomanReader.h"

#include <limits>
#include <span>

namespace tolvan {
namespace {

constexpr std::size_t consonantCount = static_cast<std::size_t>(Sound::EyelashRa) + 1;

// From consonants to their row in `consonantGlyphs`.
constexpr auto glyphTrie = [] {
    Trie<consonantCount, 128> trie;
    for (std::size_t row = 0; row < consonantGlyphs.size(); ++row) {
        std::array<Sound, 4> sounds{};
        std::size_t count = 0;
        for (std::string_view rest = consonantGlyphs[row].consonants; !rest.empty();) {
            const SpelledSound spelled = longestSpelling(rest).value();
            sounds.at(count++) = spelled.sound;
            rest.remove_prefix(spelled.length);
        }
        trie.insert(std::span(sounds.data(), count), static_cast<std::uint8_t>(row));
    }
    return trie;
}();

using Letters = std::span<const Letter>;

constexpr Letter ya{Sound::Ya};
constexpr Letter ra{Sound::Ra};
constexpr Letter ha{Sound::Ha};

// The next glyph of a cluster.
struct Step {
    std::uint32_t cost;   // of this glyph and all after it
    std::uint8_t row;     // of consonantGlyphs
    std::uint8_t length;  // letters
    bool half;
};

// Chooses the glyphs of a cluster without head ra: as few visible viramas as can be, then as few glyphs, then as few
// added forms of ya and ra; among equals the longest glyph first.
class ClusterPlan {
  public:
    explicit ClusterPlan(Letters letters) : letters_(letters) {
        afterFull_[letters.size()] = 0;
        for (std::size_t position = letters.size(); position-- > 0;) plan(position);
    }

    const Step& step(std::size_t position) const { return steps_[position]; }

  private:
    static constexpr std::uint32_t viramaCost = 1U << 20U;
    static constexpr std::uint32_t glyphCost = 1U << 10U;  // a cluster has fewer glyphs than this
    static constexpr std::uint32_t formCost = glyphCost + 1;
    static constexpr std::uint32_t impossible = std::numeric_limits<std::uint32_t>::max();

    void plan(std::size_t position) {
        const Letter letter = letters_[position];
        steps_[position].cost = impossible;
        // A full ra can only begin a cluster.
        if (position == 0 || letter != ra) offerGlyphs(position);
        afterFull_[position] =
            letter == ya || letter == ra ? formCost + afterFull_[position + 1] : viramaCost + steps_[position].cost;
    }

    void offerGlyphs(std::size_t position) {
        auto node = glyphTrie.root;
        for (std::size_t end = position; end < letters_.size(); ++end) {
            if (letters_[end].nukta && end > position) return;
            node = glyphTrie.step(node, static_cast<std::size_t>(letters_[end].consonant));
            if (node == glyphTrie.root) return;
            if (glyphTrie.value(node) != glyphTrie.noWord) offer(position, end + 1, glyphTrie.value(node));
            if (letters_[end].nukta) return;
        }
    }

    void offer(std::size_t position, std::size_t end, std::uint8_t row) {
        Step step{glyphCost + afterFull_[end], row, static_cast<std::uint8_t>(end - position), false};
        if (canBeHalf(position, end, row) && glyphCost + steps_[end].cost <= step.cost) {
            step.cost = glyphCost + steps_[end].cost;
            step.half = true;
        }
        if (step.cost <= steps_[position].cost) steps_[position] = step;
    }

    bool canBeHalf(std::size_t position, std::size_t end, std::uint8_t row) const {
        if (end == letters_.size() || letters_[end] == ra || consonantGlyphs[row].half.empty()) return false;
        return letters_[position].consonant != Sound::EyelashRa || letters_[end] == ya || letters_[end] == ha;
    }

    Letters letters_;
    std::array<Step, Cluster::maxLetters> steps_;
    std::array<std::uint32_t, Cluster::maxLetters + 1> afterFull_;  // what follows a full glyph that ends here
};

void writeNukta(Letter letter, std::string& encoded) {
    if (!letter.nukta) return;
    const bool dda = letter.consonant == Sound::Dda || letter.consonant == Sound::Ddha;
    encoded += dda ? glyph::nuktaBeforeDda : glyph::nukta;
}

// What the vowel sign of a cluster has to fit.
struct ClusterEnd {
    SignPlace place = SignPlace::Usual;
    std::optional<Sound> bareConsonant = {};  // where the last glyph is a single letter without an added form
};

// Writes the forms of ya and ra, or a virama, that stand between a full glyph and the next one at `position`.
std::size_t writeAfterFull(Letters letters, std::size_t position, ClusterEnd& end, std::string& encoded) {
    for (; position < letters.size() && (letters[position] == ya || letters[position] == ra); ++position) {
        const bool isYa = letters[position] == ya;
        encoded += isYa ? glyph::yaForm : glyph::raForm;
        end = {isYa ? SignPlace::Usual : end.place};
    }
    if (position < letters.size()) encoded += glyph::virama;
    return position;
}

ClusterEnd writeLetters(Letters letters, std::string& encoded) {
    const ClusterPlan plan(letters);
    ClusterEnd end;
    for (std::size_t position = 0; position < letters.size();) {
        const Step& step = plan.step(position);
        const ConsonantGlyph& glyph = consonantGlyphs[step.row];
        writeNukta(letters[position], encoded);
        encoded += step.half ? glyph.half : glyph.full;
        end.place = glyph.place;
        end.bareConsonant = step.length == 1 ? std::optional(letters[position].consonant) : std::nullopt;
        position += step.length;
        if (!step.half) position = writeAfterFull(letters, position, end, encoded);
    }
    return end;
}

// Most clusters are one letter.
ClusterEnd writeLetter(Letter letter, std::string& encoded) {
    const ConsonantGlyph& glyph = consonantGlyphs[static_cast<std::size_t>(letter.consonant)];
    writeNukta(letter, encoded);
    encoded += glyph.full;
    return {glyph.place, letter.consonant};
}

constexpr bool lettersComeFirst() {
    for (std::size_t consonant = 0; consonant < consonantCount; ++consonant)
        if (glyphTrie.value(glyphTrie.step(glyphTrie.root, consonant)) != consonant) return false;
    return true;
}
static_assert(lettersComeFirst(), "writeLetter takes the row of a letter to be its number");

// True when the last letter and the sign have become one glyph.
bool joinSign(const ClusterEnd& end, Sound vowel, std::string& encoded) {
    for (const SyllableGlyph& syllable : syllableGlyphs)
        if (syllable.consonant == end.bareConsonant && syllable.vowel == vowel) {
            encoded.pop_back();
            encoded += syllable.glyph;
            return true;
        }
    return false;
}

void writeSign(const ClusterEnd& end, Sound vowel, std::string& encoded) {
    const VowelGlyphs& glyphs = glyphsOf(vowel);
    if (glyphs.sign.empty() || joinSign(end, vowel, encoded)) return;
    encoded += end.place == SignPlace::Right ? glyphs.signRight
               : end.place == SignPlace::Low ? glyphs.signLow
                                             : glyphs.sign;
}

}  // namespace

void Cluster::addNukta() {
    Letter& last = letters_[size_ - 1];
    if (last == ra)
        last.consonant = Sound::EyelashRa;
    else if (last.consonant != Sound::EyelashRa)
        last.nukta = true;
}

bool Cluster::hasReph() const {
    return size_ > 1 && letters_[0] == ra;
}

void Cluster::write(Sound vowelOrVirama, std::string& encoded) const {
    const Letters letters = Letters(letters_.data(), size_).subspan(hasReph() ? 1 : 0);
    if (vowelOrVirama == Sound::I) encoded += glyphsOf(Sound::I).sign;
    const ClusterEnd end = letters.size() == 1 ? writeLetter(letters[0], encoded) : writeLetters(letters, encoded);
    if (vowelOrVirama == Sound::Virama)
        encoded += glyph::virama;
    else if (vowelOrVirama != Sound::I)
        writeSign(end, vowelOrVirama, encoded);
}

}  // namespace tolvan
