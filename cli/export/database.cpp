#include "cli/export/database.h"

#include "cli/io/failure.h"

#include <sqlite3.h>
#include <utility>

namespace vantro {

namespace {

/// How long a program waits for another one that uses the database.
constexpr int patience = 2000;  // milliseconds

[[noreturn]] void raise(sqlite3* connection, const std::string& name) {
    const std::string reason = sqlite3_errmsg(connection);
    switch (sqlite3_errcode(connection) & 0xFF) {  // the rest says more than is needed here
        case SQLITE_NOTADB: throw UsageError("'" + name + "' is not a database; name another file");
        case SQLITE_CANTOPEN:
            throw UsageError("cannot open the database '" + name + "'; check its name and its folder");
        case SQLITE_BUSY:
        case SQLITE_LOCKED: throw UsageError("another program uses '" + name + "'; try again when it has ended");
        case SQLITE_READONLY:
        case SQLITE_PERM:
        case SQLITE_AUTH: throw UsageError("cannot write to '" + name + "': " + reason);
        default: throw StreamError("the database '" + name + "': " + reason);
    }
}

}  // namespace

void Statement::Finalize::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

void Statement::check(int status) const {
    if (status != SQLITE_OK && status != SQLITE_ROW && status != SQLITE_DONE) {
        raise(sqlite3_db_handle(statement_.get()), *name_);
    }
}

void Statement::bind(int parameter, std::string_view text) {
    sqlite3_stmt* const to = statement_.get();
    check(text.empty() ? sqlite3_bind_null(to, parameter)
                       : sqlite3_bind_text64(to, parameter, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void Statement::bind(int parameter, std::int64_t number) {
    check(sqlite3_bind_int64(statement_.get(), parameter, number));
}

void Statement::run() {
    check(sqlite3_step(statement_.get()));
    check(sqlite3_reset(statement_.get()));
}

bool Statement::next() {
    const int status = sqlite3_step(statement_.get());
    check(status);
    return status == SQLITE_ROW;
}

int Statement::columns() const { return sqlite3_column_count(statement_.get()); }

std::string_view Statement::text(int column) const {
    const unsigned char* const bytes = sqlite3_column_text(statement_.get(), column);
    if (bytes == nullptr) return {};
    // An unsigned character may be read as a plain one.
    return {reinterpret_cast<const char*>(bytes),
            static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column))};
}

void Database::Close::operator()(sqlite3* connection) const { sqlite3_close(connection); }

Database::Database(std::string name, Access access) : name_(std::make_unique<const std::string>(std::move(name))) {
    sqlite3* connection = nullptr;
    // A reader has to take back what an interrupted program left. A file that is read-only is opened for reading.
    const int flags = SQLITE_OPEN_READWRITE | (access == Access::Read ? 0 : SQLITE_OPEN_CREATE);
    const int status = sqlite3_open_v2(name_->c_str(), &connection, flags, nullptr);
    connection_.reset(connection);
    if (status != SQLITE_OK) raise(connection, *name_);
    sqlite3_busy_timeout(connection, patience);
    if (access == Access::Read) run("PRAGMA query_only = ON");
}

void Database::run(const std::string& statements) {
    if (sqlite3_exec(connection_.get(), statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        raise(connection_.get(), *name_);
    }
}

Statement Database::prepare(const std::string& statement) {
    sqlite3_stmt* prepared = nullptr;
    const int status = sqlite3_prepare_v3(connection_.get(), statement.c_str(), static_cast<int>(statement.size()) + 1,
                                          SQLITE_PREPARE_PERSISTENT, &prepared, nullptr);
    if (status != SQLITE_OK) raise(connection_.get(), *name_);
    return {prepared, *name_};
}

std::string Database::valueOf(const std::string& statement) {
    Statement asked = prepare(statement);
    return asked.next() ? std::string(asked.text(0)) : std::string();
}

}  // namespace vantro
