#include "translator/Translator.h"

#include "platform/encoding/Ascii.h"
#include "platform/encoding/Lines.h"
#include "platform/richtext/InternalText.h"
#include "translator/Blanks.h"
#include "translator/Keywords.h"
#include "translator/ModuleForm.h"
#include "translator/Scanner.h"
#include "translator/Statements.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace tolvan {
namespace {

constexpr char quote = '"';

bool isOperator(StyledView text) {
    return text.size() == 1 && text.font(0) != Font::Devanagari &&
           std::string_view("+-*/<>=").find(text[0]) != std::string_view::npos;
}

// A single quote glyph is no literal: it is the letter gha.
bool isQuoted(std::string_view text) {
    return text.size() > 1 && text.front() == quote && text.back() == quote;
}

// The content of a script literal: Latin runs in braces, as the console prints them, and each double quote glyph put in
// from outside the literal, which it would end.
void appendLiteral(StyledView content, std::string& script) {
    for (const char c : RomanMark(content)) {
        if (c == quote)
            script += "\" & chr(34) & \"";
        else
            script += c;
    }
}

StyledView lineOf(StyledView program, int number) {
    const auto line = linePlace(program.text(), static_cast<std::size_t>(std::max(number, 1) - 1));
    return line ? program.substr(line->begin, line->size()) : StyledView();
}

}  // namespace

// The module as it grows, with the table of its lines.
class Translator::ModuleBuilder {
  public:
    using Kind = ModuleLines::Kind;

    explicit ModuleBuilder(ModuleLines& lines) : lines_(lines) {
        lines_ = {};
        append(module_form::mainBegin, Kind::Frame);
    }

    // What follows comes from this line of the program.
    void startProgramLine(int number) { programLine_ = number; }
    // Each line end in the text begins a line of this kind.
    ModuleBuilder& append(std::string_view text, Kind kind) {
        lines_.append(text, kind, programLine_);
        module_ += text;
        return *this;
    }
    std::string take() { return std::move(module_); }

  private:
    ModuleLines& lines_;
    std::string module_;
    int programLine_ = 0;
};

std::string Translator::Compile(StyledView program, const Progress& progress) {
    using Kind = ModuleLines::Kind;
    variables_.clear();
    allowArguments(program.size());
    CompileProgress done{0, program.size() + 1};
    ModuleBuilder module(moduleLines_);
    bool inFunctions = false;
    for (const LinePlace& place : linePlaces(program.text())) {
        const StyledView line = program.substr(place.begin, place.size());
        ++done.lines;
        if (trimBlanks(line).empty()) {
            // gives nothing
        } else if (isFunctionHead(line.text())) {
            if (!std::exchange(inFunctions, true)) module.append("\r\nEnd Sub\r\n\r\n", Kind::Frame);
            module.append(lineEnd, Kind::Frame);
            module.startProgramLine(static_cast<int>(done.lines));
            module.append(lineEnd, Kind::FunctionHead);
            appendStatement(line, module);
        } else {
            module.startProgramLine(static_cast<int>(done.lines));
            module.append(lineEnd, Kind::Poll).append(module_form::pollLine, Kind::Poll);
            module.append(lineEnd, Kind::Statement);
            appendStatement(line, module);
        }
        if (progress) progress(done);
    }
    if (!inFunctions) module.append("\r\nEnd Sub\r\n", Kind::Frame);
    return module.take();
}

void Translator::appendStatement(StyledView line, ModuleBuilder& module) {
    setWorkingStatement(line, workingLine_);
    statement_.clear();
    translate(workingLine_, statement_);
    module.append(trimBlanks(statement_), ModuleLines::Kind::Statement);
}

std::string Translator::TranslateLine(StyledView line) {
    allowArguments(line.size());
    std::string script;
    translate(workingLine(line), script);
    return script;
}

// Arguments are statements again, and one that holds marker words can be cut up in turn. Lines made for it would
// multiply: the script of a line of n characters can have n * n characters. So there is a limit for all arguments
// together. Arguments of a real program come to less than its length; the amount on top is for the odd short program.
void Translator::allowArguments(std::size_t characters) {
    argumentsLeft_ = 4 * characters + (64U << 20);
}

