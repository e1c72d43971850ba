// Fuzzes the whole engine. The first byte decides: the rest is a module as it stands, or the first choices from which
// one is written that is right in its grammar, so that the compiler and the machine get to work. Afterwards nothing of
// the script may be left in memory.

#include "platform/script/Executor.h"

#include <cstdint>
#include <cstdlib>
#include <numeric>
#include <random>

namespace {

namespace script = tolvan::script;

class Console : public script::HostObject {
  public:
    std::string_view typeName() const override { return "ParentForm"; }
    int findMember(std::string_view name) const override {
        for (int member = 0; member < memberCount; ++member)
            if (name == memberNames[member]) return member;
        return noMember;
    }
    script::Value call(int member, script::Arguments& arguments) override {
        if (member == 0) {
            budget_ = isRunning_ ? 10 : 0;
            return script::Value::boolean(isRunning_);
        }
        if (member == 1) arguments.text(0);
        if (member == 2) arguments.assign(0, script::Value::text("12"));
        if (member == 3) {
            isRunning_ = false;
            budget_ = 0;
        }
        return script::Value::number(arguments.isMissing(1) ? 0 : arguments.number(1));
    }
    int* pollBudget(int member) override { return member == 0 ? &budget_ : nullptr; }

  private:
    static constexpr int memberCount = 5;
    static constexpr std::string_view memberNames[memberCount] = {"goOn", "show", "ask", "halt", "width"};
    int budget_ = 0;
    bool isRunning_ = true;
};

class Writer {
  public:
    Writer(const std::uint8_t* data, std::size_t size) : data_(data), size_(size), random_(seedOf(data, size)) {}

    std::string module() {
        const std::size_t length = shortestModule << choose(7);
        // Otherwise the first error would be the end of most modules.
        if (choose(4) != 0) put("On Error Resume Next");
        if (choose(2) != 0) scriptClass();
        if (choose(4) == 0) put("Const less = -1.5, more = \"text\"");
        while (text_.size() < length) {
            switch (choose(8)) {
                case 0:
                    procedure("Sub", "End Sub");
                    break;
                case 1:
                    procedure("Function", "End Function");
                    break;
                case 2:
                    scriptClass();
                    break;
                default:
                    statement(0);
                    break;
            }
        }
        return text_;
    }

  private:
    static constexpr std::size_t shortestModule = 64;
    static constexpr std::size_t longestModule = 5000;
    static constexpr int deepest = 4;

