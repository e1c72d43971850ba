// Which topic of the help explains a finding.
#pragma once

#include <string_view>

namespace tolvan::guide {

// The kind under which the failure of a run has its topic.
inline constexpr std::string_view failedRun = "failed-run";

// The topic's title in Roman spelling; empty for what is no kind of a finding.
std::string_view helpTopic(std::string_view kind);

}  // namespace tolvan::guide
