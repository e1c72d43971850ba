#include "guide/Program.h"

#include "library/LibraryWords.h"
#include "platform/encoding/Ascii.h"
#include "platform/encoding/Lines.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "translator/Keywords.h"

#include <algorithm>
#include <set>
#include <utility>

namespace tolvan::guide {
namespace {

// Looking for the nearest word takes longer than all else; a text of nothing but unknown words is no program.
constexpr std::size_t mostSuggestions = 400;
constexpr std::size_t mostNameCandidates = 400;

// Words that begin a statement, and those only: a call of the console or a word around blocks. What asks for a value
// or joins words has its place inside.
unsigned placesOf(const LanguageWord& word) {
    static const std::set<std::string_view> inner = {"phAilaMt"};
    static const std::set<std::string_view> anywhere = {"jar", "saMpav", "upaprAyojan", "nAhItar", "tar", "suchanA"};
    static const std::set<std::string_view> start = {"nAhItarajar", "puDhachA", "jovar", "kar", "mitI"};
    if (inner.contains(word.roman)) return place::inner;
    if (anywhere.contains(word.roman)) return place::anywhere;
    if (start.contains(word.roman)) return place::start;
    const std::optional<std::string_view> script = keywordScript(LineConvert(word.roman));
    return script && script->starts_with("parentform.") ? place::start : place::inner;
}

const std::vector<Candidate>& languageCandidates() {
    static const std::vector<Candidate> all = [] {
        std::vector<Candidate> candidates;
        for (const LanguageWord& word : languageWords()) candidates.emplace_back(word.roman, placesOf(word));
        return candidates;
    }();
    return all;
}

}  // namespace

std::vector<LinePointer> LineStore::read(std::string_view roman) {
    before_ = std::exchange(lines_, {});
    std::vector<LinePointer> lines;
    for (const LinePlace& line : linePlaces(roman)) lines.push_back(take(roman.substr(line.begin, line.size())));
    return lines;
}

LinePointer LineStore::readOne(std::string_view roman) {
    return take(roman);
}

LinePointer LineStore::take(std::string_view roman) {
    if (const auto found = lines_.find(roman); found != lines_.end()) return found->second;
    const auto old = before_.find(roman);
    const LinePointer line = old != before_.end() ? old->second : std::make_shared<const Line>(roman);
    lines_.emplace(line->roman, line);
    return line;
}

bool NameUse::setIn(int scope) const {
    return std::find(scopes.begin(), scopes.end(), scope) != scopes.end();
}

Program::Program(std::string_view roman, LineStore& store)
    : lines_(store.read(roman)), meant_(lines_), candidates_(languageCandidates()) {
    findScopes();
    for (std::size_t i = 0; i < lines_.size(); ++i) addNames(*lines_[i], i, true);
    addLibrary(store);
    addCandidates(lines_);
    findUnknown(store);
}

// A name that the program sets itself is no word of the library.
void Program::addLibrary(LineStore& store) {
    for (const LibraryWord& word : libraryWords()) {
        const LinePointer line = libraryLines_.emplace_back(store.readOne(word.roman));
        NameUse& use = names_[line->words[0].glyphs];
        candidates_.emplace_back(word.roman, place::inner);
        if (use.isSet() || use.function != mainProgram) continue;
        use.scopes = {mainProgram};
        use.maybeSet = use.fromLibrary = true;
        use.command = word.kind == LibraryWord::Kind::Command;
        use.parameters = parameterCount(word);
    }
}

void Program::findScopes() {
    scopes_.resize(lines_.size());
    int scope = mainProgram;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const Role role = lines_[i]->statement.role;
        if (role == Role::FunctionHead) scope = static_cast<int>(i);
        scopes_[i] = scope;
        if (role == Role::FunctionEnd) scope = mainProgram;
    }
}

void Program::addNames(const Line& line, std::size_t number, bool sure) {
    const Statement& statement = line.statement;
    const int scope = scopes_[number];
    for (const std::size_t word : statement.sets) {
        NameUse& use = names_[line.words[word].glyphs];
        if (!use.setIn(scope)) use.scopes.push_back(scope);
        if (!sure) use.maybeSet = true;
        const bool typed = std::find(statement.inputs.begin(), statement.inputs.end(), word) != statement.inputs.end();
        use.onlyTyped = use.onlyTyped && typed;
    }
    for (const std::size_t word : statement.arrays) names_[line.words[word].glyphs].array = true;
    if (statement.function) {
        NameUse& use = names_[line.words[*statement.function].glyphs];
        use.function = static_cast<int>(number);
        use.parameters = statement.sets.size();
        use.onlyTyped = false;
    }
}

