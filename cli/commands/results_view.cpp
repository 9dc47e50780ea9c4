#include "cli/commands/results_view.h"

#include "cli/commands/table.h"
#include "cli/io/standard_io.h"
#include "cli/io/utf.h"
#include "cli/json/collection.h"
#include "cli/json/positions.h"

namespace vantro {

namespace {

struct RowWriter {
    Table& table;
    const ResultPositions* positions;
    std::string key;
    const std::vector<KeptPieces>* pieces = positions != nullptr ? positions->find(toUtf16(key)) : nullptr;

    void operator()(bool truth) const { add(key, truth ? "True" : "False"); }
    void operator()(std::int16_t number) const { add(key, std::to_string(number)); }
    void operator()(const Text& text) const { add(key, toUtf8(text)); }
    void operator()(const TextList& list) const {
        for (std::size_t i = 0; i < list.size(); ++i) add(key + " " + std::to_string(i), toUtf8(list[i]), i);
        if (list.empty()) add(key, "(no entries)");
    }

    void add(const std::string& name, const std::string& value, std::size_t index = 0) const {
        Table::Row row{name, value};
        const bool isPlaced = pieces != nullptr && index < pieces->size();
        if (positions != nullptr) row.push_back(isPlaced ? placesOf((*pieces)[index]) : "");
        table.add(row);
    }
};

std::string tableOf(const CollectionPtr& results, const ResultPositions* positions) {
    if (!results) return "no results: the response is empty\n";
    const auto entries = dynamic_cast<const BuiltInCollection&>(*results).entries();
    if (entries.empty()) return "no results: the screen shows nothing that is looked for\n";
    Table table(positions != nullptr ? Table::Row{"KEY", "VALUE", "LINE:COLUMNS"} : Table::Row{"KEY", "VALUE"});
    for (const auto& entry : entries) std::visit(RowWriter{table, positions, toUtf8(entry.key())}, entry.Value());
    return table.text(outputLook());
}

}  // namespace

View chosenView(bool table, bool json) {
    if (table) return View::Table;
    return json || !outputIsTerminal() ? View::Json : View::Table;
}

std::string resultsText(const CollectionPtr& results, View view, const ResultPositions* positions) {
    if (view == View::Table) return tableOf(results, positions);
    std::string json;
    JsonOut out(json);
    writeCollection(results, out, positions);
    return json + "\n";
}

}  // namespace vantro
