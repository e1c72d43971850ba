#include "translator/ModuleLines.h"

#include <algorithm>

namespace tolvan {

const ModuleLines::Line* ModuleLines::find(int scriptLine) const {
    return scriptLine >= 1 && scriptLine <= count() ? &lines_[static_cast<std::size_t>(scriptLine - 1)] : nullptr;
}

ModuleLines::Kind ModuleLines::kind(int scriptLine) const {
    const Line* const line = find(scriptLine);
    return line != nullptr ? line->kind : Kind::Frame;
}

int ModuleLines::programLine(int scriptLine) const {
    const Line* const line = find(scriptLine);
    return line != nullptr ? line->program : 0;
}

int ModuleLines::scriptLine(int programLine) const {
    const auto first = std::partition_point(lines_.begin(), lines_.end(),
                                            [&](const Line& line) { return line.program < programLine; });
    const auto found = std::find_if(first, lines_.end(), [&](const Line& line) {
        return line.program != programLine || line.kind == Kind::Statement || line.kind == Kind::FunctionHead;
    });
    if (programLine < 1 || found == lines_.end() || found->program != programLine) return 0;
    return static_cast<int>(found - lines_.begin()) + 1;
}

// As the script engine counts: CR LF is one line end, and so is either alone.
void ModuleLines::append(std::string_view text, Kind kind, int programLine) {
    if (lines_.empty()) lines_.push_back({programLine, kind});
    for (std::size_t at = 0; (at = text.find_first_of("\r\n", at)) != std::string_view::npos;) {
        lines_.push_back({programLine, kind});
        at += text.substr(at).starts_with("\r\n") ? std::size_t{2} : std::size_t{1};
    }
}

}  // namespace tolvan
