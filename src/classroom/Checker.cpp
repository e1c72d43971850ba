#include "classroom/Checker.h"

#include "classroom/ChildProcess.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>

namespace tolvan::classroom {
namespace {

constexpr double hurriedSeconds = 0.1;  // for the other cases of a program that took too long
// Where the task does not say how long a case may take: so many times as long as its solution, in these limits.
constexpr double timesTheSolution = 100;
constexpr double leastSeconds = 0.5;
constexpr double examinationSeconds = 10;
constexpr std::uint64_t engineMemory = std::uint64_t{256} << 20;  // beyond what the program itself holds
constexpr std::size_t mostExamination = std::size_t{8} << 20;
constexpr int internalError = 51;
constexpr int patience = 50;  // milliseconds

ProcessLimits processLimits(const CaseLimits& limits) {
    return {limits.seconds, 2 * limits.memoryBytes + engineMemory, limits.fileBytes};
}

Problem cannotStart(int error) {
    const std::string reason = std::strerror(error);
    return {"प्रायोजन सुरू करता आले नाही: " + reason, "cannot start a process: " + reason};
}

Verdict verdictOf(CaseRun::End end) {
    switch (end) {
        case CaseRun::End::Ended:
            return Verdict::Right;
        case CaseRun::End::Time:
            return Verdict::Time;
        case CaseRun::End::Output:
            return Verdict::Output;
        case CaseRun::End::Memory:
            return Verdict::Memory;
        case CaseRun::End::Files:
            return Verdict::Files;
        case CaseRun::End::Error:
        case CaseRun::End::Crashed:
            break;
    }
    return Verdict::Error;
}

}  // namespace

// One program on its way: it is examined, then its cases are run one after the other.
struct Checker::Job {
    std::size_t place = 0;  // among the hand-ins
    std::string bytes;
    HandInResult result;
    bool examined = false;
    bool tookTooLong = false;
    std::string folder;
    ChildProcess child;

