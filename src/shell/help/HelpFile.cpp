#include "shell/help/HelpFile.h"

#include "guide/Sounds.h"
#include "guide/Speller.h"
#include "library/LibraryWords.h"
#include "platform/encoding/Ascii.h"
#include "platform/richtext/InternalText.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"
#include "platform/richtext/UnicodeText.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "platform/transliteration/UnicodeToRoman.h"
#include "translator/LanguageWords.h"
#include "translator/MessageTable.h"
#include "translator/ProgramText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tolvan {
namespace {

constexpr char titleMark = '=';
constexpr char paragraphMark = '.';
constexpr char exampleMark = '>';
constexpr char keyMark = '~';
constexpr std::string_view guideTitle = "= ";
constexpr std::string_view guideKeys = "~ ";
constexpr std::string_view guideExample = "    ";

// Calls `line(text)` for each line that is not empty, without its line end.
template <class LineCall>
void forEachLine(std::string_view text, const LineCall& line) {
    while (!text.empty()) {
        const std::string_view found = takeLine(text).text;
        if (!found.empty()) line(found);
    }
}

std::string helpLine(char mark, std::string_view text) {
    return std::string(1, mark).append(text).append(lineEnd);
}

std::string internalText(std::string_view guide) {
    constexpr std::string_view latinMark = "\\#";
    constexpr char standIn = '\1';
    std::string roman(guide);
    for (std::size_t at = 0; (at = roman.find(latinMark, at)) != std::string::npos;)
        roman.replace(at, latinMark.size(), {'#', standIn, '#'});
    std::string text = RomanMark(Transliterate(roman));
    std::replace(text.begin(), text.end(), standIn, '#');
    return text;
}

}  // namespace

std::vector<HelpTopic> readHelpFile(std::string_view bytes) {
    std::vector<HelpTopic> topics;
    forEachLine(bytes, [&topics](std::string_view line) {
        const std::string text(line.substr(1));
        if (line[0] == titleMark)
            topics.push_back({text, {}, {}, {}});
        else if (!topics.empty() && line[0] == keyMark)
            topics.back().keys.push_back(text);
        else if (!topics.empty() && line[0] == paragraphMark)
            topics.back().paragraphs.push_back(text);
        else if (!topics.empty() && line[0] == exampleMark)
            topics.back().example.push_back(text);
    });
    return topics;
}

std::string helpOfGuide(std::string_view guide) {
    std::string bytes;
    forEachLine(guide, [&bytes](std::string_view line) {
        if (line.starts_with(guideTitle)) {
            const std::string_view title = line.substr(guideTitle.size());
            bytes += helpLine(titleMark, internalText(title)) + helpLine(keyMark, title);
            if (const LanguageWord* const word = findLanguageWord(LineConvert(title)))
                bytes += helpLine(keyMark, word->english);
        } else if (line.starts_with(guideKeys)) {
            bytes += helpLine(keyMark, line.substr(guideKeys.size()));
        } else if (line.starts_with(guideExample)) {
            bytes += helpLine(exampleMark, line.substr(guideExample.size()));
        } else {
            bytes += helpLine(paragraphMark, internalText(line));
        }
    });
    return bytes;
}

namespace {

// The error messages with their numbers, as paragraphs.
std::string errorList() {
    constexpr std::int32_t firstWord = 32766;  // from here on the table holds words, no messages
    std::string bytes;
    for (const Message& message : messageTable()) {
        if (message.number < 0 || message.number >= firstWord) continue;
        const std::string fragment = messageFragment(message.number).value_or(std::string());
        const RichDocument text = readRtf(rtfDocument(fragment));
        bytes += helpLine(paragraphMark, "{" + std::to_string(message.number) + ":} " + RomanMark(text.text));
    }
    return bytes;
}

// Whether the word stands there with no other letter beside it.
bool hasWord(std::string_view text, std::string_view word) {
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if ((at == 0 || !isLetter(text[at - 1])) && (end == text.size() || !isLetter(text[end]))) return true;
    }
    return false;
}

// The topic that shows a word best: its title names it, or else its example has the fewest lines. Null if none does.
const HelpTopic* topicOf(std::string_view roman, const std::vector<HelpTopic>& topics) {
    const HelpTopic* best = nullptr;
    for (const HelpTopic& topic : topics) {
        const bool shows = std::any_of(topic.example.begin(), topic.example.end(),
                                       [&](const std::string& line) { return hasWord(line, roman); });
        if (!shows) continue;
        if (hasWord(topic.keys.at(0), roman)) return &topic;
        if (best == nullptr || topic.example.size() < best->example.size()) best = &topic;
    }
    return best;
}

struct WordTopic {
    std::string_view roman;
    std::string_view meaning;
    std::string_view english;
    std::string_view standard;
    std::vector<std::string> example;
    std::string_view more;  // the title of a topic that tells more, in internal text form
};

