// Whether machine code does what the interpreter does: random programs run interpreted, as machine code from the first
// pass, from some passes on, and with guards that fail by force. Whatever can be seen of them has to be the same: what
// they print, how they end, and all variables and the budget at each question of a poll. Some are watched, as in the
// editor, and are recorded for a while now and then, as those that pause.
//
// TOLVAN_PROGRAMS=N runs N programs instead of a few, and prints how often each operation and each exit was reached;
// from 2500 programs on, each has to be reached 1000 times.
#include "platform/script/ArrayCell.h"
#include "platform/script/Executor.h"
#include "platform/script/Recording.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <random>
#include <utility>
#include <vector>

namespace tolvan::script {
namespace {

// How the host answers polls.
struct Polls {
    int budget;     // polls between two questions
    int stopAfter;  // questions
    bool areWatched;
    int asked = 0;
    // A watched program asks before its next poll where the budget is 0, unless it is machine code.
    bool areSeen() const { return !areWatched || budget == 0; }
};

class Watching : public HostObject {
  public:
    explicit Watching(Executor& executor, const Polls& polls)
        : executor_(executor), polls_(polls), stopAfter_(polls.stopAfter) {
        executor.setWatched(polls.areWatched);
    }
    ~Watching() override { executor_.setRecording(nullptr); }

    std::string_view typeName() const override { return "host"; }
    int findMember(std::string_view name) const override {
        constexpr std::string_view names[] = {"goOn", "show", "ask", "size", "mix", "few", "none"};
        const auto* const found = std::find(std::begin(names), std::end(names), name);
        return found == std::end(names) ? noMember : static_cast<int>(found - names);
    }
    Value call(int member, Arguments& arguments) override {
        if (member == 1) seen += shown(arguments[0]) + "\n";
        if (member == 2) arguments.assign(0, size_);
        if (member == 6) return Value::number(std::numeric_limits<double>::quiet_NaN());
        if (member >= 4) return ofManyTypes(member == 4);
        if (member != 0) return member == 3 ? size_ : Value();
        ++asked;
        if (polls_.areSeen()) look();
        if (polls_.areWatched && asked % 3 == 0) executor_.setRecording(asked % 2 == 0 ? nullptr : &recording_);
        const bool goesOn = --stopAfter_ != 0;
        budget_ = !goesOn ? 0 : asked < mostQuestions ? polls_.budget : 1000000;
        return Value::boolean(goesOn);
    }
    void put(int, Arguments&, const Value& value) override {
        size_ = value.isOneOf(Value::heapTypes) ? Value::number(std::numeric_limits<double>::quiet_NaN()) : value;
    }
    int* pollBudget(int member) override { return member == 0 ? &budget_ : nullptr; }

    std::string seen;
    int asked = 0;

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

  private:
    static constexpr int mostQuestions = 200;
    // Another type each time.
    Value ofManyTypes(bool mayBeBig) {
        const Value big[] = {
            Value::integer(32767), Value::longInteger(70000), Value::number(2.5), Value::longInteger(2147483640),
            Value::integer(-3),    Value::boolean(true),      Value::number(-7),  Value::text("7"),
            Value::longInteger(-5)};
        const Value few[] = {Value::integer(1), Value::longInteger(2), Value::number(3), Value::integer(2),
                             Value::text("1")};
        ++made_;
        return mayBeBig ? big[made_ % std::size(big)] : few[made_ % std::size(few)];
    }
    void look() {
        const Inspection inspection = executor_.inspect();
        for (std::size_t level = 0; level <= inspection.depth(); ++level) {
            seen += "at " + std::to_string(inspection.line(level));
            for (const InspectedVariable& one : inspection.variables(level))
                seen += " " + one.name + "=" + shown(one.value);
        }
        seen += " left " + std::to_string(budget_) + "\n";
    }

    Executor& executor_;
    const Polls polls_;
    Recording recording_;
    int stopAfter_;
    int budget_ = 0;
    std::size_t made_ = 0;
    Value size_ = Value::integer(7);
};

// Writes programs of the statements that become machine code, in loops, with values near the ends of each type.
class Writer {
  public:
    explicit Writer(std::uint32_t seed) : random_(seed), tour_(seed * statementsPerTour) {}

