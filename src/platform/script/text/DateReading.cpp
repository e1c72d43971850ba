// Dates and times read from text: parseDate.
//
// What is read: a date, a time, or one after the other with blanks between. Dates: 2/28/2004, 2-28-04, 2/28 (of this
// year), 2/2004 (its first day), 2004-02-28; 28/2/2004 where the month would be above 12; 28 February 2004, 28-Feb-04,
// Feb 28, 2004, Feb 28, Feb 2004; the name of a weekday before any of these. Times: 15:04, 3:04:05 PM, 3 PM.
#include "platform/script/text/DateReading.h"

#include "platform/encoding/Ascii.h"
#include "platform/script/text/Calendar.h"
#include "platform/script/text/DateText.h"
#include "platform/script/text/NumberWriting.h"

#include <algorithm>

namespace tolvan::script {

namespace {

using NameOf = std::string_view (*)(int);

// The number of a name among the first `count`, spelt out or in three letters; 0 if it is none.
int numberOfName(std::string_view word, NameOf nameOf, int count) {
    for (int i = 1; i <= count; ++i)
        if (sameButForCase(word, nameOf(i)) || sameButForCase(word, shortName(nameOf(i)))) return i;
    return 0;
}

struct Part {
    int number = 0;
    int digits = 0;
    // Whether it can be nothing but a year.
    bool isYear() const { return digits > 2 || number > 31; }
    std::int64_t year() const { return digits <= 2 ? fullYear(number) : number; }
};

class DateReader {
  public:
    explicit DateReader(std::string_view text) : text_(text) {}

    std::optional<double> read() {
        skipBlanks();
        while (position_ < text_.size())
            if (!readItem()) return std::nullopt;
        // A separator at the end, or nothing at all.
        if (pending_ != '\0' || (!hasTime_ && !hasDate())) return std::nullopt;
        Moment moment{0, second_};
        if (hasDate()) {
            const auto civil = date();
            if (!civil || !isValid(*civil)) return std::nullopt;
            moment.day = dayOf(*civil);
        }
        return dateOf(moment);
    }

  private:
    char peek() const { return position_ < text_.size() ? text_[position_] : '\0'; }
    bool skipBlanks() {
        const std::size_t before = position_;
        while (position_ < text_.size() && isBlank(text_[position_])) ++position_;
        return position_ != before;
    }
    bool accept(char c) {
        if (peek() != c) return false;
        ++position_;
        return true;
    }

    bool hasDate() const { return count_ > 0 || month_ != 0; }

    bool readItem() {
        if (isDigit(peek())) return readNumberItem();
        if (isLetter(peek())) return readName();
        return false;
    }

    std::optional<Part> readNumber() {
        Part part;
        for (; isDigit(peek()); ++position_, ++part.digits) {
            if (part.digits == 4) return std::nullopt;
            part.number = part.number * 10 + (peek() - '0');
        }
        if (part.digits == 0) return std::nullopt;
        return part;
    }

    std::string_view readWord() {
        const std::size_t begin = position_;
        while (isLetter(peek())) ++position_;
        return text_.substr(begin, position_ - begin);
    }

    bool readNumberItem() {
        const auto part = readNumber();
        if (!part) return false;
        const std::size_t afterNumber = position_;
        skipBlanks();
        if (peek() == ':' || isHalfDay()) return readTime(*part);
        position_ = afterNumber;
        if (count_ == 3 || (hasTime_ && timeSplitsDate_)) return false;
        parts_[count_++] = *part;
        return readSeparator();
    }

    // "AM", "PM", "a" or "p" here.
    bool isHalfDay() {
        const std::size_t here = position_;
        const std::string_view word = readWord();
        position_ = here;
        return sameButForCase(word, "AM") || sameButForCase(word, "PM") || sameButForCase(word, "A") ||
               sameButForCase(word, "P");
    }

