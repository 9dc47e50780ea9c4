#include "cli/export/journal.h"

#include "cli/io/csv.h"
#include "cli/io/csv_reader.h"
#include "cli/io/failure.h"
#include "cli/io/output_file.h"
#include "cli/io/path.h"

#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

namespace vantro {

namespace {

namespace fs = std::filesystem;

// Each record begins with its kind. Sources and runs count from the next commit on; what follows the last commit was
// interrupted and does not count.
constexpr std::string_view beginning = "export";
constexpr std::string_view source = "source";
constexpr std::string_view run = "run";
constexpr std::string_view committed = "commit";

void appendRecord(std::string_view kind, std::vector<std::string> cells, std::string& out) {
    cells.insert(cells.begin(), std::string(kind));
    appendCsvRow(cells, out);
}

/// The lengths after the kind of a commit's record.
TableLengths lengthsIn(const Cells& record) {
    TableLengths lengths{};
    for (std::size_t table = 0; table < lengths.size(); ++table) {
        const std::string_view cell = record.at(table + 1);
        std::from_chars(cell.data(), cell.data() + cell.size(), lengths.at(table));
    }
    return lengths;
}

Cells withoutKind(const Cells& record) { return {record.begin() + 1, record.end()}; }

/// The file's content up to its last line end.
std::string wholeLines(const std::string& file) {
    std::ifstream stream(pathOf(file), std::ios::binary);
    std::string content((std::istreambuf_iterator<char>(stream)), {});
    content.resize(content.rfind('\n') + 1);  // npos + 1 is 0
    return content;
}

ByteSource bytesOf(std::string content) {
    return [content = std::move(content), next = std::size_t{0}](std::span<char> bytes) mutable {
        const std::size_t count = content.copy(bytes.data(), bytes.size(), next);
        next += count;
        return count;
    };
}

std::string fileIn(const std::string& folder) { return folder + "/export.state"; }

void checkBeginning(const Cells* record, const std::string& file, const std::string& settings) {
    if (record == nullptr || record->size() != 3 || record->at(0) != beginning) {
        throw UsageError("'" + file + "' is not the state of an export; export into another folder");
    }
    if (record->at(1) != std::to_string(exportVersion)) {
        throw UsageError("the export of '" + file + "' has version " + std::string(record->at(1)) + ", not " +
                         std::to_string(exportVersion) + "; export into another folder");
    }
    if (record->at(2) != settings) {
        throw UsageError("the export of '" + file + "' was made with the options '" + std::string(record->at(2)) +
                         "', not '" + settings + "'; use the same, or export into another folder");
    }
}

}  // namespace

bool Journal::isIn(const std::string& folder) { return fs::exists(pathOf(fileIn(folder))); }

Journal Journal::opened(const std::string& folder, const std::string& settings) { return {fileIn(folder), settings}; }

Journal::Journal(std::string file, const std::string& settings) : file_(std::move(file)) {
    if (fs::exists(pathOf(file_)) && fs::file_size(pathOf(file_)) > 0) {
        read(settings);
    } else {
        begin(settings);
    }
}

void Journal::begin(const std::string& settings) {
    std::string record;
    appendRecord(beginning, {std::to_string(exportVersion), settings}, record);
    writeFile(file_, record);
    length_ = record.size();
}

void Journal::read(const std::string& settings) {
    CsvReader records(bytesOf(wholeLines(file_)));
    checkBeginning(records.next(), file_, settings);
    length_ = records.position();
    std::vector<SourceState> sources;  // since the last commit
    RunState lastRun;
    while (const Cells* const record = records.next()) {
        if (record->at(0) == source) sources.push_back(sourceOf(withoutKind(*record)));
        if (record->at(0) == run) lastRun = runOf(withoutKind(*record));
        if (record->at(0) != committed) continue;
        for (const SourceState& one : sources) state_.take(one);
        sources.clear();
        state_.take(lastRun);
        lengths_ = lengthsIn(*record);
        length_ = records.position();
    }
}

void Journal::dropUncommitted() { fs::resize_file(pathOf(file_), length_); }

void Journal::commit(std::span<const SourceState> changed, const RunState& thisRun, const TableLengths& lengths) {
    std::string records;
    for (const SourceState& one : changed) {
        appendRecord(source, cellsOf(one), records);
        state_.take(one);
    }
    appendRecord(run, cellsOf(thisRun), records);
    state_.take(thisRun);
    std::vector<std::string> cells;
    for (const std::uintmax_t length : lengths) cells.push_back(std::to_string(length));
    appendRecord(committed, std::move(cells), records);
    append(records);
    lengths_ = lengths;
}

void Journal::append(const std::string& records) {
    std::ofstream stream(pathOf(file_), std::ios::binary | std::ios::app);
    stream << records;
    stream.close();
    if (!stream) throw StreamError("cannot write to '" + file_ + "'; is the disk full?");
    flushToDisk(file_);
}

}  // namespace vantro
