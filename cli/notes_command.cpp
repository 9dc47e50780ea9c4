#include "cli/commands.h"
#include "cli/display_query.h"
#include "cli/failure.h"
#include "cli/results_view.h"
#include "cli/standard_io.h"
#include "cli/utf.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

namespace vantro {

namespace {

struct NotesOptions {
    std::string search;
    std::string qualifier;
    std::string file;
    bool table = false;
    bool json = false;
};

DisplayQuery queryFor(const NotesOptions& options) {
    DisplayQuery query{.className = u"CProfileNotes", .request = std::make_shared<BuiltInCollection>()};
    query.request->Add(u"strKeyPrefix", Text(u"ProfileNotes"));
    query.request->Add(u"strSearchString", toUtf16(options.search));
    query.request->Add(u"strSearchQualifier", toUtf16(options.qualifier));
    return query;
}

int printNotes(const NotesOptions& options) {
    const CollectionPtr answer = askDisplay(options.file, queryFor(options));
    writeOutput(resultsText(answer, chosenView(options.table, options.json)));
    return success;
}

}  // namespace

void addNotesCommand(CLI::App& tool, int& status) {
    CLI::App& command = *tool.add_subcommand("notes", "Print the notes in a profile display");
    const auto options = std::make_shared<NotesOptions>();
    command.add_option("FILE", options->file, "File with one display (default: standard input)")->type_name("");
    command.add_option("--search", options->search, "Only notes that hold this text")->type_name("TEXT");
    command.add_option("--qualifier", options->qualifier, "Only notes with this character in front")->type_name("TEXT");
    auto* const table = command.add_flag("--table", options->table, "Print a table, also into a file or pipe");
    command.add_flag("--json", options->json, "Print one JSON object, also on a terminal")->excludes(table);
    command.footer(
        "Entry 0 of every list is empty. A note's number is its place under the notes header, whatever is kept.\n"
        "\n"
        "Examples:\n"
        "  vantro-profile notes display.txt\n"
        "  vantro-profile notes --qualifier A --search TICKET display.txt");
    command.callback([options, &status] { status = printNotes(*options); });
}

}  // namespace vantro
