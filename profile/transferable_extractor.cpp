//   ....+....1....+....2....+....3....+....4
// n ------- PNR TRANSFERABLE DATA                  header
//   S    1     RM PREFERS MORNING FLIGHTS          number in columns 6 to 8, code from column 14
//                    AND NO STOPS                  continuation: 17 blanks
//   A    2    AP  LYS 555-0101                     contacts have their code in columns 12 to 17
//   ------- DOCUMENTS                              the next section
#include "framework/constants.h"
#include "profile/codes.h"
#include "profile/extractors.h"

#include <algorithm>
#include <array>
#include <span>

namespace vantro {

namespace {

constexpr Column numberColumn{6};
constexpr Width numberWidth{3};
constexpr Column contactCodeColumn{12};
constexpr Column codeSearchColumn{13};
constexpr Column textColumn{14};
constexpr Column detailColumn{18};

// Columns inside an element's text, which begins with its code: "FFN XX 1234567", "SR FQTVXX 1234567-TEXT".
constexpr Column flyerCarrierColumn{5};
constexpr Column flyerAccountColumn{8};
constexpr Column requestCodeColumn{5};
constexpr Column starredCodeColumn{6};
constexpr Width requestCodeWidth{4};
constexpr Column requestCarrierColumn{9};
constexpr Column requestAccountColumn{12};
constexpr Width carrierWidth{2};

// A run of four blanks ends the part of a frequent-flyer line that counts, for the stored text too.
void splitFrequentFlyer(FoundElement& element) {
    if (const Column gap = find(element.text, u"    "); gap > Column{0}) {
        element.text = trimmed(left(element.text, Width{gap.value}));
    }
    element.carrier = mid(element.text, flyerCarrierColumn, carrierWidth);
    element.account = trimmed(mid(element.text, flyerAccountColumn));
}

void splitServiceRequest(FoundElement& element) {
    const TextView text = element.text;
    element.code = mid(text, requestCodeColumn, requestCodeWidth);
    if (element.code.starts_with(u'*')) element.code = mid(text, starredCodeColumn, requestCodeWidth);
    if (const Column dash = find(text, u"-"); dash > Column{0}) element.freeText = trimmed(mid(text, dash + 1));
    if (element.code == u"FQTV") {
        // Meant: carrier and account stay where an unstarred request has them.
        element.carrier = mid(text, requestCarrierColumn, carrierWidth);
        element.account = trimmed(mid(text, requestAccountColumn));
    }
}

bool endsScan(ScanEnd end, const DisplayLine& line) {
    const LineMarks marks = line.marks();
    if (marks.holdsEndText()) return true;
    return end == ScanEnd::PromptLineAlone ? line.rightTrimmed() == mark::prompt : marks.holdsPrompt();
}

FoundElement split(const TransferableFamily& row, TextView line) {
    FoundElement element{.number = trimmed(mid(line, numberColumn, numberWidth)),
                         .text = trimmed(mid(line, textColumn))};
    switch (row.split) {
        case Split::None: break;
        case Split::FrequentFlyer: splitFrequentFlyer(element); break;
        case Split::ServiceRequest: splitServiceRequest(element); break;
        case Split::RemarkDetail: element.freeText = trimmed(mid(line, detailColumn)); break;
    }
    return element;
}

/// An element line as a family joins it, and the codes that may stand in it.
struct Candidate {
    JoinedLine line;
    FamilySet codes;

    bool isElementOf(const TransferableFamily& row) const {
        if (row.test == CodeTest::StandsAtColumn12) {
            return mid(line.text, contactCodeColumn, Width{static_cast<int>(row.code.size())}) == row.code;
        }
        return codes.holds(row.family) && holdsFrom(line.text, row.code, codeSearchColumn);
    }
};

/// One family's way through the display.
struct Scan {
    const TransferableFamily* row = nullptr;
    bool inSection = false;
    Counter count = Counter(0);
};

/// Several families' scans over the same lines. Each ends where its own row says.
class Scans {
public:
    Scans(std::span<const TransferableFamily> rows, Display& display, ElementSink& sink)
        : display_(display), sink_(sink) {
        for (const TransferableFamily& row : rows) {
            scans_[active_++] = Scan{&row, row.start == ScanStart::FirstLine};
        }
    }

    /// Runs all scans to their ends; gives the count of the one that ended last.
    std::int16_t run() {
        for (Counter number;; ++number) {
            if (!isAnyInSection()) number = display_.nextMarked(number);
            display_.expectLine(number);
            const DisplayLine& line = display_.line(number);
            if (line.marks().any() || line.text().starts_with(u"------")) {
                passBoundary(line);
                if (active_ == 0) return lastCount_;
            }
            testElement(number);
        }
    }

    /// The families whose scans have not ended.
    FamilySet unfinished() const {
        FamilySet families;
        for (std::size_t index = 0; index < active_; ++index) families.add(scans_[index].row->family);
        return families;
    }

private:
    bool isAnyInSection() const {
        return std::any_of(scans_.begin(), scans_.begin() + active_, [](const Scan& scan) { return scan.inSection; });
    }

    /// Ends the scans that end at this line and takes the others into the section that it opens.
    void passBoundary(const DisplayLine& line) {
        const bool isHeader = line.marks().holdsHeader(Section::Transferable);
        const bool isOtherHeader = !isHeader && line.text().starts_with(u"------");
        std::size_t kept = 0;
        for (std::size_t index = 0; index < active_; ++index) {
            Scan scan = scans_[index];
            if (endsScan(scan.row->end, line) || (scan.inSection && isOtherHeader)) {
                lastCount_ = scan.count.value();
                continue;
            }
            scan.inSection = scan.inSection || isHeader;
            scans_[kept++] = scan;
        }
        active_ = kept;
    }

    // Joined lines are not used up: each of them is looked at again as a line of its own.
    void testElement(Counter number) {
        const Candidate usual = candidate(number, JoinRule::OneBelow);
        for (std::size_t index = 0; index < active_; ++index) {
            Scan& scan = scans_[index];
            if (!scan.inSection) continue;
            if (scan.row->join == JoinRule::OneBelow || usual.line.last == number) {
                test(scan, usual);
            } else {
                test(scan, candidate(number, scan.row->join));
            }
        }
    }

    Candidate candidate(Counter number, JoinRule rule) {
        const JoinedLine joined = display_.joined(number, rule);
        if (joined.last != number) return {joined, codesIn(joined.text)};
        const DisplayLine& line = display_.line(number);
        return {joined, line.fitsBits() ? codesIn(line.text(), line.blanks()) : FamilySet::all()};
    }

    void test(Scan& scan, const Candidate& candidate) {
        if (!candidate.isElementOf(*scan.row)) return;
        ++scan.count;
        sink_.store(scan.row->family, scan.count.value(), split(*scan.row, candidate.line.text));
    }

    Display& display_;
    ElementSink& sink_;
    std::array<Scan, transferableFamilies.size()> scans_{};
    std::size_t active_ = 0;
    std::int16_t lastCount_ = 0;
};

}  // namespace

std::int16_t extract(const TransferableFamily& row, Display& display, ElementSink& sink) {
    return Scans({&row, 1}, display, sink).run();
}

FamilySet extractTransferable(Display& display, ElementSink& sink) {
    Scans scans(transferableFamilies, display, sink);
    try {
        scans.run();
        return {};
    } catch (const Error&) {
        return scans.unfinished();
    }
}

}  // namespace vantro
