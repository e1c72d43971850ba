// Cases of a test that stand in a file: what is given and what must come of it, without the noise of C++.
//
// The file is UTF-8 text in sections. A line "== TITLE" begins one and says what its cases show; lines in front of the
// first are for the reader. Every other character stands for its windows-1252 byte, but for
//   ␍ ␊ ␉ ␠   carriage return, line feed, tab, and a blank where none would be seen
//   ⏎         both codes of a line end
//   ∅         nothing: an empty field or line
//   ⟨9D⟩      the byte of this hexadecimal number
// What cannot be read so throws std::runtime_error, and with that fails the test.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan {

struct Section {
    std::string title;
    std::vector<std::string> lines;  // as they stand in the file; without the empty ones at the end

    // The lines from a line "--" to the next: each such part as one text whose lines end as given, the last one not.
    std::vector<std::string> parts(std::string_view lineEnd = "\r\n") const;

    // The title as the name of a test: its words together, each with a capital.
    std::string testName() const;
    friend std::ostream& operator<<(std::ostream& out, const Section& section) { return out << section.title; }
};

// Fields with one or more tabs between them: a line of a section, or a part of it where "┊" stands between several
// rows.
struct Row {
    std::string title;                 // of the section
    std::vector<std::string> written;  // the fields as they stand in the file, in UTF-8

    std::size_t size() const { return written.size(); }
    // The bytes of a field.
    std::string operator[](std::size_t field) const;
    friend std::ostream& operator<<(std::ostream& out, const Row& row) {
        return out << row.title << ": " << row.written.at(0);
    }
};

// The bytes that a piece of such a file stands for.
std::string bytesOf(std::string_view written);

// Files are named by their path below tests/.
std::vector<Section> sectionsOf(const std::string& file);
std::vector<Row> rowsOf(const std::string& file);

// The rows of one section.
std::vector<Row> rowsOf(const std::string& file, std::string_view title);

}  // namespace tolvan
