#include "cli/export/tables.h"

#include <algorithm>

namespace vantro {

namespace {

using enum ColumnKind;

constexpr Column display{"display_id", Number, "the display's number in the export, from 1, over all sources"};

constexpr std::array profileColumns{
    display,
    Column{"source", Text, "the file, as it was named; of a folder, its name and the path in it"},
    Column{"display", Number, "the display's number in its source, from 1"},
    Column{"line", Number, "its first line in its source, from 1"},
    Column{"hash", Text, "a hash of its text, 32 hexadecimal digits: equal for equal displays"},
    Column{"kind", Text, "traveller or company, by the mark that the host prints; empty without one"},
    Column{"record_locator", Text, "the record locator"},
    Column{"name", Text, "the traveller's name, or the company's"},
    Column{"office", Text, "the identifier of the office"},
    Column{"company_number", Text, "the number of the company line"},
    Column{"company", Text, "the company's name"},
    Column{"pin_number", Text, "the number of the PIN line"},
    Column{"pin", Text, "the PIN"},
    Column{"psl_number", Text, "the number of the PSL line"},
    Column{"psl", Text, "the PSL"},
    Column{"elements", Number, "the number of its rows in elements"},
    Column{"notes", Number, "the number of its rows in notes"},
    Column{"problems", Number, "the number of its rows in problems"},
};

constexpr std::array elementColumns{
    display,
    Column{"family", Text, "the element's family, by the word of its query: PHI, RM"},
    Column{"position", Number, "the element's position among those of its family, from 1"},
    Column{"number", Text, "the number that the host prints before it"},
    Column{"kind", Text, "S or A, of elements that the host copies into a PNR"},
    Column{"text", Text, "its text, with continuation lines joined"},
    Column{"code", Text, "the code of a service request"},
    Column{"airline", Text, "the airline of a frequent flyer or service request"},
    Column{"frequent_flyer_number", Text, "the number of a frequent flyer or service request"},
    Column{"free_text", Text, "the free text of a service request or confidential remark"},
};

constexpr std::array noteColumns{
    display,
    Column{"number", Number, "the line's position below the header of the notes, from 1"},
    Column{"qualifier", Text, "the line's first two characters"},
    Column{"text", Text, "the rest of the line"},
};

constexpr std::array problemColumns{
    display,
    Column{"source", Text, "the file, as in profiles"},
    Column{"display", Number, "the display's number in its source, from 1"},
    Column{"line", Number, "its first line in its source, from 1"},
    Column{"query", Text, "the query without an answer; empty if the display could not be read at all"},
    Column{"error", Number, "the query's error number"},
    Column{"description", Text, "what is wrong"},
};

constexpr std::array sources{
    Column{"source", Text, "the file, as it was named; of a folder, its name and the path in it"},
    Column{"bytes", Number, "the length of the file, compressed or not; empty for standard input"},
    Column{"displays", Number, "the displays taken from it"},
    Column{"failed", Number, "of these, the displays that could not be read"},
    Column{"last_hash", Text, "the hash of the last of these displays"},
    Column{"done", Number, "1 if it was read to its end; empty after an interruption"},
    Column{"problem", Text, "why reading ended early"},
};

constexpr std::array runs{
    Column{"run", Number, "the number of the run, from 1"},
    Column{"started", Text, "when it began, in UTC: 2026-11-23T08:15:00Z"},
    Column{"finished", Text, "when it ended; empty if it was interrupted"},
    Column{"version", Text, "the version of vantro-profile"},
    Column{"sources", Number, "the files read to their ends"},
    Column{"displays", Number, "the displays taken from them: profiles and failed"},
    Column{"failed", Number, "of these, the displays that could not be read"},
    Column{"profiles", Number, "the rows added to profiles"},
    Column{"elements", Number, "the rows added to elements"},
    Column{"notes", Number, "the rows added to notes"},
    Column{"problems", Number, "the rows added to problems"},
};

constexpr std::array<TableFacts, exportTableCount> tables{{
    {ExportTable::Profiles, "profiles", "one row per display that was read", profileColumns, 1, true},
    {ExportTable::Elements, "elements", "one row per element", elementColumns, 3, false},
    {ExportTable::Notes, "notes", "one row per line of the notes", noteColumns, 2, false},
    {ExportTable::Problems, "problems", "one row per query without an answer, and per display that was not read",
     problemColumns, 5, true},
}};

static_assert(std::ranges::all_of(tables, [](const TableFacts& facts) {
    return &facts == &tables[indexOf(facts.table)];
}));

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

const Cells& WholeRow::of(const TableFacts& facts, const DisplayOrigin& origin, const TableRows& rows,
                          std::size_t row) {
    auto& [id, display, line] = numbers_;
    id = std::to_string(origin.id);
    cells_.assign({id});
    if (facts.hasOrigin) {
        display = std::to_string(origin.display);
        line = std::to_string(origin.line);
        cells_.insert(cells_.end(), {origin.source, display, line});
    }
    rows.read(row, cells_);
    return cells_;
}

RowsOfTables emptyRows() {
    const auto rowsOf = [](ExportTable table) { return TableRows(factsOf(table)); };
    return {rowsOf(ExportTable::Profiles), rowsOf(ExportTable::Elements), rowsOf(ExportTable::Notes),
            rowsOf(ExportTable::Problems)};
}

}  // namespace vantro
