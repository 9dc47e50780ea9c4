#include "cli/export/source_displays.h"

namespace vantro {

const PieceRows::Display* PieceWalk::next() {
    if (count_ == piece_.displays.size()) {
        source_.lines += piece_.lines;
        return nullptr;
    }
    const PieceRows::Display& display = piece_.displays[count_++];
    origin_ = {.id = source_.firstId + source_.displays,
               .source = source_.name,
               .display = source_.displays + 1,
               .line = source_.lines + display.line};
    ++source_.displays;
    return &display;
}

void PieceWalk::addRows(const Add& add) {
    const std::size_t index = count_ - 1;
    row_.setOrigin(origin_);
    if (piece_.displays[index].faulty.fault != LineFault::None) return addFailure(piece_.displays[index], add);
    for (const TableFacts& table : exportTables()) {
        const TableRows& rows = piece_.tables.at(indexOf(table.table));
        std::size_t& next = nextRows_.at(indexOf(table.table));
        while (next < rows.size() && rows.displayOf(next) < index) ++next;  // of displays that were passed over
        for (; next < rows.size() && rows.displayOf(next) == index; ++next) add(table, row_.of(table, rows, next));
    }
}

void PieceWalk::addFailure(const PieceRows::Display& display, const Add& add) {
    const TableFacts& table = factsOf(ExportTable::Problems);
    TableRows rows(table);
    rows.begin(0);
    rows.cell("");  // neither query
    rows.cell("");  // nor error number
    rows.cell(describe(display.faulty, source_.lines, maxLine_));
    add(table, row_.of(table, rows, 0));
}

}  // namespace vantro