    std::string program() {
        hasClass_ = choose(3) == 0;
        runsSource_ = choose(6) == 0;
        handlesErrors_ = choose(3) == 0;
        text_ = "Dim u, v, w(12), g\n";
        put("Function f(n)\nIf n < 1 Then\nf = " + one({"n", "u", "w(1)", "0.5", "32760"}) +
            "\nElse\nf = f(n - 1) + n" + one({"", " * 1.5"}) + "\nEnd If\nEnd Function");
        if (hasClass_) scriptClass();
        put("Sub p(x, r())\nDim a, b, c, d(), e, i, j, k, n, o, s, t, m(3, 4) : n = 3 : a = 1 : b = 2 : s = \"\"");
        isInP_ = true;
        body(1);
        isInP_ = false;
        put("x = x + n\nIf " + expression(2) + " Then r(n Mod 12) = x\nEnd Sub");
        put("Sub q(n)");
        if (handlesErrors_) put("On Error Resume Next");
        put("Dim a, b, c, d(), e, i, j, k, o, s, t, r(12), m(3, 4)");
        put("a = " + literal() + " : b = " + literal() + " : c = " + literal() + " : s = \"\"");
        put("For i = 0 To 12 : r(i) = i * " + one({"1", "2", "-1", "0.5", "3000", "True"}) + " : w(i) = i : Next");
        put("ReDim d(" + one({"5", "12", "30"}) + ") : e = " + one({"r", "d", "w"}) +
            one({"", " : g = w", " : g = e"}));
        put("For i = 0 To 3 : For j = 0 To 4 : m(i, j) = i + j : Next : Next");
        if (hasClass_) put("Set o = New K");
        if (runsSource_) put("ExecuteGlobal \"Class L : Public p : End Class\"");
        tour(false);
        tour(true);
        loop(0);
        put("show a : show b : show c : show s : show r : show m : show w\nEnd Sub");
        return text_;
    }

  private:
    unsigned choose(unsigned count) { return static_cast<unsigned>(random_() % count); }
    std::string one(std::initializer_list<const char*> words) {
        return *(words.begin() + choose(static_cast<unsigned>(words.size())));
    }
    void put(const std::string& line) { text_ += line + "\n"; }
    void poll() { put("if not host.goOn then err.raise 1001"); }