std::string bytesOf(const WordTopic& word) {
    const std::string roman(word.roman);
    std::string bytes = helpLine(titleMark, internalText(roman)) + helpLine(keyMark, roman) +
                        helpLine(keyMark, word.english) +
                        helpLine(paragraphMark, internalText("#" + roman + "#: " + std::string(word.meaning))) +
                        helpLine(paragraphMark, internalText("iMgrajIt: #" + std::string(word.english) + "#"));
    if (!word.standard.empty())
        bytes += helpLine(paragraphMark, internalText("pramAN lekhan: " + std::string(word.standard)));
    if (!word.more.empty()) bytes += helpLine(paragraphMark, internalText("adhik mAhitI: ").append(word.more));
    for (const std::string& line : word.example) bytes += helpLine(exampleMark, line);
    return bytes;
}

std::vector<std::string> exampleOf(const LibraryWord& word) {
    const std::string usage(word.usage);
    if (word.body.find("rgb(") != std::string_view::npos)
        return {"(20, 20) pAsun (200, 120) paryaMt " + usage + " raMgAche bharalele Ayat kADh"};
    if (word.kind == LibraryWord::Kind::Command) return {"dAkhav 1", usage, "dAkhav 2"};
    return {"dAkhav " + usage};
}

std::string wordTopics(const std::vector<HelpTopic>& topics) {
    const auto isTopic = [&topics](std::string_view roman) {
        return std::any_of(topics.begin(), topics.end(),
                           [&](const HelpTopic& topic) { return topic.keys.at(0) == roman && !topic.example.empty(); });
    };
    std::string bytes;
    for (const LanguageWord& word : languageWords()) {
        if (isTopic(word.roman)) continue;
        WordTopic entry{word.roman, word.meaning, word.english, word.standard, {}, {}};
        if (const HelpTopic* const topic = topicOf(word.roman, topics)) {
            entry.example = topic->example;
            entry.more = topic->title;
        }
        bytes += bytesOf(entry);
    }
    for (const LibraryWord& word : libraryWords())
        if (!isTopic(word.roman)) bytes += bytesOf({word.roman, word.meaning, word.english, {}, exampleOf(word), {}});
    return bytes;
}

enum Rank : std::size_t { Exact, Begins, Sounds, InTitle, InKeys, InText, Nowhere };

struct Needle {
    explicit Needle(std::string_view utf8) : text(utf8) {
        roman = romanOfUnicode(utf8);
        codes = LineConvert(roman);
        loose = guide::looseSpelling(roman);
    }
    std::string text;
    std::string roman;
    std::string codes;
    std::string loose;
};

bool beginsAWord(std::string_view text, std::string_view start) {
    for (std::size_t at = text.find(start); at != std::string_view::npos; at = text.find(start, at + 1))
        if (at == 0 || !isLetter(text[at - 1])) return true;
    return false;
}

Rank rankOf(const HelpTopic& topic, const Needle& needle) {
    const std::string& title = topic.keys.empty() ? topic.title : topic.keys[0];
    if (title == needle.roman || plainText(topic.title) == needle.codes) return Exact;
    if (guide::looseSpelling(title).starts_with(needle.loose)) return Begins;
    if (guide::mayBeHeardAs(needle.roman, guide::soundsOf(title))) return Sounds;
    if (beginsAWord(guide::looseSpelling(title), needle.loose)) return InTitle;
    for (const std::string& key : topic.keys)
        if (beginsAWord(guide::looseSpelling(key), needle.loose)) return InKeys;
    for (const std::string& paragraph : topic.paragraphs)
        if (paragraph.find(needle.codes) != std::string::npos || hasWord(paragraph, needle.text)) return InText;
    return Nowhere;
}

// What may be meant by a word that stands nowhere.
std::vector<std::size_t> resembling(const std::vector<HelpTopic>& topics, const Needle& needle) {
    std::vector<guide::Candidate> candidates;
    for (const HelpTopic& topic : topics)
        if (!topic.keys.empty()) candidates.emplace_back(topic.keys[0], guide::place::anywhere);
    std::vector<std::size_t> numbers;
    for (const std::string& word : guide::suggestFor(needle.roman, candidates).words)
        for (std::size_t i = 0; i < topics.size(); ++i)
            if (!topics[i].keys.empty() && topics[i].keys[0] == word) numbers.push_back(i);
    return numbers;
}

}  // namespace

std::string buildHelpFile(std::string_view guide) {
    const std::size_t last = guide.rfind(std::string("\n").append(guideTitle));
    const std::size_t cut = last == std::string_view::npos ? guide.size() : last + 1;
    const std::string topics = helpOfGuide(guide.substr(0, cut));
    return topics + wordTopics(readHelpFile(topics)) + helpOfGuide(guide.substr(cut)) + errorList();
}

std::vector<std::size_t> searchHelp(const std::vector<HelpTopic>& topics, std::string_view text) {
    const Needle needle(text);
    if (std::none_of(needle.roman.begin(), needle.roman.end(), [](char c) { return isLetter(c) || isDigit(c); }))
        return {};
    std::vector<std::pair<Rank, std::size_t>> found;
    for (std::size_t i = 0; i < topics.size(); ++i)
        if (const Rank rank = rankOf(topics[i], needle); rank != Nowhere) found.emplace_back(rank, i);
    if (found.empty()) return resembling(topics, needle);
    std::sort(found.begin(), found.end());
    std::vector<std::size_t> numbers;
    numbers.reserve(found.size());
    for (const auto& [rank, number] : found) numbers.push_back(number);
    return numbers;
}

}  // namespace tolvan
