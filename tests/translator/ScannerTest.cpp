#include "platform/encoding/Deva.h"
#include "translator/Scanner.h"
#include "translator/Styled.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

TEST(IsSeparator, DependsOnCodeThenOnFont) {
    const std::string_view neverSeparate = "AZaz09_";
    for (int code = 0; code < 256; ++code) {
        const char c = static_cast<char>(code);
        const bool blank = c == ' ';
        const bool word = neverSeparate.find(c) != std::string_view::npos || (code > 'A' && code < 'Z') ||
                          (code > 'a' && code < 'z') || (code > '0' && code < '9');
        EXPECT_EQ(IsSeparator(c, Font::Latin), !word) << code;
        EXPECT_EQ(IsSeparator(c, Font::Devanagari), blank) << code;
        EXPECT_EQ(IsSeparator(c, Font::Other), blank) << code;
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
    struct {
        std::string_view statement, tokens;
    } const table[] = {
        {"", ""},
        {" ", "W[]S[ ]"},
        {"daov", "X[daov]"},
        {"daov ", "W[daov]S[ ]"},
        {"x{=}1 ", "W[x]S[=]W[1]S[ ]"},
        {"x=1 ", "W[x=1]S[ ]"},
        {"{x_1=}", "W[x_1]S[=]"},
        {"s<pv {<}jr "_deva, "W[s<pv]S[ ]W[]S[<]W[jr]S[ ]"},
        {"{\"}a b{, \"}c ", "W[]S[\"]L[a b, ]S[\"]W[c]S[ ]"},
        {"{\"}a\"b{\"\"\"}", "W[]S[\"]L[a\"b]S[\"]W[]S[\"]L[]S[\"]"},
        {"a{\"}b c", "W[a]S[\"]X[b c]"},
    };
    for (const auto& row : table) EXPECT_EQ(tokens(row.statement), row.tokens) << row.statement;
}

}  // namespace
}  // namespace tolvan
