#include "cli/commands/commands.h"
#include "cli/commands/parse_pieces.h"
#include "cli/export/archive.h"
#include "cli/export/checker.h"
#include "cli/export/exporter.h"
#include "cli/export/plan.h"
#include "cli/export/profile_rows.h"
#include "cli/io/encoding.h"
#include "cli/io/failure.h"
#include "cli/io/input_files.h"
#include "cli/io/ordered_work.h"
#include "cli/io/progress.h"
#include "cli/io/standard_io.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace vantro {

namespace {

/// What changes the displays that are found in a file, as it is written on the command line.
std::string settingsOf(const ParseOptions& input) {
    std::string settings;
    const auto add = [&settings](const std::string& word) { settings += (settings.empty() ? "" : " ") + word; };
    if (input.encoding != Encoding::ByMark) add(std::string("--encoding ").append(nameOf(input.encoding)));
    if (input.maxLine != defaultMaxLine) add("--max-line " + std::to_string(input.maxLine));
    if (input.splitting.pages) add("--pages");
    if (!input.splitting.separator.empty()) add("--separator '" + input.splitting.separator + "'");
    if (input.splitting.isLenient) add("--lenient");
    return settings;
}

/// "2026-11-23T08:15:00Z"
std::string utcNow() {
    using namespace std::chrono;
    const auto now = floor<seconds>(system_clock::now());
    const auto day = floor<days>(now);
    const year_month_day date(day);
    const hh_mm_ss time(now - day);
    const auto two = [](auto number) {
        const std::string digits = std::to_string(number);
        return digits.size() < 2 ? "0" + digits : digits;
    };
    return std::to_string(static_cast<int>(date.year())) + "-" + two(static_cast<unsigned>(date.month())) + "-" +
           two(static_cast<unsigned>(date.day())) + "T" + two(time.hours().count()) + ":" +
           two(time.minutes().count()) + ":" + two(time.seconds().count()) + "Z";
}

/// "1 display", "2 displays"
std::string counted(std::size_t count, const std::string& one) {
    return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

/// A piece of one of the files as rows, or the end of the file.
struct Step {
    PieceRows rows;
    std::uint64_t bytes = 0;
    bool endsFile = false;
    std::string failure;
};

/// Passes the pieces of the files on, and tells the user how far that is.
class Files {
public:
    Files(const ParseOptions& input, PieceSink& sink)
        : files_(input.files),
          sink_(sink),
          progress_(lengthInAll(files_), errorIsTerminal() && !input.quiet ? writeError : Progress::Write{}) {}

    void take(const Step& step) {
        if (!std::exchange(isInFile_, true)) sink_.beginSource(files_[file_]);
        if (step.endsFile) {
            end(step.failure);
        } else {
            displays_ += step.rows.displays.size();
            sink_.take(step.rows);
        }
        progress_.step(step.bytes, step.rows.displays.size());
    }

    int status() const { return status_; }

private:
    void end(const std::string& failure) {
        sink_.endSource(failure);
        if (!failure.empty()) fail(failure, badUsage);
        if (failure.empty() && displays_ == 0) fail(inputName(files_[file_]) + " contains no display", callFailed);
        isInFile_ = false;
        displays_ = 0;
        ++file_;
    }

    void fail(const std::string& what, int status) {
        progress_.hide();
        complain(what);
        status_ = std::max(status_, status);
    }

    const std::vector<std::string>& files_;
    PieceSink& sink_;
    Progress progress_;
    std::size_t file_ = 0;
    std::size_t displays_ = 0;  // in this file
    bool isInFile_ = false;
    int status_ = success;
};

Step stepOf(const Piece& piece, const Splitting& splitting) {
    if (piece.endsFile) return {.rows = {}, .endsFile = true, .failure = piece.failure};
    return {.rows = rowsOf(piece.text, splitting), .bytes = piece.bytesRead, .failure = {}};
}

/// Reads all files. Returns the exit status.
int readSources(const ParseOptions& input, PieceSink& sink) {
    Files files(input, sink);
    PieceReader pieces(input);
    workInOrder(
        input.threads, [&pieces] { return pieces.next(); },
        [&input](const Piece& piece) { return stepOf(piece, input.splitting); },
        [&files](const Step& step) { files.take(step); });
    return files.status();
}

std::string totalsOf(const RunState& run) {
    return counted(run.displays, "display") + ": " + counted(run.displays - run.failed, "profile") + " with " +
           counted(run.rows.at(indexOf(ExportTable::Elements)), "element") + " and " +
           counted(run.rows.at(indexOf(ExportTable::Notes)), "note") + "; " + std::to_string(run.failed) +
           " could not be read, and " + counted(run.rows.at(indexOf(ExportTable::Problems)), "row") + " of problems";
}

int exportTo(ExportOptions& options) {
    const std::unique_ptr<ArchiveWriter> archive = openForWriting(options.target, settingsOf(options.input));
    const ExportPlan plan = planExport(archive->state(), options.input.files);
    for (const std::string& fault : plan.faults) complain(fault);
    const int planStatus = plan.faults.empty() ? success : badUsage;
    const auto say = [&options](const std::string& what) {
        if (!options.input.quiet) complain(what);
    };
    if (plan.alreadyDone > 0) say(counted(plan.alreadyDone, "file") + " exported before, not read again");
    if (plan.files.empty() && archive->state().isFinished()) return planStatus;
    if (!plan.continued.empty()) say("continuing in " + inputName(plan.continued));

    options.input.files = plan.files;
    const std::size_t runs = archive->state().runs.size();
    Exporter exporter(*archive, {.run = runs + 1, .started = utcNow(), .version = VANTRO_VERSION},
                      options.input.maxLine);
    const int status = std::max(planStatus, readSources(options.input, exporter));
    // For millions of displays that takes minutes.
    if (isDatabase(options.target)) say("all files are read; making the indexes and the search");
    const RunState& run = exporter.finish(utcNow());
    say(totalsOf(run));
    return std::max(status, run.rows.at(indexOf(ExportTable::Problems)) > 0 ? callFailed : success);
}

std::string totalsOf(const CheckCounts& counts) {
    const std::string compared =
        counted(counts.displays, "display") + " and " + counted(counts.rows, "row") + " compared: ";
    if (counts.isEqual()) return compared + "the tables contain what the files contain";
    return compared + counted(counts.missing, "row") + " missing, " + std::to_string(counts.extra) + " extra, " +
           std::to_string(counts.different) + " different, " + counted(counts.sources, "file") +
           " not exported to the end";
}

int checkAgainst(ExportOptions& options) {
    const std::unique_ptr<ArchiveReader> archive = openForReading(options.target, settingsOf(options.input));
    ExportPlan plan = planCheck(archive->state(), options.input.files);
    const auto report = [](const std::string& difference) { writeOutput(difference + "\n"); };
    for (const std::string& fault : plan.faults) report(fault);
    const std::size_t others = archive->state().sources.size() - plan.files.size();
    options.input.files = std::move(plan.files);
    Checker checker(*archive, options.input.maxLine, report);
    readSources(options.input, checker);  // a file that ends early is a difference unless it did so before
    CheckCounts counts = checker.finish();
    counts.sources += plan.faults.size();
    if (!options.input.quiet) {
        complain(totalsOf(counts));
        if (others > 0) complain(counted(others, "exported file") + " not named, not compared");
    }
    return counts.isEqual() ? success : callFailed;
}

}  // namespace

int runExport(ExportOptions options) {
    if (options.target.empty()) throw UsageError("--to needs the name of a folder or database");
    options.input.files = sourcesFor(options.target, inputFilesOf(options.input));
    return options.check ? checkAgainst(options) : exportTo(options);
}

}  // namespace vantro
