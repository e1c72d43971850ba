// Whether machine code does what the interpreter does: random programs run interpreted, as machine code from the first
// pass, from some passes on, and with guards that fail by force. Whatever can be seen of them has to be the same: what
// they print, how they end, and all variables at each question of a poll.
//
// TOLVAN_PROGRAMS=N runs N programs instead of a few, and prints how often each operation was reached.
#include "platform/script/ArrayCell.h"
#include "platform/script/Executor.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <utility>

namespace tolvan::script {
namespace {

class Watching : public HostObject {
  public:
    explicit Watching(Executor& executor, int budgetPerAnswer, int stopAfter)
        : executor_(executor), budgetPerAnswer_(budgetPerAnswer), stopAfter_(stopAfter) {}

    std::string_view typeName() const override { return "host"; }
    int findMember(std::string_view name) const override { return name == "goOn" ? 0 : name == "show" ? 1 : noMember; }
    Value call(int member, Arguments& arguments) override {
        if (member == 1) {
            seen += shown(arguments[0]) + "\n";
            return {};
        }
        const Inspection inspection = executor_.inspect();
        for (std::size_t level = 0; level <= inspection.depth(); ++level) {
            seen += "at " + std::to_string(inspection.line(level));
            for (const InspectedVariable& one : inspection.variables(level))
                seen += " " + one.name + "=" + shown(one.value);
        }
        seen += "\n";
        const bool goesOn = --stopAfter_ != 0;
        budget_ = goesOn ? budgetPerAnswer_ : 0;
        return Value::boolean(goesOn);
    }
    int* pollBudget(int member) override { return member == 0 ? &budget_ : nullptr; }

    std::string seen;

  private:
    std::string shown(const Value& value) {
        if (value.is(Type::Array)) {
            std::string list = "(";
            for (const Value& element : value.array()->elements()) list += shown(element) + ";";
            return list + ")";
        }
        if (value.isOneOf(bits(Type::Null, Type::Empty, Type::Object))) return executor_.typeName(value);
        char digits[64] = "";
        if (value.is(Type::Double)) std::snprintf(digits, sizeof digits, "%a", value.as.d);
        return executor_.typeName(value) + " " + (value.is(Type::Double) ? digits : executor_.text(value));
    }

    Executor& executor_;
    int budgetPerAnswer_;
    int stopAfter_;
    int budget_ = 0;
};

class Writer {
  public:
    explicit Writer(std::uint32_t seed) : random_(seed) {}

    std::string program() {
        text_ = "Dim u, v, w(12)\n";
        put("Function f(n)\nIf n < 1 Then\nf = " + one({"n", "u", "w(1)", "0.5", "32760"}) +
            "\nElse\nf = f(n - 1) + n" + one({"", " * 1.5"}) + "\nEnd If\nEnd Function");
        put("Sub p(x, r())\nDim a, b, c, i, j, k, n, s, m(3, 4) : n = 3 : a = 1 : b = 2 : s = \"\"");
        isInP_ = true;
        body(1);
        isInP_ = false;
        put("x = x + n\nIf " + expression(2) + " Then r(n Mod 12) = x\nEnd Sub");
        put("Sub q(n)");
        if (choose(2) == 0) put("On Error Resume Next");
        put("Dim a, b, c, i, j, k, s, r(12), m(3, 4)");
        put("a = " + literal() + " : b = " + literal() + " : c = " + literal() + " : s = \"\"");
        put("For i = 0 To 12 : r(i) = i * " + literal() + " : w(i) = i : Next");
        put("For i = 0 To 3 : For j = 0 To 4 : m(i, j) = i + j : Next : Next");
        for (int i = 0; i < 3; ++i) loop(0);
        put("show a : show b : show c : show s : show r : show m : show w\nEnd Sub");
        return text_;
    }

  private:
    unsigned choose(unsigned count) { return static_cast<unsigned>(random_() % count); }
    std::string one(std::initializer_list<const char*> words) {
        return *(words.begin() + choose(static_cast<unsigned>(words.size())));
    }
    void put(const std::string& line) { text_ += line + "\n"; }

