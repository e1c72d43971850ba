// See ChildProcess.cpp beside it: nothing is confined here yet.
#include "classroom/Sandbox.h"

namespace tolvan::classroom {

std::vector<Wall> missingWalls() {
    return {Wall::Files, Wall::SystemCalls};
}

void limitProcess(const ProcessLimits&) {}

void watchTime() {}

bool isTimeOver() {
    return false;
}

bool isSignalOfTime(int) {
    return false;
}

void confineProcess(const std::string&) {}

}  // namespace tolvan::classroom
