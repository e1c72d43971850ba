// What follows the runtime in the file of an executable, and where that begins.
#include "host/RecordingConsole.h"
#include "host/TemporaryFolder.h"
#include "runtime/host/ConsoleObject.h"
#include "runtime/host/RunModule.h"
#include "shell/Payload.h"
#include "shell/Scrambling.h"
#include "stub/ExecutableExtent.h"
#include "support/Examples.h"
#include "support/Folders.h"
#include "translator/ProgramText.h"
#include "translator/Translator.h"

#include <gtest/gtest.h>
#include <random>
#include <sstream>

namespace tolvan {
namespace {

std::string moduleOf(std::string_view roman) {
    return Translator().Compile(ProgramText(roman));
}

TEST(Scrambling, AddsTheKeyOfTheCharactersPlace) {
    const ScramblingKey key = {1, 5, 2, 3, 4, 6, 7, 8, 9, 10, 11, 12};
    EXPECT_EQ(scramble("\xFE", key), "\x05");  // beyond 255: 254 + 5 + 2 - 256
    // The 2nd entry first, the 12th for the 11th character, then the 1st, and round again.
    EXPECT_EQ(scramble(std::string(13, '\0'), key), "\x07\x04\x05\x06\x08\x09\x0A\x0B\x0C\x0D\x0E\x03\x07");
}

TEST(Payload, IsMarkerCaptionAndModule) {
    const std::string module = moduleOf("dAkhav 1");
    EXPECT_EQ(unscramble(buildPayload({"mAze prAyojan", module})),
              "Checksum OK. Continue with execution.\r\nmAze prAyojan\r\n" + module);
    EXPECT_EQ(unscramble(buildPayload({"", module})), "Checksum OK. Continue with execution.\r\n\r\n" + module);
    EXPECT_EQ(unscramble(buildPayload({"two\r\nlines", module})),
              "Checksum OK. Continue with execution.\r\ntwo\r\n" + module);
}

// The main routine ends the module, so every cut is seen.
TEST(Payload, RefusesEveryCutAndChangedPolls) {
    const std::string bytes = buildPayload({"nAv", moduleOf("dAkhav 1\r\ndAkhav 2")});
    for (std::size_t size = 0; size + 2 < bytes.size(); ++size)
        EXPECT_FALSE(readPayload(bytes.substr(0, size))) << size;
    std::string unpolled = unscramble(bytes);
    unpolled.replace(unpolled.rfind("err.raise"), 1, "E");
    EXPECT_FALSE(readPayload(scramble(unpolled)));
    EXPECT_FALSE(readPayload(bytes.substr(1)));
    EXPECT_FALSE(readPayload("x" + bytes));
}

// Ten thousand damages: what is still taken for a program is loaded and run without harm.
TEST(Payload, AnyDamageIsRefusedOrRuns) {
    const std::string bytes = buildPayload({"nAv", moduleOf("k = 1\r\n"
                                                            "jovar k lahAn 5 kar\r\n"
                                                            "dAkhav k\r\n"
                                                            "k = k + 1\r\n"
                                                            "saMpav jovar\r\n"
                                                            "ghe *nAv:* n")});
    std::mt19937 random(42);
    script::Executor executor;
    executor.setTimeout(20);
    int refused = 0;
    int run = 0;
    for (int i = 0; i < 10000; ++i) {
        std::string damaged = bytes;
        for (auto count = 1 + random() % 3; count > 0; --count)
            damaged[random() % damaged.size()] = static_cast<char>(random());
        if (random() % 8 == 0) damaged.resize(random() % damaged.size());
        const auto payload = readPayload(damaged);
        if (!payload) {
            ++refused;
            continue;
        }
        RecordingConsole console;
        console.answers = {"a"};
        ConsoleObject parentForm(console);
        runModule(executor, parentForm, payload->module);
        ++run;
    }
    EXPECT_GT(refused, 1000);
    EXPECT_GT(run, 1000);
}

std::optional<std::uint64_t> extentOf(const std::string& bytes) {
    std::istringstream file(bytes);
    return executableExtent(file);
}

TEST(ExecutableExtent, OfTheRuntimeIsItsSizeWhateverStandsBehindIt) {
    const std::string runtime = contentOf(programFolder() + "/engine.dat");
    ASSERT_GT(runtime.size(), 1000U);
    EXPECT_EQ(extentOf(runtime), runtime.size());
    EXPECT_EQ(extentOf(runtime + "payload"), runtime.size());
    EXPECT_EQ(extentOf(runtime + runtime), runtime.size());
}

#ifndef _WIN32  // with the tools of this system
// Installed programs are stripped.
TEST(ExecutableExtent, OfAStrippedRuntimeIsItsSize) {
    const TemporaryFolder folder;
    const std::string stripped = folder / "stripped";
    ASSERT_EQ(std::system(("strip -o " + stripped + " " + programFolder() + "/engine.dat").c_str()), 0);
    EXPECT_EQ(extentOf(contentOf(stripped) + "payload"), std::filesystem::file_size(stripped));
}
#endif

// A program of Windows in small: its headers, a section that is loaded, one that is not kept, and, unless it is
// stripped, a symbol and its name.
std::string windowsProgram(bool isStripped) {
    std::string bytes(0x400, '\0');
    const auto put = [&](std::size_t place, std::uint32_t number, std::size_t size = 4) {
        for (std::size_t i = 0; i < size; ++i) bytes[place + i] = static_cast<char>(number >> (8 * i));
    };
    bytes.replace(0, 2, "MZ");
    put(60, 0x80);
    bytes.replace(0x80, 2, "PE");
    put(0x86, 2, 2);     // sections
    put(0x94, 0xF0, 2);  // the size of what stands before their table
    const std::size_t table = 0x80 + 24 + 0xF0;
    const std::uint32_t sections[2][4] = {{0x1F0, 0x200, 0x400, 0x60000020}, {0x80, 0x200, 0x600, 0x42000040}};
    for (std::size_t i = 0; i < 2; ++i) {
        constexpr std::size_t fields[] = {8, 16, 20, 36};
        for (std::size_t k = 0; k < 4; ++k) put(table + 40 * i + fields[k], sections[i][k]);
    }
    bytes.append(0x200, 'c').append(0x200, 'd');
    if (isStripped) return bytes;
    put(0x8C, 0x800);
    put(0x90, 1);
    return bytes.append(18, 's').append("\x0A\0\0\0name_\0", 10);
}

TEST(ExecutableExtent, OfAProgramOfWindows) {
    for (const bool isStripped : {true, false}) {
        const std::string program = windowsProgram(isStripped);
        EXPECT_EQ(extentOf(program), program.size());
        EXPECT_EQ(extentOf(program + "payload"), program.size());
        EXPECT_EQ(extentOf(program.substr(0, program.size() - 1)), std::nullopt);
        std::istringstream file(program);
        EXPECT_EQ(systemOfProgram(file), ProgramSystem::Windows);
        const auto parts = loadedParts(file);
        ASSERT_TRUE(parts && parts->size() == 1);
        EXPECT_EQ(parts->front().start, 0x400U);
        EXPECT_EQ(parts->front().size, 0x1F0U);
    }
}

TEST(ExecutableExtent, RefusesWhatIsNoProgram) {
    for (const std::string& bytes : {std::string(),
                                     std::string("\x7f"
                                                 "ELF"),
                                     std::string(10000, 'x')})
        EXPECT_EQ(extentOf(bytes), std::nullopt);
    const std::string runtime = contentOf(programFolder() + "/engine.dat");
    EXPECT_EQ(extentOf(runtime.substr(0, runtime.size() - 1)), std::nullopt);
    EXPECT_EQ(extentOf(runtime.substr(0, 100)), std::nullopt);
}

TEST(ExecutableExtent, SurvivesDamagedHeaders) {
    std::mt19937 random(7);
    for (const std::string& head : {contentOf(programFolder() + "/engine.dat").substr(0, 4096), windowsProgram(false)})
        for (int i = 0; i < 2000; ++i) {
            std::string damaged = head;
            for (int k = 0; k < 3; ++k) damaged[4 + random() % 1000] = static_cast<char>(random());
            extentOf(damaged);
        }
}

}  // namespace
}  // namespace tolvan
