// The lists of a screen as rows, for people and for programs.
#pragma once

#include "cli/commands/commands.h"
#include "cli/io/warnings.h"
#include "vantro/collection.h"
#include "vantro/registry.h"

#include <string>
#include <vector>

namespace vantro {

/// A column as people and programs see it.
struct NamedColumn {
    TextView name;
    TextView meaning;  ///< begins with a small letter, no full stop at its end
};

/// The columns of the rows of a class: "line", "kind", and those of its description. Empty for a class that reads no
/// list.
std::vector<NamedColumn> columnsOf(const ClassRow& row);

/// How rows are printed.
enum class RowsView { Json, Csv, Table };

class ProfilePositions;

/// Raises UsageError, with the names of the classes that read lists, for one that does not.
void requireLists(const ClassRow& row);

/// JSON is one array with an object for each row; CSV and table begin with the names of the columns. Positions, unless
/// null, are a member of each row of the JSON.
std::string rowsText(const ClassRow& row, const ListRows& found, RowsView view,
                     const ProfilePositions* positions = nullptr);

/// Reads the screen, writes its rows to standard output and returns the exit status. Warns of a screen without a list
/// and of a list without a row. A note on standard error says that a list continues; a table says it itself.
int showRows(const ClassRow& row, TextView screen, const CollectionPtr& state, const VerifyOptions& options,
             Warnings& warnings);

}  // namespace vantro
