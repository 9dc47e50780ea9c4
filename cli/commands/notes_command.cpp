#include "cli/commands/commands.h"
#include "cli/commands/display_query.h"
#include "cli/io/utf.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

namespace vantro {

namespace {

struct NotesOptions {
    std::string search;
    std::string qualifier;
    QueryOptions common;
};

DisplayQuery queryFor(const NotesOptions& options) {
    DisplayQuery query{.className = u"CProfileNotes", .request = std::make_shared<BuiltInCollection>()};
    query.request->Add(u"strKeyPrefix", Text(u"ProfileNotes"));
    query.request->Add(u"strSearchString", toUtf16(options.search));
    query.request->Add(u"strSearchQualifier", toUtf16(options.qualifier));
    return query;
}

}  // namespace

void addNotesCommand(CLI::App& tool, int& status) {
    CLI::App& command = *tool.add_subcommand("notes", "Print the notes in profile displays");
    const auto options = std::make_shared<NotesOptions>();
    command.add_option("FILE", options->common.file, "File with displays (default: standard input)")->type_name("");
    command.add_option("--search", options->search, "Only notes that hold this text")->type_name("TEXT");
    command.add_option("--qualifier", options->qualifier, "Only notes with this character in front")->type_name("TEXT");
    addQueryOptions(command, options->common);
    command.footer(
        std::string(manyDisplaysHelp) +
        "Entry 0 of every list is empty. A note's number is its place under the notes header, whatever is kept.\n"
        "\n"
        "Examples:\n"
        "  vantro-profile notes display.txt\n"
        "  vantro-profile notes --qualifier A --search TICKET display.txt");
    command.callback([options, &status] {
        const Question question{.query = [options] { return queryFor(*options); }};
        status = answerDisplays(options->common, question);
    });
}

}  // namespace vantro
