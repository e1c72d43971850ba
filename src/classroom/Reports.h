// A class's results as texts, in UTF-8: for the terminal, for a spreadsheet, and as a page for a browser.
#pragma once

#include "classroom/Problem.h"
#include "classroom/Results.h"

#include <string>

namespace tolvan::classroom {

std::string tableReport(const ClassResult& result, Language language);

// The same in both languages, for other programs: name, points, max, the cases, alike.
std::string csvReport(const ClassResult& result);

// One page that needs no other file and no network.
std::string htmlReport(const ClassResult& result, Language language);

}  // namespace tolvan::classroom
