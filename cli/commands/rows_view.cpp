#include "cli/commands/rows_view.h"

#include "cli/commands/results_view.h"
#include "cli/commands/table.h"
#include "cli/io/csv.h"
#include "cli/io/failure.h"
#include "cli/io/standard_io.h"
#include "cli/io/utf.h"
#include "cli/io/warnings.h"
#include "cli/json/output.h"
#include "cli/json/positions.h"

#include <vector>

namespace vantro {

namespace {

std::string classesWithLists() {
    std::string names;
    for (const ClassRow& row : classTable()) {
        if (row.description.columns.empty()) continue;
        names += (names.empty() ? "" : ", ") + toUtf8(row.name);
    }
    return names;
}

std::string nameOf(ProfileKind kind) { return kind == ProfileKind::Company ? "company" : "traveller"; }

std::vector<std::string> columnNames(const ClassRow& row) {
    std::vector<std::string> names;
    for (const NamedColumn& column : columnsOf(row)) names.push_back(toUtf8(column.name));
    return names;
}

std::vector<std::string> cellsOf(const ClassRow& row, const ListRow& entry) {
    std::vector<std::string> cells{std::to_string(entry.line), nameOf(entry.kind)};
    for (const ListColumn& column : row.description.columns) cells.push_back(toUtf8(entry.*column.cell));
    return cells;
}

void writePositions(const ClassRow& row, const ListRow& entry, const Positioned& where, JsonOut& out) {
    PositionsMember member(where, out);
    for (const ListColumn& column : row.description.columns) member.add(toUtf8(column.name), entry.*column.cell);
    member.end();
}

std::string jsonOf(const ClassRow& row, const ListRows& found, const ProfilePositions* positions) {
    std::string json;
    JsonOut out(json);
    out.beginArray();
    Positioned where{positions};
    for (const ListRow& entry : found.rows) {
        ++where.index;
        out.beginObject();
        out.key("line");
        out.number(entry.line);
        out.key("kind");
        out.text(toUtf16(nameOf(entry.kind)));
        for (const ListColumn& column : row.description.columns) {
            out.key(column.name);
            out.text(entry.*column.cell);
        }
        if (positions != nullptr) writePositions(row, entry, where, out);
        out.endObject();
    }
    out.endArray();
    return json + "\n";
}

std::string csvOf(const ClassRow& row, const ListRows& found) {
    std::string csv;
    appendCsvRow(columnNames(row), csv);
    for (const ListRow& entry : found.rows) appendCsvRow(cellsOf(row, entry), csv);
    return csv;
}

// "recordLocator" is shown as "RECORD LOCATOR".
std::string asTitle(const std::string& name) {
    std::string title;
    for (const char letter : name) {
        const bool isCapital = letter >= 'A' && letter <= 'Z';
        if (isCapital) title += ' ';
        title += isCapital ? letter : static_cast<char>(letter - 'a' + 'A');
    }
    return title;
}

std::string tableOf(const ClassRow& row, const ListRows& found) {
    std::vector<std::string> titles;
    for (const std::string& name : columnNames(row)) titles.push_back(asTitle(name));
    Table table(titles);
    for (const ListRow& entry : found.rows) table.add(cellsOf(row, entry));
    return table.text(outputLook()) + (found.continues ? "The list continues: send PDMD for its next block.\n" : "");
}

std::string noEntries(const ClassRow& row) {
    return "the screen shows the title of a list, but " + toUtf8(row.name) +
           " read no entry of it; 'vantro-profile identify' says which class reads the screen";
}

std::string continuation(const ClassRow& row) {
    std::string note = "the list continues: send PDMD for its next block";
    if (row.description.state.empty()) return note;
    return note + ", and read that with --state and the results of this screen (verify without --rows)";
}

RowsView rowsView(const VerifyOptions& options) {
    if (options.positions && options.table) throw UsageError("--rows --positions prints JSON; leave --table out");
    if (options.positions) return RowsView::Json;
    if (options.csv) return RowsView::Csv;
    return chosenView(options.table, options.json) == View::Table ? RowsView::Table : RowsView::Json;
}

}  // namespace

std::vector<NamedColumn> columnsOf(const ClassRow& row) {
    if (row.description.columns.empty()) return {};
    std::vector<NamedColumn> columns{
        {u"line", u"the line of the screen, counted from 0"},
        {u"kind", u"whose profile it is: traveller or company"},
    };
    for (const ListColumn& column : row.description.columns) columns.push_back({column.name, column.meaning});
    return columns;
}

void requireLists(const ClassRow& row) {
    if (!row.description.columns.empty()) return;
    throw UsageError(toUtf8(row.name) + " reads no list; --rows is for " + classesWithLists());
}

std::string rowsText(const ClassRow& row, const ListRows& found, RowsView view, const ProfilePositions* positions) {
    switch (view) {
        case RowsView::Csv: return csvOf(row, found);
        case RowsView::Table: return tableOf(row, found);
        case RowsView::Json: break;
    }
    return jsonOf(row, found, positions);
}

int showRows(const ClassRow& row, TextView screen, const CollectionPtr& state, const VerifyOptions& options,
             Warnings& warnings) {
    const RowsView view = rowsView(options);
    ProfilePositions positions;
    const ListRows found = options.positions ? readRows(row, screen, state, positions) : readRows(row, screen, state);
    writeOutput(rowsText(row, found, view, options.positions ? &positions : nullptr));
    if (!found.isList) {
        warnings.add("the screen shows no list that " + toUtf8(row.name) +
                     " reads; a screen that continues a list may need --state with the results of the one before");
        return screenNotRecognised;
    }
    if (found.rows.empty()) warnings.add(noEntries(row));
    if (found.continues && view != RowsView::Table && !options.quiet) complain(continuation(row));
    return warnings.statusAfter(success, options.strict);
}

}  // namespace vantro