    // The operations one after the other, in a loop in which the kinds of their operands change; or each in a loop of
    // its own, where they are different ones in each pass.
    void tour(bool isApart) {
        const char* const operations[] = {" + ",  " - ",   " * ",   " / ",   " \\ ", " Mod ", " And ",
                                          " Or ", " Xor ", " Eqv ", " Imp ", " ^ ",  " & "};
        const struct {
            std::string sign, holds;
        } comparisons[] = {{" < ", "-9"}, {" = ", ""}, {" >= ", "99"}, {" <> ", "-9"}, {" <= ", "-9"}, {" > ", "99"}};
        std::vector<std::string> list = {"m(i And 3, 2) = a",
                                         "c = m(i And 3, 1)",
                                         "c = r(i And 7)",
                                         "r(i And 7) = a",
                                         "r(3) = 7",
                                         "c = -a",
                                         "c = +a",
                                         "c = (8 - i) \\ 3 : c = c + (5 - i) Mod 7",
                                         "c = (8 - i) * 250000007 \\ 1000",
                                         "c = (5 - i) Mod 2 : c = c * 10 + (8 - i) \\ 2",
                                         "c = Not a",
                                         "c = Not i",
                                         "c = a + 1 : c = a - 300",
                                         "For k = 0 To 2.5 Step 0.5 : t = t + k : Next",
                                         "For k = 3 To 1 Step -1 : t = t + r(k) : Next",
                                         "For k = 2.5 To 0 Step -0.5 : t = t + k : Next",
                                         "For k = 32766 To 32769 : t = k : Next",
                                         "For k = 2147483645 To 2147483647 : t = k : Next",
                                         "For k = 32766 To 32769\nif not host.goOn then err.raise 1001\nNext",
                                         "For k = 32760 To 32769 Step 4 : t = k : Next",
                                         "For k = b To 4 : t = k : Next",
                                         "c = a \\ -2 : c = a Mod -3",
                                         "c = a + 100000",
                                         "c = a - 100000",
                                         "c = a * 100000",
                                         "c = a / 0.3",
                                         "t = 2147400000 + i * 3 : c = t + 100000",
                                         "t = -2147400000 - i * 3 : c = t - 100000",
                                         "t = -2147400000 : c = t - 100000 : c = t - 90000",
                                         "t = i * 0.5 : c = t * t",
                                         "t = i * 0.5 : c = i * t",
                                         "t = i * 0.5 : c = t / i",
                                         "t = i * 0.5 : c = t - i",
                                         "t = i * 0.5 : c = i - t",
                                         "t = i * 0.5 : c = t - t : c = t + t",
                                         "t = i * 0.5 : c = t / 4",
                                         "t = i * 0.5 : c = t - 70000",
                                         "t = i * 2.5 : c = 3 - t : c = t - 100000",
                                         "c = i \\ -2",
                                         "c = i Mod -3",
                                         "k = i - 20 : c = i Mod k",
                                         "t = i * 0.5 : c = t * 3 : c = t + 70000",
                                         "c = -(i * 40000) : c = -c",
                                         "c = -(-32766 - (i And 3))",
                                         "t = -32768 : c = -t",
                                         "k = i - 20 : c = i \\ k : c = i Mod k",
                                         "k = i - 20 : c = k \\ -3 : c = k Mod -3",
                                         "For k = 1 To b : If k > 3 Then Exit For\nNext",
                                         "For k = host.few To host.few : Next",
                                         "r(i And 7) = 5 : r(i And 3) = 2.5",
                                         "k = host.few : r(k) = 5",
                                         "k = host.few : r(k) = a : c = r(k)",
                                         "t = 0 : Do : t = t + 1 : If t > 3 Then Exit Do\nLoop While a",
                                         "If a Then c = 4",
                                         "s = s & Mid(s, 1, 2)",
                                         "For k = 1 To 2000 : Next",
                                         "c = i + 1\nif not host.goOn then err.raise 1001\nc = c * 2",
                                         "c = n : n = c",
                                         "n = i : c = n",
                                         "n = i + 1 : n = 2.5",
                                         "c = Abs(5 - i)",
                                         "c = Abs(a * -0.5)",
                                         "c = Sqr(i * 0.25) : c = Sqr(i)",
                                         "c = Int(i * -0.3) : c = Int(i)",
                                         "c = Fix(i * -0.3)",
                                         "For Each v In w : t = v : Next",
                                         "p a, r",
                                         "p u, w",
                                         "c = f(3)",
                                         "c = f(u)",
                                         "c = f(450)",
                                         "show a",
                                         "host.size = a",
                                         "c = host.size",
                                         "ask b : b = 2",
                                         "ask u",
                                         "s = s & a",
                                         "s = s & \"y\"",
                                         "v = v & a & 1",
                                         "r(9) = r(9) & a",
                                         "r(9) = i",
                                         "u = a : c = u",
                                         "u = i",
                                         "c = Mid(s, i, 1) & \"z\"",
                                         "c = Mid(\"abc\", 2, 1)",
                                         "c = Len(s)",
                                         "c = Left(\"abc\", i)",
                                         "ReDim g(i + 2) : c = UBound(g)",
                                         "ReDim Preserve d(i + 3)",
                                         "e = d",
                                         "e(1) = i : c = e(1)",
                                         "d(2) = a : c = d(2)",
                                         "Erase g",
                                         "Do : t = t + 1 : Loop Until t Mod 3 = 0",
                                         "Do : t = t + 1 : Loop While (t And 3)",
                                         "Do While (i And 3) > t : t = t + 1 : Loop",
                                         "c = a : a = c",
                                         "Set o = Nothing : c = o Is Nothing",
                                         "If i = 5 Then r(12) = CLng(i)",
                                         "c = \"x\" : c = s",
                                         "If Not (i < 3) Then c = 1",
                                         "If (i And 1) Then c = 2",
                                         "If i > 2 And a > 1 And b > 0 Then c = 3"};
        for (const std::string operation : operations)
            for (const char* right : {"b", "3", "i"}) list.push_back("c = a" + operation + right);
        for (const auto& [comparison, holds] : comparisons) {
            for (const std::string& right : {std::string("b"), std::string("3"), one({"\"5\"", "True"})}) {
                const std::string test = "a" + comparison + right;
                list.push_back("c = " + test);
                list.push_back("If " + test + " Then c = 5");
                list.push_back("If " + test + " Or i" + comparison + right + " Then c = 1");
                list.push_back("t = 0 : Do : t = t + 1 : If t > 3 Then Exit Do\nLoop While t" + comparison + right);
                list.push_back("k = 0 : t = " + (holds.empty() ? right : holds) + "\nDo While t" + comparison + right +
                               "\nif not host.goOn then err.raise 1001\nk = k + 1 : If k > 5 Then Exit Do" +
                               "\nIf k > 1 Then t = host.mix\nLoop");
            }
            list.push_back("t = host.none : c = (t" + comparison + "b) : If t" + comparison + "i Then c = 8\nt = 0");
            list.push_back("c = (Mid(s, i, 1)" + comparison + "\"x\")");
            list.push_back("If Mid(\"axb\", 2, 1)" + comparison + "Mid(s, 1, 1) Then c = 7");
        }
        if (hasClass_)
            for (const char* one :
                 {"Set o = New K", "o.p = i : c = o.p", "c = o.m(a)", "o.arr(1) = i : c = o.arr(1)",
                  "With o : .p = a : c = .p : End With", "Set r(10) = o : r(10) = 1", "Set u = o : u = 1",
                  "Set o.other = o : Set o.other = Nothing", "o.fill c", "c = o + 1", "o.value = 3"})
                list.insert(list.begin() + choose(static_cast<unsigned>(list.size())),
                            std::string("Set o = New K : ") + one);
        if (handlesErrors_)
            for (const char* one : {"c = f(1, 2)", "c = f()", "c = 1 \\ (i - 5)", "w(i) = w(i + 5)", "p a", "f(1) = i"})
                list.insert(list.begin() + choose(static_cast<unsigned>(list.size())), one);
        if (runsSource_)
            for (const char* one :
                 {"c = Eval(\"a + 1\")", "Execute \"z = i\" : c = z", "c = z", "t = z", "p z, w",
                  "For z = 1 To 3 : Next", "ExecuteGlobal \"u = 3\"", "Set o = New L", "Set o = New L : o.p = i"})
                list.insert(list.begin() + choose(static_cast<unsigned>(list.size())), one);
        put("a = 3 : b = 2");
        const unsigned count = isApart ? 4 * statementsPerTour : statementsPerTour;
        for (unsigned i = 0; i < count; ++i) {
            if (i == 0 || isApart) put("For i = 1 To 16");
            if (choose(isApart ? 8 : 2) == 0) poll();
            if (isApart)
                put("a = host.mix : b = host." + one({"mix", "few"}));
            else if (i == 0)
                put("If i = " + one({"4", "9"}) +
                    " Then a = " + one({"2.5", "70000", "\"7\"", "True", "32767", "2147483640"}) +
                    "\nIf i = " + one({"6", "12"}) + " Then b = " + one({"1.5", "40000", "\"3\"", "CDbl(7)", "-3"}));
            put(list[(tour_ + i * 13) % list.size()]);
            if (i + 1 == count || isApart) put("Next");
        }
        tour_ += 5 * statementsPerTour;
    }

