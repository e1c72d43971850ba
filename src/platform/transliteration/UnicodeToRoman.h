// Unicode Devanagari in, the Roman spelling out from which `convert` makes the same letters.
#pragma once

#include <string>
#include <string_view>

namespace tolvan {

// What the Roman text is for.
enum class RomanUse {
    Conversion,  // by `convert` alone: punctuation that is the code of a glyph may stand for the glyph
    Program,     // the marking keeps punctuation Latin, so such glyphs have no spelling
};

// Text in UTF-8, in any normal form. Every vowel is written, also the a that a consonant has by itself. Joiners within
// Devanagari are dropped; but a zero-width non-joiner, or a joiner that keeps letters from becoming one glyph, makes
// the virama seen, and ra with virama and joiner is the eyelash ra. Candra e is spelled in one way. What is not
// Devanagari stays as it is, byte for byte; Devanagari without a spelling stays, too, and is added to `unspelled`.
std::string romanOfUnicode(std::string_view utf8, RomanUse use = RomanUse::Conversion,
                           std::u32string* unspelled = nullptr);

}  // namespace tolvan
