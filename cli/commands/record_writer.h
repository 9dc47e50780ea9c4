// The records of displays: where each display is from, its identifier, and its profile or why there is none.
#pragma once

#include "cli/commands/id_pattern.h"
#include "cli/commands/parsed_chunk.h"

#include <optional>
#include <string>
#include <string_view>

namespace vantro {

class RecordWriter {
public:
    /// Without a pattern, only displays that have an identifier get one.
    RecordWriter(ProfileForm form, std::optional<IdPattern> pattern) : form_(form), pattern_(std::move(pattern)) {}

    /// The file, as named on the command line, of the displays that follow.
    void setFile(const std::string& file);

    /// Appends the record of a display. `number` is the display's in the file and `line` that of its first line, from
    /// 1; `body` is the display's output in its chunk.
    void append(const ParsedDisplay& display, std::size_t number, std::size_t line, std::string_view body,
                std::string& out);

    /// Appends the record of a display that could not be read.
    void appendError(const ParsedDisplay& display, std::size_t number, std::size_t line, const std::string& description,
                     std::string& out);

private:
    void makeHead(const ParsedDisplay& display, std::size_t number, std::size_t line);
    void makeCsvHead(const ParsedDisplay& display, std::size_t number, std::size_t line);
    void appendJson(std::string_view body, std::string& out) const;
    void appendCsv(std::string_view rows, std::string& out) const;
    std::string idOf(const ParsedDisplay& display, std::size_t number, std::size_t line) const;

    ProfileForm form_;
    std::optional<IdPattern> pattern_;
    std::string file_;
    std::string source_;  // in JSON, up to the display's number
    std::string head_;    // of the record that is being written; reused
};

}  // namespace vantro
