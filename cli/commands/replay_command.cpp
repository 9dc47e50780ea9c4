#include "cli/commands/commands.h"
#include "cli/io/failure.h"
#include "cli/io/output_file.h"
#include "cli/io/standard_io.h"
#include "cli/io/terminal.h"
#include "cli/replay/report.h"

#include <utility>

namespace vantro {

int runReplay(const ReplayOptions& options) {
    ReplayTotals totals;
    std::vector<CaseResult> results;
    for (const SampleCase& sample : casesIn(options.paths)) {
        CaseResult result = runCase(sample, options.accept);
        totals.count(result.status);
        const bool isShown = !options.quiet || result.status != CaseStatus::Passed;
        if (isShown) writeOutput(options.json ? caseJson(result) : caseText(result, outputShowsColor()));
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
