#include "library/AddLibrary.h"

#include "library/LibraryWords.h"
#include "platform/script/syntax/AstVisitor.h"
#include "platform/script/syntax/Parser.h"
#include "platform/script/syntax/SyntaxError.h"
#include "translator/Translator.h"
#include "translator/VariableTable.h"

#include <algorithm>
#include <memory>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

namespace tolvan {
namespace {

// Collects the names to which a module gives a meaning or a value of its own.
class OwnNames : public script::AstVisitor {
  public:
    OwnNames(const script::Module& module, script::Names& names)
        : fileInput_(names.intern("FileInput")), inputString_(names.intern("InputString")) {
        visit(module.body);
        for (const script::ProcedureNode* procedure : module.procedures) {
            own_.insert(procedure->name);
            for (const script::Parameter& parameter : procedure->parameters) own_.insert(parameter.name);
            visit(procedure->body);
        }
    }

    bool contains(script::NameId name) const { return own_.contains(name); }

  private:
    void onAssigned(const script::Expr& target) override { ownVariable(&target); }
    void onDim(const script::DimStmt& statement) override {
        for (const script::Variable& variable : statement.variables) own_.insert(variable.name);
    }
    void onConst(const script::ConstStmt& statement) override { own_.insert(statement.name); }
    // What the console reads goes into the variable that is given to it.
    void onCall(const script::Expr& call) override {
        const script::Expr* callee = call.left;
        if (callee->kind != script::ExprKind::Member) return;
        if (callee->name != fileInput_ && callee->name != inputString_) return;
        for (const script::Expr* argument : call.arguments) ownVariable(argument);
    }

    // The variable, or the array of the element.
    void ownVariable(const script::Expr* target) {
        while (target != nullptr && target->kind == script::ExprKind::Call) target = target->left;
        if (target != nullptr && target->kind == script::ExprKind::Name) own_.insert(target->name);
    }

    const script::NameId fileInput_;
    const script::NameId inputString_;
    std::set<script::NameId> own_;
};

// The line that begins the library's part.
constexpr std::string_view libraryBegins = "\r\n' Functions of the library\r\n";

struct UsedWord {
    const LibraryWord* word;
    std::string_view scriptName;
};

// By their script names, so that the same program always becomes the same module.
std::vector<UsedWord> usedWords(const VariableTable& names) {
    std::vector<UsedWord> used;
    for (const auto& [name, scriptName] : names)
        if (const LibraryWord* const word = findLibraryWord(name)) used.push_back({word, scriptName});
    std::sort(used.begin(), used.end(),
              [](const UsedWord& a, const UsedWord& b) { return a.scriptName < b.scriptName; });
    return used;
}

std::string scriptFunction(const UsedWord& used) {
    std::string text = "Function ";
    text.append(used.scriptName).append("(");
    for (const char c : used.word->parameters) {
        // Given by value: what the function does to them is not the program's concern.
        if (text.back() == '(' || text.back() == ' ') text += "ByVal ";
        text += c;
    }
    text += ")\r\n";
    for (const char c : used.word->body) {
        if (c == '%')
            text += used.scriptName;
        else if (c == '\n')
            text += "\r\n";
        else
            text += c;
    }
    return text += "\r\nEnd Function\r\n";
}

}  // namespace

std::string addLibrary(std::string module, const VariableTable& names) {
    const std::vector<UsedWord> used = usedWords(names);
    if (used.empty()) return module;
    script::Names scriptNames;
    std::unique_ptr<script::Module> tree;
    try {
        tree = script::Parser(module, scriptNames).parseModule();
    } catch (const script::SyntaxError&) {
        return module;
    }
    const OwnNames own(*tree, scriptNames);
    std::string functions;
    for (const UsedWord& word : used)
        if (!own.contains(scriptNames.intern(word.scriptName))) functions += scriptFunction(word);
    if (!functions.empty()) module.append(libraryBegins).append(functions);
    return module;
}

int ownLines(std::string_view module) {
    const std::string_view own = module.substr(0, module.rfind(libraryBegins));
    return static_cast<int>(std::count(own.begin(), own.end(), '\n')) + 1;
}

ScriptWords scriptWords(const VariableTable& names) {
    std::map<std::string, std::set<std::string>> all;
    for (const auto& [name, scriptName] : names) all[scriptName].insert(name);
    ScriptWords words;
    for (const auto& [scriptName, ofIt] : all)
        for (const std::string& word : ofIt)
            words[scriptName].append(words[scriptName].empty() ? "" : " ").append(word);
    return words;
}

std::string RunnableProgram::wordOf(std::string_view scriptName) const {
    const auto found = words.find(scriptName);
    return found == words.end() ? std::string() : found->second;
}

std::string RunnableProgram::functionAround(int programLine) const {
    constexpr std::string_view head = "Function ";
    std::string function;
    std::string_view rest = module;
    const int last = lines.scriptLine(programLine);
    for (int number = 1; number <= last; ++number) {
        const std::string_view line = rest.substr(0, rest.find("\r\n"));
        if (lines.kind(number) == ModuleLines::Kind::FunctionHead && line.size() > head.size())
            function = wordOf(line.substr(head.size(), line.find_first_of("( ", head.size()) - head.size()));
        else if (number < last && sameButForCase(line.substr(0, line.find_last_not_of(' ') + 1), "End Function"))
            function.clear();
        rest.remove_prefix(std::min(line.size() + 2, rest.size()));
    }
    return function;
}

RunnableProgram runnableProgram(StyledView program) {
    Translator translator;
    std::string module = translator.Compile(program);
    return {addLibrary(std::move(module), translator.variables()), translator.moduleLines(),
            scriptWords(translator.variables())};
}

std::string runnableModule(StyledView program) {
    return runnableProgram(program).module;
}

}  // namespace tolvan
