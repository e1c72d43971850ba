// What the pupils of a class handed in.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tolvan::classroom {

struct HandIn {
    std::string name;  // of the pupil, in UTF-8: that of the folder, or of the file
    std::string path;
};

// Every program (*.tvp) below a folder, by names; those in the task's folder are none, nor hidden ones. A folder of the
// class that holds one program gives it its name; the others are named after their files, with the folders they are in.
// Throws Problem where the folder cannot be read.
std::vector<HandIn> findHandIns(const std::string& folder, const std::string& taskPath);

struct HandInContent {
    enum class Problem : std::uint8_t { None, CannotRead, IsLink, NoFile, TooLarge, Empty, NoProgram };
    Problem problem = Problem::None;
    std::string bytes;
};

// A link is not followed: it could lead to anything.
HandInContent readHandIn(const HandIn& handIn);

}  // namespace tolvan::classroom