    void scriptClass() {
        put("Class K\nPublic p, arr(5)\nPrivate hidden\n"
            "Public Default Property Get value\nvalue = p\nEnd Property\n"
            "Public Property Let value(x)\nhidden = x\nEnd Property\n"
            "Public Property Set other(x)\nSet hidden = x\nEnd Property\n"
            "Function m(x)\nDim i\nFor i = 0 To 3");
        if (choose(2) == 0) poll();
        put("p = p + " + one({"i", "1.5", "10000"}) + " : x = i : arr(i) = p\nIf i > 1 Then Set hidden = Me\n" +
            one({"", "fill p\n", "fill arr(i)\n"}) + "Next\nm = p + arr(1)\nSet hidden = Nothing\nEnd Function");
        put("Sub fill(x)\nx = x + 1\nEnd Sub");
        if (choose(2) == 0) put("Sub Class_Initialize\np = 1\nEnd Sub\nSub Class_Terminate\nu = u + 1\nEnd Sub");
        put("End Class");
    }
    std::string literal() {
        if (choose(12) == 0) return one({"1E308", "\"5\"", "Empty", "Null", "\"x\"", "-1E155", "&H80000000"});
        return one({"0", "1", "2", "3", "7", "-1", "100", "32766", "0.5", "-0.5", "2.5", "-32767", "-32768",
                    "2147483646", "-2147483647", "True"});
    }
    std::string number() {
        return one({"0", "1", "2", "3", "10", "-1", "32767", "-32768", "100000", "2147483647", "0.5", "-1E300"});
    }
    std::string variable() { return one({"a", "b", "c", "a", "b", "n", "i", "j", "u", "v"}); }
    std::string index(int size) {
        if (choose(30) == 0) return variable();
        return "Abs(" + variable() + ") Mod " + std::to_string(size);
    }
    std::string safeIndex() { return one({"i", "j", "k", "2", "0", "n"}) + " And 3"; }
    std::string element() {
        switch (choose(8)) {
            case 0:
            case 1:
                return "r(" + one({"i", "j", "3"}) + ")";
            case 2:
            case 3:
                return "r(" + safeIndex() + ")";
            case 4:
                return "m(" + safeIndex() + ", " + safeIndex() + ")";
            case 5:
                return one({"d(", "e(", "d(", "e(", "g("}) + (choose(9) == 0 ? "i" : safeIndex()) + ")";
            default:
                return "w(" + (choose(8) == 0 ? index(12) : safeIndex()) + ")";
        }
    }
    std::string comparison() { return one({" < ", " = ", " >= ", " <> ", " <= ", " > "}); }
    std::string arithmetic() { return one({" + ", " - ", " * ", " / ", " + ", " - ", " \\ ", " Mod "}); }
    // One that fails always, or from some pass on.
    std::string error() {
        return one({"1 \\ 0", "w(40)", "w(i + 5)", "\"x\" * 2", "CInt(i + 32760)", "r(1, i)", "1 / (i - 3)",
                    "CLng(2147483640) Mod (i - 5)", "m(i)", "f(1, 2)", "Sqr(4 - i)", "nothingSuch(i)", "o.p"});
    }
    std::string expression(int depth) {
        if (choose(handlesErrors_ ? 40 : 400) == 0) return error();
        if (depth >= 3) return choose(3) == 0 ? literal() : variable();
        switch (choose(14)) {
            case 0:
                return literal();
            case 1:
            case 2:
                return element();
            case 3:
                return one({"-", "Not ", "+", "Len", "CDbl", "Int", "Abs", "Sqr", "Fix"}) + "(" +
                       expression(depth + 1) + ")";
            case 4:
                return "(" + expression(depth + 1) + comparison() + expression(depth + 1) + ")";
            case 5:
                return "(" + expression(depth + 1) + one({" And ", " Or ", " Xor ", " Eqv ", " Imp "}) +
                       expression(depth + 1) + ")";
            case 6:
                return "(" + expression(depth + 1) + one({" \\ ", " Mod "}) +
                       one({"3", "10", "7", "b", "-1", "32767", "2147483647", "16"}) + ")";
            case 7:
                return depth < 2 && choose(3) == 0 ? "f(" + one({"2", "3", "n"}) + ")" : variable();
            case 8:
            case 9:
            case 10:
                return "(" + expression(depth + 1) + arithmetic() + expression(depth + 1) + ")";
            case 11:
                return choose(2) == 0 ? "Mid(" + one({"s", "g", "\"abc\""}) + ", " + one({"i", "j", "1", "a"}) + ", 1)"
                                      : "(a" + comparison() + number() + ")";
            default:
                return variable();
        }
    }
    std::string condition() {
        switch (choose(6)) {
            case 0:
                return one({"a", "b", "c", "i", "u"}) + comparison() + number();
            case 1:
                return one({"a", "b", "c"}) + comparison() + one({"b", "i", "u"});
            case 2:
                return "Not (" + expression(2) + ")";
            case 3:
                return one({"a", "i"}) + comparison() + one({"b", "2", "\"5\""}) + one({" Or ", " And "}) +
                       one({"c", "j"}) + comparison() + one({"i", "3"});
            case 4:
                return "Mid(s, i, 1)" + comparison() + one({"\"x\"", "Mid(s, 1, 1)", "s"});
            default:
                return expression(1);
        }
    }
    void body(int depth) {
        for (unsigned count = 1 + choose(4); count > 0; --count) {
            if (choose(3) != 0) poll();
            statement(depth);
        }
    }
    void statement(int depth) {
        switch (choose(25)) {
            case 0:
            case 1:
                return put(element() + " = " + expression(1));
            case 2:
                return put(one({"s = s & a", "s = s & \"x\"", "s = s & i", "s = s & a & \"y\"", "g = g & \"x\"",
                                "r(i) = r(i) & \"z\"", "w(2) = w(2) & a & b", "v = v & \"1\""}));
            case 3:
            case 4:
                put("If " + condition() + " Then");
                body(depth + 1);
                if (choose(2) == 0) {
                    put("Else");
                    body(depth + 1);
                }
                return put("End If");
            case 5:
                if (isInP_) return put("n = n + 1");
                return put("p " + one({"a", "u", "r(2)", "(b)", "d(0)", "c"}) + ", " + one({"r", "w"}));
            case 6:
                if (depth < 3) return loop(depth);
                return put("c = " + literal());
            case 7:
                return put(one({"u", "v"}) + " = " + one({"u", "v"}) + one({" + ", " - ", " * "}) + literal());
            case 8:  // at the end of a type, in every operation
                if (choose(4) == 0)
                    put("a = " + one({"1E308", "-1E308", "0"}) + " : b = " + one({"1E308", "i - 3", "-2"}));
                else
                    put("a = " + one({"32767", "-32768", "2147483647", "-2147483647 - 1", "32760", "i"}) +
                        " : b = " + one({"1", "-1", "i + 1", "32767", "2", "CLng(1)", "-i - 1"}));
                return put("c = a" + arithmetic() + "b : c = " + one({"a + 1", "a - 5", "a * 2", "-a", "a + 32767"}));
            case 9:
                return put(one({"a", "b", "c"}) + " = (" + expression(0) + ") Mod 1000");
            case 10:
                return put("If " + condition() + " Then " + exit_);
            case 11:  // another kind from some pass on
                if (choose(5) == 0) return put(one({"i = i + 0.5", "i = CLng(i)", "i = i + 1", "j = CDbl(j)"}));
                return put("If " + one({"i", "j", "k"}) + " = " + one({"2", "5", "9"}) + " Then " +
                           one({"a", "b", "c", "u", "w(1)", "r(2)"}) + " = " + literal());
            case 12:
                if (choose(8) == 0)
                    return put(one({"ReDim d(2)", "Erase d", "ReDim Preserve r(3)", "Erase g", "e = 5"}));
                return put(one({"ReDim Preserve d(i + 3)", "ReDim Preserve d(j + 3)", "Erase d : ReDim d(4)", "Erase w",
                                "e = d", "e = w", "e = r", "ReDim g(i + 3)", "g = w", "w(12) = w", "ReDim d(i + 12)",
                                "d(3) = d", "v = d", "v = 0"}));
            case 13:
                put("For Each " + one({"c", "v"}) + " In " + one({"r", "w", "d", "e", "m"}));
                body(std::max(depth, 2) + 1);
                return put("Next");
            case 14:
                put("Select Case " + one({"i", "a", "s"}) + "\nCase " + literal() + ", " + variable());
                body(depth + 1);
                put("Case Else\nc = i");
                return put("End Select");
            case 15:
                if (!hasClass_) return put("c = a ^ " + one({"2", "b", "0.5"}));
                return put(one(
                    {"Set o = New K",   "Set o = Nothing", "o.p = o.p + 1",    "a = o",
                     "a = o.m(a)",      "o.m b",           "o.arr(i) = a",     "With o : .p = i : a = .p : End With",
                     "o.value = 3",     "Set r(3) = o",    "c = o Is Nothing", "Set g = o",
                     "g = 1",           "r(3) = 1",        "c = o + 1",        "o = 5",
                     "Set o.other = o", "Set u = o",       "s = s & o",        "c = r(3)",
                     "a = o(1)",        "o.fill b"}));
            case 16:
                if (!runsSource_) return put("c = b ^ 2 + a");
                return put(one({"Execute \"a = a + 1\"", "ExecuteGlobal \"u = 3\"", "c = Eval(\"a + 1\")",
                                "Execute \"z = i\"", "c = z", "z = z + 1", "Execute \"Set g = New L\"",
                                "ExecuteGlobal \"Function f(n) : f = n : End Function\"",
                                "ExecuteGlobal \"Class L : Public p : End Class\"", "Set o = New L"}));
            case 17:
                return put(one({"show a", "host.size = a", "b = host.size", "ask b", "ask r(i)", "ask u", "show s"}));
            case 18:
                if (!handlesErrors_)
                    return put("If i = " + one({"3", "9", "32765"}) + " And n = 2 Then\nc = " + error() + "\nEnd If");
                return put(one({"On Error Resume Next", "On Error GoTo 0", "Err.Clear", "c = Err.Number", "a = 1 \\ 0",
                                "w(90) = 1", "Err.Raise 7"}));
            case 19:
                return put("c = " + one({"a", "u", "i", "r(1)"}) + comparison() + one({"b", "j", "2", "w(2)", "True"}));
            case 20:
                put("Do");
                if (choose(2) == 0) poll();
                put("j = j + 1 : If j > 5 Then Exit Do");
                return put("Loop " + one({"While ", "Until "}) + condition());
            case 21:
                return put(one({"a = i", "b = a : a = c", "a = a + 1 : b = b + i", "a = a + 10000", "b = b + 0.25",
                                "a = a + 1000000000", "c = a * i"}));
            case 22:
                return put("c = (" + one({"a", "i", "-i", "a * i"}) + ")" + one({" \\ ", " Mod "}) +
                           one({"2", "3", "7", "10", "16", "1000", "32767", "2147483647", "i", "j"}));
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
            put("For " + (depth > 0 && choose(12) == 0 ? "v" : counter) + " = " + start + " To " + passes +
                (depth == 0 ? "" : one({"", " Step 1", " Step 0.5", " Step -1", " Step 2"})));
        } else {
            put(counter + " = 0");
            put("Do " + one({"While ", "Until Not "}) + "(" + counter + " < " + passes +
                one({"", " And a < 1000000", " Or s = \"q\""}) + ")");
            if (choose(2) == 0) poll();
            put(counter + " = " + counter + " + 1 : If " + counter + " > 70 Then Exit Do");
        }
        const std::string outer = std::exchange(exit_, isFor ? "Exit For" : "Exit Do");
        body(depth + 1);
        exit_ = outer;
        put(isFor ? "Next" : "Loop");
        if (choose(4) != 0) return;
        // A comparison decides whether to go on, after a poll or not.
        put("t = 0 : Do While " + one({"t", "a", "u"}) + comparison() + one({"b", "4", "i", "2.5"}));
        if (choose(3) != 0) poll();
        put("t = t + 1 : " + one({"a = a + 1", "u = u - 1", "b = a"}) + " : If t > 6 Then Exit Do\nLoop");
    }
    static constexpr unsigned statementsPerTour = 10;
    std::mt19937 random_;
    unsigned tour_;  // the number of its first statement
    std::string text_;
    bool hasClass_ = false;
    bool runsSource_ = false;
    bool handlesErrors_ = false;
    bool isInP_ = false;
    std::string exit_ = "c = 1";  // what leaves the loop that is being written
};

using Counts = std::map<std::string_view, MachineCodeCount>;

void add(Counts& counts, const MachineCodeCount& count) {
    MachineCodeCount& sum = counts[count.operation];
    sum.hasTemplate = count.hasTemplate;
    sum.executed += count.executed;
    sum.helped += count.helped;
    for (std::size_t i = 0; i < machineCodeExits; ++i) {
        sum.made[i] += count.made[i];
        sum.taken[i] += count.taken[i];
    }
}

std::string ran(const std::string& program, const MachineCodeOptions& options, Polls& polls, Counts& counts) {
    Executor executor;
    executor.setMachineCode(options);
    Watching host(executor, polls);
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
            all += " " + host.shown(value);
        }
        host.seen = "\n";
    }
    polls.asked = host.asked;
    for (const MachineCodeCount& count : executor.machineCodeCounts()) add(counts, count);
    return all;
}