    static std::uint32_t seedOf(const std::uint8_t* data, std::size_t size) {
        return std::accumulate(data, data + size, 1u,
                               [](std::uint32_t sum, std::uint8_t byte) { return sum * 31 + byte; });
    }
    // Few bytes make a long module: where they end, numbers that follow from them take over.
    unsigned choose(unsigned count) {
        return (place_ < size_ ? data_[place_++] : static_cast<unsigned>(random_() >> 8)) % count;
    }
    std::string one(std::initializer_list<const char*> words) {
        return *(words.begin() + choose(static_cast<unsigned>(words.size())));
    }
    std::string name() {
        if (inClass_ && choose(4) == 0) return one({"hidden", "m", "p", "arr", "value"});
        return one({"a", "b", "c", "d", "arr", "obj", "f", "g", "h", "i", "x", "width", "ask", "less", "K"});
    }
    std::string member() { return one({"p", "m", "arr", "value", "goOn", "show", "Number", "nothing"}); }
    std::string operation() {
        return one({" + ", " - ", " * ",  " / ",  " \\ ",  " Mod ", " ^ ",   " & ",   " = ",   " <> ",
                    " < ", " > ", " <= ", " >= ", " And ", " Or ",  " Xor ", " Eqv ", " Imp ", " Is "});
    }
    std::string literal() {
        return one({"1", "0", "2", "-1", "32767", "2147483647", "1.5", "1E300", "\"\"", "\"text\"", "\"12\"", "Null",
                    "Empty", "True", "False", "Nothing", "&HFFFF", "#1/2/2003#", "vbCrLf"});
    }
    std::string arguments(int depth) {
        std::string list;
        for (unsigned count = choose(4); count > 0; --count)
            list += (choose(8) == 0 ? std::string() : expression(depth + 1)) + (count > 1 ? ", " : "");
        return list;
    }
    std::string expression(int depth) {
        if (depth > deepest) return choose(2) == 0 ? name() : literal();
        switch (choose(15)) {
            case 0:
            case 1:
                return literal();
            case 2:
                return expression(depth + 1) + operation() + expression(depth + 1);
            case 3:
                return "(" + expression(depth + 1) + ")";
            case 4:
                return one({"Not ", "-", "+"}) + expression(depth + 1);
            case 5:
                return name() + "(" + arguments(depth) + ")";
            case 6:
                return name() + "." + member();
            case 7:
                return name() + "." + member() + "(" + arguments(depth) + ")";
            case 8:
                return one({"Len", "Mid", "Array", "Split", "Join", "CStr", "CDbl", "UBound", "Replace", "TypeName",
                            "Left", "Eval", "IsArray", "Abs", "Filter"}) +
                       "(" + arguments(depth) + ")";
            case 9:
                return one({"New K", "New L"});
            case 10:
                return "GetRef(\"f\")";
            case 11:
                return (inClass_ ? "Me." : "host.") + member();
            case 12:
                return name() + one({" < 2", " = b", " <> 1.5", ""}) + one({" And ", " Or "}) + one({"Not ", ""}) +
                       expression(depth + 1) + one({" > 1", " = \"a\"", ""});
            default:
                return name();
        }
    }
    std::string target(int depth) {
        switch (choose(6)) {
            case 0:
                return name() + "(" + expression(depth + 1) + ")";
            case 1:
                return name() + "." + member();
            case 2:
                return name() + "(" + expression(depth + 1) + ")(" + expression(depth + 1) + ")";
            case 3:
                return name() + "." + member() + "(" + expression(depth + 1) + ")";
            default:
                return name();
        }
    }
    void put(const std::string& line) { text_ += line + "\n"; }
    void body(int depth) {
        for (unsigned count = choose(4); count > 0; --count) statement(depth + 1);
    }
    void statement(int depth) {
        if (text_.size() > longestModule) return;
        if (depth > deepest) return put(name() + " = " + literal());
        switch (choose(25)) {
            case 0:
                return put("Set " + target(depth) + " = " + expression(depth));
            case 1:
                return put(name() + " " + arguments(depth));
            case 2:
                return put("host." + member() + " " + arguments(depth));
            case 3:
                return put(one({"ReDim ", "ReDim Preserve "}) + name() + "(" + one({"3", "a", "0, 1", "2, 2", "-1"}) +
                           ")");
            case 4:
                return put("Erase " + one({"a", "arr", "arr(1)", "obj.arr", "c"}));
            case 5:
                return put(one({"On Error Resume Next", "On Error GoTo 0", "Err.Raise 5", "Err.Clear"}));
            case 6:
                return put("if not host.goOn then err.raise 1001");
            case 7:
                put("If " + expression(depth) + " Then");
                body(depth);
                put(one({"Else", "ElseIf a Then", "ElseIf b < 2 Then"}));
                body(depth);
                return put("End If");
            case 8:
                put("For " + name() + " = " + expression(depth) + " To " + one({"3", "a", "2.5", "-2"}) +
                    one({"", " Step 2", " Step -1", " Step b"}));
                body(depth);
                if (choose(3) == 0) put("If c > 2 Then Exit For");
                return put("Next");
            case 9:
                put("For Each " + name() + " In " + expression(depth));
                body(depth);
                return put("Next");
            case 10:
                put("While " + expression(depth));
                body(depth);
                return put("Wend");
            case 11:
                put(one({"Do", "Do While a < 3", "Do Until b > 2"}));
                body(depth);
                put("a = a + 1 : If a > 5 Then Exit Do");
                return put("Loop");
            case 12:
                put("Select Case " + expression(depth));
                put("Case " + literal() + ", " + expression(depth));
                body(depth);
                put("Case Else");
                body(depth);
                return put("End Select");
            case 13:
                put("With " + expression(depth));
                put("." + member() + " = " + expression(depth));
                body(depth);
                return put("End With");
            case 14:
                return put(one({"Execute", "ExecuteGlobal"}) + " \"" +
                           one({"a = b", "arr(1) = c", "Sub g : a = 1 : End Sub", "f 1", "z = 1", "Dim q(2)", "If",
                                "Function f(x) : x = x & 1 : f = x : Erase arr : End Function",
                                "Dim a : a = Array(1, 2)", "Const b = 3", "Set obj = New K",
                                "Class L : Public p : Sub m(x) : x = 1 : End Sub : End Class", "Set obj = New L",
                                "Execute \"\"d = d + 1 : Sub h(x) : f x : End Sub\"\"",
                                "ExecuteGlobal \"\"Sub i(x) : x = a : End Sub\"\" : i c"}) +
                           "\"");
            case 15:
                return put("Call " + name() + "(" + arguments(depth) + ")");
            case 16:
                return put(name() + " = " + name() + " & " + expression(depth) + " & " + name());
            case 17:
                return put("arr = Array(" + arguments(depth) + ")");
            case 18:
                return put("Set obj = " + one({"New K", "obj.m(obj)", "GetRef(\"g\")", "Nothing", "arr(1)"}));
            case 19:
                return put(exit_);
            default:
                return put(target(depth) + " = " + expression(depth));
        }
    }
    // Each name once: a second procedure of a name would be refused.
    void procedure(const std::string& head, const std::string& end) {
        if (procedures_ == std::size(procedureNames)) return statement(0);
        put(head + " " + procedureNames[procedures_++] + one({"", "(a)", "(ByVal a)", "(a, b)", "(arr, ByVal b, c)"}));
        if (choose(3) == 0) put("Dim " + one({"x", "arr(3)", "d(), i", "arr(1, 2)"}));
        if (choose(2) == 0) put("On Error Resume Next");
        exit_ = "Exit " + head;
        body(0);
        exit_ = outsideExit;
        put(end);
    }
    void scriptClass() {
        if (hasClass_) return;
        hasClass_ = inClass_ = true;
        put("Class K\nPublic p, arr(2)\nPrivate hidden");
        put("Public Default Property Get value\nvalue = " + expression(0) + "\nEnd Property");
        put("Public Property Let value(v)\nhidden = v");
        body(1);
        put("End Property\nPublic Property Set q(v)\nSet p = v\nEnd Property");
        put("Function m(x)\nm = " + expression(1));
        body(1);
        put("End Function");
        if (choose(2) == 0) put("Sub Class_Initialize\np = 1 : c = c + 1\nEnd Sub");
        if (choose(2) == 0) {
            put("Sub Class_Terminate");
            body(2);
            put("End Sub");
        }
        put("End Class");
        inClass_ = false;
    }

    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t place_ = 0;
    std::minstd_rand random_;
    std::string text_;
    bool hasClass_ = false;
    bool inClass_ = false;
    static constexpr const char* procedureNames[] = {"f", "g", "h"};
    std::size_t procedures_ = 0;
    static constexpr const char* outsideExit = "c = c + 1";
    std::string exit_ = outsideExit;  // what leaves the procedure that is being written
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const bool isRaw = data[0] % 4 == 0;
    const std::string module =
        isRaw ? std::string(reinterpret_cast<const char*>(data) + 1, size - 1) : Writer(data + 1, size - 1).module();
    if (std::getenv("SHOW_MODULE") != nullptr) std::fputs(module.c_str(), stderr);
    Console console;
    // One for all modules: each has to leave it as new.
    static script::Executor executor;
    executor.setTimeout(10);
    executor.setMemoryLimit(std::size_t{8} << 20);
    executor.addObject("host", console, script::Executor::Members::AlsoGlobal);
    if (executor.addCode(module)) {
        // What it declares anew has procedures of the first module compiled again.
        if (data[0] % 8 < 4)
            executor.addCode("Dim d, i\nSub g(x)\nx = 2 : a = x\nEnd Sub\nFunction Len(x)\nEnd Function");
        const script::Value arguments[] = {script::Value::longInteger(3), script::Value::text("ab")};
        for (const char* procedure : {"f", "g", "h"})
            for (std::size_t count = 0; count <= 2; ++count) executor.run(procedure, {arguments, count});
    }
    const script::ErrorReport& error = executor.error();
    if (error.number != 0 && error.number != script::errors::undefinedProcedure && error.line < 0) std::abort();
    executor.reset();
    if (executor.memoryUsed() != 0) std::abort();
    return 0;
}
