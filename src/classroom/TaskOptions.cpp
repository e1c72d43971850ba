#include "classroom/TaskOptions.h"

#include "classroom/Problem.h"
#include "platform/encoding/Ascii.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace tolvan::classroom {
namespace {

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::optional<double> readNumber(std::string_view text, double least, double most) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number >= least && number <= most ? std::optional(number) : std::nullopt;
}

// Sets the value that one of the words names; false for any other word.
template <class Value>
bool setWord(std::string_view text, Value& value, std::initializer_list<std::pair<std::string_view, Value>> words) {
    for (const auto& [word, meaning] : words)
        if (text == word) {
            value = meaning;
            return true;
        }
    return false;
}

bool setNumber(std::string_view text, double& value, double least, double most) {
    const std::optional<double> number = readNumber(text, least, most);
    value = number.value_or(value);
    return number.has_value();
}

bool setBytes(std::string_view text, std::uint64_t& value, std::uint64_t most) {
    const std::optional<std::uint64_t> bytes = readByteCount(text);
    if (!bytes || *bytes == 0 || *bytes > most) return false;
    value = *bytes;
    return true;
}

bool setDigits(std::string_view text, std::optional<int>& digits) {
    digits.reset();
    if (text == "exact") return true;
    if (const auto number = readNumber(text, 0, 15)) digits = static_cast<int>(*number);
    return digits.has_value();
}

constexpr std::uint64_t mega = std::uint64_t{1} << 20;
using Options = TaskOptions;

struct Key {
    std::string_view name;
    std::string_view values;  // what may be given, for the message to the teacher
    // False for what is no such value.
    bool (*set)(Options&, std::string_view value);
};

constexpr Key keys[] = {
    {"title", "TEXT",
     [](Options& o, std::string_view value) {
         o.title = value;
         return !value.empty();
     }},
    {"seconds", "0.1 - 60",
     [](Options& o, std::string_view v) {
         o.hasSeconds = true;
         return setNumber(v, o.limits.seconds, 0.1, 60);
     }},
    {"output", "1 - 16M", [](Options& o, std::string_view v) { return setBytes(v, o.limits.outputBytes, 16 * mega); }},
    {"memory", "1 - 1G", [](Options& o, std::string_view v) { return setBytes(v, o.limits.memoryBytes, 1024 * mega); }},
    {"files", "1 - 64M", [](Options& o, std::string_view v) { return setBytes(v, o.limits.fileBytes, 64 * mega); }},
    {"points", "0 - 1000", [](Options& o, std::string_view v) { return setNumber(v, o.points, 0, 1000); }},
    {"spaces", "exact, runs, ignore",
     [](Options& o, std::string_view v) {
         using Spaces = Exactness::Spaces;
         return setWord<Spaces>(v, o.exactness.spaces,
                                {{"exact", Spaces::Exact}, {"runs", Spaces::Runs}, {"ignore", Spaces::Ignored}});
     }},
    {"digits", "exact, 0 - 15", [](Options& o, std::string_view v) { return setDigits(v, o.exactness.digits); }},
    {"numerals", "either, exact",
     [](Options& o, std::string_view v) {
         return setWord<bool>(v, o.exactness.sameNumerals, {{"either", true}, {"exact", false}});
     }},
    {"order", "exact, any",
     [](Options& o, std::string_view v) {
         using Order = Exactness::Order;
         return setWord<Order>(v, o.exactness.order, {{"exact", Order::Exact}, {"any", Order::Any}});
     }},
    {"drawing", "picture, calls, none",
     [](Options& o, std::string_view v) {
         using Drawing = TaskOptions::Drawing;
         return setWord<Drawing>(v, o.drawing,
                                 {{"picture", Drawing::Picture}, {"calls", Drawing::Calls}, {"none", Drawing::None}});
     }},
    {"tolerance", "0 - 50", [](Options& o, std::string_view v) { return setNumber(v, o.tolerance, 0, 50); }},
    {"seed", "0 - 4294967295",
     [](Options& o, std::string_view v) {
         double seed = 0;
         const bool isSeed = setNumber(v, seed, 0, std::numeric_limits<std::uint32_t>::max());
         o.seed = static_cast<std::uint32_t>(seed);
         return isSeed;
     }},
};

