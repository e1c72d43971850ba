#include "tvp/CheckClass.h"

#include "classroom/Checker.h"
#include "classroom/ReportTexts.h"
#include "classroom/Reports.h"
#include "platform/files/FilePath.h"
#include "platform/files/ReplaceFile.h"
#include "platform/process/Interruption.h"
#include "platform/process/OwnProgram.h"

#include <csignal>
#include <cstring>
#include <filesystem>
#include <thread>

namespace tolvan {
namespace {

using namespace classroom;

constexpr int interrupted = 130;

volatile std::sig_atomic_t mustStop = 0;

constexpr int standardError = 2;

void writeReport(const std::string& path, const std::string& content) {
    const int error = path.empty() ? 0 : replaceFile(path, content);
    if (error == 0) return;
    const std::string reason = path + ": " + std::strerror(error);
    throw Problem{"लिहिता आले नाही: " + reason, "cannot write " + reason};
}

// How far it is, in one line that is written over; only where somebody looks.
class ProgressLine {
  public:
    ProgressLine(std::size_t all, Language language, Output& messages)
        : all_(all), language_(language), messages_(messages), isShown_(isTerminal(standardError)) {}
    ~ProgressLine() {
        if (isShown_) write("");
    }

    void show(std::size_t done) {
        if (isShown_)
            write(filled(texts::checking, language_, {shownNumber(all_, language_), shownNumber(done, language_)}));
    }

  private:
    // Past Output, which keeps what programs print from moving the cursor.
    void write(const std::string& text) {
        messages_.flush();
        const std::string line = "\r\x1B[K" + text;
        static_cast<void>(Descriptor::standard(standardError).write(line));
    }

    std::size_t all_;
    Language language_;
    Output& messages_;
    bool isShown_;
};

unsigned jobsOf(const CheckRequest& request) {
    return request.jobs != 0 ? request.jobs : std::max(std::thread::hardware_concurrency(), 1U);
}

}  // namespace

int checkClass(const std::string& folder, const CheckRequest& request, Output& output, Output& messages) {
    const Language language = request.english ? Language::English : Language::Marathi;
    onRequestToEnd([] { mustStop = 1; });  // the report of what there is comes all the same
    const Task task = readTask(request.task);
    const std::vector<HandIn> handIns = findHandIns(folder, request.task);
    if (handIns.empty()) messages.writeLine(filled(texts::noHandIns, language, {folder}));
    std::optional<ResultCache> cache;
    const std::string cacheFolder = ResultCache::usualFolder();
    if (request.useCache && !cacheFolder.empty()) cache.emplace(cacheFolder, task, ownProgramFile());
    ProgressLine progress(handIns.size(), language, messages);
    Checker checker(task, {jobsOf(request), cache ? &*cache : nullptr, [&](std::size_t done) { progress.show(done); },
                           [] { return mustStop != 0; }});
    const ClassResult result = checker.check(handIns);
    writeReport(request.csv, csvReport(result));
    if (!request.html.empty()) writeReport(request.html, htmlReport(result, language));
    output.write(tableReport(result, language));
    return mustStop != 0 ? interrupted : 0;
}

int makeTaskFile(const std::string& folder, Output& output) {
    const Task task = readTask(folder);
    const Checker checker(task, {});
    std::filesystem::path place = std::filesystem::absolute(filePath(folder)).lexically_normal();
    if (!place.has_filename()) place = place.parent_path();
    const std::string name = place.filename().string() + ".task";
    writeReport(name, packOpenTask(task, checker.expectedLines(), checker.expectedPictures()));
    output.writeLine(name);
    return 0;
}

}  // namespace tolvan
