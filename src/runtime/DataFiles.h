// The data files of programs that run in a window.
#pragma once

#include "runtime/host/ReachableFiles.h"

#include <QString>

#include <string>

namespace tolvan {

// What a program reaches that is in this file: the files of its folder. For a program that has no file yet (empty), or
// one in a folder that cannot be written, such as an example of the installed system, those of the user's documents
// folder.
ReachableFiles dataFilesOf(const QString& programFile);

// Asks whether a program may read or write the file with this path; a fragment for AskConsent.
std::string fileQuestion(const std::string& path, bool writing);

}  // namespace tolvan
