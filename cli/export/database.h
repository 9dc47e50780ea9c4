// SQLite databases: connections and statements that end themselves, and errors as exceptions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace vantro {

/// A prepared statement. Must not outlive its database. All functions raise what `Database` raises.
class Statement {
public:
    /// Sets a parameter, from 1. A text is not copied: it must stay until the statement was run or stepped to its end.
    /// An empty text is NULL.
    void bind(int parameter, std::string_view text);
    void bind(int parameter, std::int64_t number);

    /// Runs a statement without results, so that it can be bound and run again.
    void run();

    /// Goes to the next row. False after the last one.
    bool next();

    int columns() const;

    /// A column of the row, from 0; NULL is an empty text. Valid until the next row.
    std::string_view text(int column) const;

private:
    friend class Database;
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };

    Statement(sqlite3_stmt* statement, const std::string& name) : statement_(statement), name_(&name) {}

    void check(int status) const;

    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
    const std::string* name_;  // of the database
};

class Database {
public:
    enum class Access { Read, Write };

    /// Opens the database of this name in UTF-8; for writing, makes it if there is none. Raises UsageError if it cannot
    /// be opened, is not a database, or another program writes to it, and StreamError if it cannot be read or written.
    Database(std::string name, Access access);

    /// Runs statements without parameters, one after the other. Their results are ignored.
    void run(const std::string& statements);

    Statement prepare(const std::string& statement);

    /// The first column of the first row; empty if there is no row.
    std::string valueOf(const std::string& statement);

private:
    struct Close {
        void operator()(sqlite3* connection) const;
    };

    std::unique_ptr<const std::string> name_;  // statements refer to it
    std::unique_ptr<sqlite3, Close> connection_;
};

}  // namespace vantro
