#include "cli/batch/backend.h"
#include "cli/batch/line_reader.h"
#include "cli/batch/request.h"
#include "cli/batch/response.h"
#include "cli/batch/session.h"
#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/standard_io.h"
#ifdef VANTRO_WITH_COM
#include "cli/batch/com_backend.h"
#endif

#include <CLI/CLI.hpp>
#include <cstddef>
#include <string>

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

int runBatch(Backend& backend) {
    LineReader lines(readInput);
    RequestReader reader;
    Session session(backend);
    BadLines badLines;
    std::string out;
    while (const auto line = lines.next()) {
        reader.read(*line);
        const bool isBad = !reader.problem().empty();
        badLines.count(isBad);
        if (isBad) {
            appendBadRequest(reader.problem(), reader.id(), out);
        } else {
            appendResponse(reader.request(), session.call(reader.request()), reader.id(), out);
        }
        // Someone who waits for the answer before the next request must get it.
        if (out.size() >= fullOutput || !lines.isNextHere()) {
            writeOutput(out);
            out.clear();
        }
    }
    if (badLines.bad == 0) return success;
    complain(badLines.text());
    return callFailed;
}

int runLinked() {
    LinkedBackend backend;
    return runBatch(backend);
}

#ifdef VANTRO_WITH_COM
int runRegistered() {
    ComBackend backend;
    return runBatch(backend);
}
#endif

}  // namespace

void addBatchCommand(CLI::App& tool, int& status) {
    CLI::App& command = *tool.add_subcommand("batch", "Answer requests, one JSON object a line, from standard input");
    command.footer(
        "Every line gets one response line; a line that is no request gets an error, and the next one is read.\n"
        "Exit status: 0 when every line was a request, whatever it came to, 1 when one was not, 2 for bad usage.\n"
        "\n"
        "Example:\n"
        "  echo '{\"class\":\"CPDNTrans\",\"call\":\"CreateCommand\",\"params\":{\"strKeyName\":\"SMITH\"}}' |\n"
        "      vantro-profile batch");
#ifdef VANTRO_WITH_COM
    const CLI::Option& registered =
        *command.add_flag("--com")->description("Call the registered COM server instead of the linked library");
    command.callback([&status, &registered] { status = registered.empty() ? runLinked() : runRegistered(); });
#else
    command.callback([&status] { status = runLinked(); });
#endif
}

}  // namespace vantro
