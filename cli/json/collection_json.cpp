#include "cli/json/collection_json.h"

#include "cli/io/failure.h"
#include "cli/json/json_values.h"

#include <variant>

namespace vantro {

namespace {

struct ItemWriter {
    JsonOut& out;

    void operator()(bool truth) const { out.boolean(truth); }
    void operator()(std::int16_t number) const { out.number(number); }
    void operator()(const Text& text) const { out.text(text); }
    void operator()(const TextList& list) const { writeList(list, out); }
};

}  // namespace

void writeList(const TextList& list, JsonOut& out) {
    out.beginArray();
    for (const Text& entry : list) out.text(entry);
    out.endArray();
}

void writeCollection(const CollectionPtr& collection, JsonOut& out) {
    if (!collection) return out.null();
    out.beginObject();
    for (const BuiltInCollection::Entry& entry : dynamic_cast<const BuiltInCollection&>(*collection).entries()) {
        out.key(entry.key());
        std::visit(ItemWriter{out}, entry.Value());
    }
    out.endObject();
}

std::shared_ptr<BuiltInCollection> collectionFromJson(std::string json, const std::string& name) {
    CollectionReader reader;
    const std::size_t length = json.size();
    json.append(jsonPadding, '\0');
    reader.begin();
    const JsonOutcome outcome = readJson(std::span(json).first(length), reader);
    const std::string& problem = outcome.problem.empty() ? reader.fault() : outcome.problem;
    if (!problem.empty()) {
        throw UsageError(name + ": " + asClause(problem) + "; give the JSON object that verify --json printed");
    }
    return reader.collection();
}

}  // namespace vantro
