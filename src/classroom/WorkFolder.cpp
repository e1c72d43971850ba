#include "classroom/WorkFolder.h"

#include "platform/files/FileEntry.h"
#include "platform/files/FilePath.h"
#include "platform/files/OpenFile.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

namespace tolvan::classroom {
namespace {

namespace fs = std::filesystem;

Problem cannotWrite(const std::string& path, int error) {
    const std::string reason = path + ": " + std::strerror(error);
    return {"तात्पुरत्या फाइली लिहिता आल्या नाहीत: " + reason, "cannot write temporary files: " + reason};
}

void writeFile(const fs::path& path, std::string_view content) {
    std::error_code ignored;
    fs::create_directories(path.parent_path(), ignored);
    const Descriptor file = openFile(path.generic_string(), FileUse::Create, Links::Follow, 0600);
    if (!file.isOpen()) throw cannotWrite(path.string(), errno);
    if (const int error = file.write(content); error != 0) throw cannotWrite(path.string(), error);
}

}  // namespace

WorkFolder::WorkFolder() {
    path_ = makeTemporaryFolder("tolvan-check");
    if (path_.empty()) throw cannotWrite("tolvan-check-*", errno);
}

WorkFolder::~WorkFolder() {
    removeFolder(path_);
}

std::string WorkFolder::makeFolder(const std::vector<NamedFile>& files) {
    const fs::path folder = filePath(path_) / std::to_string(++made_);
    std::error_code failure;
    fs::create_directory(folder, failure);
    if (failure) throw cannotWrite(folder.string(), failure.value());
    for (const NamedFile& file : files) writeFile(folder / filePath(file.name), file.content);
    return folder.generic_string();
}

void WorkFolder::removeFolder(const std::string& folder) {
    std::error_code ignored;
    fs::remove_all(filePath(folder), ignored);
}

}  // namespace tolvan::classroom
