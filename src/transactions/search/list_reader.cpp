#include "transactions/search/list_reader.h"

#include "framework/joined_text.h"

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

void addRow(RowWriter& rows, const LocatorEntry& entry, ProfileKind kind, std::int16_t lineNumber) {
    rows.begin(kind, lineNumber);
    rows.set(cell::number, entry.number);
    if (!entry.hasLocatorColumn()) return;
    rows.set(cell::recordLocator, trimmed(entry.locator));
    rows.set(kind == ProfileKind::Company ? cell::office : cell::company, trimmed(entry.owner()));
}

// The name is complete when the next row begins or the list ends.
void setName(RowWriter& rows, JoinedText& name) {
    if (rows.isEmpty()) return;
    name.trim();
    rows.set(cell::name, name.text());
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
    RowWriter rows(list.watch(), found);
    JoinedText name(list.watch());
    list.read([&](const LocatorEntry& entry, std::int16_t lineNumber) {
        if (entry.isRest && !rows.isEmpty()) {
            name.append(entry.name());
            return;
        }
        setName(rows, name);
        addRow(rows, entry, kind, lineNumber);
        name.assign(entry.name());
    });
    setName(rows, name);
}

void addTravellers(ListWalk above, ListRows& found) { addList(above, mark::nameColumn, ProfileKind::Traveller, found); }

void addCompanies(ListWalk above, ListRows& found) { addList(above, mark::companyColumn, ProfileKind::Company, found); }

void addListBelowHeader(Screen& screen, ListRows& found) {
    const auto header = findColumnHeader(screen);
    if (header.shown == ListBelow::Travellers) addTravellers(directlyAbove(screen, header), found);
    if (header.shown == ListBelow::Companies) addCompanies(directlyAbove(screen, header), found);
}

}  // namespace vantro
