// What there is to say about a command: its help, its manual page and its completions are made from it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantro {

/// An option, or an argument without a name of its own on the command line.
struct OptionEntry {
    std::vector<std::string> names;  ///< "-j", "--jobs"; none for an argument
    std::string value;               ///< what follows: "N", "FILE", "KEY=VALUE"; empty for a flag
    std::string text;                ///< one paragraph
    bool isRequired = false;
    bool isRepeated = false;  ///< an argument that may occur several times
};

/// A part of the text about a command. Each line is a paragraph, or one that is shown as it is: it begins with a blank.
struct HelpSection {
    std::string title;  ///< "Examples", "Exit status"; empty for notes
    std::vector<std::string> lines;
};

struct CommandPage {
    std::string name;     ///< "vantro-profile parse"
    std::string summary;  ///< one sentence, without a full stop
    std::vector<OptionEntry> arguments;
    std::vector<OptionEntry> options;
    std::vector<HelpSection> sections;
    std::vector<CommandPage> commands;
};

/// Cuts a text into sections. A line "Title:" before indented lines begins one, which ends before the next empty line,
/// and so does "Exit status: ...", which ends where its paragraph does. The lines of a paragraph are joined, indented
/// lines are not. A line of an example that ends with "\" is joined with the next one.
std::vector<HelpSection> sectionsOf(std::string_view text);

bool isExamples(const HelpSection& section);

/// "vantro-profile parse [OPTIONS] [FILE...]"
std::string usageOf(const CommandPage& page);

/// The last word of the page's name: "parse"; empty for the tool's own page.
std::string commandOf(const CommandPage& page);

}  // namespace vantro
