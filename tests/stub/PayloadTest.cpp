#include "host/RecordingConsole.h"
#include "runtime/host/ConsoleObject.h"
#include "runtime/host/RunModule.h"
#include "shell/Payload.h"
#include "shell/Scrambling.h"
#include "translator/ProgramText.h"
#include "translator/Translator.h"

#include <gtest/gtest.h>
#include <random>

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

TEST(Scrambling, IsUndone) {
    std::string all;
    for (int i = 0; i < 3000; ++i) all += static_cast<char>(i * 7);
    EXPECT_EQ(unscramble(scramble(all)), all);
    EXPECT_NE(scramble(all), all);
    EXPECT_EQ(scramble(""), "");
}

TEST(Payload, IsMarkerCaptionAndModule) {
    const std::string module = moduleOf("dAkhav 1");
    EXPECT_EQ(unscramble(buildPayload({"mAze prAyojan", module})),
              "Checksum OK. Continue with execution.\r\nmAze prAyojan\r\n" + module);
    EXPECT_EQ(unscramble(buildPayload({"", module})), "Checksum OK. Continue with execution.\r\n\r\n" + module);
    EXPECT_EQ(unscramble(buildPayload({"two\r\nlines", module})),
              "Checksum OK. Continue with execution.\r\ntwo\r\n" + module);
}

TEST(Payload, ReadsWhatWasBuilt) {
    for (const char* roman : {"", "dAkhav 1", "kArya vADh\r\ndAkhav 2\r\nsaMpav kArya\r\n", "jar tar nAhItar"}) {
        const auto payload = readPayload(buildPayload({"nAv", moduleOf(roman)}));
        ASSERT_TRUE(payload) << roman;
        EXPECT_EQ(payload->caption, "nAv");
        EXPECT_EQ(payload->module, moduleOf(roman));
    }
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

}  // namespace
}  // namespace tolvan
