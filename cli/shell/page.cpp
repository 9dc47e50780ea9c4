#include "cli/shell/page.h"

#include <algorithm>
#include <cstddef>

namespace vantro {

namespace {

constexpr std::string_view exitStatus = "Exit status: ";

bool isIndented(std::string_view line) { return line.starts_with(' '); }

std::vector<std::string_view> linesIn(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

class SectionReader {
public:
    std::vector<HelpSection> read(std::string_view text) {
        const std::vector<std::string_view> lines = linesIn(text);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const bool isBeforeIndented = i + 1 < lines.size() && isIndented(lines[i + 1]);
            take(lines[i], isBeforeIndented);
        }
        return std::move(sections_);
    }

private:
    void take(std::string_view line, bool isBeforeIndented) {
        if (line.empty()) {
            isInParagraph_ = false;
            isInTitled_ = false;
        } else if (line.ends_with(':') && !isIndented(line) && isBeforeIndented) {
            begin(std::string(line.substr(0, line.size() - 1)));
        } else if (line.starts_with(exitStatus)) {
            begin("Exit status");
            add(std::string(line.substr(exitStatus.size())));
        } else {
            if (sections_.empty() || (!isInTitled_ && !sections_.back().title.empty())) sections_.emplace_back();
            addOrJoin(line);
        }
    }

    void begin(std::string title) {
        sections_.push_back({std::move(title), {}});
        isInTitled_ = true;
        isInParagraph_ = false;
    }

    void add(std::string line) {
        isInParagraph_ = !isIndented(line);
        sections_.back().lines.push_back(std::move(line));
    }

    void addOrJoin(std::string_view line) {
        std::vector<std::string>& lines = sections_.back().lines;
        if (!lines.empty() && lines.back().ends_with(" \\")) {
            lines.back().resize(lines.back().size() - 1);
            lines.back() += line.substr(line.find_first_not_of(' '));
        } else if (isInParagraph_ && !isIndented(line)) {
            (lines.back() += ' ') += line;
        } else {
            add(std::string(line));
        }
    }

    std::vector<HelpSection> sections_;
    bool isInTitled_ = false;
    bool isInParagraph_ = false;
};

}  // namespace

std::vector<HelpSection> sectionsOf(std::string_view text) { return SectionReader().read(text); }

bool isExamples(const HelpSection& section) { return section.title.starts_with("Example"); }

std::string usageOf(const CommandPage& page) {
    std::string usage = page.name + " [OPTIONS]";
    for (const OptionEntry& argument : page.arguments) {
        const std::string name = argument.value + (argument.isRepeated ? "..." : "");
        usage += argument.isRequired ? " " + name : " [" + name + "]";
    }
    return page.commands.empty() ? usage : usage + " SUBCOMMAND";
}

std::string commandOf(const CommandPage& page) {
    const std::size_t blank = page.name.rfind(' ');
    return blank == std::string::npos ? "" : page.name.substr(blank + 1);
}

}  // namespace vantro
