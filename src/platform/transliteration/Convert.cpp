#include "platform/transliteration/Convert.h"

#include "platform/transliteration/Cluster.h"
#include "platform/transliteration/Glyphs.h"
#include "platform/transliteration/RomanReader.h"

#include <stdexcept>

namespace tolvan {
namespace {

// Takes the sounds of one piece of text in turn and writes them syllable by syllable.
class SyllableWriter {
  public:
    explicit SyllableWriter(std::string& encoded) : encoded_(encoded) {}

    void take(Sound sound) {
        if (isConsonant(sound))
            takeConsonant(sound);
        else if (isVowel(sound))
            takeVowel(sound);
        else
            takeMark(sound);
    }
    void copy(char character) {
        endSyllable();
        encoded_ += character == '\t' ? ' ' : character;
    }
    void endSyllable() {
        endCluster();
        writeReph();
        state_ = State::Start;
    }

  private:
    enum class State : std::uint8_t {
        Start,    // nothing to which a mark could be added
        Cluster,  // consonants that wait for their vowel
        Vowel,    // a vowel is written
        SignIi,   // the same, and the last glyph is the sign I
    };

    void takeConsonant(Sound sound) {
        if (state_ != State::Cluster) endSyllable();
        state_ = State::Cluster;
        cluster_.add(sound);
    }

    void takeVowel(Sound vowel) {
        if (state_ == State::Cluster) {
            writeCluster(vowel);
            return;
        }
        endSyllable();
        encoded_ += glyphsOf(vowel).independent;
        state_ = State::Vowel;
    }

    void takeMark(Sound mark) {
        switch (mark) {
            case Sound::NuktaOrSeparator:
                if (state_ == State::Cluster) cluster_.addNukta();
                break;
            case Sound::Virama:
                takeVirama();
                break;
            default:
                if (state_ == State::Start)
                    takeMarkAsLetters(mark);
                else
                    takeVowelMark(mark);
        }
    }

    void takeVirama() {
        if (state_ == State::Cluster)
            writeCluster(Sound::Virama);
        else
            encoded_ += glyph::virama;
        endSyllable();
    }

    // The capitals of the marks, where there is nothing to mark.
    void takeMarkAsLetters(Sound mark) {
        takeConsonant(mark == Sound::Visarga ? Sound::Ha : Sound::Ma);
        if (mark == Sound::Candrabindu) takeConsonant(Sound::Ma);
    }

    void takeVowelMark(Sound mark) {
        endCluster();
        if (mark == Sound::Anusvara && rephWaits_) {
            encoded_ += glyph::rephAnusvara;
            rephWaits_ = false;
        } else {
            writeReph();
            encoded_ += markGlyph(mark);
        }
        state_ = State::Vowel;
    }

    std::string_view markGlyph(Sound mark) const {
        if (mark == Sound::Visarga) return glyph::visarga;
        if (mark == Sound::Candrabindu) return glyph::candrabindu;
        return state_ == State::SignIi ? glyph::anusvaraAfterIi : glyph::anusvara;
    }

    // Consonants without a vowel have their own a.
    void endCluster() {
        if (state_ == State::Cluster) writeCluster(Sound::A);
    }

    void writeCluster(Sound vowelOrVirama) {
        cluster_.write(vowelOrVirama, encoded_);
        rephWaits_ = cluster_.hasReph();
        cluster_.clear();
        state_ = vowelOrVirama == Sound::Ii ? State::SignIi : State::Vowel;
    }

    void writeReph() {
        if (rephWaits_) encoded_ += glyph::reph;
        rephWaits_ = false;
    }

    std::string& encoded_;
    Cluster cluster_;
    State state_ = State::Start;
    bool rephWaits_ = false;  // the reph of the cluster written last
};

}  // namespace

void convert(std::string_view roman, std::string& encoded) {
    if (roman.size() > maxConvertLength) throw std::length_error("convert: more than 200 characters");
    SyllableWriter writer(encoded);
    while (!roman.empty()) {
        const auto spelled = longestSpelling(roman);
        if (spelled)
            writer.take(spelled->sound);
        else
            writer.copy(roman.front());
        roman.remove_prefix(spelled ? spelled->length : 1);
    }
    writer.endSyllable();
}

std::string convert(std::string_view roman) {
    std::string encoded;
    encoded.reserve(roman.size() * 2);
    convert(roman, encoded);
    return encoded;
}

}  // namespace tolvan
