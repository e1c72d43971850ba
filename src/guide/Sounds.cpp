#include "guide/Sounds.h"

#include "platform/encoding/Ascii.h"
#include "platform/transliteration/RomanReader.h"

#include <algorithm>
#include <array>
#include <span>

namespace tolvan::guide {
namespace {

constexpr double anyOther = 1.0;
constexpr double firstSound = 0.3;  // added where a word begins with quite another sound

constexpr unsigned char code(Sound sound) {
    return static_cast<unsigned char>(sound);
}
constexpr bool isSound(unsigned char sound) {
    return sound < firstOtherCharacter;
}
constexpr bool isConsonantCode(unsigned char sound) {
    return isSound(sound) && isConsonant(static_cast<Sound>(sound));
}
constexpr bool isVowelCode(unsigned char sound) {
    return isSound(sound) && isVowel(static_cast<Sound>(sound));
}

// Sounds that all are taken for each other.
struct Family {
    double cost;
    std::vector<Sound> sounds;
};

const std::vector<Family>& families() {
    using enum Sound;
    static const std::vector<Family> all = {
        // The length of a vowel, kinds of the same letter, a nasal.
        {0.1, {A, Aa}},
        {0.1, {I, Ii}},
        {0.1, {U, Uu}},
        {0.1, {Sha, Ssa}},
        {0.1, {Ra, EyelashRa}},
        {0.1, {Anusvara, Candrabindu}},
        {0.1, {Anusvara, Na}},
        {0.1, {Anusvara, Nna}},
        {0.1, {Anusvara, Ma}},
        // Dental and retroflex.
        {0.15, {Ta, Tta}},
        {0.15, {Tha, Ttha}},
        {0.15, {Da, Dda}},
        {0.15, {Dha, Ddha}},
        {0.15, {Na, Nna}},
        {0.15, {La, Lla}},
        // Hissing sounds.
        {0.25, {Sa, Sha}},
        {0.25, {Sa, Ssa}},
        // With breath and without, dental or retroflex.
        {0.3, {Ka, Kha}},
        {0.3, {Ga, Gha}},
        {0.3, {Cha, Chha}},
        {0.3, {Ja, Jha}},
        {0.3, {Ta, Tha, Tta, Ttha}},
        {0.3, {Da, Dha, Dda, Ddha}},
        {0.3, {Pa, Pha}},
        {0.3, {Ba, Bha}},
        {0.3, {I, Ya}},
        {0.3, {Ii, Ya}},
        {0.3, {U, Va}},
        {0.3, {Uu, Va}},
        // Neighbouring vowels.
        {0.4, {E, I}},
        {0.4, {E, Ii}},
        {0.4, {O, U}},
        {0.4, {O, Uu}},
        {0.4, {CandraE, E, A}},
        {0.4, {CandraO, O, A}},
        {0.4, {CandraO, Aa}},
        {0.4, {E, Ai}},
        {0.4, {O, Au}},
        // With voice and without.
        {0.8, {Ka, Ga}},
        {0.8, {Ta, Da}},
        {0.8, {Tta, Dda}},
        {0.8, {Va, Ba}},
        {0.8, {Ma, Na}},
        {0.8, {Ma, Nna}},
    };
    return all;
}

constexpr double otherVowel = 0.8;
constexpr std::size_t codes = 64;

using Costs = std::array<std::array<float, codes>, codes>;

Costs makeCosts() {
    Costs costs;
    for (std::size_t a = 0; a < codes; ++a)
        for (std::size_t b = 0; b < codes; ++b) {
            const bool vowels =
                isVowelCode(static_cast<unsigned char>(a)) && isVowelCode(static_cast<unsigned char>(b));
            costs[a][b] = static_cast<float>(a == b ? 0 : vowels ? otherVowel : anyOther);
        }
    for (const SoundPair& pair : soundPairs()) {
        costs[code(pair.one)][code(pair.other)] = static_cast<float>(pair.cost);
        costs[code(pair.other)][code(pair.one)] = static_cast<float>(pair.cost);
    }
    return costs;
}

double replacing(unsigned char a, unsigned char b) {
    static const Costs costs = makeCosts();
    if (a == b) return 0;
    return a < codes && b < codes ? costs[a][b] : anyOther;
}

// One sound that is spelled as several.
struct Spread {
    Sound one;
    std::array<Sound, 3> several;
    std::size_t count;
};

constexpr double spread = 0.15;
constexpr auto spreads = std::to_array<Spread>({
    {Sound::Ri, {Sound::Ra, Sound::I}, 2},
    {Sound::Ri, {Sound::Ra, Sound::Ii}, 2},
    {Sound::Ri, {Sound::Ra, Sound::U}, 2},
    {Sound::Dnya, {Sound::Ga, Sound::Ya}, 2},
    {Sound::Dnya, {Sound::Da, Sound::Na}, 2},
    {Sound::Dnya, {Sound::Da, Sound::Na, Sound::Ya}, 3},
    {Sound::Ksha, {Sound::Ka, Sound::Sa}, 2},
    {Sound::Ksha, {Sound::Ka, Sound::Sha}, 2},
    {Sound::Ai, {Sound::A, Sound::Ya}, 2},
    {Sound::Ai, {Sound::Aa, Sound::Ya}, 2},
    {Sound::Ai, {Sound::A, Sound::I}, 2},
    {Sound::Ai, {Sound::Aa, Sound::I}, 2},
    {Sound::Au, {Sound::A, Sound::Va}, 2},
    {Sound::Au, {Sound::Aa, Sound::Va}, 2},
    {Sound::Au, {Sound::A, Sound::U}, 2},
    {Sound::Au, {Sound::Aa, Sound::U}, 2},
});

// The sound at `position` left out, or put in.
double dropping(const Sounds& sounds, std::size_t position) {
    const unsigned char sound = sounds[position];
    const unsigned char before = position > 0 ? sounds[position - 1] : firstOtherCharacter;
    const unsigned char next = position + 1 < sounds.size() ? sounds[position + 1] : firstOtherCharacter;
    if (isConsonantCode(sound) && sound == before) return 0.1;
    if (sound == code(Sound::Virama)) return 0.2;
    const bool between = (isConsonantCode(before) || before == code(Sound::Anusvara)) &&
                         (isConsonantCode(next) || next == code(Sound::Anusvara));
    if (sound == code(Sound::A) && position > 0 && position + 1 == sounds.size()) return 0;
    if (sound == code(Sound::A) && between) return 0.2;
    if (sound == code(Sound::Anusvara) || sound == code(Sound::Visarga) || sound == code(Sound::Ha)) return 0.4;
    if (sound == code(Sound::Aa) && between) return 0.5;
    if (sound == code(Sound::Ya)) return 0.6;
    return anyOther;
}

constexpr double swapping = 0.8;

// The usual table of edits, a row for each sound of `a`.
class Table {
  public:
    Table(const Sounds& a, const Sounds& b) : a_(a), b_(b), width_(b.size() + 1), cells_((a.size() + 1) * width_) {}

