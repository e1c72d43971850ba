// The table of checks: each is a function over a program that reports what it finds.
#pragma once

#include "guide/Blocks.h"
#include "guide/Finding.h"
#include "guide/Program.h"

#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace tolvan::guide {

// What the checks read.
struct Reading {
    explicit Reading(const Program& read) : program(read), blockFaults(findBlockFaults(read)) {}

    const Program& program;
    std::vector<BlockFault> blockFaults;
};

// Collects what the checks find. Lines are counted from 0 here.
class Report {
  public:
    explicit Report(const Program& program) : errors_(program.lines().size()) {}

    void begin(std::string_view kind, Weight weight) {
        kind_ = kind;
        weight_ = weight;
    }
    void add(std::size_t line, const Word& place, StyledText text, std::vector<Correction> corrections = {});
    void add(std::size_t line, Columns roman, Columns programPlace, StyledText text,
             std::vector<Correction> corrections = {});

    // Of the finding added last: the letters of its text that make the difference; the lines of the block, from 0, that
    // it is about.
    void emphasise(std::vector<Columns> letters) { findings_.back().emphasis = std::move(letters); }
    void setBlock(std::size_t firstLine, std::size_t lastLine) {
        findings_.back().firstLine = firstLine + 1;
        findings_.back().lastLine = lastLine + 1;
    }

    // Whether a line has an error already, which others of its line may follow from.
    bool hasError(std::size_t line) const { return errors_[line]; }
    const std::vector<bool>& linesWithError() const { return errors_; }

    std::vector<Finding> take() { return std::move(findings_); }

  private:
    std::vector<bool> errors_;
    std::vector<Finding> findings_;
    std::string_view kind_;
    Weight weight_ = Weight::Error;
};

struct Check {
    std::string_view kind;
    Weight weight;
    void (*run)(const Reading&, Report&);
};

// The most useful first: of a line with several findings the first ones are kept.
std::span<const Check> checks();

// Other text for a word of a line (from 0).
Correction replaceWord(std::size_t line, const Word& word, std::string_view text, bool sure);
// Text put in at a column.
Correction insertAt(std::size_t line, std::size_t column, std::string_view text, bool sure);

namespace find {
// Quotes and comments.
void openLatin(const Reading& reading, Report& report);
void openQuotes(const Reading& reading, Report& report);
void wordsInTexts(const Reading& reading, Report& report);
// Words.
void misspelt(const Reading& reading, Report& report);
void unknownCommands(const Reading& reading, Report& report);
void notEqual(const Reading& reading, Report& report);
// Blocks.
void unclosed(const Reading& reading, Report& report);
void unopened(const Reading& reading, Report& report);
void wrongEnds(const Reading& reading, Report& report);
void missingWords(const Reading& reading, Report& report);
void tooDeep(const Reading& reading, Report& report);
// Drawing sentences.
void missingBrackets(const Reading& reading, Report& report);
void wrongEndings(const Reading& reading, Report& report);
void wrongOrder(const Reading& reading, Report& report);
// Values and names.
void wrongValues(const Reading& reading, Report& report);
void declaredTwice(const Reading& reading, Report& report);
void syntaxErrors(const Reading& reading, Report& report);
void neverSet(const Reading& reading, Report& report);
void onlyInMain(const Reading& reading, Report& report);
void textsAsNumbers(const Reading& reading, Report& report);
void sameNames(const Reading& reading, Report& report);
}  // namespace find

}  // namespace tolvan::guide
