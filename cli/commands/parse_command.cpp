#include "cli/commands/chosen_queries.h"
#include "cli/commands/commands.h"
#include "cli/commands/display_warnings.h"
#include "cli/commands/id_pattern.h"
#include "cli/commands/parse_pieces.h"
#include "cli/commands/parsed_chunk.h"
#include "cli/commands/profile_csv.h"
#include "cli/commands/record_writer.h"
#include "cli/commands/results_view.h"
#include "cli/io/failure.h"
#include "cli/io/input_files.h"
#include "cli/io/ordered_work.h"
#include "cli/io/progress.h"
#include "cli/io/standard_io.h"
#include "cli/io/warnings.h"
#include "cli/json/input.h"
#include "cli/json/line_name.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace vantro {

namespace {

ProfileForm formFor(const ParseOptions& options) {
    if (options.pretty) return ProfileForm::IndentedJson;
    if (options.csv) return ProfileForm::Csv;
    if (options.compact || options.id || options.positions) return ProfileForm::JsonLine;
    return chosenView(options.table, options.json) == View::Table ? ProfileForm::Table : ProfileForm::JsonLine;
}

ProfileView viewFor(const ParseOptions& options) {
    return {.form = formFor(options),
            .members = {.queries = chosenQueries(options.only), .isCompact = options.compact},
            .needsLocator = options.id.has_value(),
            .findsUnread = !options.quiet || options.strict,
            .addsPositions = options.positions};
}

/// A piece of one of the files, parsed, or the end of the file.
struct Step {
    ParsedChunk parsed;
    std::uint64_t bytes = 0;
    bool endsFile = false;
    std::string failure;  // why the file ends early
};

/// What a run has read.
struct Totals {
    std::size_t files = 0;
    std::size_t unreadFiles = 0;
    std::size_t profiles = 0;
    std::size_t unreadDisplays = 0;
    std::size_t unanswered = 0;

    /// False if one display was read: everything is said of it.
    bool areWorthALine() const { return files > 1 || profiles + unreadDisplays > 1; }

    std::string text() const {
        std::string line;
        const auto add = [&line](std::size_t count, const std::string& one, const std::string& many) {
            if (!line.empty()) line += ", ";
            line += std::to_string(count) + " " + (count == 1 ? one : many);
        };
        if (files > 1) add(files, "file", "files");
        add(profiles, "profile", "profiles");
        if (unreadFiles > 0) add(unreadFiles, "file could not be read", "files could not be read");
        if (unreadDisplays > 0) add(unreadDisplays, "display could not be read", "displays could not be read");
        if (unanswered > 0) add(unanswered, "query without an answer", "queries without an answer");
        return line;
    }
};

/// Prints the results of the files, in their order, reports the problems and determines the exit status.
class Printer {
public:
    Printer(const ParseOptions& options, ProfileForm form)
        : options_(options),
          form_(form),
          progress_(lengthInAll(options.files), errorIsTerminal() && !options.quiet ? writeError : Progress::Write{}),
          records_(form, options.id ? std::optional<IdPattern>(*options.id) : std::nullopt),
          warnings_(options.quiet) {
        beginFile();
        if (form_ == ProfileForm::Csv) out_ = csvHeader();
    }

    void take(const Step& step) {
        print(step.parsed);
        for (const ParsedDisplay& display : step.parsed.displays) complainOf(display);
        lines_ += step.parsed.lines;
        if (step.endsFile) endFile(step.failure);
        progress_.step(step.bytes, step.parsed.displays.size());
    }

    /// Prints the totals and returns the exit status.
    int end() {
        progress_.hide();
        writeOutput(out_);  // the names of the columns, if there is no row
        if (totals_.areWorthALine() && !options_.quiet) complain(totals_.text());
        return warnings_.statusAfter(status_, options_.strict);
    }

private:
    std::string name() const { return inputName(options_.files[file_]); }

    void print(const ParsedChunk& parsed) {
        std::size_t start = 0;
        std::size_t number = displays_;
        for (const ParsedDisplay& display : parsed.displays) {
            append(display, ++number, std::string_view(parsed.out).substr(start, display.outEnd - start));
            start = display.outEnd;
            ends_.push_back(out_.size());
        }
        if (!ends_.empty() && !out_.empty()) {
            if (outputIsTerminal()) progress_.hide();
            writeRecords(out_, ends_);
            out_.clear();
        }
        ends_.clear();
    }