    std::string literal() {
        return one({"0", "1", "2", "3", "7", "-1", "100", "32766", "-32767", "2147483646", "-2147483647", "0.5", "2.5",
                    "1E155", "True", "\"5\""});
    }
    std::string variable() { return one({"a", "b", "c", "a", "b", "n", "i", "j", "u", "v"}); }
    std::string index(int size) {
        if (choose(30) == 0) return variable();
        return "Abs(" + variable() + ") Mod " + std::to_string(size);
    }
    std::string safeIndex() { return one({"i", "j", "k", "2", "0", "n"}) + " And 3"; }
    std::string element() {
        switch (choose(4)) {
            case 0:
                return "r(" + one({"i", "j", "3"}) + ")";
            case 1:
                return "r(" + safeIndex() + ")";
            case 2:
                return "m(" + safeIndex() + ", " + safeIndex() + ")";
            default:
                return "w(" + (choose(8) == 0 ? index(12) : safeIndex()) + ")";
        }
    }
    std::string expression(int depth) {
        if (depth >= 3) return choose(3) == 0 ? literal() : variable();
        switch (choose(12)) {
            case 0:
                return literal();
            case 1:
            case 2:
                return element();
            case 3:
                return one({"-", "Not ", "Len", "CDbl", "Int"}) + "(" + expression(depth + 1) + ")";
            case 4:
                return "(" + expression(depth + 1) + one({" < ", " = ", " >= ", " <> ", " <= ", " > "}) +
                       expression(depth + 1) + ")";
            case 5:
                return "(" + expression(depth + 1) + one({" And ", " Or ", " Xor ", " Eqv ", " Imp "}) +
                       expression(depth + 1) + ")";
            case 6:
                return "(" + expression(depth + 1) + one({" \\ ", " Mod "}) + one({"3", "10", "7", "b", "-1"}) + ")";
            case 7:
                return depth < 2 && choose(3) == 0 ? "f(" + one({"2", "3", "n"}) + ")" : variable();
            case 8:
            case 9:
                return "(" + expression(depth + 1) + one({" + ", " - ", " * ", " / ", " + ", " - "}) +
                       expression(depth + 1) + ")";
            default:
                return variable();
        }
    }
    void body(int depth) {
        for (unsigned count = 1 + choose(4); count > 0; --count) {
            if (choose(3) != 0) put("if not host.goOn then err.raise 1001");
            statement(depth);
        }
    }
    void statement(int depth) {
        switch (choose(14)) {
            case 0:
            case 1:
                return put(element() + " = " + expression(1));
            case 2:
                return put("s = s & " + one({"a", "\"x\"", "i"}));
            case 3:
                put("If " + expression(1) + " Then");
                body(depth + 1);
                if (choose(2) == 0) {
                    put("Else");
                    body(depth + 1);
                }
                return put("End If");
            case 4:
                if (isInP_) return put("n = n + 1");
                return put("p " + one({"a", "u", "r(2)", "(b)"}) + ", " + one({"r", "w"}));
            case 5:
                if (depth < 3) return loop(depth);
                return put("c = " + literal());
            case 6:
                return put(one({"u", "v"}) + " = " + one({"u", "v"}) + one({" + ", " - ", " * "}) + literal());
            case 7:
                if (choose(3) == 0) return put("c = a " + one({"*", "-", "/", "+"}) + " b");
                return put("a = a + " + one({"1", "b", "i", "10000", "1000000000", "0.25"}));
            case 8:
                return put(one({"a", "b", "c"}) + " = (" + expression(0) + ") Mod 1000");
            case 9:
                return put("If " + expression(2) + " And " + expression(2) + " > 2 Then " + exit_);
            default:
                return put(one({"a", "b", "c", "u"}) + " = " + expression(0));
        }
    }
    void loop(int depth) {
        const std::string counter(1, "ijk"[std::min(depth, 2)]);
        std::string passes = depth == 0 ? one({"40", "60", "12"}) : one({"3", "4", "(n And 7)", "2.5"});
        const bool isFor = choose(2) == 0;
        if (isFor) {
            const std::string start = one({"0", "1", "n", "32760"});
            if (start == "32760") passes = "32760 + " + passes;
            put("For " + counter + " = " + start + " To " + passes +
                (depth == 0 ? "" : one({"", " Step 1", " Step 0.5", " Step -1", " Step 2"})));
        } else {
            put(counter + " = 0");
            put("Do While " + counter + " < " + passes + one({"", " And a < 1000000", " Or s = \"q\""}));
            put(counter + " = " + counter + " + 1 : If " + counter + " > 70 Then Exit Do");
        }
        const std::string outer = std::exchange(exit_, isFor ? "Exit For" : "Exit Do");
        body(depth + 1);
        exit_ = outer;
        put(isFor ? "Next" : "Loop");
    }
    std::mt19937 random_;
    std::string text_;
    bool isInP_ = false;
    std::string exit_ = "c = 1";  // what leaves the loop that is being written
};

struct Way {
    MachineCodeOptions options;
    int budget;
    int stopAfter;
};

std::string ran(const std::string& program, const MachineCodeOptions& options, int budget, int stopAfter,
                std::map<std::string_view, MachineCodeCount>* counts) {
    Executor executor;
    executor.setMachineCode(options);
    Watching host(executor, budget, stopAfter);
    executor.addObject("host", host, Executor::Members::AlsoGlobal);
    if (!executor.addCode(program))
        return "does not load: line " + std::to_string(executor.error().line) + executor.error().description + "\n";
    std::string all;
    for (int n = 1; n <= 3; ++n) {
        const Value argument[] = {n == 3 ? Value::number(2) : Value::integer(static_cast<std::int16_t>(n))};
        executor.run("q", argument);
        const ErrorReport& error = executor.error();
        all += host.seen + "ended " + std::to_string(error.number) + " line " + std::to_string(error.line) + " " +
               error.called;
        for (const auto& operand : error.operands) all += " " + operand.name;
        for (const char* name : {"u", "v", "w(0)", "w(3)", "w(12)"}) {
            Value value;
            executor.evaluate(name, value);
            all += " " + executor.typeName(value) + " " + executor.text(value);
        }
        host.seen = "\n";
    }
    if (counts != nullptr) {
        for (const MachineCodeCount& count : executor.machineCodeCounts()) {
            MachineCodeCount& sum = (*counts)[count.operation];
            sum.executed += count.executed;
            sum.handedBack += count.handedBack;
        }
    }
    return all;
}

// What two outcomes have in common at the beginning is left out.
void expectSame(const std::string& one, const std::string& other, const std::string& what) {
    if (one == other) return;
    auto place =
        static_cast<std::size_t>(std::mismatch(one.begin(), one.end(), other.begin(), other.end()).first - one.begin());
    place = one.rfind('\n', place) == std::string::npos ? 0 : one.rfind('\n', place);
    FAIL() << what << "\ninterpreted: " << one.substr(place, 600) << "\nmachine code: " << other.substr(place, 600);
}

TEST(MachineCode, DoesWhatTheInterpreterDoes) {
    const char* wanted = std::getenv("TOLVAN_PROGRAMS");
    const char* start = std::getenv("TOLVAN_FIRST");
    const int programs = wanted != nullptr ? std::atoi(wanted) : 14;
    const int first = start != nullptr ? std::atoi(start) : 0;
    std::map<std::string_view, MachineCodeCount> counts;
    for (int i = first; i < first + programs; ++i) {
        const auto seed = static_cast<std::uint32_t>(i);
        const std::string program = Writer(seed).program();
        const int budget = i % 3 == 0 ? 0 : i % 3 == 1 ? 7 : 1000;
        const int stopAfter = i % 4 == 0 ? 1 + i % 50 : -1;
        MachineCodeOptions options;
        options.hotAfter = MachineCodeOptions::never;
        const std::string interpreted = ran(program, options, budget, stopAfter, nullptr);
        ASSERT_EQ(interpreted.find("does not load"), std::string::npos) << interpreted << program;
        options.counts = true;
        for (const std::uint32_t hotAfter : {0u, 3u}) {
            for (const std::uint32_t failEvery : {0u, 1u + seed % 37}) {
                options.hotAfter = hotAfter;
                options.failEvery = failEvery;
                expectSame(interpreted, ran(program, options, budget, stopAfter, &counts),
                           "program " + std::to_string(i) + ", hot after " + std::to_string(hotAfter) +
                               ", guards fail every " + std::to_string(failEvery) + "\n" + program);
                if (HasFatalFailure()) return;
            }
        }
    }
    if (wanted != nullptr)
        for (const auto& [name, count] : counts)
            std::printf("%-24s %12llu %10llu\n", std::string(name).c_str(),
                        static_cast<unsigned long long>(count.executed),
                        static_cast<unsigned long long>(count.handedBack));
    if (counts.empty()) GTEST_SKIP() << "no machine code here";
    // Those that loops over numbers consist of; each has to come about, or the programs test nothing.
    for (const char* name :
         {"AddRR",          "SubtractRK", "MultiplyRR", "DivideRR",    "IntegerDivideRK", "ModuloRK",
          "AndRR",          "LetGlobal",  "LoadGlobal", "LetReferred", "LoadReferred",    "ForNext",
          "ForNextOnePoll", "ForPrepare", "Index",      "IndexMany",   "PutIndexR",       "PutIndexMany",
          "CallProcedure",  "Return",     "Poll",       "Tick",        "JumpUnlessLessRK"})
        EXPECT_GT(counts[name].executed, 0u) << name;
}

}  // namespace
}  // namespace tolvan::script
