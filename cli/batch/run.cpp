#include "cli/batch/run.h"

#include "cli/batch/key_warnings.h"
#include "cli/batch/line_reader.h"
#include "cli/batch/request.h"
#include "cli/batch/response.h"
#include "cli/classes/screen_marks.h"
#include "cli/classes/trans_class.h"
#include "cli/io/failure.h"
#include "cli/io/screen_warnings.h"
#include "cli/io/standard_io.h"
#include "cli/io/utf.h"
#include "cli/io/warnings.h"
#include "cli/json/line_name.h"

#include <cstring>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace vantro {

namespace {

constexpr std::size_t fullOutput = std::size_t{64} * 1024;

// Counts the lines that are no requests, for the message at the end.
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

/// Responses that have not been written yet, each of them a record.
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
    Batch(Backend& backend, const BatchOptions& options)
        : options_(options), lines_(readInput, options.maxLine), session_(backend), warnings_(options.quiet) {}

    int run() {
        while (const auto line = lines_.next()) {
            badLines_.count(!answer(*line));
            responses_.endOne();
            // A client may wait for this response before it sends the next request.
            if (responses_.areMany() || !lines_.isNextHere()) responses_.write();
        }
        if (badLines_.bad == 0) return warnings_.statusAfter(success, options_.strict);
        complain(badLines_.text());
        return callFailed;
    }

private:
    /// False when the line is no request.
    bool answer(std::span<char> line) {
        std::string& out = responses_.text();
        if (lines_.wasTooLong()) {
            appendBadRequest(overLongLine(badLines_.lines + 1, options_.maxLine), nullptr, out);
            return false;
        }
        const bool hasEscape = std::memchr(line.data(), '\\', line.size()) != nullptr;
        reader_.read(line);
        if (reader_.problem().empty()) {
            if (hasEscape) warnAboutCharacters();  // in JSON, line ends and tabs are escaped
            const Reply& reply = session_.call(reader_.request());
            for (const std::string& warning : keyWarnings(reader_.request(), reply)) warn(warning);
            if (options_.strict) warnAboutScreen(reply);  // takes 8 % of the time of a run
            appendResponse(reader_.request(), reply, reader_.id(), out);
            return true;
        }
        if (!reader_.unknownClass().empty()) warn(unknownClass(shortened(toUtf8(reader_.unknownClass()))));
        appendBadRequest(reader_.problem(), reader_.id(), out);
        return false;
    }

    void warnAboutCharacters() {
        for (const std::string& warning : screenWarnings(reader_.request().screen)) warn(warning);
    }

    void warnAboutScreen(const Reply& reply) {
        const Request& request = reader_.request();
        if (request.call != Call::VerifyResponse || reply.error) return;
        if (isRecognised(*request.row, request.screen, std::get<CollectionPtr>(reply.result))) return;
        if (showsList(*request.row, request.screen, request.params)) return;
        warn(notRecognised(*request.row, request.screen));
    }

    void warn(const std::string& about) { warnings_.add(lineName(badLines_.lines + 1, reader_.id()) + ": " + about); }

    BatchOptions options_;
    LineReader lines_;
    RequestReader reader_;
    Session session_;
    BadLines badLines_;
    Responses responses_;
    Warnings warnings_;
};

}  // namespace

int answerRequests(Backend& backend, const BatchOptions& options) { return Batch(backend, options).run(); }

}  // namespace vantro
