#include "cli/json/collection.h"

#include "cli/json/positions.h"

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

void writePositions(std::span<const BuiltInCollection::Entry> entries, const ResultPositions& positions, JsonOut& out) {
    out.key("positions");
    out.beginObject();
    for (const BuiltInCollection::Entry& entry : entries) {
        const std::vector<KeptPieces>* const pieces = positions.find(entry.key());
        if (pieces == nullptr) continue;
        out.key(entry.key());
        const bool isList = std::holds_alternative<TextList>(entry.Value());
        if (isList) out.beginArray();
        for (const KeptPieces& value : *pieces) writePieces(value, out);
        if (isList) out.endArray();
    }
    out.endObject();
}

}  // namespace

void writeList(const TextList& list, JsonOut& out) {
    out.beginArray();
    for (const Text& entry : list) out.text(entry);
    out.endArray();
}

void writeCollection(const CollectionPtr& collection, JsonOut& out, const ResultPositions* positions) {
    if (!collection) return out.null();
    out.beginObject();
    const auto entries = dynamic_cast<const BuiltInCollection&>(*collection).entries();
    for (const BuiltInCollection::Entry& entry : entries) {
        out.key(entry.key());
        std::visit(ItemWriter{out}, entry.Value());
    }
    if (positions != nullptr) writePositions(entries, *positions, out);
    out.endObject();
}

}  // namespace vantro
