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
#include <array>

namespace vantro {

namespace {

constexpr const PrefixedFamily& rowOf(Family family) { return prefixedFamilies[indexOf(family)]; }

constexpr FamilySet searchedFromColumn1 = [] {
    FamilySet families;
    for (const PrefixedFamily& row : prefixedFamilies) {
        if (row.searchFrom == PrefixFrom::Column1) families.add(row.family);
    }
    return families;
}();

/// Only policies have sections with several families; the families of a section are read alike.
static_assert(std::ranges::all_of(prefixedFamilies, [](const PrefixedFamily& row) {
    return std::ranges::all_of(prefixedFamilies, [&](const PrefixedFamily& other) {
        const bool isAlike = row.scheme == Scheme::Policy && other.scheme == Scheme::Policy;
        return row.section != other.section || row.family == other.family || isAlike;
    });
}));

/// One pass over a section for some of its families, with the current line.
class SectionWalk {
public:
    SectionWalk(FamilySet families, Joiner& joiner, FoundElements& found)
        : families_(families),
          row_(rowOf(families.first())),
          joinRule_(row_.scheme == Scheme::Plain ? JoinRule::Directly : JoinRule::ColonAfterBlank),
          joiner_(joiner),
          display_(joiner.display()),
          watch_(display_.watch()),
          found_(found) {}

    FamilySet run() {
        switch (row_.scheme) {  // Not covered: every scheme has its case
            case Scheme::Plain:
            case Scheme::ColonJoining: collectWholeSection(); break;
            case Scheme::Policy:
                if (seekHeader()) collectSection();
                break;
            case Scheme::GlobalSearch: collectGlobalSearch(); break;
        }
        return failed_;
    }

private:
    // A section without a prefixed line does not end the search, because the same header may come again. The line that
    // ended the section is skipped. Every line belongs to the family, which has no tag columns.
    void collectWholeSection() {
        while (seekHeader()) {
            collectSection();
            if (!collecting_.empty() || !failed_.empty()) return;
            watch_.decided(rule::sectionMayComeAgain, line_);
            ++line_;
        }
    }

    /// Collects the elements of the section up to its end. A family's elements begin with a prefixed line. Those
    /// without a tag belong to it until a line of another family follows.
    void collectSection() {
        FamilySet running = families_;
        display_.readAhead(line_ + 1, Display::ReadTo::SectionEnd);
        for (;;) {
            ++line_;
            leaveJoinedLines();
            const FamilySet reading = running - inJoinedLines_;
            if (watch_) sayJoined(running - reading);
            if (reading.empty()) continue;
            const DisplayLine* const line = display_.lineBeforeEnd(line_);
            if (line == nullptr) {
                watch_.decided(rule::displayHasNoEnd, line_);
                failed_.add(running);
                return;
            }
            if (line->isSectionEnd()) {
                if (watch_) saySectionEnd(*line);
                running.remove(reading);
            } else {
                collecting_.add(prefixed(*line) & reading);
                if (watch_) sayNotBegun(reading - collecting_);
                if (const FamilySet collecting = collecting_ & reading; !collecting.empty()) collect(*line, collecting);
                running.remove(failed_);
            }
            if (running.empty()) return;
        }
    }

    FamilySet prefixed(const DisplayLine& line) const {
        return line.prefixed(families_ & searchedFromColumn1, PrefixFrom::Column1) |
               line.prefixed(families_ - searchedFromColumn1, PrefixFrom::Column3);
    }

    void collect(const DisplayLine& line, FamilySet families) {
        const JoinedLine element = joiner_.join(line, line_, joinRule_);
        if (element.isEndless) {
            watch_.decided(rule::continuesUpToEnd, line_);
            failed_.add(families);
        } else if (element.last == line_) {
            families.forEach([&](Family family) {
                const bool isOwned = isOwn(rowOf(family), line);
                store(family, isOwned, element.text);
            });
        } else {
            collectJoined(line, element, families);
        }
    }

    void collectJoined(const DisplayLine& line, const JoinedLine& element, FamilySet families) {
        families.forEach([&](Family family) {
            joinedUpTo_[indexOf(family)] = element.last;
            const bool isOwned = isOwn(rowOf(family), line, element.text);
            store(family, isOwned, isOwned ? joiner_.keep(element.text) : TextView());
        });
        inJoinedLines_.add(families);
    }

