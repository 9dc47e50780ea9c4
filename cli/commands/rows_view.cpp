#include "cli/commands/rows_view.h"

#include "cli/commands/results_view.h"
#include "cli/commands/table.h"
#include "cli/io/csv.h"
#include "cli/io/failure.h"
#include "cli/io/standard_io.h"
#include "cli/io/utf.h"
#include "cli/io/warnings.h"
#include "cli/json/output.h"

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

std::string jsonOf(const ClassRow& row, const ListRows& found) {
    std::string json;
    JsonOut out(json);
    out.beginArray();
    for (const ListRow& entry : found.rows) {
        out.beginObject();
        out.key("line");
        out.number(entry.line);
        out.key("kind");
        out.text(toUtf16(nameOf(entry.kind)));
        for (const ListColumn& column : row.description.columns) {
            out.key(column.name);
            out.text(entry.*column.cell);
        }
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

std::string rowsText(const ClassRow& row, const ListRows& found, RowsView view) {
    switch (view) {
        case RowsView::Csv: return csvOf(row, found);
        case RowsView::Table: return tableOf(row, found);
        case RowsView::Json: break;
    }
    return jsonOf(row, found);
}

int showRows(const ClassRow& row, TextView screen, const CollectionPtr& state, const VerifyOptions& options,
             Warnings& warnings) {
    const ListRows found = readRows(row, screen, state);
    const RowsView view = rowsView(options);
    writeOutput(rowsText(row, found, view));
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
