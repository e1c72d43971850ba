// The help: topics, each with a text to read and an example to copy. The file is 8-bit text, built from the guide; each
// line begins with a character that says what it is:
//     =   the title of a topic, in internal text form
//     ~   Latin words by which it is looked for
//     .   a paragraph, in internal text form
//     >   a line of the topic's example, in Roman letters as it is typed
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tolvan {

struct HelpTopic {
    std::string title;
    std::vector<std::string> keys;  // how the title is typed, and what it is about in English
    std::vector<std::string> paragraphs;
    std::vector<std::string> example;  // lines; none: the topic has no example
};

// Any bytes can be read; what stands before the first title, and lines of no known kind, are left out.
std::vector<HelpTopic> readHelpFile(std::string_view bytes);

// The topics of the guide as bytes of a help file. The guide's lines are Roman text: titles begin with "= ", words to
// look for in English with "~ ", lines of an example with four blanks, all others are paragraphs. "\#" in a title or
// paragraph is a Latin "#", which opens no span.
std::string helpOfGuide(std::string_view guide);

// The whole help: the guide; before its last topic one for each word of the language and the library that is not the
// title of a topic yet, with the example that shows it best; and at the end the error messages with their numbers.
std::string buildHelpFile(std::string_view guide);

// The numbers (from 0) of the topics in which a text is found, the best first. It may be Roman or English, in any
// letter case, or Devanagari in UTF-8; the beginning of a word is enough. Nothing for a text without letters or digits.
std::vector<std::size_t> searchHelp(const std::vector<HelpTopic>& topics, std::string_view text);

}  // namespace tolvan
