#include "platform/encoding/Deva.h"
#include "translator/MessageTable.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <set>

namespace tolvan {
namespace {

TEST(MessageTable, EveryMessageIsFoundByItsNumber) {
    std::set<std::int32_t> numbers;
    for (const Message& message : messageTable()) {
        EXPECT_TRUE(numbers.insert(message.number).second) << message.number;
        EXPECT_EQ(findMessage(message.number), message.text);
        EXPECT_TRUE(message.text.starts_with("\\f1")) << message.number;
    }
    EXPECT_EQ(numbers.size(), 72U);
}

TEST(MessageTable, NumbersOfAnyWidthFindTheSame) {
    EXPECT_EQ(findMessage(std::int16_t{1001}), findMessage(std::int32_t{1001}));
    EXPECT_EQ(findMessage(31001), findMessage(1001));
    EXPECT_EQ(findMessage(1023), findMessage(1010));
    EXPECT_EQ(findMessage(static_cast<std::int32_t>(0x80040001)), findMessage(-2147221503));
}

TEST(MessageTable, Bytes) {
    EXPECT_EQ(findMessage(7), "\\f1purezI Smri[ka %plB\" nahI");
    EXPECT_EQ(findMessage(74), "\\f1\xCAs\x9Dya ifSk vr nav bdlta yet nahI");
    EXPECT_EQ(findMessage(1008), "\\f1yewe \\f0{ \\f1Aapei]t Aahe");
    EXPECT_EQ(findMessage(32766), "\\f1ore");
    EXPECT_EQ(findMessage(-2147221503), "\\f1re\" Aaot yet nahI, \xB3\x85pya vaKy tpasun paha");
}

TEST(MessageTable, NothingForOtherNumbers) {
    for (const std::int32_t number : {0, 1, 2, 4, 8, 12, 438, 1015, 1016, 1041, 32765, -1, -2147221501, 66537})
        EXPECT_FALSE(findMessage(number)) << number;
}

}  // namespace
}  // namespace tolvan
