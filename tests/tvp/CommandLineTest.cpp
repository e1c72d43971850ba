#include "platform/encoding/Deva.h"
#include "support/Cases.h"
#include "tvp/TvpProcess.h"

#include <gmock/gmock.h>
#include <iterator>
#include <random>
#include <sstream>

namespace tolvan {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;

#if defined(__SANITIZE_ADDRESS__)
constexpr std::size_t largeFile = std::size_t{10} << 20;
#else
constexpr std::size_t largeFile = std::size_t{63} << 20;
#endif

const std::string cases = "tvp/commands.cases";

std::string deva(std::string_view text) {
    return std::string(text);
}

TEST(CommandLine, AnswersBadUseInEnglishWithStatus2) {
    TvpProcess tvp;
    tvp.folder().write("empty.tvp", "");
    tvp.folder().write("caption.tvp", "caption");
    std::filesystem::create_directory(tvp.folder() / "folder.tvp");
    for (const Row& row : rowsOf(cases, "Bad use and the message")) {
        std::istringstream words(row[0]);
        const TvpResult result = tvp.run({std::istream_iterator<std::string>(words), {}});
        EXPECT_EQ(result.status, 2) << row;
        std::string message = row[1];
#ifdef _WIN32  // which does not tell the two apart
        if (const auto at = message.find("Not a directory"); at != std::string::npos)
            message.replace(at, std::string::npos, "No such file or directory");
#endif
        EXPECT_THAT(result.errors, StartsWith("tvp: " + message));
        EXPECT_EQ(result.output, "");
    }
}

TEST(CommandLine, FindsFilesInTheSpellingOfOtherSystems) {
    TvpProcess tvp;
    std::filesystem::create_directory(tvp.folder() / "Class");
    tvp.folder().write("Class/Hello.tvp", "caption\r\n");
    for (const char* name : {"Class/Hello.tvp", "class\\HELLO.TVP", ".\\Class/hello.tvp"})
        EXPECT_EQ(tvp.run({"module", name}).status, 0) << name;
}

TEST(CommandLine, LintsAProgram) {
    TvpProcess tvp;
    const TvpResult wrong = tvp.runProgram({"lint"}, "korA\r\nvay = 5\r\n  dakhav vay");
    EXPECT_EQ(wrong.output, "3:3-8 spelling दखव (dakhav) हा शब्द माहीत नाही. दाखव (dAkhav) असे लिहा.\n");
    EXPECT_EQ(wrong.status, 1);
    EXPECT_EQ(tvp.runProgram({"lint"}, "korA").output, "");
    EXPECT_EQ(tvp.runProgram({"lint"}, "korA").status, 0);
}

TEST(CommandLine, ShowsEveryStageOfAProgram) {
    TvpProcess tvp;
    const std::string roman = "jar A > 5 tar\r\ndAkhav #\"#ho {#}-#5\"#\r\nsaMpav jar";
    EXPECT_EQ(tvp.run({"convert"}, "namaskAr\njag\r\n\nA").output, deva("nmSkar\njg\r\n\nAa"_deva));
    EXPECT_EQ(tvp.run({"mark"}, "A(-5)\nb").output, "A#(-#5#)#\nb");
    EXPECT_EQ(tvp.runProgram({"program"}, "dAkhav #\"#namaskAr#\"# & -5").output,
              deva("daov {\"}nmSkar{\"} {&} {-}5\n"_deva));
    EXPECT_EQ(tvp.runProgram({"module"}, "A = -5").output,
              "Sub Main()\r\nif not parentform.checkforevents then err.raise 1001\r\naaaaaaaaab = -5\r\nEnd Sub\r\n");
    EXPECT_EQ(tvp.runProgram({"format"}, "jar A tar\r\ndAkhav A\r\nsaMpav jar").output,
              "caption\r\njar A tar\r\n      dAkhav A\r\nsaMpav jar\r\n");
}

TEST(CommandLine, SpeaksUnicode) {
    TvpProcess tvp;
    EXPECT_EQ(tvp.run({"unicode"}, deva("nmSkar\r\nR‡\n#"_deva)).output, "नमस्कार\r\nर्‡\nइ");
    EXPECT_EQ(tvp.run({"roman"}, "नमस्कार, जग!\r\nHello\n\xFF").output, "namaskAra, jaga!\r\nHello\n\xFF");
    EXPECT_EQ(tvp.run({"convert", "--unicode"}, "namaskAr").output, "नमस्कार");
    EXPECT_EQ(tvp.run({"mark", "--unicode"}, "A(\xE9)").output, "A#(#é#)#");
    const std::string roman =
        "ghe nAv\r\ndAkhav #\"#namaskAr, #\xE9 \"# + nAv\r\ndAkhav nAv + #\"\\\"#\r\n\r\nA = 1 bhAgile 0";
    EXPECT_EQ(tvp.runProgram({"program", "--unicode"}, roman).output,
              "घे नाव\nदाखव \"नमस्कार, é \" + नाव\nदाखव नाव + \"\\\"\n\nआ = १ भागिले ०\n");
    const TvpResult result = tvp.runProgram({"run", "--unicode"}, roman, "ऋषी-५\r\n");
    EXPECT_EQ(result.output, "नमस्कार, é ऋषी-५\nऋषी-५\\\n");
    EXPECT_THAT(result.errors,
                StartsWith("ओळ 5: शुन्यने भगाकार तोलवन बेसिकला करता येत नाही: आ = १ भागिले ०\nभागाकारात भाजक शून्य आहे."));
    EXPECT_EQ(result.status, 1);
}

TEST(CommandLine, ReportsErrorsWithNumberAndScriptLine) {
    for (const Row& row : rowsOf(cases, "Programs, what they print, and the error they end with")) {
        TvpProcess tvp;
        const TvpResult result = tvp.runProgram({"run"}, row[0]);
        EXPECT_EQ(result.output, row[1]) << row;
        EXPECT_EQ(result.errors, row[2]) << row;
        EXPECT_EQ(result.status, row[2].empty() ? 0 : 1) << row;
    }
    for (const char* memory : {"--memory=0", "--memory=300", "--memory=9000"})
        EXPECT_EQ(TvpProcess().runProgram({"run", memory}, "dAkhav 1").errors, "error 7 line 0\n") << memory;
}

TEST(CommandLine, CountsAllLinesAgainstTheLimitOfOutput) {
    const std::string loop = "k sAThI 1 te 500 paryaMt\r\n";
    EXPECT_EQ(TvpProcess().runProgram({"run", "--output=100"}, loop + "dAkhav 12345\r\npuDhachA k").status, 3);
    const std::string writes = "ughaD #\"f\"#, lihiNyAsAThI\r\n" + loop + "lihI 12345\r\npuDhachA k";
    EXPECT_EQ(TvpProcess().runProgram({"run", "--output=5K"}, writes).errors, "error 61 line 7\n");
}

TEST(CommandLine, RunsScripts) {
    TvpProcess tvp;
    tvp.folder().write("main.vbs", "PrintString 1\r\nSub Main()\r\nPrintString \" 2 \"\r\nEnd Sub\r\n");
    tvp.folder().write("plain.vbs", "ParentForm.PrintString \"{-}5\" * 2\n");
    tvp.folder().write("wrong.vbs", "a = 1\nif then\n");
    EXPECT_EQ(tvp.run({"script", "main.vbs"}).output, "1\n2\n");
    EXPECT_EQ(tvp.run({"script", "plain.vbs"}).output, "{-}10\n");
    const TvpResult wrong = tvp.run({"script", "wrong.vbs"});
    EXPECT_EQ(wrong.status, 1);
    EXPECT_THAT(wrong.errors, MatchesRegex("error 10.. line 2\n"));
}

TEST(CommandLine, TakesAnyBytes) {
    std::mt19937 random(20'07);
    for (int round = 0; round < 8; ++round) {
        std::string bytes(5000, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random() % (round < 4 ? 256 : 128));
        TvpProcess tvp;
        tvp.folder().write("bytes.tvp", bytes);
        for (const char* command : {"convert", "mark", "program", "module", "format"})
            EXPECT_EQ(tvp.run({command, "bytes.tvp"}).status, 0) << command;
        for (const char* command : {"run", "script"})
            EXPECT_THAT(tvp.run({command, "bytes.tvp"}).errors, MatchesRegex("error .+ line .+\n")) << command;
    }
}

TEST(CommandLine, TakesOrdinaryFilesOfUpTo64MiB) {
    TvpProcess tvp;
    tvp.folder().write("sparse.tvp", "caption\r\n");
    std::filesystem::resize_file(tvp.folder() / "sparse.tvp", (64U << 20) + 1);
    EXPECT_THAT(tvp.run({"run", "sparse.tvp"}).errors, HasSubstr("File too large"));
    std::string text = "caption\r\n";
    while (text.size() < largeFile) text += "dAkhav #\"#namaskAr jag\"# suchanA oL\r\n";
    tvp.folder().write("large.tvp", text);
    const std::size_t lines = text.size() / 37;
    for (const char* command : {"convert", "module"}) {
        const TvpResult result = tvp.run({command, "large.tvp"});
        EXPECT_EQ(result.status, 0) << command;
        EXPECT_GT(result.output.size(), lines * 20) << command;
    }
    std::string oneLine(largeFile / 10, '7');
    tvp.folder().write("line.txt", oneLine);
    EXPECT_EQ(tvp.run({"convert", "line.txt"}).output.size(), oneLine.size());
}

}  // namespace
}  // namespace tolvan
