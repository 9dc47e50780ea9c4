//   ....+....1....+....2....+....3....+....4
// n ------- PNR TRANSFERABLE DATA                  header
//   S    1     RM PREFERS MORNING FLIGHTS          number in columns 6 to 8, code from column 14
//                    AND NO STOPS                  continuation: 17 blanks
//   A    2    AP  LYS 555-0101                     contacts have their code in columns 12 to 17
//   ------- DOCUMENTS                              the next section
#include "framework/constants.h"
#include "profile/extractors.h"

namespace vantro {

namespace {

constexpr Column numberColumn{6};
constexpr Width numberWidth{3};
constexpr Column contactCodeColumn{12};
constexpr Column codeSearchColumn{13};
constexpr Column textColumn{14};
constexpr Column detailColumn{18};
constexpr Width continuationIndent{17};

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
    if (!line.isMarked()) return false;
    if (line.holdsEndText()) return true;
    return end == ScanEnd::PromptLineAlone ? line.rightTrimmed() == mark::prompt : line.holdsPrompt();
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

/// An element's line with the continuation lines under it. They are not used up: the scan looks at each of them
/// again as a line of its own.
class JoinedLine {
public:
    JoinedLine(const TransferableFamily& row, Display& display, Counter number)
        : line_(display.line(number)), view_(line_.rightTrimmed()) {
        for (int below = 1; below <= row.joinedLines; ++below) {
            const DisplayLine& continuation = display.line(number + below);
            if (!continuation.beginsBlank(continuationIndent)) return;
            if (!continuation.isBlank()) append(continuation.trimmed());
        }
    }

    JoinedLine(const JoinedLine&) = delete;
    JoinedLine& operator=(const JoinedLine&) = delete;

    TextView text() const { return view_; }

    bool isElementOf(const TransferableFamily& row) const {
        if (row.test == CodeTest::StandsAtColumn12) {
            return mid(view_, contactCodeColumn, Width{static_cast<int>(row.code.size())}) == row.code;
        }
        return joined_.empty() ? line_.holdsCode(row.code, codeSearchColumn)
                               : holdsFrom(view_, row.code, codeSearchColumn);
    }

private:
    void append(TextView text) {
        if (joined_.empty()) joined_ = view_;
        joined_ += text;
        view_ = joined_;
    }

    const DisplayLine& line_;
    TextView view_;
    Text joined_;
};

}  // namespace

std::int16_t extract(const TransferableFamily& row, Display& display, ElementSink& sink) {
    Counter count;
    bool inSection = row.start == ScanStart::FirstLine;
    for (Counter number;; ++number) {
        if (!inSection) number = display.nextMarked(number);
        const DisplayLine& line = display.line(number);
        if (endsScan(row.end, line)) return count.value();
        const bool isHeader = line.holdsHeader(Section::Transferable);
        if (!isHeader && !inSection) continue;
        inSection = true;
        if (!isHeader && line.text().starts_with(u"------")) return count.value();

        const JoinedLine whole(row, display, number);
        if (!whole.isElementOf(row)) continue;
        ++count;
        sink.store(count.value(), split(row, whole.text()));
    }
}

}  // namespace vantro