// A function can give a value to what stands in the brackets after its name.
void Program::addArguments(const Line& line) {
    int depth = 0;  // of brackets since such a name
    for (std::size_t i = 0; i < line.words.size(); ++i) {
        const Word& word = line.words[i];
        if (depth > 0 && word.kind == Word::Kind::Name) names_[word.glyphs].maybeSet = true;
        if (depth > 0 && word.isMark(')')) --depth;
        if (!word.isMark('(') || i == 0) continue;
        const NameUse* called = line.words[i - 1].kind == Word::Kind::Name ? use(line.words[i - 1].glyphs) : nullptr;
        if (depth > 0 || (called != nullptr && called->function != mainProgram)) ++depth;
    }
}

void Program::addCandidates(const std::vector<LinePointer>& from) {
    std::set<std::string_view> spelled;
    for (const LinePointer& line : from) {
        WordNumbers words = line->statement.sets;
        if (line->statement.function) words.push_back(*line->statement.function);
        for (const std::size_t word : words) {
            const std::string_view roman = line->romanOf(line->words[word]);
            if (spelled.size() >= mostNameCandidates || !spelled.insert(roman).second) continue;
            candidates_.emplace_back(roman, word == line->statement.function ? place::anywhere : place::inner);
        }
    }
}

const NameUse* Program::use(std::string_view glyphs) const {
    const auto found = names_.find(glyphs);
    return found == names_.end() ? nullptr : &found->second;
}

bool Program::isKnown(const Line& line, std::size_t word) const {
    const NameUse* found = use(line.words[word].glyphs);
    return found != nullptr && (found->isSet() || found->function != mainProgram);
}

// Who has learned another language begins a line with its command.
Suggestion Program::commandInEnglish(std::string_view roman) const {
    for (const LanguageWord& word : languageWords()) {
        const bool isMeant = !word.english.empty() && isLetter(word.english[0]) && sameButForCase(word.english, roman);
        if (isMeant && std::any_of(candidates_.begin(), candidates_.end(), [&](const Candidate& one) {
                return one.roman == word.roman && (one.places & place::start) != 0;
            }))
            return {{std::string(word.roman)}, false};
    }
    return {};
}

const Suggestion& Program::suggest(std::string_view roman, bool starts) {
    static const Suggestion none;
    std::string key(starts ? "^" : " ");
    key += roman;
    if (const auto found = suggestions_.find(key); found != suggestions_.end()) return found->second;
    if (suggestions_.size() >= mostSuggestions) return none;
    Suggestion suggestion;
    if (starts) suggestion = commandInEnglish(roman);
    if (suggestion.empty()) suggestion = suggestFor(roman, candidates_, starts ? place::start : place::inner);
    return suggestions_.emplace(key, std::move(suggestion)).first->second;
}

// First the words inside of the lines, then those at their start: whether these are known depends on the others.
void Program::findUnknown(LineStore& store) {
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const Statement& statement = lines_[i]->statement;
        const std::size_t before = unknown_.size();
        for (const std::size_t word : statement.reads) {
            const bool starts =
                std::find(statement.starts.begin(), statement.starts.end(), word) != statement.starts.end();
            if (starts || isKnown(*lines_[i], word)) continue;
            unknown_.push_back({i, word, false, suggest(lines_[i]->romanOf(lines_[i]->words[word]), false)});
        }
        if (unknown_.size() > before) correctLine(i, store);
        for (const std::size_t word : meant_[i]->statement.starts) {
            const Word& one = meant_[i]->words[word];
            if (one.kind != Word::Kind::Name || isKnown(*meant_[i], word)) continue;
            const WordNumbers& sets = meant_[i]->statement.sets;
            if (std::find(sets.begin(), sets.end(), word) != sets.end() || word >= lines_[i]->words.size()) continue;
            unknown_.push_back({i, word, true, suggest(lines_[i]->romanOf(lines_[i]->words[word]), true)});
        }
        if (unknown_.size() > before) correctLine(i, store);
        if (meant_[i] != lines_[i]) addNames(*meant_[i], i, false);
    }
    for (const LinePointer& line : meant_) addArguments(*line);
}

void Program::correctLine(std::size_t number, LineStore& store) {
    const Line& line = *lines_[number];
    std::vector<Correction> corrections;
    for (auto one = unknown_.rbegin(); one != unknown_.rend() && one->line == number; ++one)
        if (!one->suggestion.empty())
            corrections.push_back({1, line.words[one->word].roman, one->suggestion.words[0], true});
    std::sort(corrections.begin(), corrections.end(),
              [](const Correction& a, const Correction& b) { return a.place.from > b.place.from; });
    std::string roman = line.roman;
    for (const Correction& correction : corrections) roman = corrected(roman, correction);
    if (!corrections.empty()) meant_[number] = store.readOne(roman);
}

}  // namespace tolvan::guide
