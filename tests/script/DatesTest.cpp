// Dates: read, written, taken apart and reckoned with; the calendar against the standard library's.
#include "platform/script/Conversions.h"
#include "platform/script/text/Calendar.h"
#include "platform/script/text/DateReading.h"
#include "platform/script/text/DateText.h"
#include "script/Expression.h"

#include <chrono>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace tolvan::testing {
namespace {

using std::chrono::sys_days;

constexpr sys_days epoch = sys_days(std::chrono::December / 30 / 1899);

TEST(Calendar, AgreesWithTheStandardCalendarOnRandomDays) {
    std::mt19937 random(1);
    std::uniform_int_distribution<std::int64_t> anyDay(script::firstDay, script::lastDay);
    for (int i = 0; i < 100000; ++i) {
        const std::int64_t day = i == 0 ? script::firstDay : i == 1 ? script::lastDay : anyDay(random);
        const sys_days expectedDay = epoch + std::chrono::days(day);
        const std::chrono::year_month_day expected(expectedDay);
        const script::CivilDay civil = script::civilOf(day);
        ASSERT_EQ(civil.year, int(expected.year())) << day;
        ASSERT_EQ(civil.month, int(unsigned(expected.month()))) << day;
        ASSERT_EQ(civil.day, int(unsigned(expected.day()))) << day;
        ASSERT_EQ(script::dayOf(civil), day);
        ASSERT_EQ(script::weekdayOf(day), int(std::chrono::weekday(expectedDay).c_encoding()) + 1) << day;
        const auto lastOfMonth =
            std::chrono::year_month_day_last(expected.year(), expected.month() / std::chrono::last);
        ASSERT_EQ(script::daysInMonth(civil.year, civil.month), int(unsigned(lastOfMonth.day()))) << day;
    }
}

TEST(Calendar, TheTextOfADateReadsBackAsTheDate) {
    std::mt19937 random(2);
    std::uniform_int_distribution<std::int64_t> anySecond(script::firstDay * 86400, script::lastDay * 86400);
    for (int i = 0; i < 20000; ++i) {
        const double date = script::dateOfSeconds(anySecond(random));
        const std::string text = script::plainDate(date);
        const auto read = script::parseDate(text);
        ASSERT_TRUE(read.has_value()) << text;
        ASSERT_NEAR(*read, date, 1e-9) << text;
    }
}

TEST(Dates, AsText) {
    expectAll({
        {"CStr(#2/28/2004 3:04:05 PM#)", "String 2/28/2004 3:04:05 PM"},
        {"CStr(#12:00:00 AM#)", "String 12:00:00 AM"},
        {"CStr(#12:30 PM#)", "String 12:30:00 PM"},
        {"CStr(CDate(-1.25))", "String 12/29/1899 6:00:00 AM"},
        {"CStr(CDate(0.99999999))", "String 12/31/1899"},
        {"CStr(CDate(2958465.999999999))", "String 12/31/9999 11:59:59 PM"},
        {"FormatDateTime(#2/28/2004 3:04:05 PM#)", "String 2/28/2004 3:04:05 PM"},
        {"FormatDateTime(#2/28/2004 3:04:05 PM#, vbLongDate)", "String Saturday, February 28, 2004"},
        {"FormatDateTime(#2/28/2004 3:04:05 PM#, 2)", "String 2/28/2004"},
        {"FormatDateTime(#2/28/2004 3:04:05 PM#, 3)", "String 3:04:05 PM"},
        {"FormatDateTime(#2/28/2004 3:04:05 PM#, 4)", "String 15:04"},
        {"FormatDateTime(#2/28/2004#, 5)", "error 5"},
        {"FormatDateTime(\"x\")", "error 13"},
        {"FormatDateTime(Null)", "error 94"},
    });
}

TEST(Dates, ReadFromText) {
    expectAll({
        {"CDate(\"2/28/2004\")", "Date 2/28/2004"},
        {"CDate(\"2-28-04\")", "Date 2/28/2004"},
        {"CDate(\"1/1/29\")", "Date 1/1/2029"},
        {"CDate(\"1/1/30\")", "Date 1/1/1930"},
        {"CDate(\"28/2/2004\")", "Date 2/28/2004"},
        {"CDate(\"2004-02-28 15:04\")", "Date 2/28/2004 3:04:00 PM"},
        {"CDate(\"2/2004\")", "Date 2/1/2004"},
        {"CDate(\"28 february 2004\")", "Date 2/28/2004"},
        {"CDate(\"Feb 28, 2004 3 pm\")", "Date 2/28/2004 3:00:00 PM"},
        {"CDate(\"Saturday, February 28, 2004\")", "Date 2/28/2004"},
        {"CDate(\"28-Feb-04\")", "Date 2/28/2004"},
        {"CDate(\"Feb 2004\")", "Date 2/1/2004"},
        {"CDate(\"3:04:05 PM 2/28/2004\")", "Date 2/28/2004 3:04:05 PM"},
        {"CDate(\"23:59\")", "Date 11:59:00 PM"},
        {"CDate(\"12 AM\")", "Date 12:00:00 AM"},
        {"CDate(\"0:30 PM\")", "Date 12:30:00 PM"},
        {"Year(CDate(\"2/28\")) = Year(Date)", "Boolean True"},
        {"IsDate(\"2/29/2004\")", "Boolean True"},
        {"IsDate(Date)", "Boolean True"},
        {"IsDate(36526)", "Boolean False"},
    });
    for (const char* text : {"2/29/2003",
                             "13/13/2000",
                             "0/1/2000",
                             "1/1/99999",
                             "1/1/2000/",
                             "1//2000",
                             "/1/2000",
                             "24:00",
                             "13 AM",
                             "1:60",
                             "1:",
                             ":1",
                             "1:2:3:4",
                             "Foo 1, 2000",
                             "1/1/2000 1:00 1:00",
                             "",
                             " ",
                             "5",
                             "1/2:00",
                             "February",
                             "1 2 3 4",
                             "2000-1",
                             "Feb Feb 2000",
                             "1/1/2000x",
                             "1/1/1"}) {
        const bool valid = std::string_view(text) == "2000-1" || std::string_view(text) == "1/1/1";
        EXPECT_EQ(outcome("IsDate(\"" + std::string(text) + "\")"), valid ? "Boolean True" : "Boolean False") << text;
    }
}

TEST(Dates, Parts) {
    expectAll({
        {"Year(#2/28/2004 3:04:05 PM#)", "Integer 2004"},
        {"Month(\"2/28/2004\")", "Integer 2"},
        {"Day(38045)", "Integer 28"},
        {"Hour(#2/28/2004 3:04:05 PM#)", "Integer 15"},
        {"Minute(#3:04:05 PM#)", "Integer 4"},
        {"Second(#3:04:05 PM#)", "Integer 5"},
        {"Hour(-1.25)", "Integer 6"},
        {"Year(Null)", "Null"},
        {"Day(\"x\")", "error 13"},
        {"Day(1E9)", "error 6"},
        {"Weekday(#2/28/2004#)", "Integer 7"},
        {"Weekday(#2/28/2004#, vbMonday)", "Integer 6"},
        {"Weekday(#2/28/2004#, 8)", "error 5"},
        {"WeekdayName(1)", "String Sunday"},
        {"WeekdayName(1, True, vbMonday)", "String Mon"},
        {"WeekdayName(7, False, 2)", "String Sunday"},
        {"WeekdayName(0)", "error 5"},
        {"WeekdayName(8)", "error 5"},
        {"MonthName(9)", "String September"},
        {"MonthName(9, True)", "String Sep"},
        {"MonthName(13)", "error 5"},
        {"DateValue(\"2/28/2004 3:04 PM\")", "Date 2/28/2004"},
        {"TimeValue(\"2/28/2004 3:04 PM\")", "Date 3:04:00 PM"},
        {"TimeValue(Null)", "Null"},
        {"DateValue(Null)", "error 94"},
        {"TypeName(Timer)", "String Single"},
        {"Abs(Now - (Date + Time)) < 0.001 Or Time < #12:01 AM#", "Boolean True"},
        {"Date = Int(Now) Or Time < #12:01 AM#", "Boolean True"},
    });
}

TEST(Dates, MadeOfParts) {
    expectAll({
        {"DateSerial(2004, 2, 28)", "Date 2/28/2004"},
        {"DateSerial(2004, 2, 30)", "Date 3/1/2004"},
        {"DateSerial(2004, 14, 1)", "Date 2/1/2005"},
        {"DateSerial(2004, 0, 0)", "Date 11/30/2003"},
        {"DateSerial(2004, -13, 1)", "Date 11/1/2002"},
        {"DateSerial(29, 1, 1)", "Date 1/1/2029"},
        {"DateSerial(30, 1, 1)", "Date 1/1/1930"},
        {"DateSerial(-1, 1, 1)", "error 5"},
        {"DateSerial(10000, 1, 1)", "error 5"},
        {"DateSerial(32768, 1, 1)", "error 6"},
        {"DateSerial(-32768, -32768, -32768)", "error 5"},
        {"TimeSerial(15, 4, 5)", "Date 3:04:05 PM"},
        {"TimeSerial(12 - 6, -15, 0)", "Date 5:45:00 AM"},
        {"TimeSerial(25, 0, 0)", "Date 12/31/1899 1:00:00 AM"},
        {"TimeSerial(-1, 0, 0)", "Date 12/29/1899 11:00:00 PM"},
        {"TimeSerial(0, 0, 40000)", "error 6"},
    });
}

TEST(Dates, Reckoning) {
    expectAll({
        {"DateAdd(\"m\", 1, #1/31/2004#)", "Date 2/29/2004"},
        {"DateAdd(\"m\", -1, #3/31/2003#)", "Date 2/28/2003"},
        {"DateAdd(\"yyyy\", 1, #2/29/2004#)", "Date 2/28/2005"},
        {"DateAdd(\"q\", 2, #8/31/2004#)", "Date 2/28/2005"},
        {"DateAdd(\"D\", 1.5, #2/28/2004 1:00 PM#)", "Date 3/1/2004 1:00:00 PM"},
        {"DateAdd(\"ww\", -1, #1/1/2000#)", "Date 12/25/1999"},
        {"DateAdd(\"h\", 25, #1/1/2000#)", "Date 1/2/2000 1:00:00 AM"},
        {"DateAdd(\"n\", -1, #1/1/2000#)", "Date 12/31/1999 11:59:00 PM"},
        {"DateAdd(\"s\", -1, #12/30/1899#)", "Date 12/29/1899 11:59:59 PM"},
        {"DateAdd(\"d\", 1, Null)", "Null"},
        {"DateAdd(\"x\", 1, Date)", "error 5"},
        {"DateAdd(\"yyyy\", 8000, #1/1/2000#)", "error 5"},
        {"DateAdd(\"d\", 2147483647, #1/1/2000#)", "error 5"},
        {"DateAdd(\"s\", -1, #1/1/100#)", "error 5"},
        {"DateAdd(\"d\", 1, \"x\")", "error 13"},
        {"DateDiff(\"d\", #2/28/2004 11:00 PM#, #3/1/2004 1:00 AM#)", "Long 2"},
        {"DateDiff(\"yyyy\", #12/31/2003#, #1/1/2004#)", "Long 1"},
        {"DateDiff(\"q\", #3/31/2004#, #4/1/2004#)", "Long 1"},
        {"DateDiff(\"m\", #1/31/2004#, #12/1/2003#)", "Long -1"},
        {"DateDiff(\"ww\", #2/28/2004#, #2/29/2004#)", "Long 1"},
        {"DateDiff(\"ww\", #2/28/2004#, #2/29/2004#, vbMonday)", "Long 0"},
        {"DateDiff(\"w\", #2/1/2004#, #2/14/2004#)", "Long 1"},
        {"DateDiff(\"h\", #1:59 AM#, #2:00 AM#)", "Long 1"},
        {"DateDiff(\"n\", #12/29/1899 11:59 PM#, #12/30/1899 12:01 AM#)", "Long 2"},
        {"DateDiff(\"s\", #1/1/1900#, #1/1/2000#)", "error 6"},
        {"DateDiff(\"d\", Null, Date)", "Null"},
        {"DatePart(\"q\", #5/1/2004#)", "Integer 2"},
        {"DatePart(\"y\", #12/31/2004#)", "Integer 366"},
        {"DatePart(\"w\", #2/28/2004#, vbMonday)", "Integer 6"},
        {"DatePart(\"ww\", #1/1/2005#)", "Integer 1"},
        {"DatePart(\"ww\", #12/31/2005#)", "Integer 53"},
        {"DatePart(\"ww\", #12/31/2000#)", "Integer 54"},
        {"DatePart(\"ww\", #1/1/2005#, vbMonday, vbFirstFourDays)", "Integer 53"},
        {"DatePart(\"ww\", #12/31/2007#, vbMonday, vbFirstFourDays)", "Integer 1"},
        {"DatePart(\"ww\", #1/2/2005#, vbSunday, vbFirstFullWeek)", "Integer 1"},
        {"DatePart(\"ww\", #1/1/2005#, vbSunday, vbFirstFullWeek)", "Integer 52"},
        {"DatePart(\"h\", #3:04:05 PM#)", "Integer 15"},
        {"DatePart(\"ww\", Date, 1, 4)", "error 5"},
        {"DatePart(\"d\", Null)", "Null"},
    });
}

}  // namespace
}  // namespace tolvan::testing
