// Programs with library words, from Roman text to what they print.
#include "host/RecordingConsole.h"
#include "host/TemporaryFolder.h"
#include "library/AddLibrary.h"
#include "library/LibraryWords.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "runtime/host/ConsoleObject.h"
#include "runtime/host/RunModule.h"
#include "support/Cases.h"
#include "translator/ProgramText.h"
#include "translator/Translator.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

const std::string cases = "library/words.cases";

class LibraryTest : public testing::Test {
  protected:
    LibraryTest() { object.setFiles(ReachableFiles(folder.path())); }

    const TemporaryFolder folder;
    RecordingConsole console;
    ConsoleObject object{console};

    // The last line that the program prints, or its error.
    std::string run(const std::string& roman) {
        script::Executor executor;
        console.calls.clear();
        console.answers = {"typed"};
        object.scriptLibrary().simulateTime(0);
        const script::ErrorReport report = runModule(executor, object, runnableModule(ProgramText(roman)));
        if (report.number != 0) return "error " + std::to_string(report.number);
        return console.calls.empty() ? "nothing" : console.calls.back().substr(std::string("print ").size());
    }
};

TEST_F(LibraryTest, wordsGiveTheirValues) {
    for (const char* title : {"What a word gives", "Texts by letters"})
        for (const Row& row : rowsOf(cases, title)) EXPECT_EQ(run("dAkhav " + row.written[0]), row[1]) << row;
}

// A search in quadratic time would take minutes.
TEST_F(LibraryTest, longTextsTakeNoTime) {
    for (const Row& row : rowsOf(cases, "In texts that are very long"))
        EXPECT_EQ(
            run("A = #\"#ka#\"#\r\ni sAThI 1 te 19 paryaMt\r\nA = A & A\r\npuDhachA i\r\ndAkhav " + row.written[0]),
            row[1])
            << row;
}

TEST_F(LibraryTest, aWordThatTheProgramGivesAMeaningIsItsOwn) {
    const std::string shown = "bAkI";  // in the rows, for any word
    for (const LibraryWord& word : libraryWords()) {
        for (const Row& row : rowsOf(cases, "Whose word it is")) {
            std::string program = row[0];
            for (std::size_t at = 0; (at = program.find(shown, at)) != std::string::npos; at += word.roman.size())
                program.replace(at, shown.size(), word.roman);
            EXPECT_EQ(run(program), row[1]) << row << word.roman;
        }
    }
    EXPECT_EQ(run("x = #\"2\"#\r\ny = javaLachA(x)\r\ndAkhav x & 1"), "{2}1") << "a word leaves what it is given";
    EXPECT_EQ(run("dAkhav bAkI(7, 4)\r\nupaprAyojan k(x)\r\nk = x\r\nupaprAyojan saMpav"), "3");
}

TEST_F(LibraryTest, everyWordWorksAsShown) {
    for (const LibraryWord& word : libraryWords()) {
        const std::string name(word.roman);
        EXPECT_EQ(run("dAkhav 1\r\n" + std::string(word.kind == LibraryWord::Kind::Command ? "" : "x = ") +
                      std::string(word.usage)),
                  "1")
            << name;
        EXPECT_EQ(findLibraryWord(ReplaceRomanChars(name)), &word);
    }
}

TEST_F(LibraryTest, anErrorInAWordIsOneOfTheLineThatUsesIt) {
    script::Executor executor;
    const auto lineOf = [&](const char* roman) {
        return runModule(executor, object, runnableModule(ProgramText(roman))).line;
    };
    EXPECT_EQ(lineOf("dAkhav 1\r\ndAkhav phAsA(0)\r\ndAkhav bAkI(1, 1)"), 5);
    EXPECT_EQ(lineOf("dAkhav k(2)\r\nupaprAyojan k(x)\r\ndAkhav bAkI(x, 0)\r\nupaprAyojan saMpav"), 10);
}

TEST_F(LibraryTest, aProgramWithoutThemIsLeftAsItIs) {
    const std::string program = "dAkhav 1\r\nbAkI = 2\r\n";
    EXPECT_EQ(runnableModule(ProgramText(program)), Translator().Compile(ProgramText(program)));
}

TEST_F(LibraryTest, randomNumbersRepeatWithASeedOnly) {
    const std::string program = "i sAThI 1 te 20 paryaMt\r\ns = s & phAsA(6)\r\npuDhachA i\r\ndAkhav s\r\n";
    EXPECT_NE(run(program), run(program));
    object.scriptLibrary().setSeed(7);
    const std::string numbers = run(program);
    EXPECT_EQ(run(program), numbers);
    for (const char face : {'1', '2', '3', '4', '5', '6'}) EXPECT_NE(numbers.find(face), std::string::npos) << numbers;
    EXPECT_EQ(numbers.find_first_not_of("123456"), std::string::npos) << numbers;
}

}  // namespace
}  // namespace tolvan
