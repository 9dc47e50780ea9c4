// Reads lists into rows. Where a class reads its list itself, the rows come from the same lines.
#pragma once

#include "transactions/row_writer.h"
#include "transactions/search/locator_list.h"
#include "vantro/list_rows.h"

#include <cstdint>

namespace vantro {

/// The list whose column header is on a screen without a title.
enum class ListBelow : std::uint8_t { Nothing, Travellers, Companies };

/// Finds the first column header in the lines where titles are.
ShownLine<ListBelow> findColumnHeader(Screen& screen);

/// The position from which `ListWalk::findHeader` finds this column header.
ListWalk directlyAbove(Screen& screen, const ShownLine<ListBelow>& header);

/// Returns a function that adds the entry of a line: a number, and a name up to the line's end.
inline auto nameAdder(const Watch& watch, ProfileKind kind, ListRows& found) {
    return [rows = RowWriter(watch, found), kind](TextView line, std::int16_t lineNumber) {
        rows.begin(kind, lineNumber);
        rows.set(cell::number, listNumber(line));
        rows.set(cell::name, trimmed(mid(line, entryTextColumn)));
    };
}

/// Adds the entries of a list with record locators.
void addRows(LocatorList list, ProfileKind kind, ListRows& found);

/// Adds the entries of the list whose column header is below this position.
void addTravellers(ListWalk above, ListRows& found);
void addCompanies(ListWalk above, ListRows& found);

/// Adds the entries of a list with record locators that has a column header but no title.
void addListBelowHeader(Screen& screen, ListRows& found);

}  // namespace vantro
