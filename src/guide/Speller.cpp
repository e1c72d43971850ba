#include "guide/Speller.h"

#include <algorithm>

namespace tolvan::guide {
namespace {

struct Near {
    const Candidate* candidate;
    double cost;
};

constexpr std::size_t shortWord = 4;   // sounds, the last a with them
constexpr double shortWordCost = 0.9;  // so much of a short word may be wrong

double limitFor(const Sounds& typed) {
    return typed.size() <= shortWord ? shortWordCost : likelyCost;
}

constexpr double slipOfAFinger = 0.9;
constexpr std::size_t shortestWithSlip = 4;  // letters; shorter ones are one letter from too many others

// One letter is left out, or two have changed places.
bool isSlip(std::string_view typed, std::string_view word) {
    if (word.size() < shortestWithSlip) return false;
    const auto [t, w] = std::mismatch(typed.begin(), typed.end(), word.begin(), word.end());
    if (w == word.end()) return false;
    if (typed.size() + 1 == word.size()) return std::equal(t, typed.end(), w + 1, word.end());
    return typed.size() == word.size() && w + 1 != word.end() && t[0] == w[1] && t[1] == w[0] &&
           std::equal(t + 2, typed.end(), w + 2, word.end());
}

double distance(std::string_view typed, const Sounds& sounds, const Candidate& candidate, double limit) {
    const double bySound = soundDistance(sounds, candidate.sounds, limit);
    return bySound > slipOfAFinger && isSlip(typed, candidate.roman) ? slipOfAFinger : bySound;
}

unsigned char plain(unsigned char sound) {
    if (sound == static_cast<unsigned char>(Sound::Ii)) return static_cast<unsigned char>(Sound::I);
    if (sound == static_cast<unsigned char>(Sound::Uu)) return static_cast<unsigned char>(Sound::U);
    return sound;
}

bool isNasal(unsigned char sound) {
    return sound == static_cast<unsigned char>(Sound::Na) || sound == static_cast<unsigned char>(Sound::Ma);
}

}  // namespace

Suggestion suggestFor(std::string_view typed, std::span<const Candidate> candidates, unsigned places) {
    const Sounds sounds = soundsOf(typed);
    const double limit = limitFor(sounds);
    std::vector<Near> near;
    for (const Candidate& candidate : candidates) {
        if ((candidate.places & places) == 0 || candidate.roman == typed) continue;
        const double cost = distance(typed, sounds, candidate, limit + rivalDistance);
        if (cost <= limit + rivalDistance) near.push_back({&candidate, cost});
    }
    std::stable_sort(near.begin(), near.end(), [](const Near& a, const Near& b) { return a.cost < b.cost; });
    if (near.empty() || near[0].cost > limit) return {};
    Suggestion suggestion{{near[0].candidate->roman}, near[0].cost <= sureCost};
    const bool rival = near.size() > 1 && near[1].cost < near[0].cost + rivalDistance - 1e-6;
    if (rival) {
        suggestion.words.push_back(near[1].candidate->roman);
        suggestion.sure = false;
    }
    return suggestion;
}

Sounds plainKey(std::string_view roman) {
    const Sounds sounds = soundsOf(roman);
    Sounds key;
    for (std::size_t i = 0; i < sounds.size(); ++i) {
        const bool isLast = i + 1 == sounds.size();
        if (!isLast && sounds[i + 1] == sounds[i]) continue;  // a doubled letter is one
        const bool beforeConsonant =
            !isLast && sounds[i + 1] < firstOtherCharacter && isConsonant(static_cast<Sound>(sounds[i + 1]));
        unsigned char sound = plain(sounds[i]);
        if (isNasal(sound) && beforeConsonant) sound = static_cast<unsigned char>(Sound::Anusvara);
        if (key.empty() || key.back() != sound) key.push_back(sound);
    }
    return key;
}

}  // namespace tolvan::guide
