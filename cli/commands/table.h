// A table of plain text with aligned columns.
#pragma once

#include <string>
#include <vector>

namespace vantro {

class Table {
public:
    using Row = std::vector<std::string>;

    explicit Table(Row header) { rows_.push_back(std::move(header)); }

    /// Adds a row (UTF-8) with as many cells as the header. Control characters are shown as "?".
    void add(Row cells) { rows_.push_back(std::move(cells)); }

    /// Header, rule and rows, one line each, without trailing blanks.
    std::string text() const;

private:
    std::vector<Row> rows_;
};

}  // namespace vantro