std::string keyNames() {
    std::string names;
    for (const Key& key : keys) names.append(names.empty() ? "" : ", ").append(key.name);
    return names;
}

Problem problemInLine(int line, const std::string& marathi, const std::string& english) {
    const std::string number = std::to_string(line);
    return {"task.ini, ओळ " + number + ": " + marathi, "task.ini, line " + number + ": " + english};
}

class Reader {
  public:
    TaskOptions read(std::string_view text) {
        constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
        if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
        while (!text.empty()) {
            ++line_;
            readLine(trimmed(takeLine(text).text));
        }
        return options_;
    }

  private:
    void readLine(std::string_view line) {
        if (line.empty() || line.starts_with('#') || line.starts_with(';')) return;
        if (line.starts_with('[') && line.ends_with(']')) {
            case_ = trimmed(line.substr(1, line.size() - 2));
            options_.ofCases[case_];
            return;
        }
        const std::size_t equal = line.find('=');
        if (equal == std::string_view::npos)
            throw problemInLine(line_, "'" + std::string(line) + "' यात = नाही",
                                "'" + std::string(line) + "' has no =");
        set(std::string(trimmed(line.substr(0, equal))), trimmed(line.substr(equal + 1)));
    }

    void set(const std::string& name, std::string_view value) {
        if (!case_.empty()) return setOfCase(name, value);
        for (const Key& key : keys) {
            if (name != key.name) continue;
            if (key.set(options_, value)) return;
            throw wrongValue(name, value, key.values);
        }
        throw problemInLine(line_, "'" + name + "' अशी सूचना नाही. सूचना: " + keyNames(),
                            "there is no key '" + name + "'. The keys are " + keyNames());
    }

    void setOfCase(const std::string& name, std::string_view value) {
        TaskOptions::OfCase& own = options_.ofCases[case_];
        if (name == "points") {
            double points = 0;
            if (!setNumber(value, points, 0, 1000)) throw wrongValue(name, value, "0 - 1000");
            own.points = points;
        } else if (name == "open") {
            if (!setWord<bool>(value, own.isOpen, {{"yes", true}, {"no", false}}))
                throw wrongValue(name, value, "yes, no");
        } else {
            throw problemInLine(line_, "एका चाचणीसाठी फक्त points आणि open लिहिता येते, '" + name + "' नाही",
                                "a single case has only points and open, not '" + name + "'");
        }
    }

    Problem wrongValue(const std::string& name, std::string_view value, std::string_view values) const {
        const std::string given(value);
        return problemInLine(line_, name + " = " + given + " चालत नाही. चालते: " + std::string(values),
                             name + " cannot be '" + given + "', but: " + std::string(values));
    }

    TaskOptions options_;
    std::string case_;
    int line_ = 0;
};

}  // namespace

std::optional<std::uint64_t> readByteCount(std::string_view text) {
    constexpr std::string_view units = "kmg";
    double factor = 1;
    if (!text.empty() && !isDigit(text.back())) {
        const std::size_t unit = units.find(lowerLetter(text.back()));
        if (unit == std::string_view::npos) return std::nullopt;
        factor = std::pow(1024, static_cast<double>(unit) + 1);
        text.remove_suffix(1);
    }
    const std::optional<double> number = readNumber(text, 0, 1e15);
    if (!number) return std::nullopt;
    return static_cast<std::uint64_t>(*number * factor);
}

TaskOptions readTaskOptions(std::string_view text) {
    return Reader().read(text);
}

}  // namespace tolvan::classroom
