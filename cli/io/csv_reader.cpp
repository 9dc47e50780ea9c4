#include "cli/io/csv_reader.h"

#include "cli/io/failure.h"

namespace vantro {

namespace {

constexpr int endOfInput = -1;

}  // namespace

int CsvReader::readByte() {
    if (next_ == length_) {
        length_ = source_(block_);
        next_ = 0;
        if (length_ == 0) return endOfInput;
    }
    ++position_;
    return static_cast<unsigned char>(block_.at(next_++));
}

void CsvReader::take(char byte, Place& place) {
    switch (place) {
        case Place::BetweenCells:
            if (byte == '"') {
                place = Place::Quoted;
                return;
            }
            place = Place::Plain;
            [[fallthrough]];
        case Place::Plain: bytes_ += byte; return;
        case Place::Quoted:
            if (byte == '"') {
                place = Place::AfterQuote;
            } else {
                bytes_ += byte;
            }
            return;
        case Place::AfterQuote:
            // A doubled quotation mark stands for one; anything else after a quotation is kept as it is.
            place = byte == '"' ? Place::Quoted : Place::Plain;
            if (byte != '\r') bytes_ += byte;
            return;
    }
}

const std::vector<std::string_view>* CsvReader::next() {
    bytes_.clear();
    ends_.clear();
    Place place = Place::BetweenCells;
    int byte = readByte();
    if (byte == endOfInput) return nullptr;
    for (; byte != endOfInput; byte = readByte()) {
        if (place != Place::Quoted && byte == '\n') break;
        if (place != Place::Quoted && byte == ',') {
            endCell();
            place = Place::BetweenCells;
        } else {
            take(static_cast<char>(byte), place);
        }
    }
    if (place == Place::Quoted) throw StreamError("a quoted cell has no end");
    if (place == Place::Plain && bytes_.ends_with('\r')) bytes_.pop_back();
    endCell();
    cells_.clear();
    std::size_t begin = 0;
    for (const std::size_t end : ends_) {
        cells_.push_back(std::string_view(bytes_).substr(begin, end - begin));
        begin = end;
    }
    return &cells_;
}

}  // namespace vantro
