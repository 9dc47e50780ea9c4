// The displays of a piece of a source as rows.
#pragma once

#include "cli/export/tables.h"
#include "cli/io/displays.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vantro {

/// The displays of a piece of a source, by their index in it.
struct PieceRows {
    /// A display of the piece. One with a fault has no rows and no hash.
    struct Display {
        std::size_t line = 0;  ///< its first line, from 1 in the piece
        FaultyLine faulty;
        std::string hash = {};
    };

    RowsOfTables tables = emptyRows();
    std::vector<Display> displays;
    std::size_t lines = 0;
};

/// Parses the displays of a piece.
PieceRows rowsOf(std::string_view piece, const Splitting& splitting);

/// The XXH3 hash of 128 bits of a display's text in UTF-8 without the blanks at its end, in 32 hexadecimal digits.
std::string hashOf(TextView display);

}  // namespace vantro
