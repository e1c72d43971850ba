#include "guide/HelpTopics.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tolvan::guide {
namespace {

constexpr std::string_view wrongWord = "shabd chukalA";
constexpr std::string_view wrongPair = "joDI chukalI";
constexpr std::string_view wrongText = "majakUr chukalA";
constexpr std::string_view wrongName = "nAv chukale";
constexpr std::string_view wrongDrawing = "chitrAche vAkya chukale";
constexpr std::string_view wrongValue = "kiMmat chukalI";

constexpr auto table = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"spelling", wrongWord},        {"unknown-command", wrongWord}, {"unclosed", wrongPair},
    {"unopened", wrongPair},        {"wrong-end", wrongPair},       {"missing-word", wrongPair},
    {"open-latin", wrongText},      {"open-text", wrongText},       {"word-in-text", wrongText},
    {"never-set", wrongName},       {"only-in-main", wrongName},    {"same-name", wrongName},
    {"brackets", wrongDrawing},     {"order", wrongDrawing},        {"ending", wrongDrawing},
    {"not-equal", wrongValue},      {"values", wrongValue},         {"syntax", wrongValue},
    {"text-as-number", wrongValue}, {failedRun, "chukAMche nirop"},
});

}  // namespace

std::string_view helpTopic(std::string_view kind) {
    const auto* found = std::find_if(table.begin(), table.end(), [&](const auto& row) { return row.first == kind; });
    return found == table.end() ? std::string_view() : found->second;
}

}  // namespace tolvan::guide
