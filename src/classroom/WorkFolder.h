// Folders of their own for the processes of one check, gone in the end with all that is in them.
#pragma once

#include "classroom/Task.h"

#include <string>
#include <vector>

namespace tolvan::classroom {

// Below the system's folder for temporary files, for this user only.
class WorkFolder {
  public:
    // Throws Problem.
    WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
    ~WorkFolder();

    // A new folder in it, with copies of the files. Throws Problem where there is no room.
    std::string makeFolder(const std::vector<NamedFile>& files);
    static void removeFolder(const std::string& folder);

  private:
    std::string path_;
    unsigned long made_ = 0;
};

}  // namespace tolvan::classroom
