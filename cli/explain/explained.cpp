#include "cli/explain/explained.h"

#include "cli/io/failure.h"
#include "cli/io/utf.h"

#include <algorithm>

namespace vantro {

namespace {

/// The queries that ended in the same way.
class Group {
public:
    void add(const std::string& query) { list_ += (list_.empty() ? "" : ", ") + query; }

    std::string sentence(const std::string& beginning) const { return list_.empty() ? "" : beginning + list_ + ".\n"; }

private:
    std::string list_;
};

/// "PHI 2" for two elements, "NM" for a query of one value.
std::string named(const KeptStep& query, std::int32_t count) {
    return toUtf8(query.name) + (count > 0 ? " " + std::to_string(count) : "");
}

}  // namespace

std::string outcomesOfQueries(const Explanation& explanation, const Profile& profile) {
    Group read;
    Group empty;
    Group notShown;
    std::string failed;
    std::int32_t count = 0;
    bool isRead = false;
    for (const KeptStep& step : explanation.steps()) {
        const bool isValue = step.kind == StepKind::ValueRead || step.kind == StepKind::KeyAdded;
        if (step.kind == StepKind::QueryBegins) {
            count = 0;
            isRead = false;
        } else if (isValue && !step.text.empty()) {
            isRead = true;
            count = std::max(count, step.index);
        } else if (step.kind == StepKind::QueryEnds && step.error) {
            failed += "Failed: " + toUtf8(step.name) + ", " + asSentence(describe(*step.error)) + "\n";
        } else if (step.kind == StepKind::QueryEnds) {
            const bool isShown = !step.family || profile.isShown(*step.family);
            Group& group = isRead ? read : isShown ? empty : notShown;
            group.add(named(step, count));
        }
    }
    return read.sentence("Read, with the number of elements: ") +
           empty.sentence("Empty, the search ended without a value: ") +
           notShown.sentence("Empty, the display does not show the section: ") + failed;
}

}  // namespace vantro
