#include "cli/commands/commands.h"
#include "cli/io/failure.h"
#include "cli/io/output_file.h"
#include "cli/io/standard_io.h"
#include "cli/io/utf.h"
#include "cli/io/warnings.h"
#include "cli/replay/recorder.h"

#include <string_view>

namespace vantro {

namespace {

std::string readInput(const RecordOptions& options) {
    if (isStandardInput(options.file) && inputIsTerminal()) {
        complain("reading the log from standard input; end it with the end-of-file key");
    }
    std::string text = readAll(options.file, options.maxLine, options.encoding);
    if (isUtf8(text)) return text;
    throw UsageError(inputName(options.file) +
                     " is not UTF-8; name its encoding with --encoding, for example windows-1252");
}

bool isJson(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \r\n");
    return first != std::string_view::npos && text[first] == '{';
}

}  // namespace

int runRecord(const RecordOptions& options) {
    if (!options.output.empty() && !options.force && isFile(options.output)) {
        throw UsageError("the file '" + options.output + "' exists; --force overwrites it");
    }
    const std::string text = readInput(options);
    Warnings warnings(options.quiet);
    const Recording recording = record(isJson(text) ? stepsOfJsonLines(text) : stepsOfLog(text), warnings);
    options.output.empty() ? writeOutput(recording.text) : writeFile(options.output, recording.text);
    if (recording.steps > 0) return warnings.statusAfter(success, options.strict);
    complain("no step was recorded; " + inputName(options.file) + " has neither commands nor screens of the host");
    return callFailed;
}

}  // namespace vantro
