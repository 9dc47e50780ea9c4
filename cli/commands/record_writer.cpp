#include "cli/commands/record_writer.h"

#include "cli/commands/profile_csv.h"
#include "cli/io/csv.h"
#include "cli/io/input_files.h"
#include "cli/io/utf.h"
#include "cli/json/output.h"
#include "cli/json/spelling.h"

#include <array>
#include <charconv>

namespace vantro {

namespace {

void appendNumber(std::size_t number, std::string& out) {
    std::array<char, 20> digits;
    out.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr);
}

std::string jsonText(std::string_view utf8) {
    std::string json;
    JsonOut(json).text(toUtf16(utf8));
    return json;
}

/// {"error":{...}}, as `batch` writes an error.
std::string errorBody(const std::string& description) {
    return R"({"error":{"number":0,"source":"input","description":)" + jsonText(description) + "}}\n";
}

/// The text of a JSON string; other JSON as it is.
std::string plain(std::string_view json) {
    if (!json.starts_with('"')) return std::string(json);
    Text text(json.size(), u'\0');
    text.resize(static_cast<std::size_t>(decodeString(json.substr(1, json.size() - 2), text.data()).end - text.data()));
    return toUtf8(text);
}

/// The end of the first row, after its line feed. Line feeds in quotation marks are part of a cell.
std::size_t rowEnd(std::string_view rows) {
    bool isQuoted = false;
    for (std::size_t at = 0; at < rows.size(); ++at) {
        if (rows[at] == '"') isQuoted = !isQuoted;
        if (rows[at] == '\n' && !isQuoted) return at + 1;
    }
    return rows.size();
}

}  // namespace

void RecordWriter::setFile(const std::string& file) {
    file_ = isStandardInput(file) ? "-" : file;
    source_ = R"({"source":{"file":)" + jsonText(file_) + R"(,"display":)";
}

void RecordWriter::append(const ParsedDisplay& display, std::size_t number, std::size_t line, std::string_view body,
                          std::string& out) {
    if (form_ == ProfileForm::Csv) {
        makeCsvHead(display, number, line);
        appendCsv(body, out);
    } else {
        makeHead(display, number, line);
        appendJson(body, out);
    }
}

void RecordWriter::appendError(const ParsedDisplay& display, std::size_t number, std::size_t line,
                               const std::string& description, std::string& out) {
    std::string body;
    if (form_ == ProfileForm::Csv) {
        appendErrorCsv(description, body);
    } else {
        body = errorBody(description);
        if (form_ == ProfileForm::IndentedJson) body = indented(body);
    }
    append(display, number, line, body, out);
}

/// The members before those of the profile.
void RecordWriter::makeHead(const ParsedDisplay& display, std::size_t number, std::size_t line) {
    head_ = source_;
    appendNumber(number, head_);
    head_ += R"(,"line":)";
    appendNumber(line, head_);
    head_ += '}';
    if (!display.id.empty()) {
        head_ += R"(,"id":)" + display.id;
    } else if (pattern_) {
        head_ += R"(,"id":)" + jsonText(idOf(display, number, line));
    }
    if (form_ != ProfileForm::IndentedJson) return;
    head_ = indented(head_ + "}");
    head_.resize(head_.size() - 2);  // without the last line
}

void RecordWriter::appendJson(std::string_view body, std::string& out) const {
    out += head_;
    const bool isEmpty = body.starts_with("{}");
    if (!isEmpty) out += ',';
    if (isEmpty && form_ == ProfileForm::IndentedJson) out += '\n';
    out.append(body, 1);
}

void RecordWriter::makeCsvHead(const ParsedDisplay& display, std::size_t number, std::size_t line) {
    const std::string id = display.id.empty() && pattern_ ? idOf(display, number, line) : plain(display.id);
    const std::array<std::string, 4> cells{file_, std::to_string(number), std::to_string(line), id};
    head_.clear();
    appendCsvRow(cells, head_);
    head_.back() = ',';
}

void RecordWriter::appendCsv(std::string_view rows, std::string& out) const {
    while (!rows.empty()) {
        const std::size_t end = rowEnd(rows);
        out += head_;
        out += rows.substr(0, end);
        rows.remove_prefix(end);
    }
}

std::string RecordWriter::idOf(const ParsedDisplay& display, std::size_t number, std::size_t line) const {
    return pattern_->idOf(
        {.file = file_, .locator = display.locator, .title = display.title, .display = number, .line = line});
}

}  // namespace vantro
