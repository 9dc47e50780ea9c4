#include "cli/shell/help_text.h"

#include <algorithm>
#include <string_view>

namespace vantro {

namespace {

constexpr std::size_t widest = 100;
constexpr std::size_t narrowest = 40;
constexpr std::size_t widestNames = 22;  // longer ones have a line of their own
constexpr std::size_t gap = 2;

std::string blanks(std::size_t count) { return std::string(count, ' '); }

/// The words of a text; what is between quotation marks is one word, in an example also between single ones.
std::vector<std::string> wordsOf(std::string_view text, bool isExample = false) {
    std::vector<std::string> words;
    std::string word;
    char quote = '\0';
    for (const char character : text) {
        const bool isQuote = character == '"' || (isExample && character == '\'');
        if (isQuote && (quote == '\0' || quote == character)) quote = quote == '\0' ? character : '\0';
        if (character != ' ' || quote != '\0') {
            word += character;
        } else if (!word.empty()) {
            words.push_back(std::move(word));
            word.clear();
        }
    }
    if (!word.empty()) words.push_back(std::move(word));
    return words;
}

/// Lines that are filled word by word.
class Filler {
public:
    explicit Filler(std::size_t width) : width_(width) {}

    /// Words after `head`, and after as many blanks as `indent` in the lines that follow. `turn` ends a line that goes
    /// on in the next.
    void fill(const std::string& head, const std::vector<std::string>& words, std::size_t indent,
              std::string_view turn = {}) {
        std::string line = head;
        bool isEmpty = true;
        for (const std::string& word : words) {
            const bool isLast = &word == &words.back();
            if (!isEmpty && line.size() + 1 + word.size() + (isLast ? 0 : turn.size()) > width_) {
                (text_ += line).append(turn) += '\n';
                line = blanks(indent);
                isEmpty = true;
            }
            line += isEmpty ? word : " " + word;
            isEmpty = false;
        }
        line.resize(line.find_last_not_of(' ') + 1);
        text_ += line + '\n';
    }

    void paragraph(const std::string& text, std::size_t indent = 0) { fill(blanks(indent), wordsOf(text), indent); }

    /// Names on the left, a paragraph on the right in column `column`.
    void row(const std::string& names, const std::string& text, std::size_t column) {
        std::string head = blanks(gap) + names;
        if (head.size() + gap > column) {
            text_ += head + '\n';
            head.clear();
        }
        head.resize(column, ' ');
        fill(head, wordsOf(text), column);
    }

    /// A line that is shown as it is while it fits. An example is continued as a shell reads it, another line under its
    /// second column, if it has one.
    void shown(const std::string& line, bool isExample) {
        if (line.size() <= width_) {
            text_ += line + '\n';
            return;
        }
        const std::size_t start = line.find_first_not_of(' ');
        if (isExample) return fill(blanks(start), wordsOf(line, true), start + 4, " \\");
        const std::size_t columnGap = line.find("  ", start);
        if (columnGap == std::string::npos) return fill(blanks(start), wordsOf(line), start + gap);
        const std::size_t column = line.find_first_not_of(' ', columnGap);
        fill(line.substr(0, column), wordsOf(line.substr(column)), column);
    }

    void line(const std::string& text) { text_ += text + '\n'; }

    std::string text() { return std::move(text_); }

private:
    std::size_t width_;
    std::string text_;
};

std::string namesOf(const OptionEntry& entry) {
    std::string names;
    for (const std::string& name : entry.names) names += (names.empty() ? "" : ", ") + name;
    if (entry.value.empty()) return names;
    return names + (names.empty() ? "" : " ") + entry.value + (entry.isRepeated ? "..." : "");
}

struct Row {
    std::string names;
    std::string text;
};

void addRows(Filler& filler, const std::string& title, const std::vector<Row>& rows, std::size_t column) {
    if (rows.empty()) return;
    filler.line("\n" + title + ":");
    for (const Row& row : rows) filler.row(row.names, row.text, column);
}

std::vector<Row> rowsOf(const std::vector<OptionEntry>& entries) {
    std::vector<Row> rows;
    rows.reserve(entries.size());
    for (const OptionEntry& entry : entries) rows.push_back({namesOf(entry), entry.text});
    return rows;
}

std::vector<Row> rowsOf(const std::vector<CommandPage>& commands) {
    std::vector<Row> rows;
    rows.reserve(commands.size());
    for (const CommandPage& command : commands) rows.push_back({commandOf(command), command.summary});
    return rows;
}

/// Of all rows, so that the texts are in one column.
std::size_t columnOf(std::initializer_list<const std::vector<Row>*> groups) {
    std::size_t longest = 0;
    for (const auto* rows : groups) {
        for (const Row& row : *rows) {
            if (row.names.size() <= widestNames) longest = std::max(longest, row.names.size());
        }
    }
    return longest + 2 * gap;
}

void addSection(Filler& filler, const HelpSection& section) {
    filler.line("");
    if (!section.title.empty()) filler.line(section.title + ":");
    bool isAfterParagraph = false;
    for (const std::string& line : section.lines) {
        const bool isParagraph = !line.starts_with(' ');
        if (isParagraph && isAfterParagraph) filler.line("");
        if (isParagraph) {
            filler.paragraph(line, section.title.empty() ? 0 : gap);
        } else {
            filler.shown(line, isExamples(section));
        }
        isAfterParagraph = isParagraph;
    }
}

}  // namespace

std::string helpText(const CommandPage& page, std::size_t width) {
    Filler filler(std::clamp(width, narrowest, widest));
    filler.paragraph(page.summary);
    for (const HelpSection& section : page.sections) {
        if (isExamples(section)) addSection(filler, section);
    }
    filler.line("");
    filler.fill("Usage: ", wordsOf(usageOf(page)), 4);

    const std::vector<Row> arguments = rowsOf(page.arguments);
    const std::vector<Row> options = rowsOf(page.options);
    const std::vector<Row> commands = rowsOf(page.commands);
    const std::size_t column = columnOf({&arguments, &options, &commands});
    addRows(filler, "Subcommands", commands, column);
    addRows(filler, "Arguments", arguments, column);
    addRows(filler, "Options", options, column);

    for (const HelpSection& section : page.sections) {
        if (!isExamples(section)) addSection(filler, section);
    }
    return filler.text();
}

}  // namespace vantro
