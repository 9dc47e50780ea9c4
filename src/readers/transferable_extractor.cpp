//   ....+....1....+....2....+....3....+....4
// n ------- PNR TRANSFERABLE DATA                  header
//   S    1     RM PREFERS MORNING FLIGHTS          number in columns 6 to 8, code from column 14
//                    AND NO STOPS                  continuation: 17 blanks
//   A    2    AP  LYS 555-0101                     contact: code in columns 12 to 17
//   ------- DOCUMENTS                              the next section
#include "framework/constants.h"
#include "readers/extractors.h"

#include <array>
#include <span>

namespace vantro {

namespace {

constexpr Field numberField{Column{6}, Width{3}};
constexpr Field textField{Column{14}};
constexpr Field detailField{Column{18}};

// Columns inside an element's text, which begins with its code: "FFN XX 1234567", "SR FQTVXX 1234567-TEXT".
constexpr Column flyerCarrierColumn{5};
constexpr Column flyerAccountColumn{8};
constexpr Column requestCodeColumn{5};
constexpr Column starredCodeColumn{6};
constexpr Width requestCodeWidth{4};
constexpr Column requestCarrierColumn{9};
constexpr Column requestAccountColumn{12};
constexpr Width carrierWidth{2};

// Four blanks end the text of a frequent-flyer line, also the stored one.
void splitFrequentFlyer(FoundElement& element) {
    if (const Column gap = find(element.text, u"    "); gap > Column{0}) {
        element.text = trimmed(left(element.text, Width{gap.value}));
    }
    element.airline = mid(element.text, flyerCarrierColumn, carrierWidth);
    element.frequentFlyerNumber = trimmed(mid(element.text, flyerAccountColumn));
}

void splitServiceRequest(FoundElement& element) {
    const TextView text = element.text;
    element.code = mid(text, requestCodeColumn, requestCodeWidth);
    if (element.code.starts_with(u'*')) element.code = mid(text, starredCodeColumn, requestCodeWidth);
    if (const Column dash = find(text, u"-"); dash > Column{0}) element.freeText = trimmed(mid(text, dash + 1));
    if (element.code == u"FQTV") {
        // Meant: carrier and account are read from the same columns with and without the star.
        element.airline = mid(text, requestCarrierColumn, carrierWidth);
        element.frequentFlyerNumber = trimmed(mid(text, requestAccountColumn));
    }
}

bool endsScan(ScanEnd end, const DisplayLine& line) {
    const LineMarks marks = line.marks();
    if (marks.containsEndText()) return true;
    return end == ScanEnd::PromptLineAlone ? line.rightTrimmed() == mark::prompt : marks.containsPrompt();
}

FoundElement split(const TransferableFamily& row, TextView line) {
    FoundElement element{.number = cut(line, numberField), .text = cut(line, textField)};
    switch (row.split) {  // Not covered: every split has its case
        case Split::None: break;
        case Split::FrequentFlyer: splitFrequentFlyer(element); break;
        case Split::ServiceRequest: splitServiceRequest(element); break;
        case Split::RemarkDetail: element.freeText = cut(line, detailField); break;
    }
    return element;
}

/// The families with this rule: their elements may continue on one or on two lines.
constexpr FamilySet familiesJoinedBy(JoinRule rule) {
    FamilySet families;
    for (const TransferableFamily& row : transferableFamilies) {
        if (row.join == rule) families.add(row.family);
    }
    return families;
}

constexpr FamilySet oneLineJoiners = familiesJoinedBy(JoinRule::OneBelow);
constexpr FamilySet twoLineJoiners = familiesJoinedBy(JoinRule::TwoBelow);

/// The scans of several families over the same lines. Each ends as its own row says.
class Scans {
public:
    Scans(std::span<const TransferableFamily> rows, Joiner& joiner, ElementSink& sink)
        : rows_(rows), joiner_(joiner), display_(joiner.display()), sink_(sink) {
        for (const TransferableFamily& row : rows) {
            running_.add(row.family);
            if (row.start == ScanStart::FirstLine) inSection_.add(row.family);
        }
    }

    /// Runs all scans to their ends and returns the count of the one that ended last.
    std::int16_t run() {
        for (Counter number;; ++number) {
            if (inSection_.empty()) number = display_.nextMarked(number).number;
            const DisplayLine& line = display_.expectedLine(number);
            if (line.marks().any() || line.text().starts_with(u"------")) {
                passBoundary(line);
                if (running_.empty()) return lastCount_;
            }
            if (!inSection_.empty()) testElement(line, number);
        }
    }

    /// The families whose scans have not ended.
    FamilySet running() const { return running_; }

private:
    /// Ends the scans that end at this line; the others enter the section if the line is its header.
    void passBoundary(const DisplayLine& line) {
        const bool isHeader = line.marks().containsHeader(Section::Transferable);
        const bool isOtherHeader = !isHeader && line.text().starts_with(u"------");
        for (std::size_t index = 0; index < rows_.size(); ++index) {
            const Family family = rows_[index].family;
            if (!running_.contains(family)) continue;
            if (endsScan(rows_[index].end, line) || (inSection_.contains(family) && isOtherHeader)) {
                running_.remove(family);
                inSection_.remove(family);
                lastCount_ = counts_[index].value();
            } else if (isHeader) {
                inSection_.add(family);
            }
        }
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
        const TextView text = joiner_.joinContinued(line, number, rule).text;
        const FamilySet families = joiners & codesIn(text);
        if (!families.empty()) storeAs(families, joiner_.keep(text));
    }

    void storeAs(FamilySet families, TextView line) {
        if (families.empty()) return;
        for (std::size_t index = 0; index < rows_.size(); ++index) {
            const TransferableFamily& row = rows_[index];
            if (!families.contains(row.family)) continue;
            ++counts_[index];
            sink_.store(row.family, counts_[index].value(), split(row, line));
        }
    }

    std::span<const TransferableFamily> rows_;
    Joiner& joiner_;
    Display& display_;
    ElementSink& sink_;
    FamilySet running_;
    FamilySet inSection_;                                      // a subset of `running_`
    std::array<Counter, transferableFamilies.size()> counts_;  // one per row
    std::int16_t lastCount_ = 0;
};

}  // namespace

std::int16_t extract(const TransferableFamily& row, Joiner& joiner, ElementSink& sink) {
    return Scans({&row, 1}, joiner, sink).run();
}

FamilySet extractTransferable(Joiner& joiner, ElementSink& sink) {
    Scans scans(transferableFamilies, joiner, sink);
    try {
        scans.run();
        return {};
    } catch (const Error&) {
        return scans.running();
    }
}

}  // namespace vantro
