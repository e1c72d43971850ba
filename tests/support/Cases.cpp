#include "support/Cases.h"

#include "platform/encoding/Deva.h"
#include "support/Folders.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <stdexcept>

namespace tolvan {
namespace {

[[noreturn]] void fail(std::string_view what, std::string_view text) {
    throw std::runtime_error(std::string(what).append(": ").append(text));
}

std::string byteOf(char32_t character, std::string_view written) {
    switch (character) {
        case U'␍':
            return "\r";
        case U'␊':
            return "\n";
        case U'␉':
            return "\t";
        case U'␠':
            return " ";
        case U'⏎':
            return "\r\n";
        case U'∅':
            return "";
        default:
            const auto code = unicodeToWindows1252(character);
            if (!code) fail("a character without a code", written);
            return {static_cast<char>(*code)};
    }
}

void addRows(const Section& section, const std::string& line, std::vector<Row>& rows) {
    rows.push_back({section.title, {}});
    for (std::size_t start = 0; start < line.size();) {
        const std::size_t end = std::min(line.find('\t', start), line.size());
        if (const std::string field = line.substr(start, end - start); field != "┊")
            rows.back().written.push_back(field);
        else
            rows.push_back({section.title, {}});
        start = std::min(line.find_first_not_of('\t', end), line.size());
    }
}

}  // namespace

std::string bytesOf(std::string_view written) {
    std::string bytes;
    for (std::size_t position = 0; position < written.size();) {
        const char32_t character = detail::nextCharacter(written.data(), position);
        if (character == U'⟨') {
            bytes += static_cast<char>(std::stoi(std::string(written.substr(position, 2)), nullptr, 16));
            position += 2;
            if (detail::nextCharacter(written.data(), position) != U'⟩') fail("no end of a byte", written);
        } else {
            bytes += byteOf(character, written);
        }
    }
    return bytes;
}

std::string Row::operator[](std::size_t field) const {
    return bytesOf(written.at(field));
}

std::vector<std::string> Section::parts(std::string_view lineEnd) const {
    std::vector<std::string> parts(1);
    bool first = true;
    for (const std::string& line : lines) {
        if (line == "--") {
            parts.emplace_back();
            first = true;
            continue;
        }
        if (!first) parts.back() += lineEnd;
        parts.back() += bytesOf(line);
        first = false;
    }
    return parts;
}

std::string Section::testName() const {
    std::string name;
    bool begins = true;
    for (const char c : title) {
        const bool letter = std::isalnum(static_cast<unsigned char>(c)) != 0;
        if (letter) name += begins ? static_cast<char>(std::toupper(static_cast<unsigned char>(c))) : c;
        begins = !letter;
    }
    return name;
}

std::vector<Section> sectionsOf(const std::string& file) {
    std::ifstream stream(sourceFolder() + "/tests/" + file);
    std::vector<Section> sections;
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with("== "))
            sections.push_back({line.substr(3), {}});
        else if (!sections.empty())
            sections.back().lines.push_back(line);
    }
    for (Section& section : sections)
        while (!section.lines.empty() && section.lines.back().empty()) section.lines.pop_back();
    if (sections.empty()) fail("no cases", file);
    return sections;
}

std::vector<Row> rowsOf(const std::string& file) {
    std::vector<Row> rows;
    for (const Section& section : sectionsOf(file))
        for (const std::string& line : section.lines)
            if (!line.empty()) addRows(section, line, rows);
    return rows;
}

std::vector<Row> rowsOf(const std::string& file, std::string_view title) {
    std::vector<Row> rows = rowsOf(file);
    std::erase_if(rows, [&](const Row& row) { return row.title != title; });
    if (rows.empty()) fail("no such cases", title);
    return rows;
}

}  // namespace tolvan
