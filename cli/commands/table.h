// A table of plain text with aligned columns.
#pragma once

#include <string>
#include <vector>

namespace vantro {

class Table {
public:
    using Row = std::vector<std::string>;

    explicit Table(Row header) { rows_.push_back(std::move(header)); }

    /// Adds a row with as many cells as the header has; UTF-8. Control characters are shown as "?".
    void add(Row cells) { rows_.push_back(std::move(cells)); }

    /// Header, a rule and the rows, a line each, without blanks at the ends of lines.
    std::string text() const;

private:
    std::vector<Row> rows_;
};

}  // namespace vantro
