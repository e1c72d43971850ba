#include "guide/ReadStatement.h"

#include "guide/Line.h"

#include <algorithm>

namespace tolvan::guide {
namespace {

class StatementReader {
  public:
    explicit StatementReader(Line& line) : words_(line.words), statement_(line.statement) {}

    void read() {
        if (words_.empty()) return;
        statement_.role = role();
        switch (statement_.role) {
            case Role::FunctionHead:
                return readHead();
            case Role::FunctionEnd:
            case Role::EndIf:
            case Role::End:
            case Role::Next:
            case Role::Wend:
                return;
            case Role::For:
                return readLoop();
            default:
                readSimple(statement_.form == StatementKind::General);
        }
    }

  private:
    bool starts(std::string_view word) const { return words_[0].is(word); }
    bool has(std::string_view word) const {
        return std::any_of(words_.begin(), words_.end(), [&](const Word& one) { return one.is(word); });
    }

    Role role() {
        if (has("upaprAyojan")) return has("saMpav") ? Role::FunctionEnd : Role::FunctionHead;
        if (statement_.form == StatementKind::CountedLoop) return Role::For;
        if (statement_.form != StatementKind::General) return Role::Plain;
        if (isAlmostLoop()) return Role::For;
        if (starts("saMpav")) return endRole();
        if (starts("puDhachA")) return Role::Next;
        if (starts("jovar")) return Role::While;
        if (starts("kar")) return Role::Wend;
        if (starts("nAhItarajar")) return Role::ElseIf;
        if (starts("nAhItar")) return elseRole();
        return starts("jar") && opensBlock() ? Role::If : Role::Plain;
    }

    // One of its words is missing.
    bool isAlmostLoop() const {
        if (words_.size() > 1 && words_[1].isEqualSign()) return false;
        return (has("sAThI") && !starts("saMpav")) || (has("te") && has("paryaMt"));
    }

    // After the word for the end stands what ends.
    Role endRole() {
        if (words_.size() < 2) return Role::End;
        if (words_[1].is("jar")) return Role::EndIf;
        const bool loop = words_[1].is("jovar") || words_[1].is("kar");
        const bool counted = words_[1].is("sAThI") || words_[1].is("puDhachA");
        statement_.wrongEnd = loop || counted;
        return loop ? Role::Wend : counted ? Role::Next : Role::End;
    }

    Role elseRole() {
        statement_.splitElseIf = words_.size() > 1 && words_[1].is("jar");
        return statement_.splitElseIf ? Role::ElseIf : Role::Else;
    }

    // A condition with a statement after its "then" is complete on its line.
    bool opensBlock() const { return words_.back().is("tar") || !has("tar"); }

    bool isName(std::size_t i) const { return i < words_.size() && words_[i].kind == Word::Kind::Name; }

    void readHead() {
        for (std::size_t i = 0; i < words_.size(); ++i) {
            if (!isName(i)) continue;
            if (!statement_.function)
                statement_.function = i;
            else
                statement_.sets.push_back(i);
        }
    }

    // The variable stands before its word; where that is missing, at the start.
    void readLoop() {
        const auto loop = std::find_if(words_.begin(), words_.end(), [](const Word& word) { return word.is("sAThI"); });
        const std::size_t firstRead = loop == words_.end() ? 1 : static_cast<std::size_t>(loop - words_.begin());
        for (std::size_t i = 0; i < words_.size(); ++i)
            if (isName(i)) (i < firstRead ? statement_.sets : statement_.reads).push_back(i);
    }

    // One simple statement or, around the words of a condition and after colons, several.
    void readSimple(bool general) {
        for (std::size_t i = 0; i < words_.size(); ++i) {
            if (general && parts(words_[i])) continue;
            if (general) statement_.starts.push_back(i);
            const std::size_t end = general ? endOf(i) : words_.size();
            readOne(i, end);
            i = end;
        }
    }

    static bool parts(const Word& word) { return word.is("tar") || word.is("nAhItar") || word.isMark(':'); }

    std::size_t endOf(std::size_t start) const {
        const auto from = words_.begin() + static_cast<std::ptrdiff_t>(start);
        return static_cast<std::size_t>(std::find_if(from, words_.end(), parts) - words_.begin());
    }

    void readOne(std::size_t start, std::size_t end) {
        const Word& word = words_[start];
        if (word.is("mitI")) return readDeclared(start + 1, end);
        if (word.is("baMd")) return;  // what follows is no part of the program
        const bool takes = word.is("ghe") || word.is("vAch");
        std::size_t from = start;
        if (takes || isAssignment(start, end)) {
            const std::size_t name = takes ? start + 1 : start;
            from = name + (isName(name) ? 1 : 0);
            if (isName(name) && name < end) {
                statement_.sets.push_back(name);
                if (takes) statement_.inputs.push_back(name);
            }
        }
        for (std::size_t i = from; i < end; ++i)
            if (isName(i)) statement_.reads.push_back(i);
    }

    // A name, perhaps with an index in brackets, and after it the sign that gives it a value.
    bool isAssignment(std::size_t start, std::size_t end) const {
        if (!isName(start)) return false;
        std::size_t i = start + 1;
        if (i < end && words_[i].isMark('(')) i = afterBrackets(i, end);
        return i < end && words_[i].isEqualSign();
    }

    std::size_t afterBrackets(std::size_t i, std::size_t end) const {
        int depth = 0;
        for (; i < end; ++i) {
            if (words_[i].isMark('(')) ++depth;
            if (words_[i].isMark(')') && --depth == 0) return i + 1;
        }
        return end;
    }

    void readDeclared(std::size_t from, std::size_t end) {
        int depth = 0;
        for (std::size_t i = from; i < end; ++i) {
            if (words_[i].isMark('(')) ++depth;
            if (words_[i].isMark(')')) --depth;
            if (!isName(i)) continue;
            (depth > 0 ? statement_.reads : statement_.sets).push_back(i);
            if (depth <= 0) statement_.arrays.push_back(i);
        }
    }

    const std::vector<Word>& words_;
    Statement& statement_;
};

}  // namespace

void readStatement(Line& line) {
    StatementReader(line).read();
}

}  // namespace tolvan::guide
