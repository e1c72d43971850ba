// Checks the hand-ins of a class: each case of each in a process of its own, several at a time.
#pragma once

#include "classroom/HandIns.h"
#include "classroom/ResultCache.h"
#include "classroom/Results.h"
#include "classroom/Task.h"
#include "classroom/WorkFolder.h"

#include <functional>
#include <string>
#include <vector>

namespace tolvan::classroom {

struct CheckOptions {
    unsigned jobs = 1;                   // processes at a time
    const ResultCache* cache = nullptr;  // what is known from earlier checks; null: nothing
    std::function<void(std::size_t checked)> progress = {};
    // Asked about every 50 ms; after true the check ends with what it has.
    std::function<bool()> mustStop = {};
    std::size_t mostFigures = 1500;  // of a drawing that are kept to be shown
};

class Checker {
  public:
    // Runs the solution, if there is one. Throws Problem where it fails.
    Checker(const Task& task, CheckOptions options);

    // Throws Problem when there is no room for temporary files.
    ClassResult check(const std::vector<HandIn>& handIns);

    // One program, whose file has these bytes.
    HandInResult checkProgram(const std::string& bytes);

    // What each case must print and draw.
    const std::vector<Readings>& expectedLines() const { return readings_; }
    const std::vector<Picture>& expectedPictures() const { return pictures_; }

  private:
    struct Job;

    void solve();
    CaseRun runSolution(const TaskCase& own);
    void addReadings(const TaskCase& own, const CaseRun* solution);
    void runAll(std::vector<Job>& waiting, const std::function<void(Job&)>& done);
    void startNext(Job& job);
    void takeResult(Job& job);
    void takeCase(Job& job);
    bool advance(Job& job, bool hasResult);
    CaseLimits limitsOf(const Job& job) const;
    CaseResult judge(std::size_t number, CaseRun run) const;
    void addPoints(HandInResult& result) const;
    bool mustStop() const { return options_.mustStop && options_.mustStop(); }

    const Task& task_;
    CheckOptions options_;
    WorkFolder workFolder_;
    std::vector<Readings> readings_;  // by cases
    std::vector<Picture> pictures_;
    std::vector<Screen> screens_;
    std::vector<double> solutionSeconds_;  // 0: there is no solution
};

}  // namespace tolvan::classroom