    void append(const ParsedDisplay& display, std::size_t number, std::string_view body) {
        const std::string problem = problemOf(display);
        if (form_ == ProfileForm::Table) {
            if (problem.empty()) out_.append(headingOf(number)).append(body) += '\n';
        } else if (problem.empty()) {
            records_.append(display, number, lines_ + display.line, body, out_);
        } else {
            records_.appendError(display, number, lines_ + display.line, problem, out_);
        }
    }

    std::string headingOf(std::size_t number) const { return name() + ", display " + std::to_string(number) + "\n\n"; }

    /// Why the display could not be read, or "".
    std::string problemOf(const ParsedDisplay& display) const {
        if (display.faulty.fault == LineFault::None) return display.problem;
        return describe(display.faulty, lines_, options_.maxLine);
    }

    void complainOf(const ParsedDisplay& display) {
        const std::string unit = options_.areRecords ? ", line " : ", display ";
        const std::string where = unit + std::to_string(++displays_) + ": ";
        if (const std::string problem = problemOf(display); !problem.empty()) {
            ++totals_.unreadDisplays;
            fail(where + asSentence(problem) + " The other displays are not affected.");
            displayWarnings_.skip();
            return;
        }
        ++totals_.profiles;
        totals_.unanswered += display.unansweredCount;
        const std::string refusal = options_.areRecords ? "" : refusalOf(display, where);
        if (!display.controls.empty()) warnAboutRecord(display);
        if (!display.unanswered.empty()) {
            fail(where + (refusal.empty() ? "no answer to " + display.unanswered : refusal));
        }
    }

    void warnAboutRecord(const ParsedDisplay& display) {
        const std::string* const id = display.id.empty() ? nullptr : &display.id;
        displayWarnings_.addRecord(display.controls, name() + ", " + lineName(displays_, id) + ": ");
    }

    /// Warns of what is doubtful about a display. Returns what is to be said of its unanswered queries, or "" for those
    /// of a profile display.
    std::string refusalOf(const ParsedDisplay& display, const std::string& where) {
        std::string refusal = displayWarnings_.refusal(display.doubts, lines_);
        if (display.unanswered.empty() || refusal.empty()) {
            displayWarnings_.add(display.doubts, name() + where, lines_);
        } else {
            displayWarnings_.skip();
        }
        return refusal;
    }

    void beginFile() {
        if (file_ < options_.files.size()) records_.setFile(options_.files[file_]);
    }

    void endFile(const std::string& failure) {
        ++totals_.files;
        if (!failure.empty()) {
            progress_.hide();
            complain(failure);
            ++totals_.unreadFiles;
            status_ = badUsage;
        } else if (displays_ == 0) {
            fail(" contains no display");
        }
        displayWarnings_.endFile(name());
        ++file_;
        beginFile();
        displays_ = 0;
        lines_ = 0;
    }

    void fail(const std::string& what) {
        progress_.hide();
        complain(name() + what);
        status_ = std::max(status_, callFailed);
    }

    const ParseOptions& options_;
    ProfileForm form_;
    Progress progress_;
    RecordWriter records_;
    std::string out_;                // not written yet
    std::vector<std::size_t> ends_;  // of the records in it
    Warnings warnings_;
    DisplayWarnings displayWarnings_{[this](const std::string& what) {
        progress_.hide();
        warnings_.add(what);
    }};
    std::size_t file_ = 0;
    std::size_t displays_ = 0;  // of this file
    std::size_t lines_ = 0;     // of this file
    Totals totals_;
    int status_ = success;
};

ParsedChunk parsedFrom(Piece& piece, const ParseOptions& options, const ProfileView& view) {
    if (!options.areRecords) return parseChunk(piece.text, options.splitting, view);
    return parseRecords(std::span(piece.text).first(piece.text.size() - jsonPadding), piece.tooLong, view);
}

Step stepOf(Piece piece, const ParseOptions& options, const ProfileView& view) {
    if (piece.endsFile) return {.parsed = {}, .endsFile = true, .failure = piece.failure};
    return {.parsed = parsedFrom(piece, options, view), .bytes = piece.bytesRead, .failure = {}};
}

}  // namespace

int runParse(ParseOptions options) {
    options.files = inputFilesOf(options);
    const ProfileView view = viewFor(options);
    Printer printer(options, view.form);
    PieceReader pieces(options);
    workInOrder(
        options.threads, [&pieces] { return pieces.next(); },
        [&](Piece piece) { return stepOf(std::move(piece), options, view); },
        [&printer](const Step& step) { printer.take(step); });
    return printer.end();
}

}  // namespace vantro
