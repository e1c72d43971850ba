#include "classroom/ResultCache.h"

#include "platform/files/FilePath.h"
#include "platform/files/OpenFile.h"
#include "platform/files/ReplaceFile.h"
#include "platform/process/OwnProgram.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <filesystem>

namespace tolvan::classroom {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t largestEntry = std::size_t{16} << 20;
constexpr std::string_view suffix = ".checked";

std::string contentOf(const std::string& path) {
    const Descriptor file = openFile(path, FileUse::Read);
    std::string content;
    if (!file.isOpen() || file.readAll(content, std::size_t{256} << 20) != 0) content.clear();
    return content;
}

// 64 bits of the bytes (FNV-1a), as a name. Nothing is trusted to them alone: an entry has the program in it.
std::string nameOf(std::string_view bytes, std::uint64_t start) {
    std::uint64_t hash = 14695981039346656037ULL ^ start;
    for (const char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
    std::array<char, 17> digits{};
    std::snprintf(digits.data(), digits.size(), "%016llx", static_cast<unsigned long long>(hash));
    return digits.data();
}

std::string longNameOf(std::string_view bytes) {
    return nameOf(bytes, 0) + nameOf(bytes, 0x9E3779B97F4A7C15ULL);
}

void removeOld(const std::string& folder) {
    constexpr std::chrono::hours month{24 * 30};
    const auto now = fs::file_time_type::clock::now();
    std::error_code failure;
    for (fs::directory_iterator entry(filePath(folder), failure), end; !failure && entry != end;
         entry.increment(failure)) {
        std::error_code ignored;
        const bool isOld = now - entry->last_write_time(ignored) > month;
        if (isOld && entry->path().extension() == suffix) fs::remove(entry->path(), ignored);
    }
}

}  // namespace

ResultCache::ResultCache(std::string folder, const Task& task, const std::string& executable)
    : folder_(std::move(folder)), key_(longNameOf(task.fingerprint) + longNameOf(contentOf(executable))) {
    std::error_code ignored;
    fs::create_directories(filePath(folder_), ignored);
    removeOld(folder_);
}

std::string ResultCache::pathOf(const std::string& program) const {
    return folder_ + "/" + longNameOf(key_ + program) + std::string(suffix);
}

std::optional<HandInResult> ResultCache::find(const std::string& program) const {
    const std::string entry = contentOf(pathOf(program));
    PackReader pack(entry);
    if (entry.empty() || pack.text() != key_ || pack.text() != program) return std::nullopt;
    return unpackResult(pack.text());
}

void ResultCache::keep(const std::string& program, const HandInResult& result) const {
    PackWriter pack;
    pack.text(key_);
    pack.text(program);
    pack.text(packResult(result));
    if (pack.bytes().size() <= largestEntry) replaceFile(pathOf(program), pack.bytes(), 0600);
}

std::string ResultCache::usualFolder() {
    const std::string caches = userCacheFolder();
    return caches.empty() ? caches : caches + "/check";
}

}  // namespace tolvan::classroom
