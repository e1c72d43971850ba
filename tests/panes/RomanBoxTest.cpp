#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"
#include "editor/panes/RomanInput.h"

#include <gmock/gmock.h>

namespace tolvan {
namespace {

TEST(RomanBox, keepsEveryByte) {
    std::string bytes;
    for (int code = 0; code < 256; ++code) bytes += static_cast<char>(code);
    bytes += "\r\n\n\r\r\n";
    RomanBox box;
    box.setText(bytes);
    EXPECT_EQ(box.text(), bytes);
}

}  // namespace
}  // namespace tolvan
