#include "cli/export/sqlite_archive.h"

#include "cli/export/database.h"
#include "cli/export/schema.h"
#include "cli/io/failure.h"

#include <charconv>
#include <span>
#include <string_view>
#include <utility>

namespace vantro {

namespace {

/// The statement's parameters from `cells`, which must stay until it was run.
template <typename Row>
void bind(Statement& statement, std::span<const Column> columns, const Row& cells) {
    for (std::size_t column = 0; column < columns.size(); ++column) {
        const std::string_view cell = cells.at(column);
        const int parameter = static_cast<int>(column) + 1;
        std::int64_t number = 0;
        if (columns[column].kind == ColumnKind::Integer && !cell.empty()) {
            std::from_chars(cell.data(), cell.data() + cell.size(), number);
            statement.bind(parameter, number);
        } else {
            statement.bind(parameter, cell);
        }
    }
}

void readRow(const Statement& statement, std::size_t columns, Cells& cells) {
    cells.clear();
    for (std::size_t column = 0; column < columns; ++column) cells.push_back(statement.text(static_cast<int>(column)));
}

std::string valueOf(Database& database, std::string_view setting) {
    return database.valueOf("SELECT value FROM settings WHERE name = '" + std::string(setting) + "'");
}

void set(Database& database, std::string_view setting, std::string_view value) {
    Statement add = database.prepare("INSERT INTO settings (name, value) VALUES (?, ?)");
    add.bind(1, setting);
    add.bind(2, value);
    add.run();
}

bool isThere(Database& database, std::string_view table, std::string_view column) {
    return !database
                .valueOf("SELECT 1 FROM pragma_table_info('" + std::string(table) + "') WHERE name = '" +
                         std::string(column) + "'")
                .empty();
}

bool isExport(Database& database) {
    return isThere(database, "settings", "name") && isThere(database, "settings", "value") &&
           valueOf(database, setting::tool) == toolName;
}

/// An earlier release may have made the tables without a column at the end.
void checkColumns(Database& database, const std::string& name, std::string_view table,
                  std::span<const Column> columns) {
    for (const Column& column : columns) {
        if (isThere(database, table, column.name)) continue;
        throw UsageError("the export '" + name + "' has no column " + std::string(column.name) + " in " +
                         std::string(table) + ", as those of other releases; export into another database");
    }
}

void checkExport(Database& database, const std::string& name, const std::string& settings) {
    if (!isExport(database)) throw UsageError("'" + name + "' is not an export; name another database");
    const std::string version = valueOf(database, setting::version);
    if (version != std::to_string(exportVersion)) {
        throw UsageError("the export '" + name + "' has version " + version + ", not " + std::to_string(exportVersion) +
                         "; export into another database");
    }
    const std::string options = valueOf(database, setting::options);
    if (options != settings) {
        throw UsageError("the export '" + name + "' was made with the options '" + options + "', not '" + settings +
                         "'; use the same, or export into another database");
    }
    for (const TableFacts& table : exportTables()) checkColumns(database, name, table.name, table.columns);
    checkColumns(database, name, "sources", sourceColumns());
    checkColumns(database, name, "runs", runColumns());
}

ArchiveState stateOf(Database& database) {
    ArchiveState state;
    Cells cells;
    Statement sources = database.prepare(statementToRead("sources", sourceColumns()));
    while (sources.next()) {
        readRow(sources, sourceColumns().size(), cells);
        state.sources.push_back(sourceOf(cells));
    }
    Statement runs = database.prepare(statementToRead("runs", runColumns()));
    while (runs.next()) {
        readRow(runs, runColumns().size(), cells);
        state.runs.push_back(runOf(cells));
    }
    return state;
}

/// Pages that fit the rows of millions of displays. The lock is one for the whole time: two programs that export into
/// the same database at once would add displays under the same numbers.
constexpr auto openingStatements = R"(
PRAGMA page_size = 8192;
PRAGMA locking_mode = EXCLUSIVE;
PRAGMA journal_mode = WAL;
PRAGMA synchronous = NORMAL;
PRAGMA cache_size = -65536;
)";

class DatabaseWriter final : public ArchiveWriter {
public:
    DatabaseWriter(const std::string& name, const std::string& settings) : database_(name, Database::Access::Write) {
        // Nothing is changed in a database of others.
        if (isNew()) {
            database_.run(openingStatements);
            begin();
            database_.run(statementsForTables());
            set(database_, setting::tool, toolName);
            set(database_, setting::version, std::to_string(exportVersion));
            set(database_, setting::options, settings);
            end();
        } else {
            checkExport(database_, name, settings);
            database_.run(openingStatements);
        }
        state_ = stateOf(database_);
        for (const TableFacts& table : exportTables()) {
            rows_.push_back(database_.prepare(statementToAdd(table.name, table.columns)));
        }
    }

