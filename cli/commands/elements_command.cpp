#include "cli/commands/commands.h"
#include "cli/commands/display_query.h"
#include "cli/commands/number_option.h"
#include "cli/io/utf.h"
#include "vantro/families.h"

#include <CLI/CLI.hpp>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantro {

namespace {

struct ElementsOptions {
    std::string prefix;
    std::optional<std::int16_t> index;
    std::vector<std::string> selection;
    std::string qualifier;
    QueryOptions common;
};

std::string knownPrefixes() {
    std::string others;
    std::string families;
    for (const QueryFacts& query : profileQueries()) {
        std::string& known = query.family ? families : others;
        known += " " + toUtf8(query.word);
    }
    return others.substr(1) + families;
}

/// The same in two lines.
std::string knownPrefixesForHelp() {
    std::string known = knownPrefixes();
    return known.replace(known.find(" PPR"), 1, "\n");
}

DisplayQuery queryFor(const ElementsOptions& options) {
    DisplayQuery query{.className = u"CProfile", .request = std::make_shared<BuiltInCollection>()};
    query.request->Add(u"strKeyPrefix", toUtf16(options.prefix));
    if (options.index) query.request->Add(u"intKeyIndex", *options.index);
    for (const std::string& entry : options.selection) query.selection.push_back(toUtf16(entry));
    query.qualifier = toUtf16(options.qualifier);
    return query;
}

std::string adviceOn(const Error& raised, const ElementsOptions& options) {
    const bool lacksIndex = raised.number() == static_cast<int>(Failure::ObjectNotSet) && !options.index;
    return lacksIndex ? "Give the place with --index." : "";
}

int printElements(const ElementsOptions& options) {
    const Question question{
        .query = [&options] { return queryFor(options); },
        .advice = [&options](const Error& raised) { return adviceOn(raised, options); },
        .unknown = "no query has the prefix '" + options.prefix + "'; there are " + knownPrefixes(),
    };
    return answerDisplays(options.common, question);
}

void describeOptions(CLI::App& command, ElementsOptions& options) {
    command.add_option("PREFIX", options.prefix, "What is asked for, such as PHI or RM")->required()->type_name("");
    command.add_option("FILE", options.common.file, "File with displays (default: standard input)")->type_name("");
    command
        .add_option("--index", options.index,
                    "Place of one element, from 1; SR, RM, AP, OS, FFN, ST and RC give one element only, the\n"
                    "others give lists whose entry 0 is empty")
        ->check(wholeNumber(std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()))
        ->type_name("N");
    command
        .add_option("--selection", options.selection,
                    "With ALL: text that an element begins with (\"\" for every element), after \"S  \" or \"A  \"\n"
                    "for that kind of element only; may be given several times")
        ->type_name("TEXT")
        ->allow_extra_args(false);
    command.add_option("--qualifier", options.qualifier, "With ALL: the first word of the elements' text")
        ->type_name("TEXT");
    addQueryOptions(command, options.common);
}

}  // namespace

void addElementsCommand(CLI::App& tool, int& status) {
    CLI::App& command = *tool.add_subcommand("elements", "Ask profile displays for one kind of element");
    const auto options = std::make_shared<ElementsOptions>();
    describeOptions(command, *options);
    command.footer("Prefixes:\n" + knownPrefixesForHelp() + "\n" + manyDisplaysHelp +
                   "\n"
                   "Examples:\n"
                   "  vantro-profile elements PHI display.txt\n"
                   "  vantro-profile elements RM --index 2 display.txt\n"
                   "  vantro-profile elements ALL --selection RM --selection \"S  AP\" display.txt");
    command.callback([options, &status] { status = printElements(*options); });
}

}  // namespace vantro
