// Consonants that follow one another without a vowel, and the glyphs that write them.
#pragma once

#include "platform/transliteration/Spellings.h"

#include <array>
#include <cstddef>
#include <string>

namespace tolvan {

struct Letter {
    Sound consonant = Sound::Ka;
    bool nukta = false;  // it makes the letter another one, which is part of no conjunct

    friend bool operator==(const Letter&, const Letter&) = default;
};

class Cluster {
  public:
    static constexpr std::size_t maxLetters = 200;  // as many as a piece of text can hold

    bool empty() const { return size_ == 0; }
    void clear() { size_ = 0; }
    void add(Sound consonant) { letters_[size_++] = {consonant, false}; }
    // On the consonant added last.
    void addNukta();

    // Appends the cluster with the sign of its vowel, or with a virama. Its reph is not written, because it may join
    // with what follows.
    void write(Sound vowelOrVirama, std::string& encoded) const;
    bool hasReph() const;

  private:
    std::array<Letter, maxLetters> letters_;
    std::size_t size_ = 0;
};

}  // namespace tolvan
