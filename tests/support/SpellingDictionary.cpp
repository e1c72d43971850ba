#include "support/SpellingDictionary.h"

#include <array>
#include <cstdio>
#include <memory>

namespace tolvan {

std::vector<std::string> spellingDictionary() {
    std::vector<std::string> words;
#ifndef _WIN32
    const std::unique_ptr<FILE, int (*)(FILE*)> dump(popen("aspell -l mr dump master 2>/dev/null", "r"), pclose);
    std::array<char, 1000> line{};
    while (dump != nullptr && std::fgets(line.data(), line.size(), dump.get()) != nullptr) {
        words.emplace_back(line.data());
        words.back().pop_back();
    }
#endif
    return words;
}

}  // namespace tolvan
