// Whole programs: the module's layout, functions, names, programs that were made to break it, and programs in Unicode.
#include "platform/encoding/Deva.h"
#include "platform/richtext/InternalText.h"
#include "support/Cases.h"
#include "support/Folders.h"
#include "translator/Keywords.h"
#include "translator/Modules.h"
#include "translator/ProgramFile.h"
#include "translator/ProgramText.h"
#include "translator/Translator.h"
#include "translator/UnicodeProgram.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <sstream>

namespace tolvan {
namespace {

// Programs in internal text form, and programs as they are typed.
TEST(Compile, Modules) {
    Translator translator;
    for (const Section& section : sectionsOf("translator/modules.cases"))
        EXPECT_EQ(translator.Compile(styledText(section.parts().at(0))), moduleText(section.parts("\n").at(1)))
            << section.title;
    for (const Section& section : sectionsOf("translator/programs.cases"))
        EXPECT_EQ(translator.Compile(ProgramText(section.parts().at(0))), moduleText(section.parts("\n").at(1)))
            << section.title;
}

TEST(Compile, EveryWordOfTheLanguageAmongOtherWords) {
    const std::vector<Row> rows = rowsOf("translator/words.cases");
    for (const Row& row : rows)
        EXPECT_EQ(Translator().TranslateLine(ProgramText("vay " + row[0] + "(" + row[0] + "q 7")),
                  moduleText(" @1 " + row[1] + "(@2 7  "))
            << row;
    std::set<std::string_view> words;
    for (const Keyword& keyword : keywords()) words.insert(keyword.word);
    EXPECT_EQ(words.size(), rows.size()) << "each word has a row here";
}

TEST(Compile, BareLineEndsStayInTheirLine) {
    EXPECT_EQ(Translator().Compile(styledText("{1\n2\r}3{\r\r\n}4")),
              moduleText("Sub Main()\n! 1") + "\n2\r3\r" + moduleText("\n! 4\nEnd Sub\n"));
}

// Each line of the module with the line of the program that it came from.
TEST(Compile, SaysWhereTheLinesOfTheModuleCameFrom) {
    using Kind = ModuleLines::Kind;
    const struct {
        int program;
        Kind kind;
    } expected[] = {
        {0, Kind::Frame},  // Sub Main()
        {2, Kind::Poll},         {2, Kind::Statement}, {5, Kind::Poll},      {5, Kind::Statement},
        {5, Kind::Statement},  // with a line end of its own
        {5, Kind::Frame},        {5, Kind::Frame},     {5, Kind::Frame},     {5, Kind::Frame},  // End Sub
        {7, Kind::FunctionHead}, {8, Kind::Poll},      {8, Kind::Statement}, {10, Kind::Poll},
        {10, Kind::Statement},
    };
    Translator translator;
    const std::string module = translator.Compile(
        styledText("\r\na\r\n\r\n  \r\nb{\n1}\r\n\r\n%pàayaejn q(a)\r\na\r\n\r\n%pàayaejn s<pv"_deva));
    const ModuleLines& lines = translator.moduleLines();
    ASSERT_EQ(lines.count(), static_cast<int>(std::size(expected))) << module;
    for (int i = 1; i <= lines.count(); ++i) {
        EXPECT_EQ(lines.programLine(i), expected[i - 1].program) << i;
        EXPECT_EQ(lines.kind(i), expected[i - 1].kind) << i;
    }
    EXPECT_EQ(lines.programLine(0) + lines.programLine(-1) + lines.programLine(16), 0);
    const int scriptLines[] = {0, 0, 3, 0, 0, 5, 0, 11, 13, 0, 15, 0};
    for (int i = 0; i < static_cast<int>(std::size(scriptLines)); ++i)
        EXPECT_EQ(lines.scriptLine(i), scriptLines[i]) << i;
    EXPECT_EQ(ModuleLines().count() + ModuleLines().programLine(1) + ModuleLines().scriptLine(1), 0);
}

TEST(Compile, NamesStartAgainWithEachProgram) {
    Translator translator;
    translator.Compile(styledText("a b c"));
    EXPECT_EQ(translator.Compile(styledText("c \r\nb \r\nc ")), moduleText("Sub Main()\n! @1\n! @2\n! @1\nEnd Sub\n"));
    EXPECT_EQ(translator.MapIdentifier("b"), moduleText("@2")) << "the names stay until the next program";
}

TEST(Compile, ReportsEachLine) {
    std::vector<std::size_t> lines;
    std::size_t characters = 0;
    Translator().Compile(styledText("a\r\n\r\nb"), [&](const CompileProgress& progress) {
        lines.push_back(progress.lines);
        characters = progress.characters;
    });
    EXPECT_EQ(lines, (std::vector<std::size_t>{1, 2, 3}));
    EXPECT_EQ(characters, 7U);
}

// As the script engine counts them.
int lineCount(std::string_view text) {
    int count = 1;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == '\n' || (text[i] == '\r' && text.substr(i + 1, 1) != "\n")) ++count;
    return count;
}

StyledText randomText(std::mt19937& random, std::size_t size) {
    StyledText text;
    for (std::size_t i = 0; i < size; ++i) {
        const char any = static_cast<char>(random());
        const char c = random() % 8 == 0 ? "\r\n \""[random() % 4] : any;
        text.append(std::string_view(&c, 1), static_cast<Font>(random() % 3));
    }
    return text;
}

TEST(Compile, AnyBytesGiveAModule) {
    std::mt19937 random(1);
    Translator translator;
    for (int i = 0; i < 200; ++i) {
        const StyledText program = randomText(random, random() % 2000);
        const std::string module = translator.Compile(program);
        EXPECT_TRUE(module.starts_with("Sub Main()\r\n") && module.ends_with("\r\nEnd Sub\r\n"));
        EXPECT_EQ(module, translator.Compile(program));
        EXPECT_EQ(translator.moduleLines().count(), lineCount(module));
    }
}

std::string repeated(std::string_view text, std::size_t count) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) all += text;
    return all;
}

