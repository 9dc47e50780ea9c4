#include "cli/commands/commands.h"
#include "cli/commands/table.h"
#include "cli/io/standard_io.h"
#include "cli/io/utf.h"
#include "cli/json/json_out.h"
#include "vantro/registry.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

namespace vantro {

namespace {

struct ClassesOptions {
    bool table = false;
    bool json = false;
};

std::vector<TextView> interfacesOf(const ClassRow& row) {
    std::vector<TextView> names;
    if (row.hasProfileTrans) names.emplace_back(u"IProfileTrans");
    if (row.hasProfileGet) names.emplace_back(u"IProfileGet");
    return names;
}

std::vector<TextView> countsOf(const ClassRow& row) {
    std::vector<TextView> names;
    for (const CountProperty& count : row.counts) names.push_back(count.name);
    return names;
}

std::string listed(std::span<const TextView> names) {
    std::string text;
    for (const TextView name : names) {
        if (!text.empty()) text += ", ";
        appendUtf8(name, text);
    }
    return text.empty() ? "-" : text;
}

bool isCreatable(const ClassRow& row) { return row.creator != nullptr; }

std::string asTable() {
    Table table({"CLASS", "INTERFACES", "HOST TRANSACTIONS", "COUNTS", "CREATABLE"});
    for (const ClassRow& row : classTable()) {
        const std::vector<TextView> counts = countsOf(row);
        // The parser's counts would fill a screen; JSON names them all.
        const std::string countsCell = counts.size() > 1 ? std::to_string(counts.size()) : listed(counts);
        table.add({toUtf8(row.name), listed(interfacesOf(row)), listed(row.transactions), countsCell,
                   isCreatable(row) ? "yes" : "no"});
    }
    return table.text();
}

void writeNames(JsonOut& out, std::string_view member, std::span<const TextView> names) {
    out.key(member);
    out.beginArray();
    for (const TextView name : names) out.text(name);
    out.endArray();
}

std::string asJson() {
    std::string json;
    JsonOut out(json);
    out.beginArray();
    for (const ClassRow& row : classTable()) {
        out.beginObject();
        out.key("class");
        out.text(row.name);
        writeNames(out, "interfaces", interfacesOf(row));
        writeNames(out, "transactions", row.transactions);
        writeNames(out, "counts", countsOf(row));
        out.key("creatable");
        out.boolean(isCreatable(row));
        out.endObject();
    }
    out.endArray();
    return json + "\n";
}

}  // namespace

void addClassesCommand(CLI::App& tool, int& /*status*/) {
    CLI::App& command = *tool.add_subcommand("classes", "List the classes, their interfaces and host transactions");
    const auto options = std::make_shared<ClassesOptions>();
    auto* const table = command.add_flag("--table", options->table, "Print a table, which it does without it, too");
    command.add_flag("--json", options->json, "Print one JSON array, the counts by name")->excludes(table);
    command.footer("Example:\n  vantro-profile classes --json");
    command.callback([options] { writeOutput(options->json ? asJson() : asTable()); });
}

}  // namespace vantro
