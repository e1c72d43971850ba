#include "classroom/Task.h"

#include "classroom/TarArchive.h"
#include "platform/encoding/Ascii.h"
#include "platform/files/FilePath.h"
#include "platform/files/OpenFile.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <map>
#include <numeric>

namespace tolvan::classroom {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t largestTask = std::size_t{64} << 20;

Problem cannotRead(const std::string& path, int error) {
    const std::string reason = std::strerror(error);
    return {path + " वाचता आले नाही: " + reason, "cannot read " + path + ": " + reason};
}

std::string contentOf(const std::string& path) {
    const Descriptor file = openFile(path, FileUse::Read);
    std::string content;
    const int error = file.isOpen() ? file.readAll(content, largestTask) : errno;
    if (error != 0) throw cannotRead(path, error);
    return content;
}

bool isHidden(const fs::path& path) {
    return std::any_of(path.begin(), path.end(), [](const fs::path& part) { return part.string().starts_with('.'); });
}

std::vector<NamedFile> filesOfFolder(const fs::path& folder) {
    std::vector<NamedFile> files;
    std::size_t size = 0;
    std::error_code failure;
    for (fs::recursive_directory_iterator place(folder, failure), end; !failure && place != end;
         place.increment(failure)) {
        const fs::path name = place->path().lexically_relative(folder);
        if (isHidden(name) || !place->is_regular_file(failure)) continue;
        files.push_back({name.generic_string(), contentOf(place->path().generic_string())});
        size += files.back().content.size();
        if (size > largestTask) throw cannotRead(folder.string(), EFBIG);
    }
    if (failure) throw cannotRead(folder.string(), failure.value());
    std::sort(files.begin(), files.end(), [](const NamedFile& a, const NamedFile& b) { return a.name < b.name; });
    return files;
}

// "2" before "10", and names by their letters.
bool comesBefore(const std::string& a, const std::string& b) {
    const auto isNumber = [](const std::string& name) { return std::all_of(name.begin(), name.end(), isDigit); };
    if (isNumber(a) && isNumber(b) && a.size() != b.size()) return a.size() < b.size();
    return a < b;
}

// The text of task.ini for pupils: without the sections of cases that are not open to them.
std::string openOptions(const Task& task) {
    std::string kept = "title = " + task.title + "\n";
    bool keeps = true;
    for (std::string_view rest = task.optionsText; !rest.empty();) {
        const std::string line(takeLine(rest).text);
        const std::size_t open = line.find('[');
        const std::size_t close = line.find(']');
        if (open == line.find_first_not_of(" \t") && close != std::string::npos)
            keeps = task.options.isOpen(line.substr(open + 1, close - open - 1));
        const bool isTitle = line.find_first_not_of(" \t") == line.find("title");
        if (keeps && !(isTitle && line.find('=') != std::string::npos)) kept += line + "\n";
    }
    return kept;
}

class TaskMaker {
  public:
    TaskMaker(std::string title, std::vector<NamedFile> files) : files_(std::move(files)) {
        task_.title = std::move(title);
    }

    Task make() {
        for (NamedFile& file : files_) {
            task_.fingerprint.append(std::to_string(file.name.size())).append(":").append(file.name);
            task_.fingerprint.append(std::to_string(file.content.size())).append(":").append(file.content);
            take(file);
        }
        if (!task_.options.title.empty()) task_.title = task_.options.title;
        if (task_.cases.empty() && !task_.solution.empty()) caseNamed("1");
        checkCases();
        return std::move(task_);
    }

  private:
    void take(NamedFile& file) {
        if (file.name == "task.ini")
            task_.options = readTaskOptions(task_.optionsText = file.content);
        else if (file.name == "solution.tvp")
            task_.solution = std::move(file.content);
        else if (file.name == "start.tvp")
            task_.start = std::move(file.content);
        else if (!takeOfCase(file))
            task_.files.push_back(std::move(file));
    }

