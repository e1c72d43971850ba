// A folder of a test's own, gone with all it holds when the test ends.
#pragma once

#include "platform/files/FileEntry.h"
#include "platform/files/FilePath.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace tolvan {

class TemporaryFolder {
  public:
    TemporaryFolder() {
        const std::string name = makeTemporaryFolder("tolvan");
        if (name.empty()) throw std::runtime_error("no temporary folder");
        path_ = filePath(name);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    std::string operator/(std::string_view name) const { return (path_ / filePath(name)).generic_string(); }
    std::string path() const { return path_.generic_string(); }

    void write(std::string_view name, std::string_view content) const {
        std::ofstream(path_ / filePath(name), std::ios::binary) << content;
    }
    std::string read(std::string_view name) const {
        std::ostringstream content;
        content << std::ifstream(path_ / filePath(name), std::ios::binary).rdbuf();
        return std::move(content).str();
    }

  private:
    std::filesystem::path path_;
};

}  // namespace tolvan
