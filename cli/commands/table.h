// A table of plain text with aligned columns.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vantro {

/// How a table is shown.
struct TableLook {
    std::size_t width = 0;  ///< the columns of the terminal; 0 for as many as the table needs
    bool hasColor = false;  ///< the header is bold
};

/// As standard output shows it: within the width of a terminal, in full width in files and pipes.
TableLook outputLook();

class Table {
public:
    using Row = std::vector<std::string>;

    explicit Table(Row header) { rows_.push_back(std::move(header)); }

    /// Adds a row (UTF-8) with as many cells as the header. Control characters are shown as "?".
    void add(Row cells) { rows_.push_back(std::move(cells)); }

    /// Header, rule and rows, without trailing blanks. A row is one line, or several where its cells are wrapped
    /// because the table is wider than the look allows. Columns never become narrower than 8 characters: a narrower
    /// terminal wraps the lines itself.
    std::string text(const TableLook& look = {}) const;

private:
    std::vector<std::size_t> widths() const;

    std::vector<Row> rows_;
};

}  // namespace vantro
