#include "cli/batch/backend.h"
#include "cli/batch/line_reader.h"
#include "cli/batch/request.h"
#include "cli/batch/response.h"
#include "cli/batch/session.h"
#include "cli/commands/commands.h"
#include "cli/io/failure.h"
#include "cli/io/max_line.h"
#include "cli/io/standard_io.h"
#ifdef VANTRO_WITH_COM
#include "cli/batch/com_backend.h"
#endif

#include <CLI/CLI.hpp>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace vantro {

namespace {

constexpr std::size_t fullOutput = std::size_t{64} * 1024;

// Which lines were no requests, for the last word on standard error.
struct BadLines {
    std::size_t lines = 0;
    std::size_t bad = 0;
    std::size_t firstBad = 0;

    void count(bool isBad) {
        ++lines;
        if (!isBad) return;
        ++bad;
        if (firstBad == 0) firstBad = lines;
    }

    std::string text() const {
        return std::to_string(bad) + " of " + std::to_string(lines) + " lines are not requests, the first is line " +
               std::to_string(firstBad) + "; their responses say why";
    }
};

/// Responses that are still to be written, each a record.
class Responses {
public:
    std::string& text() { return text_; }
    void endOne() { ends_.push_back(text_.size()); }
    bool areMany() const { return text_.size() >= fullOutput; }

    void write() {
        writeRecords(text_, ends_);
        text_.clear();
        ends_.clear();
    }

private:
    std::string text_;
    std::vector<std::size_t> ends_;
};

class Batch {
public:
    Batch(Backend& backend, std::size_t maxLine) : maxLine_(maxLine), lines_(readInput, maxLine), session_(backend) {}

    int run() {
        while (const auto line = lines_.next()) {
            badLines_.count(!answer(*line));
            responses_.endOne();
            // Someone who waits for the answer before the next request must get it.
            if (responses_.areMany() || !lines_.isNextHere()) responses_.write();
        }
        if (badLines_.bad == 0) return success;
        complain(badLines_.text());
        return callFailed;
    }

private:
    /// False when the line is no request.
    bool answer(std::span<char> line) {
        std::string& out = responses_.text();
        if (lines_.wasTooLong()) {
            appendBadRequest(overLongLine(badLines_.lines + 1, maxLine_), nullptr, out);
            return false;
        }
        reader_.read(line);
        if (reader_.problem().empty()) {
            appendResponse(reader_.request(), session_.call(reader_.request()), reader_.id(), out);
            return true;
        }
        appendBadRequest(reader_.problem(), reader_.id(), out);
        return false;
    }

    std::size_t maxLine_;
    LineReader lines_;
    RequestReader reader_;
    Session session_;
    BadLines badLines_;
    Responses responses_;
};

int runLinked(std::size_t maxLine) {
    LinkedBackend backend;
    return Batch(backend, maxLine).run();
}

#ifdef VANTRO_WITH_COM
int runRegistered(std::size_t maxLine) {
    ComBackend backend;
    return Batch(backend, maxLine).run();
}
#endif

}  // namespace

void addBatchCommand(CLI::App& tool, int& status) {
    CLI::App& command = *tool.add_subcommand("batch", "Answer requests, one JSON object a line, from standard input");
    const auto maxLine = std::make_shared<std::size_t>(defaultMaxLine);
    addMaxLine(command, *maxLine);
    command.footer(
        "Every line gets one response line; a line that is no request, or is longer than --max-line, gets an error,\n"
        "and the next one is read. An interrupt lets the response that is being written go out whole.\n"
        "Exit status: 0 when every line was a request, whatever it came to, 1 when one was not, 2 for bad usage.\n"
        "\n"
        "Example:\n"
        "  echo '{\"class\":\"CPDNTrans\",\"call\":\"CreateCommand\",\"params\":{\"strKeyName\":\"SMITH\"}}' |\n"
        "      vantro-profile batch");
#ifdef VANTRO_WITH_COM
    const CLI::Option& registered =
        *command.add_flag("--com")->description("Call the registered COM server instead of the linked library");
    command.callback([&status, &registered, maxLine] {
        status = registered.empty() ? runLinked(*maxLine) : runRegistered(*maxLine);
    });
#else
    command.callback([&status, maxLine] { status = runLinked(*maxLine); });
#endif
}

}  // namespace vantro
