#include "editor/panes/ProgramLines.h"
#include "translator/ProgramText.h"

#include <gmock/gmock.h>

namespace tolvan {
namespace {

// The program text as one who only sees the updates has it.
class Follower {
  public:
    void follow(const std::vector<ProgramLinesUpdate>& updates) {
        for (const ProgramLinesUpdate& update : updates) {
            const auto first = lines_.begin() + static_cast<std::ptrdiff_t>(update.first);
            const auto behind = lines_.erase(first, first + static_cast<std::ptrdiff_t>(update.removed));
            lines_.insert(behind, update.lines.begin(), update.lines.end());
            made_ += update.lines.size();
        }
    }
    StyledText text() const {
        StyledText text;
        for (std::size_t i = 0; i < lines_.size(); ++i) {
            text.append(lines_[i].text);
            if (i + 1 < lines_.size()) text.append("\r\n", lines_[i].lineEnd);
        }
        return text;
    }
    std::size_t takeMade() { return std::exchange(made_, 0); }

  private:
    std::vector<ProgramLine> lines_{1};
    std::size_t made_ = 0;
};

std::string romanOf(const ProgramLines& lines) {
    std::string roman = lines.roman(0);
    for (std::size_t i = 1; i < lines.count(); ++i) roman += "\r\n" + lines.roman(i);
    return roman;
}

TEST(ProgramLines, makesOnlyWhatReadsDifferently) {
    ProgramLines lines;
    Follower follower;
    follower.follow(lines.replace(0, 1, std::vector<std::string>(1000, "dAkhav #\"#ka#\"#")));
    follower.takeMade();

    struct Case {
        const char* what;
        std::size_t line;
        std::vector<std::string> roman;
        std::size_t made;
    };
    const Case cases[] = {
        {"a letter", 500, {"dAkhav #\"#kA#\"#"}, 1},
        {"a new line", 500, {"dAkhav", "#\"#kA#\"#"}, 2},
        {"a mark without partner is dropped", 1000, {"dAkhav #\"#ka#\"##"}, 1},
        {"a mark before others turns the lines behind it", 990, {"# dAkhav"}, 11},
        {"and back", 990, {"dAkhav"}, 11},
        {"a line behind the last takes the two blanks over", 1000, {"dAkhav #\"#ka#\"#", "tar"}, 2},
    };
    for (const Case& one : cases) {
        follower.follow(lines.replace(one.line, 1, one.roman));
        EXPECT_EQ(follower.takeMade(), one.made) << one.what;
        EXPECT_EQ(follower.text(), ProgramText(romanOf(lines))) << one.what;
    }
}

TEST(ProgramLines, knowsWhatIsTypedIntoASpan) {
    ProgramLines lines;
    lines.replace(0, 1, {"ka #\"#ma#", "na\"# ta", "# ka", "ka"});
    EXPECT_FALSE(lines.isInSpan(0, 3));
    EXPECT_TRUE(lines.isInSpan(0, 4));
    EXPECT_FALSE(lines.isInSpan(0, 7));
    EXPECT_TRUE(lines.isInSpan(1, 0));
    EXPECT_FALSE(lines.isInSpan(1, 5));
    EXPECT_TRUE(lines.isInSpan(2, 1)) << "about to be closed";
    EXPECT_FALSE(lines.isInSpan(3, 1)) << "forgotten on a line above";
}

TEST(ProgramLines, knowsWhichPlacesCorrespond) {
    ProgramLines lines;
    lines.replace(0, 1, {"dAkhav #\"#nAv#\"# & 1", "#x y# kartA", "#a", "b# kar#"});
    struct Case {
        const char* what;
        std::size_t line, roman, program;
    };
    const Case cases[] = {
        {"start", 0, 0, 0},
        {"behind a word", 0, 6, 4},
        {"before a span", 0, 7, 5},
        {"behind a quote, where Devanagari letters go", 0, 10, 6},
        {"behind the letters", 0, 13, 9},
        {"end", 0, 20, 14},
        {"before a span at the start", 1, 0, 0},
        {"in a span", 1, 2, 1},
        {"behind a span", 1, 5, 3},
        {"behind a span from the line above", 3, 2, 1},
        {"before a mark that is dropped", 3, 6, 4},
    };
    for (const auto& [what, line, roman, program] : cases) {
        EXPECT_EQ(lines.programColumn(line, roman), program) << what;
        EXPECT_EQ(lines.romanColumn(line, program), roman) << what;
    }
}

}  // namespace
}  // namespace tolvan
