#include "cli/export/csv_archive.h"

#include "cli/export/journal.h"
#include "cli/io/csv.h"
#include "cli/io/csv_reader.h"
#include "cli/io/failure.h"
#include "cli/io/file_lock.h"
#include "cli/io/output_file.h"
#include "cli/io/path.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <limits>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace vantro {

namespace {

namespace fs = std::filesystem;

std::string fileIn(const std::string& folder, std::string_view table) {
    return folder + "/" + std::string(table) + ".csv";
}

std::string headerOf(std::span<const Column> columns) {
    Cells names;
    for (const Column& column : columns) names.push_back(column.name);
    std::string header;
    appendCsvRow(std::span<const std::string_view>(names), header);
    return header;
}

/// The file of a table that grows.
class TableFile {
public:
    /// Continues after `length` bytes, what the last commit left. What an interrupted run wrote after it goes. Raises
    /// UsageError if the file was changed since.
    TableFile(std::string file, std::uintmax_t length, bool isFinished) : file_(std::move(file)), length_(length) {
        const fs::path path = pathOf(file_);
        const std::uintmax_t found = fs::exists(path) ? fs::file_size(path) : 0;
        if (found < length || (isFinished && found > length)) {
            throw UsageError("'" + file_ + "' was changed since it was written; export into another folder");
        }
        if (found > length) fs::resize_file(path, length);
        stream_.open(path, std::ios::binary | std::ios::app);
        if (!stream_) throw UsageError("cannot write the file '" + file_ + "'; check its folder and permissions");
    }

    std::string& buffer() { return buffer_; }
    std::uintmax_t length() const { return length_; }

    void write() {
        stream_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
        length_ += buffer_.size();
        buffer_.clear();
        if (!stream_) throw StreamError("cannot write all of the file '" + file_ + "'; is the disk full?");
    }

    void keep() {
        write();
        stream_.flush();
        flushToDisk(file_);
    }

private:
    std::string file_;
    std::uintmax_t length_;
    std::string buffer_;
    std::ofstream stream_;
};

class CsvWriter final : public ArchiveWriter {
public:
    CsvWriter(std::string folder, const std::string& settings)
        : folder_(std::move(folder)), lock_(madeIn(folder_)), journal_(openedIn(folder_, settings)) {
        journal_.dropUncommitted();
        for (const TableFacts& table : exportTables()) {
            const std::uintmax_t length = journal_.lengths().at(indexOf(table.table));
            files_.emplace_back(fileIn(folder_, table.name), length, state().isFinished());
            if (length == 0) {
                files_.back().buffer() = headerOf(table.columns);
            } else {
                checkHeader(fileIn(folder_, table.name), headerOf(table.columns));
            }
        }
    }

    const ArchiveState& state() const override { return journal_.state(); }

    void add(const TableFacts& table, const Cells& row) override {
        constexpr std::size_t longestBuffer = std::size_t{256} * 1024;
        TableFile& file = files_.at(indexOf(table.table));
        appendCsvRow(std::span<const std::string_view>(row), file.buffer());
        if (file.buffer().size() >= longestBuffer) file.write();
    }

    void commit(std::span<const SourceState> changed, const RunState& run) override {
        TableLengths lengths{};
        for (std::size_t table = 0; table < files_.size(); ++table) {
            files_[table].keep();
            lengths.at(table) = files_[table].length();
        }
        journal_.commit(changed, run, lengths);
    }

    void finish(const RunState& run) override {
        ArchiveState finished = state();
        finished.take(run);
        writeTable("sources", sourceColumns(), finished.sources);
        writeTable("runs", runColumns(), finished.runs);
        commit({}, run);
    }

private:
    /// Makes the folder. Returns the name of its lock.
    static std::string madeIn(const std::string& folder) {
        std::error_code problem;
        fs::create_directories(pathOf(folder), problem);
        if (!fs::is_directory(pathOf(folder))) {
            throw UsageError("cannot make the folder '" + folder + "'; a database's name ends in .db or .sqlite");
        }
        return folder + "/export.lock";
    }

