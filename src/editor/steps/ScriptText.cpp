#include "editor/steps/ScriptText.h"

#include "platform/encoding/Ascii.h"
#include "platform/richtext/InternalText.h"

#include <algorithm>

namespace tolvan {
namespace {

bool belongsToName(char c) {
    return isLetter(c) || isDigit(c) || c == '_';
}

// Two words that share a script name stand with a stroke between them.
std::string shownWords(std::string words) {
    for (std::size_t at = words.find(' '); at != std::string::npos; at = words.find(' ', at + 3))
        words.replace(at, 1, "{/}");
    return words;
}

// What stands between quotes is in internal text form already.
class LineReader {
  public:
    LineReader(const ScriptWords& words, ScriptForm form) : words_(words), form_(form) {}

    std::string read(std::string_view line) {
        for (std::size_t at = 0; at < line.size();) {
            const std::size_t end = endOfPiece(line, at);
            take(line.substr(at, end - at));
            at = end;
        }
        closeLatin();
        return std::move(text_);
    }

  private:
    static std::size_t endOfPiece(std::string_view line, std::size_t at) {
        if (line[at] == '"') {
            const std::size_t quote = line.find('"', at + 1);
            return quote == std::string_view::npos ? line.size() : quote + 1;
        }
        std::size_t end = at + 1;
        while (belongsToName(line[at]) && end < line.size() && belongsToName(line[end])) ++end;
        return end;
    }
    void take(std::string_view piece) {
        if (piece[0] == '"') {
            latin_ += '"';
            closeLatin();
            const bool isClosed = piece.size() > 1 && piece.back() == '"';
            text_ += piece.substr(1, piece.size() - (isClosed ? 2 : 1));
            if (isClosed) latin_ += '"';
            return;
        }
        const auto word = words_.find(piece);
        if (form_ == ScriptForm::AsItIs || word == words_.end()) {
            latin_ += piece;
            return;
        }
        closeLatin();
        text_ += shownWords(word->second);
    }
    void closeLatin() {
        if (!latin_.empty()) text_ += RomanMark(StyledText(latin_, Font::Latin));
        latin_.clear();
    }

    const ScriptWords& words_;
    ScriptForm form_;
    std::string latin_;
    std::string text_;
};

}  // namespace

std::vector<ScriptLine> scriptLines(const RunnableProgram& program, ScriptForm form) {
    std::vector<ScriptLine> lines;
    std::string_view rest = program.module;
    for (int number = 1; !rest.empty(); ++number) {
        const std::size_t end = std::min(rest.find(lineEnd), rest.size());
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + lineEnd.size(), rest.size()));
        const bool isSeen = program.lines.kind(number) != ModuleLines::Kind::Poll &&
                            line.find_first_not_of(' ') != std::string_view::npos;
        if (form == ScriptForm::ToRead && !isSeen) continue;
        lines.push_back({number, program.lines.programLine(number), LineReader(program.words, form).read(line)});
    }
    return lines;
}

}  // namespace tolvan
