//   ....+....1....+....2....+....3....+....4
// n ------- TRAVEL POLICIES - HOTEL                header
//    1 PHI/ ANY HOTEL IN THE CITY CENTRE           the family's element: number, prefix, text
//           : NOT NEAR THE AIRPORT                 continuation
//    2 PPH/ NO SMOKING                             another family's element
//    3      BREAKFAST INCLUDED                     an element without a prefix: the family of the one above
//   ------- PRE-STORED ENTRIES                     the next section
#include "display/rules.h"
#include "readers/extractors.h"

#include <algorithm>

namespace vantro {

namespace {

/// The walk over a family's sections, with the current line.
class FamilyWalk {
public:
    FamilyWalk(const PrefixedFamily& row, Joiner& joiner, FoundElements& found)
        : row_(row),
          prefix_(row.family),
          joinRule_(row.scheme == Scheme::Plain ? JoinRule::Directly : JoinRule::ColonAfterBlank),
          joiner_(joiner),
          display_(joiner.display()),
          watch_(display_.watch()),
          found_(found) {}

    /// Returns false if the display ends before the walk does.
    bool run() {
        switch (row_.scheme) {  // Not covered: every scheme has its case
            case Scheme::Plain:
            case Scheme::ColonJoining: collectWholeSection(); break;
            case Scheme::Policy:
                if (seekHeader()) collectSection();
                break;
            case Scheme::GlobalSearch: collectGlobalSearch(); break;
        }
        return !isInterrupted_;
    }

private:
    // A section without a prefixed line does not end the search, because the same header may come again. The line that
    // ended the section is skipped. Every line belongs to the family, which has no tag columns.
    void collectWholeSection() {
        while (seekHeader()) {
            collectSection();
            if (isCollecting_ || isInterrupted_) return;
            watch_.decided(rule::sectionMayComeAgain, line_);
            ++line_;
        }
    }

    /// Collects the elements of the section up to its end. The family's elements begin with a prefixed line. Those
    /// without a tag belong to it until a line of another family follows.
    void collectSection() {
        display_.readAhead(line_ + 1, Display::ReadTo::SectionEnd);
        while (!isInterrupted_) {
            ++line_;
            const DisplayLine* const line = display_.lineBeforeEnd(line_);
            if (line == nullptr) {
                watch_.decided(rule::displayHasNoEnd, line_);
                isInterrupted_ = true;
                return;
            }
            if (line->isSectionEnd()) {
                if (watch_) saySectionEnd(*line);
                return;
            }
            isCollecting_ = isCollecting_ || line->containsPrefix(prefix_, row_.searchFrom);
            if (isCollecting_) {
                collect(*line);
            } else {
                watch_.decided(rule::aboveFirstElement, line_, row_.family);
            }
        }
    }

    /// Collects the element that begins with the current line and moves to its last line.
    void collect(const DisplayLine& line) {
        const JoinedLine element = joiner_.join(line, line_, joinRule_);
        if (element.isEndless) {
            watch_.decided(rule::continuesUpToEnd, line_);
            isInterrupted_ = true;
            return;
        }
        const bool isJoined = element.last != line_;
        isCollecting_ = isJoined ? isOwn(line, element.text) : isOwn(line);
        if (watch_) sayTested(element.text);
        if (isCollecting_) {
            const TextView text = isJoined ? joiner_.keep(element.text) : element.text;
            found_.push_back({row_.family, elementTextColumn, text});
        }
        if (watch_) sayJoined(element.last);
        line_ = element.last;
    }

    // The line after a header is tested once and then skipped, even if it is a header itself.
    void collectGlobalSearch() {
        for (; seekHeader(); ++line_) {
            ++line_;
            const DisplayLine& line = display_.line(line_);
            if (!line.containsPrefix(prefix_, row_.searchFrom)) {
                watch_.decided(rule::noPrefixBelowHeader, line_, row_.family);
                continue;
            }
            watch_.decided(rule::elementWithPrefix, line_, row_.family);
            found_.push_back({row_.family, elementTextColumn, line.trimmed()});
            collectUnprefixed();
            return;
        }
    }

