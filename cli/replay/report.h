// The reports of a run, as text, JSON and JUnit XML.
#pragma once

#include "cli/replay/cases.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vantro {

/// How many cases ended in which way.
struct ReplayTotals {
    std::size_t passed = 0;
    std::size_t failed = 0;
    std::size_t accepted = 0;
    std::size_t broken = 0;

    void count(CaseStatus status);
};

/// A case's line and, below it, its differences: what was expected, what came, and the screen lines with a ruler.
std::string caseText(const CaseResult& result, bool isColored);

/// The line that says whether the expectation of a case was rewritten, and if not, why.
std::string acceptText(const CaseResult& result);

/// The differences alone, without colour.
std::string differencesText(const CaseResult& result);

/// One JSON object, line end included.
std::string caseJson(const CaseResult& result);

/// "66 cases: 64 ok, 2 failed". What is 0 is left out, except for ok.
std::string summaryOf(const ReplayTotals& totals);

/// The whole run as JUnit XML.
std::string junitText(const std::vector<CaseResult>& results);

}  // namespace vantro