TEST(Compile, LoopsNestedByTheThousandInOneLine) {
    constexpr std::size_t depth = 3000;
    NameCounter names;
    std::string statement;
    for (std::size_t i = 0; i < depth; ++i) statement.append("for ").append(names.next()).append(" =    to ");
    statement.append("  ").append(names.next());
    EXPECT_EQ(Translator().Compile(styledText(repeated("te ", depth) + "saQI")),
              moduleText("Sub Main()\n! ") + statement + moduleText("\nEnd Sub\n"));
}

// The script of such lines would be of the square of their length: gigabytes here.
TEST(Compile, LinesMadeToMultiplyComeToAnEnd) {
    const std::string loops = repeated("te ", 500'000) + "saQI";
    const std::string startPoints =
        "re\" Aao py¡t "_deva.data() + repeated("x ", 100'000) + "r<gacI " + repeated("pasunx ", 100'000) + "pasun ";
    const std::string removals = repeated("py", 300'000) + " te saQI te " + repeated("\xA1t", 300'000);
    const std::string quotes = "{\"}" + repeated("\"", 500'000) + "{\"}";
    for (const std::string& line : {loops, startPoints, removals, quotes}) {
        const std::string module = Translator().Compile(styledText(line + "\r\nkaera"));
        EXPECT_TRUE(module.ends_with(moduleText("\n! parentform.ClearScreen\nEnd Sub\n")));
        EXPECT_LT(module.size(), std::size_t{1} << 30);
    }
}

TEST(UnicodeProgram, LinesBecomeRoman) {
    struct Row {
        std::string_view unicode;
        std::string_view roman;
        std::u32string_view leftOut = {};
    };
    for (const Row& row : std::initializer_list<Row>{
             {"दाखव \"नमस्कार\"", "dAkhav #\"#namaskAra#\"#"},
             {"दाखव \"Hello, World 5\" & अ", "dAkhav #\"Hello, World 5\"# & a"},
             {"जर गुण > 5 तर\nदाखव “हो” – १", "jar guNa > 5 tar\r\ndAkhav #\"#ho#\"# - 1"},
             {"दाखव \"वय 5\"", "dAkhav #\"#vaya #5\"#"},
             {"कखे x, y = {१}", "kakhe #x, y = {#1#}#"},
             {"A line of English\u2028\"stays\" #", "A line of English\r\n\"stays\" #"},
             {"अ 😀 ব\r😀 #", "a  \r\n #", U"😀ব"},
             {"अं॰ ।#é", "aM #\xE9#", U"॰।#"},
             {"\u200Bक्\u200Dष ्", "kqSha ", U"\u200B\u094D"},
             {"", ""},
         }) {
        const RomanProgram program = romanOfUnicodeProgram(row.unicode);
        EXPECT_EQ(program.roman, row.roman) << row.unicode;
        EXPECT_EQ(program.leftOut, row.leftOut) << row.unicode;
    }
}

// Through Unicode and back a program is shown and runs as before.
TEST(UnicodeProgram, EveryExampleComesBack) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(sourceFolder() + "/examples")) {
        if (entry.path().extension() != ".tvp") continue;
        std::ostringstream bytes;
        bytes << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        const std::string roman = readProgramFile(bytes.str()).roman;
        const std::string unicode = unicodeOfProgram(roman);
        const RomanProgram back = romanOfUnicodeProgram(unicode);
        EXPECT_EQ(unicodeOfProgram(back.roman), unicode) << entry;
        EXPECT_EQ(back.leftOut, U"") << entry;
        // The font of a blank in a text is not told by Unicode.
        const auto module = [](std::string_view text) {
            std::string script = Translator().Compile(ProgramText(text));
            std::erase_if(script, [](char c) { return c == '{' || c == '}'; });
            return script;
        };
        EXPECT_EQ(module(back.roman), module(roman)) << entry;
        ++count;
    }
    EXPECT_GT(count, 5);
}