    // No test for the section's end: a line that begins with a rule or a prompt is not blank in the tag columns.
    void collectUnprefixed() {
        const Counter last = line_ + mostUnprefixed;
        for (++line_; line_ <= last; ++line_) {
            const TextView line = display_.line(line_).trimmed();
            if (mid(line, tagColumn, row_.tagWidth) != u"     ") {
                watch_.decided(rule::unprefixedEnd, line_, row_.family);
                return;
            }
            watch_.decided(rule::unprefixedElement, line_, row_.family);
            found_.push_back({row_.family, unprefixedTextColumn, line});
        }
        watch_.decided(rule::unprefixedLimit, last, row_.family);
    }

    /// Moves to the next header line; false at the end of the display.
    bool seekHeader() {
        const std::optional<Display::MarkedLine> next = display_.seekHeader(row_.section, line_);
        isInterrupted_ = !next;
        if (!next) return false;
        line_ = next->number;
        return !next->marks.isEndOfDisplay();
    }

    /// True for a line without a tag or with the family's own. The whole-section schemes have a tag width of 0, so that
    /// every line belongs to the family.
    bool isOwn(const DisplayLine& line) const {
        return line.containsPrefix(prefix_, PrefixFrom::Column3) || line.isBlankAt(tagColumn, row_.tagWidth);
    }

    /// The same for a line joined with others: the prefix may also be in the joined lines or across a boundary.
    bool isOwn(const DisplayLine& first, TextView joined) const {
        if (isBlank(mid(joined, tagColumn, row_.tagWidth))) return true;
        if (first.containsPrefix(prefix_, PrefixFrom::Column3)) return true;
        const int boundary = static_cast<int>(first.trimmed().size()) - static_cast<int>(row_.prefix.size()) + 2;
        return containsFrom(joined, row_.prefix, std::max(tagColumn, Column{boundary}));
    }

    // What an observer is told of the current line

    void saySectionEnd(const DisplayLine& line) const {
        const LineMarks marks = line.marks();
        watch_.decided(!marks.containsRuleOrEndText() ? rule::sectionEndsAtPrompt
                       : marks.containsEndText()      ? rule::sectionEndsAtEndText
                                                      : rule::sectionEndsAtRule,
                       line_);
    }

    void sayTested(TextView text) const {
        watch_.decided(isCollecting_ ? ruleOfOwn(text) : rule::otherTag, line_, row_.family);
    }

    const ReadingRule& ruleOfOwn(TextView text) const {
        if (display_.line(line_).containsPrefix(prefix_, row_.searchFrom)) return rule::elementWithPrefix;
        if (row_.tagWidth.value == 0) return rule::elementOfWholeSection;
        return isBlank(mid(text, tagColumn, row_.tagWidth)) ? rule::elementWithoutPrefix
                                                            : rule::elementWithJoinedPrefix;
    }

    void sayJoined(Counter last) const {
        for (Counter number = line_ + 1; number <= last; ++number) {
            watch_.decided(rule::continuesElement, number, row_.family);
        }
    }

    const PrefixedFamily& row_;
    const Prefix prefix_;
    const JoinRule joinRule_;
    Joiner& joiner_;
    Display& display_;
    const Watch& watch_;
    FoundElements& found_;
    Counter line_;
    bool isCollecting_ = false;  // a prefixed line was found, and no line of another family after it
    bool isInterrupted_ = false;
};

}  // namespace

FamilySet extractPrefixed(FamilySet families, Joiner& joiner, FoundElements& found) {
    FamilySet interrupted;
    families.forEach([&](Family family) {
        if (!FamilyWalk(prefixedFamilies[indexOf(family)], joiner, found).run()) interrupted.add(family);
    });
    return interrupted;
}

}  // namespace vantro
