#include "cli/commands/commands.h"
#include "cli/commands/display_warnings.h"
#include "cli/commands/parsed_chunk.h"
#include "cli/commands/results_view.h"
#include "cli/io/displays.h"
#include "cli/io/failure.h"
#include "cli/io/file_list.h"
#include "cli/io/input_files.h"
#include "cli/io/ordered_work.h"
#include "cli/io/progress.h"
#include "cli/io/standard_io.h"
#include "cli/io/warnings.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace vantro {

namespace {

ProfileForm formFor(const ParseOptions& options) {
    if (options.pretty) return ProfileForm::IndentedJson;
    return chosenView(options.table, options.json) == View::Table ? ProfileForm::Table : ProfileForm::JsonLine;
}

/// A chunk of one of the files, or the end of the file.
struct Step {
    ParsedChunk parsed;
    std::uint64_t bytes = 0;
    bool endsFile = false;
    std::string failure;  // why the file ends early
};

/// Prints the results of the files, in their order, reports the problems and determines the exit status.
class Printer {
public:
    Printer(const ParseOptions& options, ProfileForm form)
        : options_(options),
          form_(form),
          progress_(lengthInAll(options.files), errorIsTerminal() ? writeError : Progress::Write{}),
          warnings_(options.quiet) {}

    void take(const Step& step) {
        print(step.parsed);
        for (const ParsedDisplay& display : step.parsed.displays) complainOf(display);
        lines_ += step.parsed.lines;
        if (step.endsFile) endFile(step.failure);
        progress_.step(step.bytes, step.parsed.displays.size());
    }

    int status() const { return warnings_.statusAfter(status_, options_.strict); }

private:
    std::string name() const { return inputName(options_.files[file_]); }

    void print(const ParsedChunk& parsed) {
        if (parsed.out.empty()) return;
        if (outputIsTerminal()) progress_.hide();
        std::string headed;
        std::vector<std::size_t> ends;
        std::size_t start = 0;
        std::size_t number = displays_;
        for (const ParsedDisplay& display : parsed.displays) {
            ++number;
            if (form_ == ProfileForm::Table && display.outEnd > start) {
                headed += name() + ", display " + std::to_string(number) + "\n\n";
                headed += parsed.out.substr(start, display.outEnd - start) + "\n";
            }
            start = display.outEnd;
            ends.push_back(form_ == ProfileForm::Table ? headed.size() : start);
        }
        writeRecords(form_ == ProfileForm::Table ? headed : parsed.out, ends);
    }

    void complainOf(const ParsedDisplay& display) {
        const std::string where = ", display " + std::to_string(++displays_) + ": ";
        if (display.faulty.fault != LineFault::None) {
            const std::string what = describe(display.faulty, lines_, options_.maxLine);
            fail(where + asSentence(what) + " The display is left out, the others are not.");
            displayWarnings_.skip();
            return;
        }
        const std::string refusal = displayWarnings_.refusal(display.doubts, lines_);
        if (display.unanswered.empty() || refusal.empty()) {
            displayWarnings_.add(display.doubts, name() + where, lines_);
        } else {
            displayWarnings_.skip();
        }
        if (!display.unanswered.empty()) {
            fail(where + (refusal.empty() ? "no answer to " + display.unanswered : refusal));
        }
    }

    void endFile(const std::string& failure) {
        if (!failure.empty()) {
            progress_.hide();
            complain(failure);
            status_ = badUsage;
        } else if (displays_ == 0) {
            fail(" contains no display");
        }
        displayWarnings_.endFile(name());
        ++file_;
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
    Warnings warnings_;
    DisplayWarnings displayWarnings_{[this](const std::string& what) {
        progress_.hide();
        warnings_.add(what);
    }};
    std::size_t file_ = 0;
    std::size_t displays_ = 0;  // of this file
    std::size_t lines_ = 0;     // of this file
    int status_ = success;
};

/// A chunk of one of the files as it was read, or the end of the file.
struct Piece {
    std::string text;
    std::uint64_t bytesRead = 0;  // of the file, which may be compressed
    bool endsFile = false;
    std::string failure;  // why the file ends early
};

/// Reads the files one after the other, piece by piece.
class PieceReader {
public:
    explicit PieceReader(const ParseOptions& options)
        : files_(options.files),
          encoding_(options.encoding),
          maxLine_(options.maxLine),
          splitting_(options.splitting) {}

    std::optional<Piece> next() {
        if (file_ == files_.size()) return std::nullopt;
        Piece piece;
        // A file that cannot be read does not stop the others.
        try {
            if (!chunks_) chunks_.emplace(openFile(), ChunkReader::defaultBlock, maxLine_, splitting_);
            if (std::optional<std::string> chunk = chunks_->next()) {
                piece.text = std::move(*chunk);
                piece.bytesRead = std::exchange(bytesRead_, 0);
                return piece;
            }
        } catch (const std::runtime_error& problem) {
            piece.failure = problem.what();
        }
        piece.endsFile = true;
        chunks_.reset();
        ++file_;
        return piece;
    }

private:
    ByteSource openFile() { return openInput(files_[file_], encoding_, &bytesRead_); }

    const std::vector<std::string>& files_;
    Encoding encoding_;
    std::size_t maxLine_;
    Splitting splitting_;
    std::uint64_t bytesRead_ = 0;  // since the last piece
    std::size_t file_ = 0;
    std::optional<ChunkReader> chunks_;
};

Step stepOf(const Piece& piece, const ParseOptions& options, ProfileForm form) {
    if (piece.endsFile) return {.parsed = {}, .endsFile = true, .failure = piece.failure};
    const bool usesWarnings = !options.quiet || options.strict;
    return {.parsed = parseChunk(piece.text, options.splitting, form, usesWarnings),
            .bytes = piece.bytesRead,
            .failure = {}};
}

/// The files that are parsed: those of the lists follow the others.
std::vector<std::string> filesOf(const ParseOptions& options) {
    std::vector<std::string> files = options.files;
    for (const std::string& list : options.fileLists) {
        for (std::string& name : namesInList(readAll(list, options.maxLine), options.zeroSeparated)) {
            files.push_back(std::move(name));
        }
    }
    if (files.empty() && options.fileLists.empty()) files.emplace_back("-");
    return withFilesOfFolders(files);
}

}  // namespace

int runParse(ParseOptions options) {
    options.files = filesOf(options);
    const auto standardInputs = std::ranges::count_if(options.files, isStandardInput);
    if (standardInputs > 1) throw UsageError("standard input can be read once only; name it once");
    if (standardInputs == 1 && inputIsTerminal()) {
        complain("reading displays from standard input; end them with the end-of-file key");
    }
    const ProfileForm form = formFor(options);
    Printer printer(options, form);
    PieceReader pieces(options);
    workInOrder(
        options.threads, [&pieces] { return pieces.next(); },
        [&options, form](const Piece& piece) { return stepOf(piece, options, form); },
        [&printer](const Step& step) { printer.take(step); });
    return printer.status();
}

}  // namespace vantro
