#include "transactions/search/list_reader.h"

namespace vantro {

namespace {

constexpr LineRange headerLines{1, 9};
// The travellers' header comes first, because it may contain the other one.
// clang-format off
constexpr ScreenTest<ListBelow> columnHeaders[] = {
    {mark::nameColumn,    Match::Anywhere, ListBelow::Travellers},
    {mark::companyColumn, Match::Anywhere, ListBelow::Companies},
};
// clang-format on

Text& owner(ListRow& row) { return row.kind == ProfileKind::Company ? row.office : row.company; }

ListRow rowOf(const LocatorEntry& entry, ProfileKind kind, std::int16_t lineNumber) {
    ListRow row;
    row.line = lineNumber;
    row.kind = kind;
    row.number = entry.number;
    row.name = entry.name();
    if (entry.hasLocatorColumn()) {
        row.recordLocator = trimmed(entry.locator);
        owner(row) = trimmed(entry.owner());
    }
    return row;
}

void addList(ListWalk above, TextView headerMark, ProfileKind kind, ListRows& found) {
    found.isList = true;
    bool endOfBlock = false;
    LocatorColumn locatorColumn;
    addRows(LocatorList(above, headerMark, endOfBlock, locatorColumn), kind, found);
}

}  // namespace

ShownLine<ListBelow> findColumnHeader(Screen& screen) {
    return findShown(screen, headerLines, columnHeaders, ListBelow::Nothing);
}

ListWalk directlyAbove(Screen& screen, const ShownLine<ListBelow>& header) {
    return ListWalk(screen, toInt16(header.number - 1LL), header.line);
}

void addRows(LocatorList list, ProfileKind kind, ListRows& found) {
    list.read([&](const LocatorEntry& entry, std::int16_t lineNumber) {
        if (entry.isRest && !found.rows.empty()) {
            found.rows.back().name += entry.name();
        } else {
            found.rows.push_back(rowOf(entry, kind, lineNumber));
        }
    });
    for (ListRow& row : found.rows) row.name = Text(trimmed(row.name));
}

void addTravellers(ListWalk above, ListRows& found) { addList(above, mark::nameColumn, ProfileKind::Traveller, found); }

void addCompanies(ListWalk above, ListRows& found) { addList(above, mark::companyColumn, ProfileKind::Company, found); }

void addListBelowHeader(Screen& screen, ListRows& found) {
    const auto header = findColumnHeader(screen);
    if (header.shown == ListBelow::Travellers) addTravellers(directlyAbove(screen, header), found);
    if (header.shown == ListBelow::Companies) addCompanies(directlyAbove(screen, header), found);
}

}  // namespace vantro