    bool takeOfCase(NamedFile& file) {
        const fs::path name = filePath(file.name);
        const std::string kind = name.extension().string();
        if (name.has_parent_path() || (kind != ".in" && kind != ".out" && kind != ".keys" && kind != ".picture"))
            return false;
        TaskCase& own = caseNamed(name.stem().string());
        if (kind == ".in") own.input.typed = std::move(file.content);
        if (kind == ".keys") own.input.keys = std::move(file.content);
        if (kind == ".out") own.output = std::move(file.content);
        if (kind == ".picture") own.picture = std::move(file.content);
        return true;
    }

    TaskCase& caseNamed(const std::string& name) {
        const auto found = std::find_if(task_.cases.begin(), task_.cases.end(),
                                        [&](const TaskCase& known) { return known.name == name; });
        if (found != task_.cases.end()) return *found;
        task_.cases.emplace_back().name = name;
        return task_.cases.back();
    }

    void checkCases() {
        std::vector<TaskCase>& cases = task_.cases;
        if (cases.empty())
            throw Problem{"या प्रश्नात चाचणी नाही: *.in, *.out किंवा solution.tvp हवे",
                          "the task has no cases: *.in, *.out or solution.tvp is needed"};
        std::sort(cases.begin(), cases.end(),
                  [](const TaskCase& a, const TaskCase& b) { return comesBefore(a.name, b.name); });
        for (TaskCase& own : cases) {
            own.input.seed = task_.options.seed;
            own.points = task_.options.pointsOf(own.name);
            own.isOpen = task_.options.isOpen(own.name);
            if (!own.output && task_.solution.empty())
                throw Problem{own.name + ".in साठी " + own.name + ".out किंवा solution.tvp हवे",
                              own.name + ".in needs " + own.name + ".out, or solution.tvp"};
        }
        for (const auto& [name, own] : task_.options.ofCases)
            if (std::none_of(cases.begin(), cases.end(),
                             [&, &name = name](const TaskCase& known) { return known.name == name; }))
                throw Problem{"task.ini: [" + name + "] या नावाची चाचणी नाही",
                              "task.ini: there is no case [" + name + "]"};
    }

    std::vector<NamedFile> files_;
    Task task_;
};

}  // namespace

double Task::points() const {
    return std::accumulate(cases.begin(), cases.end(), 0.0,
                           [](double sum, const TaskCase& own) { return sum + own.points; });
}

Task readTask(const std::string& path) {
    std::error_code ignored;
    fs::path place = fs::absolute(filePath(path), ignored).lexically_normal();
    if (!place.has_filename()) place = place.parent_path();
    const std::string title = place.stem().string();
    if (fs::is_directory(place, ignored)) return TaskMaker(title, filesOfFolder(place)).make();
    std::optional<std::vector<NamedFile>> files = readTar(contentOf(path));
    if (!files) throw Problem{path + " हा प्रश्न नाही", path + " is no task"};
    return TaskMaker(title, std::move(*files)).make();
}

std::string packOpenTask(const Task& task, const std::vector<Readings>& lines, const std::vector<Picture>& pictures) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    std::vector<NamedFile> files = task.files;
    if (!task.start.empty()) files.push_back({"start.tvp", task.start});
    for (std::size_t i = 0; i < task.cases.size(); ++i) {
        const TaskCase& own = task.cases[i];
        if (!own.isOpen) continue;
        files.push_back({own.name + ".in", own.input.typed});
        if (!own.input.keys.empty()) files.push_back({own.name + ".keys", own.input.keys});
        std::string printed(byteOrderMark);
        for (const std::string& line : lines[i].back()) printed += line + "\n";
        files.push_back({own.name + ".out", own.output.value_or(printed)});
        if (pictures[i].empty()) continue;
        PackWriter picture;
        pictures[i].write(picture);
        files.push_back({own.name + ".picture", picture.bytes()});
    }
    files.push_back({"task.ini", openOptions(task)});
    return writeTar(files);
}

}  // namespace tolvan::classroom
