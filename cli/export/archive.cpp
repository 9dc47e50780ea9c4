#include "cli/export/archive.h"

#include "cli/export/csv_archive.h"
#include "cli/export/sqlite_archive.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace vantro {

namespace {

std::string text(std::uint64_t number) { return std::to_string(number); }

std::size_t numberIn(std::string_view cell) {
    std::size_t number = 0;
    std::from_chars(cell.data(), cell.data() + cell.size(), number);
    return number;
}

}  // namespace

std::vector<std::string> cellsOf(const SourceState& source) {
    return {source.name,           source.bytes == 0 ? "" : text(source.bytes),
            text(source.displays), text(source.failed),
            source.lastHash,       source.isDone ? "1" : "",
            source.problem};
}

SourceState sourceOf(const Cells& cells) {
    return {.name = std::string(cells.at(0)),
            .bytes = numberIn(cells.at(1)),
            .displays = numberIn(cells.at(2)),
            .failed = numberIn(cells.at(3)),
            .lastHash = std::string(cells.at(4)),
            .isDone = numberIn(cells.at(5)) != 0,
            .problem = std::string(cells.at(6))};
}

std::vector<std::string> cellsOf(const RunState& run) {
    std::vector<std::string> cells{text(run.run),     run.started,        run.finished,    run.version,
                                   text(run.sources), text(run.displays), text(run.failed)};
    for (const std::size_t count : run.rows) cells.push_back(text(count));
    return cells;
}

RunState runOf(const Cells& cells) {
    RunState run{.run = numberIn(cells.at(0)),
                 .started = std::string(cells.at(1)),
                 .finished = std::string(cells.at(2)),
                 .version = std::string(cells.at(3)),
                 .sources = numberIn(cells.at(4)),
                 .displays = numberIn(cells.at(5)),
                 .failed = numberIn(cells.at(6))};
    for (std::size_t table = 0; table < exportTableCount; ++table) run.rows.at(table) = numberIn(cells.at(7 + table));
    return run;
}

void ArchiveState::take(const SourceState& source) {
    if (!sources.empty() && sources.back().name == source.name) {
        sources.back() = source;
    } else {
        sources.push_back(source);
    }
}

void ArchiveState::take(const RunState& run) {
    if (!runs.empty() && runs.back().run == run.run) {
        runs.back() = run;
    } else {
        runs.push_back(run);
    }
}

bool isDatabase(const std::string& name) {
    constexpr std::array<std::string_view, 3> endings{".db", ".sqlite", ".sqlite3"};
    std::string lower = name;
    for (char& byte : lower) {
        if (byte >= 'A' && byte <= 'Z') byte = static_cast<char>(byte - 'A' + 'a');
    }
    return std::ranges::any_of(endings, [&lower](std::string_view ending) { return lower.ends_with(ending); });
}

std::unique_ptr<ArchiveWriter> openForWriting(const std::string& name, const std::string& settings) {
    return isDatabase(name) ? writeDatabase(name, settings) : writeCsvFolder(name, settings);
}

std::unique_ptr<ArchiveReader> openForReading(const std::string& name, const std::string& settings) {
    return isDatabase(name) ? readDatabase(name, settings) : readCsvFolder(name, settings);
}

}  // namespace vantro
