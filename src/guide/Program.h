// A whole program as the guide reads it: its lines, what their misspelt words are meant for, and who gives a value to
// which name. All checks read it.
#pragma once

#include "guide/Line.h"
#include "guide/Speller.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tolvan::guide {

using LinePointer = std::shared_ptr<const Line>;

// Lines that were read before are not read again. It keeps those of the last text only.
class LineStore {
  public:
    // The lines of a text, separated by CR LF; one at least.
    std::vector<LinePointer> read(std::string_view roman);
    LinePointer readOne(std::string_view roman);

  private:
    using Lines = std::unordered_map<std::string_view, LinePointer>;  // each by its own text

    LinePointer take(std::string_view roman);

    Lines lines_;
    Lines before_;
};

inline constexpr int mainProgram = -1;

struct NameUse {
    bool setIn(int scope) const;
    bool isSet() const { return !scopes.empty(); }

    std::vector<int> scopes;     // where it gets a value: mainProgram, or functions by the number of their line
    bool onlyTyped = true;       // each value is typed or read from a file
    bool array = false;          // declared
    bool maybeSet = false;       // by a function that it is given to, or in a line that is not understood
    int function = mainProgram;  // the line of the function of this name
    bool fromLibrary = false;    // known though nothing sets it
    bool command = false;        // of the library, and begins a statement
    std::size_t parameters = 0;  // of that function
};

// A word that nothing is known of.
struct Unknown {
    std::size_t line;  // from 0
    std::size_t word;
    bool starts;  // a statement
    Suggestion suggestion;
};

class Program {
  public:
    // `store` must outlive the program.
    Program(std::string_view roman, LineStore& store);

    const std::vector<LinePointer>& lines() const { return lines_; }
    const Line& line(std::size_t number) const { return *lines_[number]; }

    // The same lines with the words that the misspelt ones are meant for.
    const Line& meant(std::size_t number) const { return *meant_[number]; }

    // The function around a line, by the number of its head, or mainProgram.
    int scope(std::size_t line) const { return scopes_[line]; }

    // Null for a name that nothing sets.
    const NameUse* use(std::string_view glyphs) const;

    // In the order of the text.
    const std::vector<Unknown>& unknown() const { return unknown_; }

  private:
    void addLibrary(LineStore& store);
    void findScopes();
    void addNames(const Line& line, std::size_t number, bool sure);
    void addArguments(const Line& line);
    void addCandidates(const std::vector<LinePointer>& from);
    bool isKnown(const Line& line, std::size_t word) const;
    void findUnknown(LineStore& store);
    void correctLine(std::size_t number, LineStore& store);
    Suggestion commandInEnglish(std::string_view roman) const;
    const Suggestion& suggest(std::string_view roman, bool starts);

    std::vector<LinePointer> lines_;
    std::vector<LinePointer> meant_;
    std::vector<LinePointer> libraryLines_;
    std::vector<int> scopes_;
    std::unordered_map<std::string_view, NameUse> names_;
    std::unordered_map<std::string, Suggestion> suggestions_;  // by place and word
    std::vector<Candidate> candidates_;
    std::vector<Unknown> unknown_;
};

}  // namespace tolvan::guide