    void store(Family family, bool isOwned, TextView text) {
        if (watch_) sayTested(family, isOwned, text);
        if (isOwned) {
            found_.push_back({family, elementTextColumn, text});
        } else {
            collecting_.remove(family);
        }
    }

    /// A family passes over the lines that were joined to its element.
    void leaveJoinedLines() {
        inJoinedLines_.forEach([&](Family family) {
            if (joinedUpTo_[indexOf(family)] < line_) inJoinedLines_.remove(family);
        });
    }

    // The line after a header is tested once and then skipped, even if it is a header itself.
    void collectGlobalSearch() {
        for (; seekHeader(); ++line_) {
            ++line_;
            const DisplayLine& line = display_.line(line_);
            if (!line.containsPrefix(Prefix(row_.family), row_.searchFrom)) {
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
        if (!next) {
            failed_ = families_;
            return false;
        }
        line_ = next->number;
        return !next->marks.isEndOfDisplay();
    }

    /// True for a line without a tag or with the family's own. The whole-section schemes have a tag width of 0, so that
    /// every line belongs to the family.
    static bool isOwn(const PrefixedFamily& row, const DisplayLine& line) {
        return line.containsPrefix(Prefix(row.family), PrefixFrom::Column3) || line.isBlankAt(tagColumn, row.tagWidth);
    }

    /// The same for a line joined with others: the prefix may also be in the joined lines or across a boundary.
    static bool isOwn(const PrefixedFamily& row, const DisplayLine& first, TextView joined) {
        if (isBlank(mid(joined, tagColumn, row.tagWidth))) return true;
        if (first.containsPrefix(Prefix(row.family), PrefixFrom::Column3)) return true;
        const int boundary = static_cast<int>(first.trimmed().size()) - static_cast<int>(row.prefix.size()) + 2;
        return containsFrom(joined, row.prefix, std::max(tagColumn, Column{boundary}));
    }

    // What an observer is told of the current line

    void sayJoined(FamilySet families) const {
        families.forEach([&](Family family) { watch_.decided(rule::continuesElement, line_, family); });
    }

    void saySectionEnd(const DisplayLine& line) const {
        const LineMarks marks = line.marks();
        watch_.decided(!marks.containsRuleOrEndText() ? rule::sectionEndsAtPrompt
                       : marks.containsEndText()      ? rule::sectionEndsAtEndText
                                                      : rule::sectionEndsAtRule,
                       line_);
    }

    void sayNotBegun(FamilySet families) const {
        families.forEach([&](Family family) { watch_.decided(rule::aboveFirstElement, line_, family); });
    }

    void sayTested(Family family, bool isOwned, TextView text) const {
        watch_.decided(isOwned ? ruleOfOwn(rowOf(family), text) : rule::otherTag, line_, family);
    }

    const ReadingRule& ruleOfOwn(const PrefixedFamily& row, TextView text) const {
        if (display_.line(line_).containsPrefix(Prefix(row.family), row.searchFrom)) return rule::elementWithPrefix;
        if (row.tagWidth.value == 0) return rule::elementOfWholeSection;
        return isBlank(mid(text, tagColumn, row.tagWidth)) ? rule::elementWithoutPrefix : rule::elementWithJoinedPrefix;
    }

    const FamilySet families_;
    const PrefixedFamily& row_;  // of the first family; what the walk itself reads of it is the same in all their rows
    const JoinRule joinRule_;
    Joiner& joiner_;
    Display& display_;
    const Watch& watch_;
    FoundElements& found_;
    Counter line_;
    FamilySet failed_;
    FamilySet collecting_;                                     // the families whose lines have begun
    FamilySet inJoinedLines_;                                  // those whose last element contains the current line
    std::array<Counter, prefixedFamilies.size()> joinedUpTo_;  // the last lines of these elements
};

}  // namespace

FamilySet extractPrefixed(FamilySet families, Joiner& joiner, FoundElements& found) {
    return SectionWalk(families, joiner, found).run();
}

}  // namespace vantro
