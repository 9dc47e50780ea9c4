// Writes the entries of lists as rows.
#pragma once

#include "framework/observation.h"
#include "vantro/list_rows.h"

#include <cstdint>

namespace vantro {

/// A cell of a row, with the name of its column.
struct Cell {
    TextView column;
    Text ListRow::*text;
};

namespace cell {

inline constexpr Cell number{u"number", &ListRow::number};
inline constexpr Cell name{u"name", &ListRow::name};
inline constexpr Cell recordLocator{u"recordLocator", &ListRow::recordLocator};
inline constexpr Cell company{u"company", &ListRow::company};
inline constexpr Cell office{u"office", &ListRow::office};
inline constexpr Cell passenger{u"passenger", &ListRow::passenger};

}  // namespace cell

/// Adds rows and sets their cells, and says every cell if the call is observed.
class RowWriter {
public:
    RowWriter(const Watch& watch, ListRows& found) : watch_(watch), found_(found) {}

    bool isEmpty() const { return found_.rows.empty(); }

    /// Adds a row. Its cells are empty.
    void begin(ProfileKind kind, std::int16_t line) const {
        ListRow& row = found_.rows.emplace_back();
        row.line = line;
        row.kind = kind;
    }

    /// Sets a cell of the last row.
    void set(const Cell& cell, TextView value) const {
        found_.rows.back().*cell.text = value;
        watch_.read(cell.column, value, static_cast<std::int32_t>(found_.rows.size()));
    }

private:
    Watch watch_;
    ListRows& found_;
};

}  // namespace vantro