// What two outcomes have in common at the beginning is left out.
void expectSame(const std::string& one, const std::string& other, const std::string& what) {
    if (one == other) return;
    auto place =
        static_cast<std::size_t>(std::mismatch(one.begin(), one.end(), other.begin(), other.end()).first - one.begin());
    place -= std::min<std::size_t>(place, 200);
    FAIL() << what << "\ninterpreted: " << one.substr(place, 600) << "\nmachine code: " << other.substr(place, 600);
}

constexpr const char* exitNames[machineCodeExits] = {"loop",  "pause", "interpret", "callee",
                                                     "guard", "kind",  "growth",    "changed"};

// One line for each operation: how often its template, the interpreter's code and each kind of exit were reached.
void print(const Counts& counts) {
    std::printf("%-24s %10s %10s", "", "template", "helper");
    for (const char* name : exitNames) std::printf(" %9s", name);
    for (const auto& [name, count] : counts) {
        std::printf("\n%-24s %10llu %10llu", std::string(name).c_str(),
                    static_cast<unsigned long long>(count.executed - count.helped),
                    static_cast<unsigned long long>(count.helped));
        for (std::size_t i = 0; i < machineCodeExits; ++i)
            std::printf(" %9s", count.made[i] == 0 ? "-" : std::to_string(count.taken[i]).c_str());
    }
    std::printf("\n");
}