    double distance(double limit) {
        std::size_t hopeless = 0;  // rows above the limit, one after the other; no edit leaps over three
        for (std::size_t i = 0; i <= a_.size() && hopeless < 3; ++i) {
            double least = limit + 1;
            for (std::size_t j = 0; j <= b_.size(); ++j) least = std::min(least, at(i, j) = cheapest(i, j));
            hopeless = least > limit ? hopeless + 1 : 0;
        }
        if (hopeless == 3) return limit + 1;
        return at(a_.size(), b_.size());
    }

  private:
    double& at(std::size_t i, std::size_t j) { return cells_[i * width_ + j]; }

    // Up to the first i sounds of a and the first j of b.
    double cheapest(std::size_t i, std::size_t j) {
        if (i == 0 && j == 0) return 0;
        double cost = 100;
        if (i > 0) cost = std::min(cost, at(i - 1, j) + atStart(dropping(a_, i - 1), i == 1 && j == 0));
        if (j > 0) cost = std::min(cost, at(i, j - 1) + atStart(dropping(b_, j - 1), j == 1 && i == 0));
        if (i > 0 && j > 0)
            cost = std::min(cost, at(i - 1, j - 1) + atStart(replacing(a_[i - 1], b_[j - 1]), i == 1 && j == 1));
        if (i > 1 && j > 1 && a_[i - 1] == b_[j - 2] && a_[i - 2] == b_[j - 1])
            cost = std::min(cost, at(i - 2, j - 2) + swapping);
        for (const Spread& one : spreads) {
            if (i > 0 && j >= one.count && a_[i - 1] == code(one.one) && endsIn(b_, j, one))
                cost = std::min(cost, at(i - 1, j - one.count) + spread);
            if (j > 0 && i >= one.count && b_[j - 1] == code(one.one) && endsIn(a_, i, one))
                cost = std::min(cost, at(i - one.count, j - 1) + spread);
        }
        return cost;
    }

