#include "cli/commands/results_view.h"

#include "cli/commands/table.h"
#include "cli/io/standard_io.h"
#include "cli/io/utf.h"
#include "cli/json/collection.h"

namespace vantro {

namespace {

struct RowWriter {
    Table& table;
    std::string key;

    void operator()(bool truth) const { table.add({key, truth ? "True" : "False"}); }
    void operator()(std::int16_t number) const { table.add({key, std::to_string(number)}); }
    void operator()(const Text& text) const { table.add({key, toUtf8(text)}); }
    void operator()(const TextList& list) const {
        for (std::size_t i = 0; i < list.size(); ++i) {
            table.add({key + " " + std::to_string(i), toUtf8(list[i])});
        }
        if (list.empty()) table.add({key, "(no entries)"});
    }
};

std::string tableOf(const CollectionPtr& results) {
    if (!results) return "no results: the response is empty\n";
    const auto entries = dynamic_cast<const BuiltInCollection&>(*results).entries();
    if (entries.empty()) return "no results: the screen shows nothing that is looked for\n";
    Table table({"KEY", "VALUE"});
    for (const auto& entry : entries) std::visit(RowWriter{table, toUtf8(entry.key())}, entry.Value());
    return table.text(outputLook());
}

}  // namespace

View chosenView(bool table, bool json) {
    if (table) return View::Table;
    return json || !outputIsTerminal() ? View::Json : View::Table;
}

std::string resultsText(const CollectionPtr& results, View view) {
    if (view == View::Table) return tableOf(results);
    std::string json;
    JsonOut out(json);
    writeCollection(results, out);
    return json + "\n";
}

}  // namespace vantro
