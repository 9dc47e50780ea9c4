// The cases of a run: sample exchanges, and displays with their expectations.
#pragma once

#include "cli/replay/difference.h"

#include <string>
#include <vector>

namespace vantro {

struct SampleCase {
    std::string file;         ///< the exchange or the display
    std::string expectation;  ///< the file with what is expected; for an exchange the same
    std::string problem;      ///< why it is no case; empty for a case
};

/// The cases that files and folders contain, each once, in the order of the arguments and of the names in a folder. In
/// a folder and those below it these are the exchanges (NAME.exchange) and the displays with an expectation: NAME.txt
/// with NAME.json beside it, or profiles/NAME.txt with expected/NAME.json. A display in profiles/ without an
/// expectation, an expectation in expected/ without a display, and a file that is named and is none of these are
/// problems. Raises UsageError for a folder that cannot be read, and for arguments without any case.
std::vector<SampleCase> casesIn(const std::vector<std::string>& arguments);

enum class CaseStatus { Passed, Failed, Accepted, Broken };

struct CaseResult {
    SampleCase sample;
    CaseStatus status = CaseStatus::Passed;
    std::vector<Difference> differences = {};
    std::string problem = {};  ///< why a case could not be run, or its expectation not be rewritten
    double seconds = 0;
    std::string text = {};      ///< of a case that failed: the text of its expectation
    std::string accepted = {};  ///< the same, expecting what came
};

/// Runs a case and compares. Raises nothing for a broken file: the status is `Broken` and the problem says why.
CaseResult runCase(const SampleCase& sample);

/// Rewrites the expectation of a case that failed. The status becomes `Accepted`, or the problem says why not.
void accept(CaseResult& result);

}  // namespace vantro
