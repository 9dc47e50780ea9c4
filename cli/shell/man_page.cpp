#include "cli/shell/man_page.h"

#include <algorithm>
#include <string_view>

namespace vantro {

namespace {

std::string replaced(std::string text, char from, char to) {
    std::ranges::replace(text, from, to);
    return text;
}

std::string inCapitals(std::string text) {
    for (char& letter : text) {
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    }
    return text;
}

/// A text as the page's source has it. A hyphen would be printed as a sign that cannot be typed or searched for.
std::string escaped(std::string_view text) {
    std::string source;
    for (const char character : text) {
        if (character == '\\') {
            source += "\\e";
        } else if (character == '-') {
            source += "\\-";
        } else if (character == '\'') {
            source += "\\(aq";
        } else {
            source += character;
        }
    }
    return source.starts_with('.') ? "\\&" + source : source;
}

std::string bold(const std::string& text) { return "\\fB" + escaped(text) + "\\fR"; }
std::string italic(const std::string& text) { return "\\fI" + escaped(text) + "\\fR"; }

void addHeading(const std::string& title, std::string& source) { source += ".SH " + inCapitals(title) + "\n"; }

std::string namesOf(const OptionEntry& entry) {
    std::string names;
    for (const std::string& name : entry.names) names += (names.empty() ? "" : ", ") + bold(name);
    if (entry.value.empty()) return names;
    return names + (names.empty() ? "" : " ") + italic(entry.value) + (entry.isRepeated ? "..." : "");
}

void addEntries(const std::string& title, const std::vector<OptionEntry>& entries, std::string& source) {
    if (entries.empty()) return;
    addHeading(title, source);
    for (const OptionEntry& entry : entries) source += ".TP\n" + namesOf(entry) + "\n" + escaped(entry.text) + "\n";
}

void addCommands(const CommandPage& page, std::string& source) {
    if (page.commands.empty()) return;
    addHeading("Subcommands", source);
    for (const CommandPage& command : page.commands) {
        source += ".TP\n" + bold(commandOf(command)) + "\n" + escaped(command.summary) + "\n";
    }
}

/// Lines with an indent are shown as they are, less the indent that the help has.
void addLines(const HelpSection& section, std::string& source) {
    constexpr std::size_t indent = 2;
    bool isVerbatim = false;
    for (const std::string& line : section.lines) {
        if (line.starts_with(' ') != isVerbatim) {
            isVerbatim = !isVerbatim;
            source += isVerbatim ? ".PP\n.nf\n" : ".fi\n";
        }
        if (!isVerbatim) source += ".PP\n";
        source += escaped(isVerbatim ? std::string_view(line).substr(indent) : line) + "\n";
    }
    if (isVerbatim) source += ".fi\n";
}

template <typename Wanted>
void addSections(const CommandPage& page, Wanted isWanted, std::string& source) {
    for (const HelpSection& section : page.sections) {
        if (!isWanted(section)) continue;
        if (!section.title.empty()) addHeading(section.title, source);
        addLines(section, source);
    }
}

void addReferences(const CommandPage& page, std::string& source) {
    addHeading("See also", source);
    if (page.commands.empty()) {
        const std::string tool = page.name.substr(0, page.name.find(' '));
        source += bold(tool) + "(1)\n";
        return;
    }
    for (const CommandPage& command : page.commands) {
        source += bold(manPageName(command)) + (&command == &page.commands.back() ? "(1)\n" : "(1),\n");
    }
}

}  // namespace

std::string manPageName(const CommandPage& page) { return replaced(page.name, ' ', '-'); }

std::string manPage(const CommandPage& page, const std::string& version) {
    const std::string tool = page.name.substr(0, page.name.find(' '));
    std::string source = ".TH \"" + escaped(inCapitals(manPageName(page))) + "\" 1 \"\" \"" +
                         escaped(tool + " " + version) + "\" \"User Commands\"\n";
    source += ".nh\n";  // a hyphen at the end of a line could be one of an option
    addHeading("Name", source);
    source += escaped(manPageName(page)) + " \\- " + escaped(page.summary) + "\n";
    addHeading("Synopsis", source);
    source += bold(page.name) + escaped(usageOf(page).substr(page.name.size())) + "\n";
    addHeading("Description", source);
    source += escaped(page.summary) + ".\n";
    addSections(
        page, [](const HelpSection& section) { return section.title.empty(); }, source);
    addCommands(page, source);
    addEntries("Arguments", page.arguments, source);
    addEntries("Options", page.options, source);
    addSections(
        page, [](const HelpSection& section) { return !section.title.empty() && !isExamples(section); }, source);
    addSections(page, isExamples, source);
    addReferences(page, source);
    return source;
}

}  // namespace vantro
