#include "cli/export/exporter.h"

#include "cli/io/failure.h"
#include "cli/io/input_files.h"

#include <utility>

namespace vantro {

Exporter::Exporter(ArchiveWriter& archive, RunState run, std::size_t maxLine, std::size_t perCommit)
    : archive_(archive), run_(std::move(run)), maxLine_(maxLine), perCommit_(perCommit) {
    for (const SourceState& source : archive.state().sources) displaysBefore_ += source.displays;
    archive.commit({}, run_);  // so that an interruption before the next commit is seen as one
}

void Exporter::beginSource(const std::string& name) {
    source_ = {.name = name, .bytes = lengthInAll({name})};
    const auto& known = archive_.state().sources;
    if (!known.empty() && !known.back().isDone && known.back().name == name) {
        const std::uint64_t bytes = source_.bytes;  // it may have grown
        source_ = known.back();
        source_.bytes = bytes;
    }
    passedOver_ = source_.displays;
    displaysBefore_ -= passedOver_;
    position_ = {.name = name, .firstId = displaysBefore_ + 1};
}

void Exporter::take(const PieceRows& piece) {
    PieceWalk walk(piece, position_, maxLine_);
    const PieceWalk::Add add = [this](const TableFacts& table, const Cells& row) {
        archive_.add(table, row);
        ++run_.rows.at(indexOf(table.table));
    };
    while (const PieceRows::Display* const display = walk.next()) {
        if (position_.displays <= passedOver_) {
            if (position_.displays == passedOver_ && display->hash != source_.lastHash) refuseChanged();
            continue;
        }
        const bool hasFailed = display->faulty.fault != LineFault::None;
        walk.addRows(add);
        source_.lastHash = display->hash;
        source_.failed += hasFailed ? 1 : 0;
        run_.failed += hasFailed ? 1 : 0;
        ++source_.displays;
        ++run_.displays;
        ++uncommitted_;
    }
    if (uncommitted_ >= perCommit_) commit();
}

void Exporter::endSource(const std::string& problem) {
    if (position_.displays < passedOver_) {
        // The numbers of all later displays depend on this source.
        if (!problem.empty()) throw UsageError("the export cannot be continued: " + problem);
        refuseChanged();
    }
    displaysBefore_ += source_.displays;
    if (problem.empty() || source_.displays > 0) {
        source_.isDone = true;
        source_.problem = problem;
        if (problem.empty()) ++run_.sources;
        changed_.push_back(source_);
    }
    source_ = {};
}

const RunState& Exporter::finish(const std::string& now) {
    commit();
    run_.finished = now;
    archive_.finish(run_);
    return run_;
}

void Exporter::commit() {
    if (!source_.name.empty()) changed_.push_back(source_);
    archive_.commit(changed_, run_);
    changed_.clear();
    uncommitted_ = 0;
}

void Exporter::refuseChanged() const {
    throw UsageError("'" + source_.name + "' was changed since a part of it was exported; export into another " +
                     "folder or database");
}

}  // namespace vantro