    static double atStart(double cost, bool first) { return first && cost >= anyOther ? cost + firstSound : cost; }

    static bool endsIn(const Sounds& sounds, std::size_t end, const Spread& one) {
        return std::equal(one.several.begin(), one.several.begin() + static_cast<std::ptrdiff_t>(one.count),
                          sounds.begin() + static_cast<std::ptrdiff_t>(end - one.count),
                          [](Sound sound, unsigned char other) { return code(sound) == other; });
    }

    const Sounds& a_;
    const Sounds& b_;
    std::size_t width_;
    std::vector<double> cells_;
};

}  // namespace

const std::vector<SoundPair>& soundPairs() {
    static const std::vector<SoundPair> all = [] {
        std::vector<SoundPair> pairs;
        const auto isThere = [&](Sound a, Sound b) {
            return std::any_of(pairs.begin(), pairs.end(),
                               [&](const SoundPair& pair) { return pair.one == a && pair.other == b; });
        };
        for (const Family& family : families())
            for (std::size_t i = 0; i < family.sounds.size(); ++i)
                for (std::size_t j = i + 1; j < family.sounds.size(); ++j)
                    if (!isThere(family.sounds[i], family.sounds[j]) && !isThere(family.sounds[j], family.sounds[i]))
                        pairs.push_back({family.sounds[i], family.sounds[j], family.cost});
        return pairs;
    }();
    return all;
}

Sounds soundsOf(std::string_view roman) {
    Sounds sounds;
    while (!roman.empty()) {
        const auto spelled = longestSpelling(roman);
        if (!spelled)
            sounds.push_back(static_cast<unsigned char>(firstOtherCharacter | static_cast<unsigned char>(roman[0])));
        else if (spelled->sound != Sound::NuktaOrSeparator)
            sounds.push_back(code(spelled->sound));
        roman.remove_prefix(spelled ? spelled->length : 1);
    }
    if (!sounds.empty() && isConsonantCode(sounds.back())) sounds.push_back(code(Sound::A));
    return sounds;
}

double soundDistance(const Sounds& a, const Sounds& b, double limit) {
    // Nothing cheaper than a tenth can be left out.
    const std::size_t difference = std::max(a.size(), b.size()) - std::min(a.size(), b.size());
    if (static_cast<double>(difference) * 0.1 > limit || std::max(a.size(), b.size()) > 64) return limit + 1;
    return Table(a, b).distance(limit);
}

double distanceToBeginning(std::string_view typed, const Sounds& word, double limit) {
    Sounds start = soundsOf(typed);
    if (!typed.ends_with('a') && start.size() > 1 && start.back() == code(Sound::A)) start.pop_back();
    double least = limit + 1;
    const std::size_t longest = std::min(word.size(), start.size() + 1);
    for (std::size_t length = start.size() > 1 ? start.size() - 1 : 1; length <= longest; ++length) {
        const Sounds beginning(word.begin(), word.begin() + static_cast<std::ptrdiff_t>(length));
        least = std::min(least, soundDistance(start, beginning, limit));
    }
    return least;
}

bool mayBeHeardAs(std::string_view typed, const Sounds& word) {
    constexpr double alike = 0.35 + 1e-6;  // the sum of two costs may be a little more
    return typed.size() >= lettersToHear && distanceToBeginning(typed, word, alike) <= alike;
}

std::string looseSpelling(std::string_view roman) {
    std::string letters;
    for (const char c : roman) {
        const char small = lowerLetter(c);
        const bool doubled = !letters.empty() && letters.back() == small;
        if (doubled && small == 'e')
            letters.back() = 'i';
        else if (doubled && small == 'o')
            letters.back() = 'u';
        else if (!doubled || small != 'a')
            letters += small;
    }
    return letters;
}

}  // namespace tolvan::guide
