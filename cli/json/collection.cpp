#include "cli/json/collection.h"

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

}  // namespace vantro