// Beyond the limit an argument is empty, and the call fails when it runs.
void Translator::chargeArgument(StyledText& argument) {
    if (argument.size() > argumentsLeft_) argument = workingStatement({});
    argumentsLeft_ -= std::min(argumentsLeft_, argument.size());
}

// Forms within forms are kept on a list and not on the stack, whose size a line could exceed.
void Translator::translate(const StyledText& workingLine, std::string& script) {
    std::vector<StatementPart> pending;  // the next one last
    std::vector<StatementPart> parts;
    const auto translateOne = [&](const StyledText& line, std::ptrdiff_t start) {
        parts.clear();
        cutStatement(line, parts);
        if (parts.empty()) return scan(line, start, script);
        for (StatementPart& part : parts) {
            part.start += start;
            if (part.kind == StatementPart::Kind::Line) chargeArgument(part.text);
        }
        std::move(parts.rbegin(), parts.rend(), std::back_inserter(pending));
    };
    translateOne(workingLine, -1);
    while (!pending.empty()) {
        const StatementPart part = std::move(pending.back());
        std::size_t before = 0;
        pending.pop_back();
        switch (part.kind) {
            case StatementPart::Kind::Script:
                script += part.script;
                break;
            case StatementPart::Kind::Variable:
                before = script.size();
                script += MapIdentifier(part.text.text());
                note(part.start, part.text.size(), before, script);
                break;
            case StatementPart::Kind::Line:
                translateOne(part.text, part.start - 1);
                break;
        }
    }
}

void Translator::scan(StyledView line, std::ptrdiff_t start, std::string& script) {
    Scanner scanner(line);
    while (const std::optional<Token> token = scanner.next()) {
        const std::size_t before = script.size();
        switch (token->kind) {
            case Token::Kind::Word:
                script += TranslateToken(token->text);
                break;
            case Token::Kind::Separator:
                script += token->text.text();
                break;
            case Token::Kind::Literal:
                appendLiteral(token->text, script);
                break;
            case Token::Kind::Lost:
                break;
        }
        note(start, token->text.size(), before, script);
        start += static_cast<std::ptrdiff_t>(token->text.size());
    }
}

// Blanks are no part of anything that can be named.
void Translator::note(std::ptrdiff_t start, std::size_t size, std::size_t scriptStart, const std::string& script) {
    if (pieces_ == nullptr || start < 0 || trimBlanks(std::string_view(script).substr(scriptStart)).empty()) return;
    const auto from = static_cast<std::size_t>(start);
    pieces_->push_back({{scriptStart, script.size()}, {from, from + size}});
}

std::optional<Translator::Columns> Translator::placeInProgram(StyledView program, int moduleLine, Columns inModule) {
    const ModuleLines::Kind kind = moduleLines_.kind(moduleLine);
    if (kind != ModuleLines::Kind::Statement && kind != ModuleLines::Kind::FunctionHead) return std::nullopt;
    const StyledView line = lineOf(program, moduleLines_.programLine(moduleLine));
    std::vector<Piece> pieces;
    std::string script;
    setWorkingStatement(line, workingLine_);
    allowArguments(line.size());
    pieces_ = &pieces;
    translate(workingLine_, script);
    pieces_ = nullptr;
    const std::size_t leading = std::min(script.find_first_not_of(' '), script.size());  // not in the module
    std::optional<Columns> place;
    for (const Piece& piece : pieces) {
        if (piece.script.to <= inModule.from + leading || piece.script.from >= inModule.to + leading) continue;
        if (!place) place = piece.program;
        place = Columns{std::min(place->from, piece.program.from), std::max(place->to, piece.program.to)};
    }
    if (place) place->to = std::min(place->to, line.size());
    return place;
}

std::string Translator::TranslateToken(StyledView word) {
    const StyledView trimmedWord = trimBlanks(word);
    const std::string_view trimmed = trimmedWord.text();
    if (trimmed.empty()) return std::string(word.text());
    if (isQuoted(trimmed)) return std::string(trimmed);
    if (const std::optional<std::string_view> keyword = keywordScript(trimmed)) return std::string(*keyword);
    if (isOperator(trimmedWord) || IsNumber(trimmed)) return std::string(trimmed);
    return MapIdentifier(trimmed);
}

}  // namespace tolvan
