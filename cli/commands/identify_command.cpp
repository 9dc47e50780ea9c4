#include "cli/classes/identify.h"
#include "cli/commands/commands.h"
#include "cli/commands/results_view.h"
#include "cli/commands/table.h"
#include "cli/io/failure.h"
#include "cli/io/file_list.h"
#include "cli/io/input_files.h"
#include "cli/io/screen_input.h"
#include "cli/io/screen_warnings.h"
#include "cli/io/standard_io.h"
#include "cli/io/utf.h"
#include "cli/io/warnings.h"
#include "cli/json/output.h"

#include <optional>

namespace vantro {

namespace {

using Candidates = std::vector<Candidate>;

std::string lineNumber(const Reason& reason) { return std::to_string(reason.line + 1); }

std::string asJson(const std::string& file, const Candidates& candidates) {
    std::string json;
    JsonOut out(json);
    out.beginObject();
    out.key("source");
    out.text(toUtf16(file));
    out.key("candidates");
    out.beginArray();
    for (const Candidate& candidate : candidates) {
        out.beginObject();
        out.key("class");
        out.text(candidate.row->name);
        out.key("reasons");
        out.beginArray();
        for (const Reason& reason : candidate.reasons) {
            out.beginObject();
            out.key("line");
            out.number(static_cast<int>(reason.line + 1));
            out.key("mark");
            out.text(reason.mark);
            out.key("meaning");
            out.text(toUtf16(reason.meaning));
            if (!reason.flag.empty()) {
                out.key("flag");
                out.text(reason.flag);
            }
            out.endObject();
        }
        out.endArray();
        out.endObject();
    }
    out.endArray();
    out.endObject();
    return json + "\n";
}

// The one screen: a row per reason.
std::string reasonTable(const Candidates& candidates) {
    Table table({"CLASS", "LINE", "MARK", "MEANING"});
    for (const Candidate& candidate : candidates) {
        for (const Reason& reason : candidate.reasons) {
            table.add({toUtf8(candidate.row->name), lineNumber(reason), toUtf8(reason.mark), reason.meaning});
        }
    }
    return table.text(outputLook());
}

// A screen among many: the best candidate, and the names of the others.
Table::Row screenRow(const std::string& file, const Candidates& candidates) {
    if (candidates.empty()) return {file, "-", "", "", "", ""};
    const Reason& reason = candidates.front().decisive();
    std::string others;
    for (std::size_t i = 1; i < candidates.size(); ++i) {
        others += (others.empty() ? "" : ", ") + toUtf8(candidates[i].row->name);
    }
    return {file,  toUtf8(candidates.front().row->name), lineNumber(reason), toUtf8(reason.mark), reason.meaning,
            others};
}

class Identification {
public:
    explicit Identification(const IdentifyOptions& options)
        : options_(options), view_(chosenView(options.table, options.json)), warnings_(options.quiet) {}

    int run() {
        std::vector<std::string> files = withFilesOfFolders(options_.files);
        if (files.empty()) files.emplace_back("-");
        const bool isOne = files.size() == 1;
        for (const std::string& file : files) {
            if (const auto candidates = identifyIn(file)) print(file, *candidates, isOne);
        }
        if (view_ == View::Table && !isOne) writeOutput(screens_.text(outputLook()));
        return warnings_.statusAfter(status_, options_.strict);
    }

private:
    // A file that cannot be read is told; the others are identified all the same.
    std::optional<Candidates> identifyIn(const std::string& file) {
        try {
            const Text screen = readScreen(file);
            for (const std::string& warning : screenWarnings(screen)) warnings_.add(inputName(file) + ": " + warning);
            return identify(screen);
        } catch (const UsageError& problem) {
            complain(problem.what());
            status_ = badUsage;
            return std::nullopt;
        }
    }

    Text readScreen(const std::string& file) const {
        if (isStandardInput(file) && inputIsTerminal()) {
            complain("reading the screen from standard input; end it with the end-of-file key");
        }
        const std::string bytes = readAll(file, options_.maxLine, options_.encoding);
        try {
            return screenFromText(bytes);
        } catch (const UsageError& problem) {
            throw UsageError(inputName(file) + ": " + problem.what());
        }
    }

    void print(const std::string& file, const Candidates& candidates, bool isOne) {
        const std::string name = inputName(file);
        if (candidates.empty()) {
            complain(name + ": no mark of any class is on the screen; 'vantro-profile describe CLASS' lists the marks");
            if (status_ == success) status_ = screenNotRecognised;
        }
        if (view_ == View::Json) {
            writeOutput(asJson(name, candidates));
        } else if (isOne) {
            if (!candidates.empty()) writeOutput(reasonTable(candidates));
        } else {
            screens_.add(screenRow(name, candidates));
        }
    }

    const IdentifyOptions& options_;
    View view_;
    Warnings warnings_;
    Table screens_{{"FILE", "CLASS", "LINE", "MARK", "MEANING", "OTHERS"}};
    int status_ = success;
};

}  // namespace

int runIdentify(const IdentifyOptions& options) { return Identification(options).run(); }

}  // namespace vantro