    static Journal openedIn(const std::string& folder, const std::string& settings) {
        for (const TableFacts& table : exportTables()) {
            const std::string file = fileIn(folder, table.name);
            if (Journal::isIn(folder) || !fs::exists(pathOf(file))) continue;
            throw UsageError("'" + file + "' exists and is not from an export; export into another folder");
        }
        return Journal::opened(folder, settings);
    }

    /// An earlier release may have written the table without a column at the end.
    static void checkHeader(const std::string& file, const std::string& header) {
        std::string found(header.size(), '\0');
        std::ifstream(pathOf(file), std::ios::binary).read(found.data(), static_cast<std::streamsize>(found.size()));
        if (found == header) return;
        throw UsageError("'" + file + "' has other columns, as those of other releases; export into another folder");
    }

    template <class Row>
    void writeTable(std::string_view name, std::span<const Column> columns, const std::vector<Row>& rows) const {
        std::string out = headerOf(columns);
        for (const Row& row : rows) appendCsvRow(cellsOf(row), out);
        writeFile(fileIn(folder_, name), out);
    }

    std::string folder_;
    FileLock lock_;
    Journal journal_;
    std::vector<TableFile> files_;
};

/// The rows of a file; of one whose last run was interrupted, those before its last commit.
class CsvRows final : public RowReader {
public:
    CsvRows(const std::string& file, const TableFacts& table, std::uintmax_t length)
        : file_(file), columns_(table.columns.size()), reader_(firstBytesOf(file, length)) {
        const Cells* const names = next();
        const auto isName = [](std::string_view cell, const Column& column) { return cell == column.name; };
        if (names == nullptr || !std::ranges::equal(*names, table.columns, isName)) {
            throw StreamError("the first line of '" + file + "' does not name the columns of " +
                              std::string(table.name));
        }
    }

    const Cells* next() override {
        const Cells* const row = reader_.next();
        ++record_;
        if (row != nullptr && row->size() != columns_) {
            throw StreamError("record " + std::to_string(record_) + " of '" + file_ + "' has " +
                              std::to_string(row->size()) + " cells instead of " + std::to_string(columns_));
        }
        return row;
    }

private:
    static ByteSource firstBytesOf(const std::string& file, std::uintmax_t length) {
        return [source = openInput(file, Encoding::Utf8), left = length](std::span<char> bytes) mutable {
            const std::size_t count =
                left == 0 ? 0
                          : source(bytes.first(static_cast<std::size_t>(std::min<std::uintmax_t>(left, bytes.size()))));
            left -= count;
            return count;
        };
    }

    std::string file_;
    std::size_t columns_;
    CsvReader reader_;
    std::size_t record_ = 0;
};

class CsvFolder final : public ArchiveReader {
public:
    CsvFolder(const std::string& folder, const std::string& settings)
        : folder_(folder), journal_(openedIn(folder, settings)) {}

    const ArchiveState& state() const override { return journal_.state(); }

    std::unique_ptr<RowReader> rows(const TableFacts& table) override {
        constexpr auto all = std::numeric_limits<std::uintmax_t>::max();
        const std::uintmax_t length = state().isFinished() ? all : journal_.lengths().at(indexOf(table.table));
        return std::make_unique<CsvRows>(fileIn(folder_, table.name), table, length);
    }

private:
    static Journal openedIn(const std::string& folder, const std::string& settings) {
        if (!Journal::isIn(folder)) throw UsageError("there is no export in '" + folder + "'; check the name");
        return Journal::opened(folder, settings);
    }

    std::string folder_;
    Journal journal_;
};

}  // namespace

std::unique_ptr<ArchiveWriter> writeCsvFolder(const std::string& name, const std::string& settings) {
    return std::make_unique<CsvWriter>(name, settings);
}

std::unique_ptr<ArchiveReader> readCsvFolder(const std::string& name, const std::string& settings) {
    return std::make_unique<CsvFolder>(name, settings);
}

}  // namespace vantro
