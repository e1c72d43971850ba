// What the guide says about programs: nothing about right ones, and the right thing about wrong ones.

#include "guide/Checks.h"
#include "guide/EnglishFindings.h"
#include "guide/Guide.h"
#include "guide/RandomProgram.h"
#include "library/LibraryWords.h"
#include "platform/encoding/Unicode.h"
#include "platform/script/Executor.h"
#include "support/Cases.h"
#include "support/Examples.h"
#include "translator/ProgramFile.h"
#include "translator/ProgramText.h"
#include "translator/Translator.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <gmock/gmock.h>
#include <sstream>

namespace tolvan::guide {
namespace {

std::string unicode(const StyledText& text) {
    std::string utf8;
    for (std::size_t i = 0; i < text.size();) {
        std::size_t end = i;
        while (end < text.size() && text.font(end) == text.font(i)) ++end;
        const std::string_view run = std::string_view(text.text()).substr(i, end - i);
        if (text.font(i) == Font::Latin)
            appendUnicodeOfLatin(run, utf8);
        else
            appendUnicodeOfCodes(run, utf8);
        i = end;
    }
    return utf8;
}

// "2:1-6 spelling" and so on, a line each.
std::string said(const std::string& roman) {
    std::ostringstream out;
    for (const Finding& finding : Guide().check(roman)) {
        out << finding.line << ':' << finding.roman.from + 1 << '-' << finding.roman.to << ' ' << finding.kind << ' '
            << unicode(finding.text);
        for (const Correction& correction : finding.corrections)
            out << (correction.sure ? " => " : " ~> ") << correction.line << ": " << correction.text;
        out << '\n';
    }
    return out.str();
}

TEST(Findings, areNoneInTheExamples) {
    for (const std::string& name : exampleNames())
        EXPECT_EQ(said(readProgramFile(contentOf(exampleProgram(name))).roman), "") << name;
}

// Programs are the indented lines of the two guides.
TEST(Findings, areNoneInTheGuides) {
    for (const char* name : {"/docs/guide.md", "/src/shell/help/guide.txt"}) {
        std::istringstream guide(contentOf(sourceFolder() + name));
        std::string line;
        std::string program;
        int programs = 0;
        while (std::getline(guide, line) || !program.empty()) {
            if (guide && line.starts_with("    ")) {
                program += line.substr(4) + "\r\n";
            } else if (!program.empty()) {
                EXPECT_EQ(said(program), "") << program;
                ++programs;
                program.clear();
            }
            if (!guide) break;
        }
        EXPECT_GT(programs, 10) << name;
    }
}

// What the translator is tested with; the drawing sentences there use names without values.
TEST(Findings, areNoneInTheTestsOfTheTranslator) {
    for (const Section& section : sectionsOf("translator/programs.cases")) {
        const std::string program = section.parts()[0];
        EXPECT_EQ(said(program), section.title == "Drawing" ? said(program) : "") << section;
        EXPECT_EQ(said(program).find("syntax"), std::string::npos) << section;
    }
}

// Those that run without an error; the words of the library as each kind of name, too.
TEST(Findings, areNoneInTheTestsOfTheLibrary) {
    const std::string cases = "library/words.cases";
    for (const char* title : {"What a word gives", "Texts by letters"})
        for (const Row& row : rowsOf(cases, title))
            EXPECT_EQ(row[1].starts_with("error") ? "" : said("dAkhav " + row.written[0]), "") << row;
    for (const Row& row : rowsOf(cases, "Whose word it is")) {
        for (const LibraryWord& word : libraryWords()) {
            std::string program = row[0];
            for (std::size_t at = 0; (at = program.find("bAkI", at)) != std::string::npos; at += word.roman.size())
                program.replace(at, 4, word.roman);
            EXPECT_EQ(said(program), "") << program;
        }
    }
    for (const LibraryWord& word : libraryWords())
        EXPECT_EQ(said((word.kind == LibraryWord::Kind::Value ? "dAkhav " : "") + std::string(word.usage)), "");
}

TEST(Findings, areNoneInRandomRightPrograms) {
    for (unsigned seed = 0; seed < 2000; ++seed) {
        const std::string program = RandomProgram(seed).write();
        ASSERT_EQ(said(program), "") << seed << "\n" << program;
    }
}

// The guide may take a second for it, and a test program of minutes is a hang.
TEST(Findings, comeOfAnyText) {
    const std::string word = "dakhav ";
    std::string rubbish;
    for (int i = 0; i < 100000; ++i)
        rubbish += "jar x" + std::to_string(i * 7919 % 100003) + " (\"#} lahan sAThI kar" + std::to_string(i) + "\r\n";
    std::string huge;
    while (huge.size() < (std::size_t{10} << 20)) huge += word;
    std::string deep;
    for (int i = 0; i < 20000; ++i) deep += i % 2 == 0 ? "jar 1 = 1 tar\r\n" : "jovar 1 = 1\r\n";
    for (int i = 0; i < 20000; ++i) deep += i % 3 == 0 ? "saMpav jar\r\n" : "kar\r\n";
    for (const std::string& text : {rubbish, huge, deep, std::string(5000, '('), std::string("\0\xff\r\n\"", 5)}) {
        const auto start = std::clock();
        const std::size_t found = Guide().check(text).size();
        std::printf("%zu bytes: %zu findings, %.0f ms\n", text.size(), found,
                    1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
        EXPECT_LE(found, 1000U);
    }
}

// Blocks within each other, as many as the engine takes and one more.
TEST(Findings, nameTheBlockThatIsTooDeep) {
    bool wasRefused = false;
    for (int depth = 190; !wasRefused; ++depth) {
        std::string program;
        for (int i = 0; i < depth; ++i) program += i % 2 == 0 ? "jar 1 = 1 tar\r\n" : "jovar 1 = 2\r\n";
        for (int i = depth; i-- > 0;) program += i % 2 == 0 ? "saMpav jar\r\n" : "kar\r\n";
        script::Executor engine;
        wasRefused = !engine.addCode(Translator().Compile(ProgramText(program)));
        EXPECT_EQ(said(program).starts_with(std::to_string(depth) + ":1-"), wasRefused) << depth << said(program);
        ASSERT_LE(depth, 210);
    }
}

// Also where a word of the line is shorter than the one that it is meant for.
TEST(Findings, lieInTheirLines) {
    for (const std::string line : {"aMpav jar", "jr 1 lhn 2 tar", "jvr 1 < 2"})
        for (const Finding& finding : Guide().check(line)) EXPECT_LE(finding.roman.to, line.size()) << line;
}

std::string programOf(std::string written) {
    for (std::size_t at = 0; (at = written.find(" / ", at)) != std::string::npos;) written.replace(at, 3, "\r\n");
    return written;
}

bool offers(const Finding& finding, const std::string& text) {
    if (text == "-") return finding.corrections.empty();
    return std::any_of(finding.corrections.begin(), finding.corrections.end(), [&](const Correction& correction) {
        const std::size_t plus = text.find('+');  // after the line, where that matters
        if (plus == std::string::npos) return correction.text == text;
        return (plus == 0 || text.substr(0, plus) == std::to_string(correction.line)) &&
               correction.text.ends_with(text.substr(plus + 1));
    });
}

// One mistake is one finding.
TEST(Findings, nameTheMistakesOfBeginners) {
    for (const Row& row : rowsOf("guide/mistakes.cases")) {
        const std::vector<Finding> findings = Guide().check(programOf(row[0]));
        const bool right = findings.size() == 1 && std::to_string(findings[0].line) == row[1] &&
                           findings[0].kind == row[2] && offers(findings[0], row[3]);
        EXPECT_TRUE(right) << row << "\n" << said(programOf(row[0]));
    }
}

TEST(Findings, AreToldInEnglishToo) {
    for (const Check& check : checks()) EXPECT_FALSE(kindInEnglish(check.kind).empty()) << check.kind;
}

}  // namespace
}  // namespace tolvan::guide
