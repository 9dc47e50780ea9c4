#include "cli/export/checker.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <span>
#include <string_view>

namespace vantro {

namespace {

std::size_t displayIn(const std::string& cell) {
    std::size_t display = 0;
    std::from_chars(cell.data(), cell.data() + cell.size(), display);
    return display;
}

StoredRows::Row copyOf(const Cells& cells) { return {cells.begin(), cells.end()}; }

/// "display_id 17, family PHI, position 3"
std::string keyOf(const TableFacts& table, const StoredRows::Row& row) {
    std::string key;
    for (std::size_t column = 0; column < table.keyLength; ++column) {
        if (row[column].empty()) continue;
        if (!key.empty()) key += ", ";
        key.append(table.columns[column].name).append(" ").append(row[column]);
    }
    return key;
}

bool haveEqualKeys(const TableFacts& table, const StoredRows::Row& one, const StoredRows::Row& other) {
    return std::ranges::equal(std::span(one).first(table.keyLength), std::span(other).first(table.keyLength));
}

}  // namespace

StoredRows::StoredRows(const TableFacts& table, std::unique_ptr<RowReader> rows)
    : table_(&table), rows_(std::move(rows)) {
    read();
}

StoredRows::Row StoredRows::take() {
    Row row = std::move(row_);
    read();
    return row;
}

void StoredRows::read() {
    const Cells* const cells = rows_->next();
    row_ = cells == nullptr ? Row() : copyOf(*cells);
    display_ = cells == nullptr ? none : displayIn(row_.front());
}

Checker::Checker(ArchiveReader& archive, std::size_t maxLine, Report report)
    : state_(archive.state()), maxLine_(maxLine), report_(std::move(report)) {
    for (const TableFacts& table : exportTables()) stored_.emplace_back(table, archive.rows(table));
}

void Checker::beginSource(const std::string& name) {
    while (state_.sources.at(next_).name != name) leaveOut();
    position_ = {.name = name, .firstId = displaysBefore_ + 1};
    notExported_ = 0;
}

void Checker::take(const PieceRows& piece) {
    PieceWalk walk(piece, position_, maxLine_);
    while (walk.next() != nullptr) {
        if (position_.displays > state_.sources[next_].displays) {
            ++notExported_;
        } else {
            compareDisplay(walk);
        }
    }
}

void Checker::endSource(const std::string& problem) {
    const SourceState& source = state_.sources[next_];
    // Of a file that cannot be read at all nothing more can be said.
    if (position_.displays == 0 && !problem.empty()) {
        leaveOut();
    } else {
        ++next_;
        displaysBefore_ += source.displays;
    }
    const auto complain = [&](const std::string& what) {
        ++counts_.sources;
        report_("source " + source.name + ": " + what);
    };
    if (notExported_ > 0) complain(std::to_string(notExported_) + " at its end not exported");
    if (notExported_ == 0 && !source.isDone) complain("the export was interrupted in it");
    if (problem != source.problem && !problem.empty()) complain(problem);
}

const CheckCounts& Checker::finish() {
    while (next_ < state_.sources.size()) leaveOut();
    reportExtraBefore(StoredRows::none);
    return counts_;
}

void Checker::leaveOut() {
    const std::size_t displays = state_.sources.at(next_++).displays;
    leftOut_.push_back({displaysBefore_ + 1, displaysBefore_ + displays});
    displaysBefore_ += displays;
}

void Checker::compareDisplay(PieceWalk& walk) {
    ++counts_.displays;
    std::array<Rows, exportTableCount> expected;
    walk.addRows([&expected](const TableFacts& table, const Cells& row) {
        expected.at(indexOf(table.table)).push_back(copyOf(row));
    });
    reportExtraBefore(walk.origin().id);
    for (StoredRows& stored : stored_) {
        compare(stored, expected.at(indexOf(stored.table().table)), walk.origin().id);
    }
}

void Checker::compare(StoredRows& stored, const Rows& expected, std::size_t display) {
    Rows found;
    while (stored.nextDisplay() == display) found.push_back(stored.take());
    counts_.rows += found.size();
    if (found != expected) compareByKey(stored.table(), expected, found);
}

void Checker::compareByKey(const TableFacts& table, const Rows& expected, const Rows& found) {
    std::vector<bool> isMatched(found.size());
    for (const StoredRows::Row& row : expected) {
        std::size_t match = 0;
        while (match < found.size() && (isMatched[match] || !haveEqualKeys(table, row, found[match]))) ++match;
        if (match == found.size()) {
            ++counts_.missing;
            report("missing", table, row, "");
            continue;
        }
        isMatched[match] = true;
        if (found[match] != row) reportDifference(table, row, found[match]);
    }
    for (std::size_t row = 0; row < found.size(); ++row) {
        if (isMatched[row]) continue;
        ++counts_.extra;
        report("extra", table, found[row], "");
    }
}

// Rows of displays that no source has.
void Checker::reportExtraBefore(std::size_t display) {
    for (StoredRows& stored : stored_) {
        while (stored.nextDisplay() < display) {
            const StoredRows::Row row = stored.take();
            if (isLeftOut(displayIn(row.front()))) continue;
            ++counts_.extra;
            report("extra", stored.table(), row, "");
        }
    }
}

bool Checker::isLeftOut(std::size_t display) const {
    const auto after = std::ranges::upper_bound(leftOut_, display, {}, &Range::first);
    return after != leftOut_.begin() && display <= std::prev(after)->last;
}

void Checker::reportDifference(const TableFacts& table, const StoredRows::Row& expected, const StoredRows::Row& found) {
    ++counts_.different;
    std::string more;
    for (std::size_t column = 0; column < expected.size(); ++column) {
        if (expected[column] == found[column]) continue;
        more.append(more.empty() ? ": " : ", ").append(table.columns[column].name);
        more += " is '" + found[column] + "' instead of '" + expected[column] + "'";
    }
    report("different", table, expected, more);
}

void Checker::report(const char* what, const TableFacts& table, const StoredRows::Row& row, const std::string& more) {
    report_(std::string(what) + " row of " + std::string(table.name) + ": " + keyOf(table, row) + more);
}

}  // namespace vantro
