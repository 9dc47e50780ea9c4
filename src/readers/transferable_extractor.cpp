//   ....+....1....+....2....+....3....+....4
// n ------- PNR TRANSFERABLE DATA                  header
//   S    1     RM PREFERS MORNING FLIGHTS          number in columns 6 to 8, code from column 14
//                    AND NO STOPS                  continuation: 17 blanks
//   A    2    AP  LYS 555-0101                     contact: code in columns 12 to 17
//   ------- DOCUMENTS                              the next section
#include "framework/constants.h"
#include "readers/extractors.h"

namespace vantro {

namespace {

constexpr const TransferableFamily& rowOf(Family family) {
    return transferableFamilies[indexOf(family) - firstTransferable];
}

bool endsScan(ScanEnd end, LineMarks marks, TextView line) {
    if (marks.containsEndText()) return true;
    return marks.containsPrompt() && (end == ScanEnd::PromptAnywhere || rightTrimmed(line) == mark::prompt);
}

constexpr FamilySet scannedFromFirstLine = [] {
    FamilySet families;
    for (const TransferableFamily& row : transferableFamilies) {
        if (row.start == ScanStart::FirstLine) families.add(row.family);
    }
    return families;
}();

/// The scans of several families over the same lines. Each ends as its own row says.
class Scans {
public:
    Scans(FamilySet families, Joiner& joiner, FoundElements& found)
        : joiner_(joiner),
          display_(joiner.display()),
          found_(found),
          running_(families),
          inSection_(families & scannedFromFirstLine) {}

    /// Runs all scans to their ends. Returns those that the display's end interrupts.
    FamilySet run() {
        for (Counter number;; ++number) {
            if (inSection_.empty()) {
                const std::optional<Display::MarkedLine> next = display_.nextMarked(number);
                if (!next) return running_;
                number = next->number;
                passBoundary(next->marks, display_.screen().line(number));
            } else {
                const DisplayLine* const line = display_.lineBeforeEnd(number);
                if (line == nullptr) return running_;
                if (line->marks().any() || beginsWith(line->text(), transferableBoundary)) {
                    passBoundary(line->marks(), line->text());
                }
            }
            if (running_.empty()) return {};
            if (!inSection_.empty()) testElement(display_.line(number), number);
        }
    }

private:
    /// Ends the scans that end at this line; the others enter the section if the line is its header.
    void passBoundary(LineMarks marks, TextView line) {
        const bool isHeader = marks.containsHeader(Section::Transferable);
        const bool isOtherHeader = !isHeader && beginsWith(line, transferableBoundary);
        running_.forEach([&](Family family) {
            if (endsScan(rowOf(family).end, marks, line) || (inSection_.contains(family) && isOtherHeader)) {
                running_.remove(family);
                inSection_.remove(family);
            } else if (isHeader) {
                inSection_.add(family);
            }
        });
    }

    // A continuation line is tested again as a line of its own afterwards.
    void testElement(const DisplayLine& line, Counter number) {
        if (!joiner_.isContinued(number, JoinRule::OneBelow)) {
            storeAs(inSection_ & line.codes(), line.rightTrimmed());
            return;
        }
        testJoined(line, number, JoinRule::OneBelow, inSection_ & oneLineJoiners);
        testJoined(line, number, JoinRule::TwoBelow, inSection_ & twoLineJoiners);
    }

    void testJoined(const DisplayLine& line, Counter number, JoinRule rule, FamilySet joiners) {
        if (joiners.empty()) return;
        const TextView text = joiner_.joinContinued(line, number, rule);
        const FamilySet families = joiners & codesIn(text);
        if (!families.empty()) storeAs(families, joiner_.keep(text));
    }

    void storeAs(FamilySet families, TextView text) {
        families.forEach([&](Family family) { found_.push_back({family, transferableTextColumn, text}); });
    }

    Joiner& joiner_;
    Display& display_;
    FoundElements& found_;
    FamilySet running_;    // the families whose scans have not ended
    FamilySet inSection_;  // a subset of `running_`
};

}  // namespace

FamilySet extractTransferable(FamilySet families, Joiner& joiner, FoundElements& found) {
    return Scans(families, joiner, found).run();
}

}  // namespace vantro
