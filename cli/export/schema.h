// The SQL of an export's database, made from the rows of its tables.
#pragma once

#include "cli/export/tables.h"

#include <span>
#include <string>
#include <string_view>

namespace vantro {

class Database;

/// The table of settings: what the database is.
namespace setting {
inline constexpr std::string_view tool = "tool";        ///< its value is `toolName`
inline constexpr std::string_view version = "version";  ///< `exportVersion`
inline constexpr std::string_view options = "options";  ///< what changes the displays that are found in a source
}  // namespace setting

/// Statements that make every table, empty, and what searches them.
std::string statementsForTables();

/// A statement that adds a row, with a parameter for each column.
std::string statementToAdd(std::string_view table, std::span<const Column> columns);

/// The same for a row that replaces one with an equal first column.
std::string statementToReplace(std::string_view table, std::span<const Column> columns);

/// A statement that reads all rows of a table of displays in the order of the displays.
std::string statementToRead(const TableFacts& table);

/// The same of `sources` and `runs`, in the order in which they were added.
std::string statementToRead(std::string_view table, std::span<const Column> columns);

/// Makes the indexes that are missing, adds new rows to the search, replaces the views and what explains tables,
/// columns and families, and counts what the query planner needs.
void completeDatabase(Database& database);

}  // namespace vantro
