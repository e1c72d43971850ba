// The table of what each code of the font encoding draws.
#pragma once

#include "support/Folders.h"

#include <array>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace tolvan {

struct EncodingRow {
    std::size_t code;
    std::string kind;   // "consonant", "sign"...; "unused" draws nothing
    std::string draws;  // in UTF-8
};

inline std::vector<EncodingRow> encodingTable() {
    std::ifstream lines(sourceFolder() + "/tools/fonts/encoding.tsv");
    std::vector<EncodingRow> rows;
    std::string line;
    std::getline(lines, line);  // the names of the columns
    while (std::getline(lines, line)) {
        std::array<std::string, 5> fields;  // code, hex, windows-1252, kind, draws
        std::istringstream stream(line);
        for (std::string& field : fields) std::getline(stream, field, '\t');
        rows.push_back({std::stoul(fields[0]), fields[3], fields[4]});
    }
    if (rows.size() < 200) throw std::runtime_error("no whole table of the encoding");
    return rows;
}

}  // namespace tolvan
