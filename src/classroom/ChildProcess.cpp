#include "classroom/ChildProcess.h"

#include <utility>

namespace tolvan::classroom {
namespace {

constexpr std::size_t pieceSize = std::size_t{64} << 10;

}  // namespace

ChildProcess::ChildProcess(ChildProcess&& other) noexcept {
    *this = std::move(other);
}

ChildProcess& ChildProcess::operator=(ChildProcess&& other) noexcept {
    if (this == &other) return *this;
    end();
    process_ = std::exchange(other.process_, 0);
    pipe_ = std::move(other.pipe_);
    result_ = std::move(other.result_);
    latest_ = other.latest_;
    processorSeconds_ = other.processorSeconds_;
    signal_ = other.signal_;
    return *this;
}

bool ChildProcess::read() {
    const std::size_t before = result_.size();
    return pipe_.read(result_, pieceSize) == 0 && result_.size() > before;
}

void ChildProcess::setLatest(const ProcessLimits& limits) {
    const auto patience = std::chrono::duration<double>(limits.seconds * 5 + 5);
    latest_ = std::chrono::steady_clock::now() + std::chrono::duration_cast<std::chrono::milliseconds>(patience);
}

}  // namespace tolvan::classroom
