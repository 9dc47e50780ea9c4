//   ....+....1....+....2....+....3....+....4
// n ------- TRAVEL POLICIES - HOTEL                header
//    1 PHI/ ANY HOTEL IN THE CITY CENTRE           the family's element: number, prefix, text
//           : NOT NEAR THE AIRPORT                 continuation
//    2 PPH/ NO SMOKING                             another family's element
//    3      BREAKFAST INCLUDED                     an element without a prefix: the family of the one above
//   ------- PRE-STORED ENTRIES                     the next section
#include "readers/extractors.h"

#include <algorithm>

namespace vantro {

namespace {

constexpr Column tagColumn{3};
constexpr Field numberField{Column{1}, Width{2}};
constexpr Field textField{Column{8}};
// Meant: only in the unprefixed global-search lines the text begins one column earlier.
constexpr Field unprefixedTextField{Column{7}};

/// One extraction, with the current line and the number of elements found so far.
class PrefixedExtraction {
public:
    PrefixedExtraction(const PrefixedFamily& row, Joiner& joiner, ElementSink& sink)
        : row_(row),
          prefix_(row.family),
          joinRule_(row.scheme == Scheme::Plain ? JoinRule::Directly : JoinRule::ColonAfterBlank),
          joiner_(joiner),
          display_(joiner.display()),
          sink_(sink) {}

    std::int16_t run() {
        switch (row_.scheme) {  // Not covered: every scheme has its case
            case Scheme::Plain:
            case Scheme::ColonJoining: collectWholeSection(); break;
            case Scheme::Policy: collectOwnLines(); break;
            case Scheme::GlobalSearch: collectGlobalSearch(); break;
        }
        return count_.value();
    }

private:
    // A section without a prefixed line does not end the search, because the same header may come again. The line that
    // ended the section is skipped.
    void collectWholeSection() {
        for (; seekHeader(); ++line_) {
            if (seekElement()) {
                collectElements();
                return;
            }
        }
    }

    void collectOwnLines() {
        if (!seekHeader()) return;
        while (seekElement() && collectElements()) {}
    }

    /// Collects elements from the current line on. Returns true at another family's element, false at the section's
    /// end.
    bool collectElements() {
        for (;; ++line_) {
            const DisplayLine& line = display_.expectedLine(line_);
            if (line.isSectionEnd()) return false;
            const JoinedLine element = joiner_.join(line, line_, joinRule_);
            const bool isJoined = element.last != line_;
            line_ = element.last;
            if (isJoined ? !isOwn(line, element.text) : !isOwn(line)) return true;
            const TextView text = isJoined ? joiner_.keep(element.text) : element.text;
            store(text, cut(text, textField));
        }
    }

    // The line after a header is tested once and then skipped, even if it is a header itself.
    void collectGlobalSearch() {
        for (; seekHeader(); ++line_) {
            ++line_;
            const DisplayLine& line = display_.line(line_);
            if (line.containsPrefix(prefix_, row_.searchFrom)) {
                store(line.trimmed(), cut(line.trimmed(), textField));
                collectUnprefixed();
                return;
            }
        }
    }

    // No test for the section's end: a line that begins with a rule or a prompt is not blank in the tag columns.
    void collectUnprefixed() {
        constexpr int atMost = 10;
        const Counter last = line_ + atMost;
        for (++line_; line_ <= last; ++line_) {
            const TextView line = display_.line(line_).trimmed();
            if (mid(line, tagColumn, row_.tagWidth) != u"     ") return;
            store(line, cut(line, unprefixedTextField));
        }
    }

    /// Moves to the next header line; false at the end of the display.
    bool seekHeader() {
        const Display::MarkedLine found = display_.nextHeaderOrEnd(row_.section, line_);
        line_ = found.number;
        return !found.marks.isEndOfDisplay();
    }

    /// Moves to the section's next line with the prefix; false at the line that ends the section.
    bool seekElement() {
        for (;;) {
            ++line_;
            const DisplayLine& line = display_.expectedLine(line_);
            if (line.isSectionEnd()) return false;
            if (line.containsPrefix(prefix_, row_.searchFrom)) return true;
        }
    }

    /// True for a line without a tag or with the family's own. The whole-section schemes have a tag width of 0, so that
    /// every line belongs to the family.
    bool isOwn(const DisplayLine& line) const {
        return line.containsPrefix(prefix_, PrefixFrom::Column3) || line.isBlankAt(tagColumn, row_.tagWidth);
    }

    /// The same for a line joined with others: the prefix may also be in the joined lines or across a boundary.
    bool isOwn(const DisplayLine& first, TextView joined) const {
        if (isBlank(mid(joined, tagColumn, row_.tagWidth)) || first.containsPrefix(prefix_, PrefixFrom::Column3))
            return true;
        const int boundary = static_cast<int>(first.trimmed().size()) - static_cast<int>(row_.prefix.size()) + 2;
        return containsFrom(joined, row_.prefix, std::max(tagColumn, Column{boundary}));
    }

    void store(TextView element, TextView text) {
        ++count_;
        sink_.store(row_.family, count_.value(), {.number = cut(element, numberField), .text = text});
    }

    const PrefixedFamily& row_;
    const Prefix prefix_;
    const JoinRule joinRule_;
    Joiner& joiner_;
    Display& display_;
    ElementSink& sink_;
    Counter line_;
    Counter count_;
};

}  // namespace

std::int16_t extract(const PrefixedFamily& row, Joiner& joiner, ElementSink& sink) {
    return PrefixedExtraction(row, joiner, sink).run();
}

}  // namespace vantro
