// The displays of a source in their order, numbered, with all rows of each.
#pragma once

#include "cli/export/profile_rows.h"
#include "cli/export/tables.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string>

namespace vantro {

/// How far a source is read.
struct SourcePosition {
    std::string name;
    std::size_t firstId = 1;   ///< the number of its first display in the export
    std::size_t displays = 0;  ///< read so far
    std::size_t lines = 0;     ///< likewise
};

/// Goes through the displays of a piece and moves the position of their source.
class PieceWalk {
public:
    using Add = std::function<void(const TableFacts&, const Cells&)>;

    /// All three must outlive this object.
    PieceWalk(const PieceRows& piece, SourcePosition& source, std::size_t maxLine)
        : piece_(piece), source_(source), maxLine_(maxLine) {}

    /// The next display, or null after the last one.
    const PieceRows::Display* next();

    const DisplayOrigin& origin() const { return origin_; }

    /// Passes on the rows of the display, table by table. One that cannot be read has a row of `problems` only.
    void addRows(const Add& add);

private:
    void addFailure(const PieceRows::Display& display, const Add& add);

    const PieceRows& piece_;
    SourcePosition& source_;
    std::size_t maxLine_;
    std::size_t count_ = 0;  // displays
    DisplayOrigin origin_;
    RowCounts nextRows_{};
    WholeRow row_;
};

}  // namespace vantro
