// Adds the displays of sources to an export.
#pragma once

#include "cli/export/archive.h"
#include "cli/export/source_displays.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vantro {

/// Takes the sources one after the other, each a piece at a time.
class PieceSink {
public:
    virtual ~PieceSink() = default;
    PieceSink(const PieceSink&) = delete;
    PieceSink& operator=(const PieceSink&) = delete;

    virtual void beginSource(const std::string& name) = 0;
    virtual void take(const PieceRows& piece) = 0;

    /// `problem` says why reading ended early; "" if it did not.
    virtual void endSource(const std::string& problem) = 0;

protected:
    PieceSink() = default;
};

/// Continues an export. The first source is the one in which the last run was interrupted, if there is one: its
/// displays that are exported already are passed over.
class Exporter final : public PieceSink {
public:
    static constexpr std::size_t displaysPerCommit = 20'000;

    /// `run` has its number, beginning and version. A commit follows the piece with which at least `perCommit` displays
    /// are not committed. The archive must outlive this object.
    Exporter(ArchiveWriter& archive, RunState run, std::size_t maxLine, std::size_t perCommit = displaysPerCommit);

    void beginSource(const std::string& name) override;

    /// Raises UsageError for a source that was changed since a part of it was exported.
    void take(const PieceRows& piece) override;

    /// A source that ended early before its first display is not noted, so that the next run tries it again. Raises
    /// UsageError for one in which the last run was interrupted, if it ends earlier now.
    void endSource(const std::string& problem) override;

    /// Commits, and ends the run at this time.
    const RunState& finish(const std::string& now);

private:
    void commit();
    [[noreturn]] void refuseChanged() const;

    ArchiveWriter& archive_;
    RunState run_;
    std::size_t maxLine_;
    std::size_t perCommit_;
    std::size_t displaysBefore_ = 0;  // in all sources before this one
    SourceState source_;
    SourcePosition position_;
    std::size_t passedOver_ = 0;  // displays at the beginning of this source, exported by an earlier run
    std::size_t uncommitted_ = 0;
    std::vector<SourceState> changed_;  // since the last commit, without the one that is being read
};

}  // namespace vantro
