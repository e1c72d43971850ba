#include "platform/transliteration/MarkRoman.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

TEST(MarkRoman, Table) {
    struct Row {
        std::string_view roman;
        std::string_view marked;
    };
    for (const Row& row : std::initializer_list<Row>{
             {"", ""},
             {"ek don 12", "ek don 12"},
             {"a(b", "a#(#b"},
             {"a(-b", "a#(-#b"},
             {"(),:?;'[]|_~`!@$%&.\\^>+<-/*=", "#(),:?;'[]|_~`!@$%&.\\^>+<-/*=#"},
             {"\"{}\t\r\n\x01\xE9", "\"{}\t\r\n\x01\xE9"},
             {"#Latin# text", "#Latin# text"},
             {"#a+b#", "#a+b#"},
             {"a#b#+c", "a#b+#c"},
             {"a+#b#c", "a#+b#c"},
             {"#a##b#", "#ab#"},
             {"a##b", "ab"},
             {"(##)", "#()#"},
             {"#one\r\ntwo# (", "#one\r\ntwo# #(#"},
             // A mark that is never closed is dropped.
             {"#", ""},
             {"###", ""},
             {"a#b+", "ab#+#"},
             {"#a#b#c", "#a#bc"},
             {"(#", "#(#"},
         })
        EXPECT_EQ(markRoman(row.roman), row.marked) << row.roman;
}

}  // namespace
}  // namespace tolvan
