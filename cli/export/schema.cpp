#include "cli/export/schema.h"

#include "cli/export/database.h"
#include "cli/export/views.h"
#include "cli/io/utf.h"
#include "vantro/families.h"

#include <algorithm>
#include <array>
#include <vector>

namespace vantro {

namespace {

using enum ColumnKind;

constexpr std::string_view rowNumber = "id INTEGER PRIMARY KEY";

constexpr std::array settingColumns{
    Column{"name", String, "what is set"},
    Column{"value", String, "its value"},
};

constexpr std::array familyColumns{
    Column{"family", String, "the word of its query: PHI, RM"},
    Column{"meaning", String, "what its elements are"},
    Column{"section", String, "the title of the display's section that they are in"},
};

constexpr std::array explanationColumns{
    Column{"table_name", String, "the table or view"},
    Column{"column_name", String, "its column; empty for the table itself"},
    Column{"meaning", String, "what it contains"},
};

/// The tables of a database that are not filled by displays.
struct PlainTable {
    std::string_view name;
    std::string_view meaning;
    std::span<const Column> columns;
    std::string_view key = {};  ///< what the first column is
    bool isNumbered = false;    ///< with a number that keeps the order of its rows
};

std::array<PlainTable, 5> plainTables() {
    constexpr std::string_view key = " PRIMARY KEY";
    return {{
        {"sources", "one row per file", sourceColumns(), " NOT NULL UNIQUE", true},
        {"runs", "one row per run of the export", runColumns(), key},
        {"settings", "what this database is", settingColumns, key},
        {"families", "one row per family of elements", familyColumns, key},
        {"columns", "what the tables, the views and their columns contain", explanationColumns},
    }};
}

/// A table whose texts are searched by words.
struct SearchedTable {
    ExportTable table;
    std::string_view columns;
};
constexpr std::array searchedTables{SearchedTable{ExportTable::Elements, "text, free_text"},
                                    SearchedTable{ExportTable::Notes, "text"}};

/// The search refers to rows by their numbers, so these tables have them as a column.
bool isSearched(ExportTable table) {
    return std::ranges::find(searchedTables, table, &SearchedTable::table) != searchedTables.end();
}

constexpr std::string_view furtherIndexes = R"(
CREATE INDEX IF NOT EXISTS elements_by_family ON elements (family, code, airline);
CREATE INDEX IF NOT EXISTS profiles_by_record_locator ON profiles (record_locator);
CREATE INDEX IF NOT EXISTS profiles_by_name ON profiles (name);
CREATE INDEX IF NOT EXISTS profiles_by_hash ON profiles (hash);
CREATE UNIQUE INDEX IF NOT EXISTS problems_of_unread ON problems (display_id) WHERE query IS NULL;
)";

std::string text(std::string_view view) { return std::string(view); }

std::string listOf(std::span<const Column> columns) {
    std::string list;
    for (const Column& column : columns) list += (list.empty() ? "" : ", ") + text(column.name);
    return list;
}

/// What a column of a table of displays refers to.
std::string_view referenceOf(const TableFacts& table, std::string_view column) {
    if (column == "source") return " REFERENCES sources (source)";
    if (column == "family") return " REFERENCES families (family)";
    // A display that was not read has problems but no profile.
    if (column == "display_id" && isSearched(table.table)) return " REFERENCES profiles (display_id)";
    return {};
}

std::string definitionOf(const TableFacts& table, const Column& column) {
    if (table.table == ExportTable::Profiles && column.name == "display_id") return "display_id INTEGER PRIMARY KEY";
    return text(column.name) + (column.kind == Integer ? " INTEGER" : " TEXT") + text(referenceOf(table, column.name));
}

std::string statementFor(std::string_view table, const std::vector<std::string>& columns) {
    std::string statement = "CREATE TABLE " + text(table) + " (";
    for (const std::string& column : columns) statement += (column == columns.front() ? "\n    " : ",\n    ") + column;
    return statement + ");\n";
}

std::string statementFor(const TableFacts& table) {
    std::vector<std::string> columns;
    if (isSearched(table.table)) columns.emplace_back(rowNumber);
    for (const Column& column : table.columns) columns.push_back(definitionOf(table, column));
    return statementFor(table.name, columns);
}

std::string statementFor(const PlainTable& table) {
    std::vector<std::string> columns;
    for (const Column& column : table.columns) {
        columns.push_back(text(column.name) + (column.kind == Integer ? " INTEGER" : " TEXT"));
    }
    columns.front() += text(table.key);
    if (table.isNumbered) columns.emplace(columns.begin(), rowNumber);
    return statementFor(table.name, columns);
}

std::string searchOf(const SearchedTable& searched) {
    const std::string name = text(factsOf(searched.table).name);
    // Tools find the search of a table by the quotation marks around its name.
    return "CREATE VIRTUAL TABLE " + name + "_fts USING fts5(" + text(searched.columns) + ", content=\"" + name +
           "\", content_rowid=\"id\");\n";
}

/// Adds the rows that the search does not have yet: rows are never changed, so these are the last ones.
std::string statementToSearch(const SearchedTable& searched) {
    const std::string name = text(factsOf(searched.table).name);
    const std::string columns = text(searched.columns);
    return "INSERT INTO " + name + "_fts (rowid, " + columns + ") SELECT id, " + columns + " FROM " + name +
           " WHERE id > (SELECT coalesce(max(id), 0) FROM " + name + "_fts_docsize);\n";
}

std::string statementFor(const ViewFacts& view) {
    std::string statement =
        "DROP VIEW IF EXISTS " + text(view.name) + ";\nCREATE VIEW " + text(view.name) + " AS SELECT";
    std::string separator = "\n    ";
    for (const ViewColumn& column : view.columns) {
        statement += separator + text(column.expression) + " AS " + text(column.name);
        separator = ",\n    ";
    }
    return statement + "\nFROM " + text(view.rows) + ";\n";
}

std::string statementsForIndexes() {
    std::string statements;
    for (const TableFacts& table : exportTables()) {
        if (table.keyLength == 1) continue;  // the primary key
        statements += "CREATE UNIQUE INDEX IF NOT EXISTS " + text(table.name) + "_key ON " + text(table.name) + " (" +
                      listOf(table.columns.first(table.keyLength)) + ");\n";
    }
    return statements + "CREATE UNIQUE INDEX IF NOT EXISTS profiles_source ON profiles (source, display);\n" +
           text(furtherIndexes);
}

void explainFamilies(Database& database) {
    database.run("DELETE FROM families");
    Statement add = database.prepare(statementToAdd("families", familyColumns));
    for (const FamilyFacts& family : families()) {
        const std::string word = toUtf8(family.word);
        const std::string meaning = toUtf8(family.meaning);
        const std::string section = toUtf8(titleOf(family.inSection));
        add.bind(1, word);
        add.bind(2, meaning);
        add.bind(3, section);
        add.run();
    }
}

template <typename Row>
void explain(Statement& add, const Row& table) {
    add.bind(1, table.name);
    add.bind(2, std::string_view());
    add.bind(3, table.meaning);
    add.run();
    for (const auto& column : table.columns) {
        add.bind(2, column.name);
        add.bind(3, column.meaning);
        add.run();
    }
}

void explainColumns(Database& database) {
    database.run("DELETE FROM columns");
    Statement add = database.prepare(statementToAdd("columns", explanationColumns));
    for (const TableFacts& table : exportTables()) explain(add, table);
    for (const ViewFacts& view : exportViews()) explain(add, view);
    for (const PlainTable& table : plainTables()) explain(add, table);
}

}  // namespace