    const ArchiveState& state() const override { return state_; }

    void add(const TableFacts& table, const Cells& row) override {
        begin();
        Statement& statement = rows_[indexOf(table.table)];
        bind(statement, table.columns, row);
        statement.run();
    }

    void commit(std::span<const SourceState> changed, const RunState& run) override {
        begin();
        keep(changed, run);
        end();
    }

    void finish(const RunState& run) override {
        // Without a write-ahead log each new page is written once, and nothing is left beside the database: it can be
        // read where nothing can be written.
        database_.run("PRAGMA journal_mode = DELETE");
        begin();
        completeDatabase(database_);
        keep({}, run);
        database_.run("PRAGMA locking_mode = NORMAL");  // for what reads the database from now on
        end();
    }

private:
    bool isNew() { return database_.valueOf("SELECT 1 FROM sqlite_master").empty(); }

    void begin() {
        if (!isOpen_) database_.run("BEGIN IMMEDIATE");
        isOpen_ = true;
    }

    void end() {
        database_.run("COMMIT");
        isOpen_ = false;
    }

    void keep(std::span<const SourceState> changed, const RunState& run) {
        Statement replaceSource = database_.prepare(statementToReplace("sources", sourceColumns()));
        for (const SourceState& source : changed) {
            const std::vector<std::string> cells = cellsOf(source);
            bind(replaceSource, sourceColumns(), cells);
            replaceSource.run();
            state_.take(source);
        }
        Statement replaceRun = database_.prepare(statementToReplace("runs", runColumns()));
        const std::vector<std::string> cells = cellsOf(run);
        bind(replaceRun, runColumns(), cells);
        replaceRun.run();
        state_.take(run);
    }

    Database database_;
    ArchiveState state_;
    std::vector<Statement> rows_;  // that add a row, by `indexOf`
    bool isOpen_ = false;          // a transaction
};

class DatabaseRows final : public RowReader {
public:
    DatabaseRows(Database& database, const TableFacts& table)
        : statement_(database.prepare(statementToRead(table))), columns_(table.columns.size()) {}

    const Cells* next() override {
        if (!statement_.next()) return nullptr;
        readRow(statement_, columns_, cells_);
        return &cells_;
    }

private:
    Statement statement_;
    std::size_t columns_;
    Cells cells_;
};

class DatabaseReader final : public ArchiveReader {
public:
    DatabaseReader(const std::string& name, const std::string& settings) : database_(name, Database::Access::Read) {
        checkExport(database_, name, settings);
        state_ = stateOf(database_);
    }

    const ArchiveState& state() const override { return state_; }

    std::unique_ptr<RowReader> rows(const TableFacts& table) override {
        return std::make_unique<DatabaseRows>(database_, table);
    }

private:
    Database database_;
    ArchiveState state_;
};

}  // namespace

std::unique_ptr<ArchiveWriter> writeDatabase(const std::string& name, const std::string& settings) {
    return std::make_unique<DatabaseWriter>(name, settings);
}

std::unique_ptr<ArchiveReader> readDatabase(const std::string& name, const std::string& settings) {
    return std::make_unique<DatabaseReader>(name, settings);
}

}  // namespace vantro
