//   ....+....1....+....2....+....3....+....4
// n ------- PNR TRANSFERABLE DATA                  header
//   S    1     RM PREFERS MORNING FLIGHTS          number in columns 6 to 8, code from column 14
//                    AND NO STOPS                  continuation: 17 blanks
//   A    2    AP  LYS 555-0101                     contact: code in columns 12 to 17
//   ------- DOCUMENTS                              the next section
#include "display/rules.h"
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
          watch_(display_.watch()),
          found_(found),
          running_(families),
          inSection_(families & scannedFromFirstLine) {}

    /// Runs all scans to their ends. Returns those that the display's end interrupts.
    FamilySet run() {
        if (watch_) sayBegin();
        for (Counter number;; ++number) {
            if (inSection_.empty()) {
                const std::optional<Display::MarkedLine> next = display_.nextMarked(number);
                if (!next) {
                    if (watch_) sayNoHeader();
                    return running_;
                }
                number = next->number;
                passBoundary(next->marks, display_.screen().line(number), number);
            } else {
                const DisplayLine* const line = display_.lineBeforeEnd(number);
                if (line == nullptr) {
                    watch_.decided(rule::displayHasNoEnd, number);
                    return running_;
                }
                if (line->marks().any() || beginsWith(line->text(), transferableBoundary)) {
                    passBoundary(line->marks(), line->text(), number);
                }
            }
            if (running_.empty()) return {};
            if (!inSection_.empty()) testElement(display_.line(number), number);
        }
    }

private:
    /// Ends the scans that end at this line; the others enter the section if the line is its header.
    void passBoundary(LineMarks marks, TextView line, Counter number) {
        const bool isHeader = marks.containsHeader(Section::Transferable);
        const bool isOtherHeader = !isHeader && beginsWith(line, transferableBoundary);
        running_.forEach([&](Family family) {
            const bool isMark = endsScan(rowOf(family).end, marks, line);
            const bool isEnd = isMark || (inSection_.contains(family) && isOtherHeader);
            if (watch_) sayBoundary(family, isEnd, isMark, marks, number);
            if (isEnd) {
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
            const FamilySet families = inSection_ & line.codes();
            if (watch_) sayTested(inSection_, families, rule::codeFound, line.rightTrimmed(), number);
            storeAs(families, line.rightTrimmed());
            return;
        }
        testJoined(line, number, JoinRule::OneBelow, inSection_ & oneLineJoiners);
        testJoined(line, number, JoinRule::TwoBelow, inSection_ & twoLineJoiners);
    }

    void testJoined(const DisplayLine& line, Counter number, JoinRule joining, FamilySet joiners) {
        if (joiners.empty()) return;
        const TextView text = joiner_.joinContinued(line, number, joining);
        const FamilySet families = joiners & codesIn(text);
        if (watch_) {
            const FamilySet ownCodes = families & line.codes();
            sayTested(ownCodes, ownCodes, rule::codeFound, text, number);
            sayTested(joiners - ownCodes, families, rule::codeInJoinedText, text, number);
            sayJoined(families, number, joining);
        }
        if (!families.empty()) storeAs(families, joiner_.keep(text));
    }

    void storeAs(FamilySet families, TextView text) {
        families.forEach([&](Family family) { found_.push_back({family, transferableTextColumn, text}); });
    }

    // What an observer is told

    void sayBegin() const {
        inSection_.forEach([&](Family family) { watch_.decided(rule::scanFromFirstLine, Counter(0), family); });
    }

    /// The header was searched for from line 0 to `last`.
    void saySearched(int last, TextView found) const {
        const TextView header = sectionHeaders[indexOf(Section::Transferable)];
        if (last >= 0) watch_.searched(header, MarkSearch::InLine, 0, last, found);
    }

    void sayNoHeader() const {
        saySearched(static_cast<int>(display_.size()) - 1, {});
        watch_.decided(rule::displayHasNoEnd);
    }

    // A line is tested for an end before it is tested for the header.
    void sayBoundary(Family family, bool isEnd, bool isMark, LineMarks marks, Counter number) const {
        const bool isSearched = !inSection_.contains(family);
        const bool isHeader = marks.containsHeader(Section::Transferable);
        if (isEnd) {
            if (isSearched) saySearched(number.value() - 1, {});
            watch_.decided(isMark ? ruleOfMark(family, marks) : rule::scanEndsAtHeader, number, family);
            return;
        }
        if (marks.containsPrompt()) watch_.decided(rule::promptInsideLine, number, family);
        if (!isHeader) return;
        if (isSearched) saySearched(number.value(), display_.headerIn(Section::Transferable, number));
        watch_.decided(isSearched ? rule::sectionBegins : rule::ownHeader, number, family);
    }

    static const ReadingRule& ruleOfMark(Family family, LineMarks marks) {
        if (marks.containsEndText()) return rule::scanEndsAtEndText;
        return rowOf(family).end == ScanEnd::PromptAnywhere ? rule::scanEndsAtPrompt : rule::scanEndsAtPromptLine;
    }

    void sayJoined(FamilySet found, Counter number, JoinRule joining) const {
        const bool areTwo = joining == JoinRule::TwoBelow && joiner_.isContinued(number + 1, joining);
        found.forEach([&](Family family) {
            watch_.decided(rule::joinedToLineAbove, number + 1, family);
            if (areTwo) watch_.decided(rule::joinedToLineAbove, number + 2, family);
        });
    }

    void sayTested(FamilySet tested, FamilySet found, const ReadingRule& foundBy, TextView text, Counter number) const {
        tested.forEach([&](Family family) {
            watch_.decided(found.contains(family)               ? foundBy
                           : contains(text, rowOf(family).code) ? rule::codeOutsideColumns
                                                                : rule::codeMissing,
                           number, family);
        });
    }

    Joiner& joiner_;
    Display& display_;
    const Watch& watch_;
    FoundElements& found_;
    FamilySet running_;    // the families whose scans have not ended
    FamilySet inSection_;  // a subset of `running_`
};

}  // namespace

FamilySet extractTransferable(FamilySet families, Joiner& joiner, FoundElements& found) {
    return Scans(families, joiner, found).run();
}

}  // namespace vantro
