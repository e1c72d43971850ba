// One line of a program as the guide reads it: its words with their places in both texts, and what it does with names.
// A line is read by itself: a "#" span that it leaves open ends with it, so that one forgotten "#" spoils one line.
#pragma once

#include "guide/Finding.h"
#include "translator/LanguageWords.h"
#include "translator/Statements.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan::guide {

struct Word {
    enum class Kind : std::uint8_t {
        Name,
        Language,
        Number,
        Literal,  // with its quotes
        Mark,     // one Latin character, not a blank
    };

    bool is(std::string_view spelling) const { return language != nullptr && language->roman == spelling; }
    bool isMark(char character) const { return kind == Kind::Mark && glyphs[0] == character; }
    bool isEqualSign() const { return is("barobar") || isMark('='); }

    Kind kind;
    Columns roman;
    Columns program;
    std::string_view glyphs;                 // of the program line
    const LanguageWord* language = nullptr;  // of Language
};

// What a line is among the blocks.
enum class Role : std::uint8_t {
    Nothing,  // empty, or a comment
    Plain,
    FunctionHead,
    FunctionEnd,
    If,
    ElseIf,
    Else,
    EndIf,
    End,  // the word for the end alone
    For,
    Next,
    While,
    Wend,
};

// Words are named by their number in the line.
using WordNumbers = std::vector<std::size_t>;

struct Statement {
    Role role = Role::Nothing;
    StatementKind form = StatementKind::General;
    bool splitElseIf = false;             // "else" and "if" as two words
    bool wrongEnd = false;                // the end of a loop that is written like that of a condition
    std::optional<std::size_t> function;  // the name in a function's head
    WordNumbers starts;                   // words with which a simple statement begins
    WordNumbers sets;                     // names that get a value, the parameters of a function among them
    WordNumbers inputs;                   // those of them that get what is typed or read from a file
    WordNumbers arrays;                   // those of them that are declared
    WordNumbers reads;                    // all other names
};

struct Line {
    explicit Line(std::string_view text);
    Line(const Line&) = delete;  // the words are slices of the text
    Line& operator=(const Line&) = delete;

    std::string_view romanOf(const Word& word) const { return slice(word.roman); }
    std::string_view slice(Columns place) const {
        return std::string_view(roman).substr(place.from, place.to - place.from);
    }
    const Word* first() const { return words.empty() ? nullptr : &words[0]; }
    const Word* find(std::string_view languageWord) const;
    // From one of the words to another, or from the first to the last.
    Columns romanOf(std::size_t first, std::size_t last) const {
        return {words[first].roman.from, words[last].roman.to};
    }
    Columns programOf(std::size_t first, std::size_t last) const {
        return {words[first].program.from, words[last].program.to};
    }
    Columns romanOfAll() const { return romanOf(0, words.size() - 1); }
    std::size_t indentation() const;

    std::string roman;
    StyledText program;
    std::vector<Word> words;               // before a comment
    std::optional<Columns> comment;        // the comment's word and all after it, in the Roman text
    bool isHead = false;                   // Compile takes the line for a function's head
    std::optional<std::size_t> openLatin;  // the "#" that the line does not close
    std::optional<std::size_t> openQuote;  // the quote that the line does not close
    Statement statement;
    mutable std::optional<int> checkedSyntax;  // see Syntax.h; it never changes, and costs as much as the reading

  private:
    class Reader;
};

}  // namespace tolvan::guide