bool isFrequent(std::size_t exit) {
    return exit != static_cast<std::size_t>(MachineCodeExit::Loop) &&
           exit != static_cast<std::size_t>(MachineCodeExit::Changed);
}

// Each template and each exit has to be reached so many times.
void expectAllReached(const Counts& counts, std::uint64_t times) {
    for (const auto& [name, count] : counts) {
        if (count.hasTemplate) {
            EXPECT_GE(count.executed - count.helped, times) << name;
        }
        for (std::size_t i = 0; i < machineCodeExits; ++i) {
            if (count.made[i] == 0 || !isFrequent(i)) continue;
            EXPECT_GE(count.taken[i], times) << name << ", exit: " << exitNames[i];
        }
    }
}

// In a few programs: what loops over numbers consist of, and each kind of exit.
void expectMostReached(Counts& counts) {
    for (const char* name :
         {"AddRR",          "SubtractRR", "MultiplyRR", "DivideRR",    "IntegerDivideRK", "ModuloRK",
          "AndRR",          "LetGlobal",  "LoadGlobal", "LetReferred", "LoadReferred",    "ForNext",
          "ForNextOnePoll", "ForPrepare", "Index",      "IndexMany",   "PutIndexR",       "PutIndexMany",
          "CallProcedure",  "Return",     "Poll",       "Tick",        "CallBuiltin",     "JumpIf",
          "JumpUnless",     "Negate",     "Not"})
        EXPECT_GT(counts[name].executed, counts[name].helped) << name;
    for (std::size_t i = 0; i < machineCodeExits; ++i) {
        std::uint64_t taken = 0;
        for (const auto& [name, count] : counts) taken += count.taken[i];
        if (isFrequent(i)) {
            EXPECT_GT(taken, 0u) << exitNames[i];
        }
    }
}

