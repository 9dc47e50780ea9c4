#include "cli/commands/commands.h"
#include "cli/commands/table.h"
#include "cli/io/failure.h"
#include "cli/io/standard_io.h"
#include "cli/io/utf.h"
#include "cli/json/output.h"
#include "vantro/registry.h"

#include <string>
#include <vector>

namespace vantro {

namespace {

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
    return table.text(outputLook());
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

int runClasses(const ClassesOptions& options) {
    writeOutput(options.json ? asJson() : asTable());
    return success;
}

}  // namespace vantro