std::string statementsForTables() {
    std::string statements;
    for (const PlainTable& table : plainTables()) statements += statementFor(table);
    for (const TableFacts& table : exportTables()) statements += statementFor(table);
    for (const SearchedTable& searched : searchedTables) statements += searchOf(searched);
    return statements;
}

std::string statementToAdd(std::string_view table, std::span<const Column> columns) {
    std::string parameters = "?";
    for (std::size_t column = 1; column < columns.size(); ++column) parameters += ", ?";
    return "INSERT INTO " + text(table) + " (" + listOf(columns) + ") VALUES (" + parameters + ")";
}

std::string statementToReplace(std::string_view table, std::span<const Column> columns) {
    std::string changes;
    for (const Column& column : columns.subspan(1)) {
        changes += (changes.empty() ? "" : ", ") + text(column.name) + " = excluded." + text(column.name);
    }
    return statementToAdd(table, columns) + " ON CONFLICT (" + text(columns.front().name) + ") DO UPDATE SET " +
           changes;
}

std::string statementToRead(const TableFacts& table) {
    return "SELECT " + listOf(table.columns) + " FROM " + text(table.name) + " ORDER BY display_id, rowid";
}

std::string statementToRead(std::string_view table, std::span<const Column> columns) {
    return "SELECT " + listOf(columns) + " FROM " + text(table) + " ORDER BY rowid";
}

void completeDatabase(Database& database) {
    database.run(statementsForIndexes());
    for (const SearchedTable& searched : searchedTables) database.run(statementToSearch(searched));
    for (const ViewFacts& view : exportViews()) database.run(statementFor(view));
    explainFamilies(database);
    explainColumns(database);
    database.run("PRAGMA analysis_limit = 1000; ANALYZE");
}

}  // namespace vantro