    bool isDone(const Task& task) const { return examined && result.cases.size() == task.cases.size(); }
};

Checker::Checker(const Task& task, CheckOptions options) : task_(task), options_(std::move(options)) {
    options_.jobs = std::max(options_.jobs, 1U);
    solve();
}

void Checker::solve() {
    for (const TaskCase& own : task_.cases) {
        if (task_.solution.empty()) {
            addReadings(own, nullptr);
            continue;
        }
        const CaseRun run = runSolution(own);
        if (run.end != CaseRun::End::Ended) {
            CaseResult result;
            result.verdict = verdictOf(run.end);
            result.number = run.number;
            result.line = run.line;
            const std::string where = own.name + ": " + codeOf(result);
            throw Problem{"solution.tvp चालले नाही. " + where, "solution.tvp fails in case " + where};
        }
        addReadings(own, &run);
    }
}

void Checker::addReadings(const TaskCase& own, const CaseRun* solution) {
    solutionSeconds_.push_back(solution != nullptr ? solution->seconds : 0);
    readings_.push_back(own.output ? readingsOf(*own.output) : readingsOf(solution->printed));
    pictures_.push_back(solution != nullptr ? solution->picture : Picture());
    screens_.push_back(solution != nullptr
                           ? screenOf(solution->picture, solution->printed, solution->shown, options_.mostFigures)
                           : Screen());
    if (!own.picture) return;
    PackReader picture(*own.picture);
    pictures_.back() = Picture::read(picture);
    screens_.back() = screenOf(pictures_.back(), {}, 0, options_.mostFigures);
}

CaseRun Checker::runSolution(const TaskCase& own) {
    const std::string folder = workFolder_.makeFolder(task_.files);
    const CaseLimits& limits = task_.options.limits;
    ChildProcess child = ChildProcess::start(
        ProcessWork{
            .kind = ProcessWork::Kind::RunCase, .program = task_.solution, .input = own.input, .limits = limits},
        folder, processLimits(limits));
    if (!child.isStarted()) throw cannotStart(errno);
    while (!child.isLate() && child.result().size() <= mostResult(limits)) {
        const bool isReady = ChildProcess::waitFor({&child}, patience).front();
        if ((isReady && !child.read()) || mustStop()) break;
    }
    child.end();
    WorkFolder::removeFolder(folder);
    CaseRun run = readCaseRun(child.result(), child.signal());
    run.seconds = child.processorSeconds();
    return run;
}

CaseLimits Checker::limitsOf(const Job& job) const {
    CaseLimits limits = task_.options.limits;
    const double& solution = solutionSeconds_[job.result.cases.size()];
    if (!task_.options.hasSeconds && solution > 0)
        limits.seconds = std::clamp(timesTheSolution * solution, leastSeconds, limits.seconds);
    if (job.tookTooLong) limits.seconds = std::min(limits.seconds, hurriedSeconds);
    return limits;
}

void Checker::startNext(Job& job) {
    ProcessWork work{.program = job.bytes};
    if (!job.examined) {
        work.start = task_.start;
        job.folder = workFolder_.makeFolder({});
        job.child = ChildProcess::start(work, job.folder, {examinationSeconds, 2 * engineMemory, 0});
    } else {
        work.kind = ProcessWork::Kind::RunCase;
        work.input = task_.cases[job.result.cases.size()].input;
        work.limits = limitsOf(job);
        job.folder = workFolder_.makeFolder(task_.files);
        job.child = ChildProcess::start(work, job.folder, processLimits(work.limits));
    }
    if (!job.child.isStarted()) throw cannotStart(errno);
}

void Checker::takeCase(Job& job) {
    CaseRun run = readCaseRun(job.child.result(), job.child.signal());
    if (job.child.result().size() > mostResult(task_.options.limits)) run.end = CaseRun::End::Output;
    run.seconds = job.child.processorSeconds();
    CaseResult result = judge(job.result.cases.size(), std::move(run));
    result.hurried = job.tookTooLong;
    job.tookTooLong = job.tookTooLong || result.verdict == Verdict::Time;
    job.result.cases.push_back(std::move(result));
}

void Checker::takeResult(Job& job) {
    job.child.end();
    WorkFolder::removeFolder(job.folder);
    if (job.examined) return takeCase(job);
    job.examined = true;
    job.result.examination = readExamination(job.child.result());
    if (job.result.examination.problem == Examination::Problem::None) return;
    job.result.problem = HandInContent::Problem::NoProgram;
    job.result.cases.resize(task_.cases.size());
}

CaseResult Checker::judge(std::size_t number, CaseRun run) const {
    CaseResult result;
    result.verdict = verdictOf(run.end);
    result.number = run.end == CaseRun::End::Crashed ? internalError : run.number;
    result.line = run.line;
    result.message = std::move(run.message);
    result.explanation = std::move(run.explanation);
    result.english = std::move(run.english);
    result.explanationInEnglish = std::move(run.explanationInEnglish);
    result.seconds = run.seconds;
    result.screen = screenOf(run.picture, run.printed, run.shown, options_.mostFigures);
    if (result.verdict == Verdict::Right) {
        result.difference = comparePrinted(readings_[number], run.printed, task_.options.exactness);
        const Picture& expected = pictures_[number];
        using Drawing = TaskOptions::Drawing;
        const Drawing drawing = expected.empty() ? Drawing::None : task_.options.drawing;
        const double tolerance = task_.options.tolerance;
        const bool drawsRight =
            drawing == Drawing::None ||
            (drawing == Drawing::Calls && Picture::sameFigures(expected, run.picture, tolerance)) ||
            (drawing == Drawing::Picture && Picture::sameLook(expected, run.picture, static_cast<int>(tolerance)));
        if (!result.difference && !drawsRight) {
            result.difference.emplace();
            result.difference->kind = Difference::Kind::Drawing;
        }
        if (result.difference) result.verdict = Verdict::Wrong;
    }
    result.printed = excerptOf(std::move(run.printed));
    return result;
}

void Checker::addPoints(HandInResult& result) const {
    result.points = 0;
    for (std::size_t i = 0; i < result.cases.size(); ++i)
        if (result.cases[i].verdict == Verdict::Right) result.points += task_.cases[i].points;
}

// Reads on; true when the process of the job has ended, or has to be ended since it is late or tells too much.
bool Checker::advance(Job& job, bool hasResult) {
    const bool mayTellMore = !hasResult || job.child.read();
    const std::size_t most = job.examined ? mostResult(task_.options.limits) : mostExamination;
    return !mayTellMore || job.child.result().size() > most || job.child.isLate();
}

// The last of the jobs first. `done` is called for each that came to its end.
void Checker::runAll(std::vector<Job>& waiting, const std::function<void(Job&)>& done) {
    std::vector<std::unique_ptr<Job>> running;
    while ((!waiting.empty() || !running.empty()) && !mustStop()) {
        while (running.size() < options_.jobs && !waiting.empty()) {
            running.push_back(std::make_unique<Job>(std::move(waiting.back())));
            waiting.pop_back();
            startNext(*running.back());
        }
        std::vector<const ChildProcess*> processes;
        processes.reserve(running.size());
        for (const auto& job : running) processes.push_back(&job->child);
        const std::vector<bool> ready = ChildProcess::waitFor(processes, patience);
        for (std::size_t i = running.size(); i-- > 0;) {
            Job& job = *running[i];
            if (!advance(job, ready[i])) continue;
            takeResult(job);
            if (!job.isDone(task_)) {
                startNext(job);
                continue;
            }
            done(job);
            running.erase(running.begin() + static_cast<std::ptrdiff_t>(i));
        }
    }
}

ClassResult Checker::check(const std::vector<HandIn>& handIns) {
    std::vector<std::optional<HandInResult>> results(handIns.size());
    std::vector<Job> waiting;
    std::size_t checked = 0;
    const auto take = [&](std::size_t place, HandInResult result) {
        addPoints(result);
        result.name = handIns[place].name;
        results[place] = std::move(result);
        ++checked;
        if (options_.progress) options_.progress(checked);
    };
    // From the last to the first, since runAll begins with the last of the jobs.
    for (std::size_t place = handIns.size(); place-- > 0 && !mustStop();) {
        HandInContent content = readHandIn(handIns[place]);
        std::optional<HandInResult> known;
        if (content.problem != HandInContent::Problem::None) {
            known.emplace();
            known->problem = content.problem;
            known->cases.resize(task_.cases.size());
        } else if (options_.cache != nullptr) {
            known = options_.cache->find(content.bytes);
            if (known && known->cases.size() != task_.cases.size()) known.reset();
        }
        if (known) {
            take(place, std::move(*known));
            continue;
        }
        Job& job = waiting.emplace_back();
        job.place = place;
        job.bytes = std::move(content.bytes);
    }
    runAll(waiting, [&](Job& job) {
        if (options_.cache != nullptr) options_.cache->keep(job.bytes, job.result);
        take(job.place, std::move(job.result));
    });
    ClassResult result;
    result.title = task_.title;
    result.most = task_.points();
    result.handInCount = handIns.size();
    result.missing = missingWalls();
    for (std::size_t i = 0; i < task_.cases.size(); ++i)
        result.cases.push_back({task_.cases[i].name, task_.cases[i].points, screens_[i]});
    for (std::optional<HandInResult>& one : results)
        if (one) result.handIns.push_back(std::move(*one));
    groupAlike(result.handIns);
    return result;
}

HandInResult Checker::checkProgram(const std::string& bytes) {
    std::vector<Job> waiting(1);
    waiting[0].bytes = bytes;
    HandInResult result;
    runAll(waiting, [&](Job& job) { result = std::move(job.result); });
    addPoints(result);
    return result;
}

}  // namespace tolvan::classroom
