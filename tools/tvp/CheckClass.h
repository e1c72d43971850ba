// The commands for a class: "check", which runs every hand-in, and "task", which makes a file for pupils.
#pragma once

#include "tvp/Output.h"

#include <string>

namespace tolvan {

struct CheckRequest {
    std::string task = {};  // a folder, or a .task file
    std::string html = {};  // where the page goes; empty: there is none
    std::string csv = {};
    unsigned jobs = 0;  // 0: as many as there are processors
    bool english = false;
    bool useCache = true;
};

// Checks every program below the folder. Status 0: all were checked; 130: stopped with Ctrl+C, with a report of what
// there was. Throws classroom::Problem.
int checkClass(const std::string& folder, const CheckRequest& request, Output& output, Output& messages);

// Writes FOLDER.task, in the working folder. Throws classroom::Problem.
int makeTaskFile(const std::string& folder, Output& output);

}  // namespace tolvan
