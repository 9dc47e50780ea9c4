#include "cli/commands/commands.h"
#include "cli/io/failure.h"
#include "cli/io/output_file.h"
#include "cli/io/standard_io.h"
#include "cli/io/terminal.h"
#include "cli/replay/report.h"

#include <utility>

namespace vantro {

namespace {

/// What is rewritten is shown before.
CaseResult runAndShow(const SampleCase& sample, const ReplayOptions& options) {
    CaseResult result = runCase(sample);
    const bool isAccepting = options.accept && result.status == CaseStatus::Failed;
    const bool isShown = !options.quiet || result.status != CaseStatus::Passed;
    if (isShown && !options.json) writeOutput(caseText(result, outputShowsColor()));
    if (isAccepting) accept(result);
    if (isAccepting && !options.json) writeOutput(acceptText(result));
    if (isShown && options.json) writeOutput(caseJson(result));
    return result;
}

}  // namespace

int runReplay(const ReplayOptions& options) {
    ReplayTotals totals;
    std::vector<CaseResult> results;
    for (const SampleCase& sample : casesIn(options.paths)) {
        CaseResult result = runAndShow(sample, options);
        totals.count(result.status);
        if (!options.junitFile.empty()) results.push_back(std::move(result));
    }
    if (!options.junitFile.empty()) writeFile(options.junitFile, junitText(results));
    if (!options.json) {
        writeOutput(summaryOf(totals) + "\n");
    } else if (!options.quiet) {
        complain(summaryOf(totals));
    }
    if (totals.failed > 0) return callFailed;
    return totals.broken > 0 ? badUsage : success;
}

}  // namespace vantro
