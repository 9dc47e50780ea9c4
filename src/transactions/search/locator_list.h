// A list with a column of record locators, as a name search shows it. A name that is too long for its column goes on in
// the next line:
//
//   ....+....1....+....2....+....3....+....4....+....5....+....6
//      COMPANY                         RECLOC     OFFICE
//    1 KESTRELLO TOOLS                 Q2W3E4     NCEVN3101
//    2 KESTERSON MARINE INSURANCE AND  R5T6Y7     NCEVN3101
//      SURVEY
#pragma once

#include "transactions/search/list_walk.h"

#include <optional>

namespace vantro {

/// The column of the record locators: from the state, or as this call found it.
struct LocatorColumn {
    TextView fromState;
    std::optional<std::int16_t> found;

    bool isKnown() const { return found.has_value() || !fromState.empty(); }
    int position() const { return found ? *found : toInt16(fromState); }
};

/// An entry, or the rest of the name of the entry above.
struct LocatorEntry {
    TextView line;
    TextView number;   ///< trimmed
    TextView locator;  ///< untrimmed
    int locatorColumn;
    bool isRest;

    /// Without the title "RECLOC" in the header the column is 5, left of every name.
    bool hasLocatorColumn() const { return locatorColumn > 5; }

    // Meant: the copied part of a name ends one character before the part that is tested for a wrapped name, which ends
    // directly before the locator.
    TextView name() const {
        return hasLocatorColumn() ? mid(line, entryTextColumn, Width{locatorColumn - 7}) : mid(line, entryTextColumn);
    }
    TextView nameForTest() const { return mid(line, entryTextColumn, Width{locatorColumn - 6}); }

    /// What is right of the locator: the office of a company, the company of a traveller.
    TextView owner() const { return mid(line, Column{locatorColumn} + locatorWidth.value); }

    static constexpr Width locatorWidth{6};
};

/// Reads the entries of a list, or of the continuation of one.
class LocatorList {
public:
    /// `endOfBlock` comes with the value of the screen before. It and the column of the locators are set while the
    /// entries are read.
    LocatorList(ListWalk lines, TextView headerMark, bool& endOfBlock, LocatorColumn& locatorColumn)
        : lines_(lines),
          isContinuation_(endOfBlock),
          headerMark_(isContinuation_ ? anyLine : headerMark),
          endOfBlock_(endOfBlock),
          locatorColumn_(locatorColumn) {}

    /// For what the readers of the list decide.
    const Watch& watch() const { return lines_.watch(); }

    /// Calls `onEntry` with every LocatorEntry and the number of its line.
    template <class OnEntry>
    void read(const OnEntry& onEntry) {
        while (findHeader()) {
            readBlock(onEntry);
            if (!hasListNumber(lines_.line())) break;
            lines_.decided(rule::listSearchGoesOn);
        }
    }

private:
    bool findHeader() {
        if (!lines_.findHeader(headerMark_)) return false;
        const bool isSearched = !locatorColumn_.isKnown();
        if (isSearched) locatorColumn_.found = locatorColumnIn(lines_.line());
        if (lines_.watch()) sayLocatorColumn(isSearched);
        if (isContinuation_) lines_.stepBack();  // the line found is the first entry
        return true;
    }

    // Without the title "RECLOC" in the header this is 5.
    static std::int16_t locatorColumnIn(TextView header) {
        constexpr int blanksBeforeTitle = 5;
        return toInt16((find(header, locatorTitle) + blanksBeforeTitle).value);
    }

    void sayLocatorColumn(bool isSearched) const;

    template <class OnEntry>
    void readBlock(const OnEntry& onEntry) {
        const Counter first = lines_.nextNumber();
        const ReadingRule* end = nullptr;
        while (end == nullptr) end = readEntry(lines_.next(), onEntry);
        if (lines_.watch()) lines_.sayBlockEnd(*end, first);
    }

    // Returns the rule by which the line ends the block, or null.
    template <class OnEntry>
    const ReadingRule* readEntry(TextView line, const OnEntry& onEntry) {
        endOfBlock_ = lines_.isEndOfBlock();
        if (endOfBlock_) return &rule::listEndOfBlock;
        if (!lines_.isUsable()) return &lines_.endOfUnusable();
        const int column = locatorColumn_.position();
        const TextView locator = mid(line, Column{column}, LocatorEntry::locatorWidth);
        LocatorEntry entry{line, listNumber(line), locator, column, false};
        if (!isNumeric(entry.number)) {
            if (!entry.number.empty()) return &rule::listNoNumber;
            if (!isBlank(locator)) return &rule::listLocatorWithoutNumber;
            if (isBlank(entry.nameForTest())) return &rule::listNoName;
            entry.isRest = true;
        }
        if (lines_.watch()) lines_.decided(entry.isRest ? rule::listWrappedName : rule::listEntry);
        onEntry(entry, lines_.number());
        return nullptr;
    }

    static constexpr TextView locatorTitle = u"     RECLOC     ";

    ListWalk lines_;
    bool isContinuation_;
    TextView headerMark_;
    bool& endOfBlock_;
    LocatorColumn& locatorColumn_;
};

}  // namespace vantro
