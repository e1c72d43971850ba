#include "shell/Scrambling.h"

namespace tolvan {
namespace {

// What is added to the byte at a 0-based position.
unsigned shift(std::size_t position, const ScramblingKey& key) {
    return key[(position + 1) % key.size()] + 2U;
}

}  // namespace

std::string scramble(std::string_view plain, const ScramblingKey& key) {
    std::string result(plain);
    for (std::size_t i = 0; i < result.size(); ++i)
        result[i] = static_cast<char>(static_cast<unsigned char>(result[i]) + shift(i, key));
    return result;
}

std::string unscramble(std::string_view scrambled, const ScramblingKey& key) {
    std::string result(scrambled);
    for (std::size_t i = 0; i < result.size(); ++i)
        result[i] = static_cast<char>(static_cast<unsigned char>(result[i]) - shift(i, key));
    return result;
}

}  // namespace tolvan
