#include "guide/Blocks.h"

#include <algorithm>

namespace tolvan::guide {
namespace {

// How often the rest of a program is looked through to tell a wrong end from a missing one.
constexpr int mostComparisons = 40;

Role closerOf(Role opener) {
    switch (opener) {
        case Role::If:
            return Role::EndIf;
        case Role::For:
            return Role::Next;
        case Role::While:
            return Role::Wend;
        case Role::FunctionHead:
            return Role::FunctionEnd;
        default:
            return Role::Nothing;
    }
}

class Matcher {
  public:
    explicit Matcher(const Program& program) : program_(program) {}

    // The opening lines of the blocks around a line.
    const std::vector<std::size_t>& openBefore(std::size_t line) {
        for (std::size_t i = 0; i < line; ++i) take(i, true);
        return open_;
    }

    std::vector<BlockFault> all() {
        for (std::size_t i = 0; i < program_.lines().size(); ++i) take(i, true);
        leaveOpenAbove(0, program_.lines().size());
        std::stable_sort(faults_.begin(), faults_.end(),
                         [](const BlockFault& a, const BlockFault& b) { return a.line < b.line; });
        return std::move(faults_);
    }

  private:
    Role role(std::size_t line) const { return program_.meant(line).statement.role; }

    void take(std::size_t line, bool compares) {
        const Role own = role(line);
        switch (own) {
            case Role::FunctionHead:
                leaveOpenAbove(0, line);
                open_.push_back(line);
                break;
            case Role::If:
            case Role::For:
            case Role::While:
                open_.push_back(line);
                break;
            case Role::Else:
            case Role::ElseIf:
                goOn(line);
                break;
            case Role::End:
                if (!open_.empty()) open_.pop_back();
                break;
            case Role::EndIf:
            case Role::Next:
            case Role::Wend:
            case Role::FunctionEnd:
                close(line, own, compares);
                break;
            default:
                break;
        }
    }

    // The place on the stack of the innermost block that `closer` ends; a function's lines end with it.
    std::optional<std::size_t> findOpen(Role closer) const {
        for (std::size_t i = open_.size(); i-- > 0;) {
            if (closerOf(role(open_[i])) == closer) return i;
            if (role(open_[i]) == Role::FunctionHead) break;
        }
        return std::nullopt;
    }

    void goOn(std::size_t line) {
        const std::optional<std::size_t> condition = findOpen(Role::EndIf);
        if (!condition) {
            faults_.push_back({BlockFault::Kind::Unopened, line});
            return;
        }
        leaveOpenAbove(*condition + 1, line);
    }

    void close(std::size_t line, Role closer, bool compares) {
        const std::optional<std::size_t> opener = findOpen(closer);
        const bool inner = !open_.empty() && role(open_.back()) != Role::FunctionHead;
        if (!opener && !inner) {
            faults_.push_back({BlockFault::Kind::Unopened, line});
            return;
        }
        if (!opener || (*opener + 1 < open_.size() && compares && isRatherWrong(line, *opener))) {
            faults_.push_back({BlockFault::Kind::WrongEnd, line, open_.back()});
            open_.pop_back();
            return;
        }
        leaveOpenAbove(*opener + 1, line);
        open_.pop_back();
    }

    // Of the two explanations the one is better that leaves fewer faults in the rest.
    bool isRatherWrong(std::size_t line, std::size_t opener) {
        if (++comparisons_ > mostComparisons) return false;
        Matcher missing(program_);
        missing.open_.assign(open_.begin(), open_.begin() + static_cast<std::ptrdiff_t>(opener));
        Matcher wrong(program_);
        wrong.open_.assign(open_.begin(), open_.end() - 1);
        return 1 + wrong.countFrom(line + 1) < open_.size() - 1 - opener + missing.countFrom(line + 1);
    }

    std::size_t countFrom(std::size_t line) {
        for (; line < program_.lines().size(); ++line) take(line, false);
        leaveOpenAbove(0, program_.lines().size());
        return faults_.size();
    }

    void leaveOpenAbove(std::size_t depth, std::size_t limit) {
        for (; open_.size() > depth; open_.pop_back())
            faults_.push_back({BlockFault::Kind::Unclosed, open_.back(), 0, limit});
    }

    const Program& program_;
    std::vector<std::size_t> open_;  // the opening lines of the blocks around the line
    std::vector<BlockFault> faults_;
    int comparisons_ = 0;
};

}  // namespace

std::vector<BlockFault> findBlockFaults(const Program& program) {
    return Matcher(program).all();
}

std::optional<std::size_t> openerAround(const Program& program, std::size_t line) {
    Matcher matcher(program);
    const std::vector<std::size_t>& open = matcher.openBefore(line);
    if (open.empty()) return std::nullopt;
    return open.back();
}

}  // namespace tolvan::guide
