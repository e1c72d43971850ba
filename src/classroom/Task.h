// A task as the teacher gives it: a folder, or one file that has all of it.
//
//     NAME.in       what is typed in the case NAME; NAME.keys: the keys that are found pressed
//     NAME.out      what must be printed, in Unicode or in font codes
//     solution.tvp  a solution; it makes what must be printed where no .out says it, and what must be drawn
//     NAME.picture  what must be drawn; only in .task files, which have no solution
//     start.tvp     what was given to all to begin with
//     task.ini      how it is checked, see TaskOptions
//     ...           any other file is there for the programs to read
#pragma once

#include "classroom/Comparison.h"
#include "classroom/Picture.h"
#include "classroom/Problem.h"
#include "classroom/TaskOptions.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvan::classroom {

struct NamedFile {
    std::string name;  // its path in the folder
    std::string content;
};

struct TaskCase {
    std::string name;
    CaseInput input;
    std::optional<std::string> output;   // the bytes of NAME.out
    std::optional<std::string> picture;  // a packed Picture: what must be drawn
    double points = 1;
    bool isOpen = true;
};

struct Task {
    std::string title;
    TaskOptions options;
    std::vector<TaskCase> cases;  // by their names; numbers by their value
    std::string solution;         // empty: there is none
    std::string start;
    std::vector<NamedFile> files;
    std::string optionsText;  // task.ini as it stands
    std::string fingerprint;  // differs where anything of the task does

    double points() const;
};

// Of a folder or a .task file. Throws Problem.
Task readTask(const std::string& path);

// A .task file for pupils: a plain archive (tar) of the open cases, with what must be printed and drawn in the place of
// the solution; `lines` and `pictures` are those of all cases.
std::string packOpenTask(const Task& task, const std::vector<Readings>& lines, const std::vector<Picture>& pictures);

}  // namespace tolvan::classroom