constexpr int fewPrograms = 25;
constexpr int manyPrograms = 2500;
constexpr int mostTimes = 1000;

int numberIn(const char* variable, int otherwise) {
    const char* text = std::getenv(variable);
    return text != nullptr ? std::atoi(text) : otherwise;
}

TEST(MachineCode, DoesWhatTheInterpreterDoes) {
    const int programs = numberIn("TOLVAN_PROGRAMS", 0);
    const int first = numberIn("TOLVAN_FIRST", 0);
    Counts counts;
    for (int i = first; i < first + (programs != 0 ? programs : fewPrograms); ++i) {
        const auto seed = static_cast<std::uint32_t>(i);
        const std::string program = Writer(seed).program();
        Polls polls{i % 3 == 0 ? 0 : i % 3 == 1 ? 7 : 1000, 300, i % 5 == 2};
        MachineCodeOptions options;
        options.hotAfter = MachineCodeOptions::never;
        std::string interpreted = ran(program, options, polls, counts);
        ASSERT_EQ(interpreted.find("does not load"), std::string::npos) << interpreted << program;
        if (i % 2 == 0 && polls.areSeen() && polls.asked > 0) {  // stopped at any one of the polls
            polls.stopAfter = 1 + static_cast<int>(seed * 7919u % static_cast<unsigned>(polls.asked));
            interpreted = ran(program, options, polls, counts);
        }
        options.counts = true;
        for (const std::uint32_t hotAfter : {0u, 3u}) {
            for (const std::uint32_t failEvery : {0u, 1u + seed % 13}) {
                options.hotAfter = hotAfter;
                options.failEvery = failEvery;
                options.learnAfter = (hotAfter == 0) == (failEvery == 0) ? 2 : 50;
                expectSame(interpreted, ran(program, options, polls, counts),
                           "program " + std::to_string(i) + ", hot after " + std::to_string(hotAfter) +
                               ", guards fail every " + std::to_string(failEvery) + "\n" + program);
                if (HasFatalFailure()) return;
            }
        }
    }
    if (counts.empty()) GTEST_SKIP() << "no machine code here";
    if (programs == 0) return expectMostReached(counts);
    print(counts);
    if (programs >= manyPrograms) expectAllReached(counts, mostTimes);
}

}  // namespace
}  // namespace tolvan::script
