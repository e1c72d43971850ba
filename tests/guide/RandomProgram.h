// Right programs of any shape, as a first course has them: each name gets its value before it is read, each block its
// end, each sentence its words.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan::guide {

class RandomProgram {
  public:
    explicit RandomProgram(unsigned seed) : random_(seed) {}

    // Lines separated by CR LF.
    std::string write();

  private:
    static constexpr std::size_t deepest = 3;

    std::size_t below(std::size_t count) { return random_() % count; }
    bool perhaps() { return below(2) == 0; }
    std::string_view oneOf(std::initializer_list<std::string_view> words) { return words.begin()[below(words.size())]; }

    void line(const std::string& text);
    void statements(std::size_t count, std::size_t depth);
    void statement(std::size_t depth);
    void assignment();
    void array();
    void input();
    void condition(std::size_t depth);
    void countedLoop(std::size_t depth);
    void whileLoop(std::size_t depth);
    void drawing();
    void file();
    void function(const std::string& name);

    std::string freshName();
    std::string number();
    std::string text();
    std::string value(std::size_t depth = 0);
    std::string test();
    std::string place();
    std::string colour();

    std::mt19937 random_;
    std::string program_;
    std::vector<std::string> names_;   // that have a number
    std::vector<std::string> arrays_;  // of ten places
    std::vector<std::string> functions_;
    std::size_t depth_ = 0;
    std::size_t fresh_ = 0;
};

}  // namespace tolvan::guide