    bool readTime(const Part& hourPart) {
        // A separator of a date does not lead to a time.
        if (hasTime_ || pending_ == '/' || pending_ == '-') return false;
        int hour = hourPart.number;
        int minute = 0;
        int second = 0;
        if (!readSixtieth(minute) || !readSixtieth(second)) return false;
        skipBlanks();
        if (isHalfDay()) {
            const bool afternoon = lowerLetter(readWord().front()) == 'p';
            if (hour > 12 && !afternoon) return false;
            if (hour == 12) hour = 0;
            if (afternoon && hour < 12) hour += 12;
        }
        if (hour > 23) return false;
        hasTime_ = true;
        timeSplitsDate_ = hasDate();
        pending_ = '\0';
        second_ = hour * 3600 + minute * 60 + second;
        const bool blank = skipBlanks();
        return blank || position_ == text_.size();
    }

    // ":mm", which may be missing.
    bool readSixtieth(int& number) {
        const std::size_t here = position_;
        skipBlanks();
        if (!accept(':')) {
            position_ = here;
            return true;
        }
        skipBlanks();
        const auto part = readNumber();
        if (!part || part->number > 59) return false;
        number = part->number;
        return true;
    }

    bool readName() {
        if (hasTime_ && timeSplitsDate_) return false;
        const std::string_view word = readWord();
        if (numberOfName(word, weekdayName, 7) != 0) {
            if (hasDate()) return false;
            skipBlanks();
            accept(',');
            skipBlanks();
            return true;
        }
        if (month_ != 0) return false;
        month_ = numberOfName(word, monthName, 12);
        return month_ != 0 && readSeparator();
    }

    // What stands between the parts of a date: a slash or a dash, which only another part may follow; or a comma or
    // blanks.
    bool readSeparator() {
        pending_ = '\0';
        const bool blank = skipBlanks();
        const char c = peek();
        if (c == '/' || c == '-' || c == ',') {
            ++position_;
            pending_ = c;
            skipBlanks();
            slashes_ += c != ',' ? 1 : 0;
        }
        return blank || pending_ != '\0' || position_ == text_.size() || isLetter(c) || isDigit(c);
    }

    std::optional<CivilDay> date() const { return month_ != 0 ? dateWithName() : dateOfNumbers(); }

    std::optional<CivilDay> dateWithName() const {
        const Part& first = parts_[0];
        const Part& second = parts_[1];
        if (count_ == 2) {
            if (first.isYear()) return CivilDay{first.year(), month_, second.number};
            return CivilDay{second.year(), month_, first.number};
        }
        if (count_ != 1) return std::nullopt;
        if (first.isYear()) return CivilDay{first.year(), month_, 1};
        return CivilDay{thisYear(), month_, first.number};
    }

    std::optional<CivilDay> dateOfNumbers() const {
        if (slashes_ != count_ - 1) return std::nullopt;
        const Part& first = parts_[0];
        const Part& second = parts_[1];
        const Part& third = parts_[2];
        if (count_ == 2) {
            if (second.isYear()) return CivilDay{second.year(), first.number, 1};
            if (first.isYear()) return CivilDay{first.year(), second.number, 1};
            return monthAndDay(thisYear(), first.number, second.number);
        }
        if (count_ != 3) return std::nullopt;
        if (first.isYear()) return CivilDay{first.year(), second.number, third.number};
        return monthAndDay(third.year(), first.number, second.number);
    }

    // The month comes first unless only the other way makes sense.
    static CivilDay monthAndDay(std::int64_t year, int month, int day) {
        if (month > 12 && day <= 12) std::swap(month, day);
        return {year, month, day};
    }

    static std::int64_t thisYear() { return civilOf(localNow().day).year; }

    static bool isValid(const CivilDay& civil) {
        return civil.year >= 100 && civil.year <= 9999 && civil.month >= 1 && civil.month <= 12 && civil.day >= 1 &&
               civil.day <= daysInMonth(civil.year, civil.month);
    }

    std::string_view text_;
    std::size_t position_ = 0;
    Part parts_[3];
    int count_ = 0;
    int month_ = 0;  // given by name; 0: it was not
    int slashes_ = 0;
    char pending_ = '\0';  // the separator just read
    bool hasTime_ = false;
    bool timeSplitsDate_ = false;
    int second_ = 0;
};

}  // namespace

std::optional<double> parseDate(std::string_view text) {
    return DateReader(text).read();
}

}  // namespace tolvan::script
