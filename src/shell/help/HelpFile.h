// The help: topics, each with a text to read and an example to copy. The file is 8-bit text, built from the guide; each
// line begins with a character that says what it is:
//     =   the title of a topic, in internal text form
//     .   a paragraph, in internal text form
//     >   a line of the topic's example, in Roman letters as it is typed
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tolvan {

struct HelpTopic {
    std::string title;
    std::vector<std::string> paragraphs;
    std::vector<std::string> example;  // lines; none: the topic has no example
};

// Any bytes can be read; what stands before the first title, and lines of no known kind, are left out.
std::vector<HelpTopic> readHelpFile(std::string_view bytes);

// The bytes of a help file from the guide, whose lines are Roman text: titles begin with "= ", lines of an example with
// four blanks, all others are paragraphs. "\#" in a title or paragraph is a Latin "#", which opens no span.
std::string buildHelpFile(std::string_view guide);

// The error messages with their numbers, as paragraphs for the guide's last topic.
std::string errorList();

}  // namespace tolvan