TEST(ProgramFile, LineEndsOfEveryForm) {
    for (const char* const bytes : {"a\nb\n\nc\rd\n", "a\r\nb\r\n\r\nc\rd\r\n", "a\r\r\nb\r\r\n\r\r\nc\rd\r\r\n"}) {
        EXPECT_EQ(readProgramFile(bytes).caption, "a");
        EXPECT_EQ(readProgramFile(bytes).roman, "b\r\n\r\nc\rd\r\n");
    }
    EXPECT_EQ(readProgramFile("a\r\r\nb\r\r\nc\r\n").roman, "b\r\r\nc\r\n") << "not the same ends everywhere";
}

TEST(UnicodeProgram, FilesOfEveryForm) {
    const std::string utf8 = "नाव\nदाखव १\n";
    std::string little = "\xFF\xFE";
    std::string big = "\xFE\xFF";
    for (const char16_t unit : std::u16string(u"नाव\nदाखव १\n")) {
        little.append({static_cast<char>(unit), static_cast<char>(unit >> 8)});
        big.append({static_cast<char>(unit >> 8), static_cast<char>(unit)});
    }
    for (const std::string& bytes : {utf8, "\xEF\xBB\xBF" + utf8, little, big}) {
        const ProgramFile file = readProgramFile(bytes);
        EXPECT_TRUE(file.isUnicode);
        EXPECT_EQ(file.caption, "nAva");
        EXPECT_EQ(file.roman, "dAkhav 1\r\n");
    }
    EXPECT_EQ(readProgramFile("अ = १\nदाखव अ").roman, "a = 1\r\ndAkhav a") << "without a caption";
    EXPECT_FALSE(readProgramFile("caf\xC3\xA9\nkar\n").isUnicode) << "8-bit text may be UTF-8 by chance";
    EXPECT_FALSE(readProgramFile("a\n\xE0\xA4\x95 \xE0\n").isUnicode);
}

}  // namespace
}  // namespace tolvan
