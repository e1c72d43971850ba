#include "support/Cases.h"
#include "translator/Scanner.h"
#include "translator/Styled.h"

#include <cctype>
#include <gtest/gtest.h>

namespace tolvan {
namespace {

TEST(IsSeparator, DependsOnCodeThenOnFont) {
    for (int code = 0; code < 256; ++code) {
        const char c = static_cast<char>(code);
        const bool word = code < 128 && (std::isalnum(code) != 0 || c == '_');
        EXPECT_EQ(IsSeparator(c, Font::Latin), !word) << code;
        for (const Font font : {Font::Devanagari, Font::Other}) EXPECT_EQ(IsSeparator(c, font), c == ' ') << code;
    }
}

// Each token as its kind's letter and its text: W(ord), S(eparator), L(iteral), X for what is lost.
std::string tokens(std::string_view internal) {
    const StyledText statement = styled(internal);
    std::string listed;
    Scanner scanner(statement);
    while (const auto token = scanner.next()) {
        listed += "WSLX"[static_cast<int>(token->kind)];
        listed.append("[").append(token->text.text()).append("]");
    }
    return listed;
}

TEST(Scanner, Tokens) {
    for (const Row& row : rowsOf("translator/tokens.cases")) EXPECT_EQ(tokens(row[0]), row[1]) << row;
}

}  // namespace
}  // namespace tolvan
