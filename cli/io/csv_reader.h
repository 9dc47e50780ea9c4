// Reads comma-separated values (RFC 4180), a record at a time.
#pragma once

#include "cli/io/input_files.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantro {

class CsvReader {
public:
    explicit CsvReader(ByteSource source) : source_(std::move(source)) {}

    /// The cells of the next record without their quotation marks, or null at the end. Valid until the next call.
    /// Records end with a line feed, with or without a carriage return. Raises StreamError for a quoted cell without
    /// its end.
    const std::vector<std::string_view>* next();

    /// The number of bytes in the records read so far.
    std::uint64_t position() const { return position_; }

private:
    enum class Place { BetweenCells, Plain, Quoted, AfterQuote };

    int readByte();
    void take(char byte, Place& place);
    void endCell() { ends_.push_back(bytes_.size()); }

    ByteSource source_;
    std::array<char, 65536> block_{};
    std::size_t length_ = 0;
    std::size_t next_ = 0;  // in the block
    std::uint64_t position_ = 0;
    std::string bytes_;  // of the record's cells
    std::vector<std::size_t> ends_;
    std::vector<std::string_view> cells_;
};

}  // namespace vantro
