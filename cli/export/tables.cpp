#include "cli/export/tables.h"

#include <algorithm>

namespace vantro {

namespace {

using enum ColumnKind;

constexpr Column display{"display_id", Integer, "the display's number in the export, from 1, over all sources"};

constexpr std::array profileColumns{
    display,
    Column{"source", String, "the file, as it was named; of a folder, its name and the path in it"},
    Column{"display", Integer, "the display's number in its source, from 1"},
    Column{"line", Integer, "its first line in its source, from 1"},
    Column{"hash", String, "a hash of its text, 32 hexadecimal digits: equal for equal displays"},
    Column{"kind", String, "traveller or company, by the mark that the host prints; empty without one"},
    Column{"record_locator", String, "the record locator"},
    Column{"name", String, "the traveller's name, or the company's"},
    Column{"office", String, "the identifier of the office"},
    Column{"company_number", String, "the number of the company line"},
    Column{"company", String, "the company's name"},
    Column{"pin_number", String, "the number of the PIN line"},
    Column{"pin", String, "the PIN"},
    Column{"psl_number", String, "the number of the PSL line"},
    Column{"psl", String, "the PSL"},
    Column{"elements", Integer, "the number of its rows in elements"},
    Column{"notes", Integer, "the number of its rows in notes"},
    Column{"problems", Integer, "the number of its rows in problems"},
    Column{"sections", String, "the titles of the sections that it shows, with semicolons between them"},
};

constexpr std::array elementColumns{
    display,
    Column{"family", String, "the element's family, by the word of its query: PHI, RM"},
    Column{"position", Integer, "the element's position among those of its family, from 1"},
    Column{"number", String, "the number that the host prints before it"},
    Column{"kind", String, "S or A, of elements that the host copies into a PNR"},
    Column{"text", String, "its text, with continuation lines joined"},
    Column{"code", String, "the code of a service request"},
    Column{"airline", String, "the airline of a frequent flyer or service request"},
    Column{"frequent_flyer_number", String, "the number of a frequent flyer or service request"},
    Column{"free_text", String, "the free text of a service request or confidential remark"},
};

constexpr std::array noteColumns{
    display,
    Column{"number", Integer, "the line's position below the header of the notes, from 1"},
    Column{"qualifier", String, "the line's first two characters"},
    Column{"text", String, "the rest of the line"},
};

constexpr std::array problemColumns{
    display,
    Column{"source", String, "the file, as in profiles"},
    Column{"display", Integer, "the display's number in its source, from 1"},
    Column{"line", Integer, "its first line in its source, from 1"},
    Column{"query", String, "the query without an answer; empty if the display could not be read at all"},
    Column{"error", Integer, "the query's error number"},
    Column{"description", String, "what is wrong"},
};

constexpr std::array sources{
    Column{"source", String, "the file, as it was named; of a folder, its name and the path in it"},
    Column{"bytes", Integer, "the length of the file, compressed or not; empty for standard input"},
    Column{"displays", Integer, "the displays taken from it"},
    Column{"failed", Integer, "of these, the displays that could not be read"},
    Column{"last_hash", String, "the hash of the last of these displays"},
    Column{"done", Integer, "1 if it was read to its end; empty after an interruption"},
    Column{"problem", String, "why reading ended early"},
};

constexpr std::array runs{
    Column{"run", Integer, "the number of the run, from 1"},
    Column{"started", String, "when it began, in UTC: 2026-11-23T08:15:00Z"},
    Column{"finished", String, "when it ended; empty if it was interrupted"},
    Column{"version", String, "the version of vantro-profile"},
    Column{"sources", Integer, "the files read to their ends"},
    Column{"displays", Integer, "the displays taken from them: profiles and failed"},
    Column{"failed", Integer, "of these, the displays that could not be read"},
    Column{"profiles", Integer, "the rows added to profiles"},
    Column{"elements", Integer, "the rows added to elements"},
    Column{"notes", Integer, "the rows added to notes"},
    Column{"problems", Integer, "the rows added to problems"},
};

constexpr std::array<TableFacts, exportTableCount> tables{{
    {ExportTable::Profiles, "profiles", "one row per display that was read", profileColumns, 1, true},
    {ExportTable::Elements, "elements", "one row per element", elementColumns, 3, false},
    {ExportTable::Notes, "notes", "one row per line of the notes", noteColumns, 2, false},
    {ExportTable::Problems, "problems", "one row per query without an answer, and per display that was not read",
     problemColumns, 5, true},
}};

static_assert(std::ranges::all_of(tables,
                                  [](const TableFacts& facts) { return &facts == &tables[indexOf(facts.table)]; }));

}  // namespace

std::span<const TableFacts, exportTableCount> exportTables() { return tables; }

const TableFacts& factsOf(ExportTable table) { return tables[indexOf(table)]; }

std::span<const Column> sourceColumns() { return sources; }

std::span<const Column> runColumns() { return runs; }

void TableRows::read(std::size_t row, Cells& cells) const {
    const std::size_t first = row * columns_;
    for (std::size_t cell = first; cell < first + columns_; ++cell) {
        const std::size_t begin = cell == 0 ? 0 : ends_[cell - 1];
        cells.push_back(std::string_view(bytes_).substr(begin, ends_[cell] - begin));
    }
}

void WholeRow::setOrigin(const DisplayOrigin& origin) {
    source_ = origin.source;
    id_ = std::to_string(origin.id);
    display_ = std::to_string(origin.display);
    line_ = std::to_string(origin.line);
}

const Cells& WholeRow::of(const TableFacts& facts, const TableRows& rows, std::size_t row) {
    cells_.assign({id_});
    if (facts.hasOrigin) cells_.insert(cells_.end(), {source_, display_, line_});
    rows.read(row, cells_);
    return cells_;
}

RowsOfTables emptyRows() {
    const auto rowsOf = [](ExportTable table) { return TableRows(factsOf(table)); };
    return {rowsOf(ExportTable::Profiles), rowsOf(ExportTable::Elements), rowsOf(ExportTable::Notes),
            rowsOf(ExportTable::Problems)};
}

}  // namespace vantro
