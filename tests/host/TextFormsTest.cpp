#include "platform/encoding/Deva.h"
#include "runtime/host/InputValue.h"
#include "runtime/host/NumberText.h"
#include "runtime/host/ProgramDataFile.h"
#include "support/Cases.h"

#include <gtest/gtest.h>

namespace tolvan {
namespace {

const std::string cases = "host/texts.cases";

TEST(InputValue, TransliteratesAndMarksLatin) {
    for (const Row& row : rowsOf(cases, "What is typed and the value of an input"))
        EXPECT_EQ(inputValue(row[0]), row[1]) << row;
    EXPECT_EQ(inputValue(std::string(1000, 'a')).find('{'), std::string::npos);
}

TEST(NumberText, MarksWhatIsNoDigitAsLatinAndReadsItBack) {
    const NumberText form;
    for (const Row& row : rowsOf(cases, "A number and its text form")) {
        EXPECT_EQ(form.number(row[0]), row[1]) << row;
        EXPECT_EQ(form.plain(row[1]), row[0]) << row;
    }
    EXPECT_EQ(form.plain("{-5}"), "-5");
    EXPECT_FALSE(form.isPlain());
    EXPECT_EQ(form.boolean(true), "ore"_deva);
    EXPECT_EQ(form.boolean(false), "oaeqe"_deva);
}

TEST(PlainFileName, IsReadFromInternalTextForm) {
    for (const Row& row : rowsOf(cases, "The internal text form of a file name and the name"))
        EXPECT_EQ(plainFileName(row[0]), row[1]) << row;
}

}  // namespace
}  // namespace tolvan
