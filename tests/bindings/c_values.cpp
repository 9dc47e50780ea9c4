#include "tests/bindings/c_values.h"

#include <stdexcept>

namespace vantro::test {

namespace {

void expectNoError(std::int32_t status) {
    if (status != 0) throw std::runtime_error(vantro_error_description());
}

struct Store {
    vantro_collection* collection;
    TextView key;

    std::int32_t operator()(bool value) const {
        return vantro_collection_set_boolean(collection, argument(key), value ? 1 : 0);
    }
    std::int32_t operator()(std::int16_t value) const {
        return vantro_collection_set_integer(collection, argument(key), value);
    }
    std::int32_t operator()(const Text& value) const {
        return vantro_collection_set_text(collection, argument(key), argument(value));
    }
    std::int32_t operator()(const TextList& value) const {
        std::vector<vantro_text> entries;
        for (const Text& entry : value) entries.push_back(argument(entry));
        return vantro_collection_set_list(collection, argument(key), entries.data(), entries.size());
    }
};

TextList listAt(const vantro_collection* collection, std::size_t entry) {
    TextList list;
    for (std::size_t index = 0; index < vantro_collection_list_size(collection, entry); ++index) {
        list.emplace_back(viewed(vantro_collection_list_entry(collection, entry, index)));
    }
    return list;
}

ItemValue valueAt(const vantro_collection* collection, std::size_t entry) {
    switch (vantro_collection_kind(collection, entry)) {
        case VANTRO_KIND_BOOLEAN: return vantro_collection_boolean(collection, entry) != 0;
        case VANTRO_KIND_INTEGER: return vantro_collection_integer(collection, entry);
        case VANTRO_KIND_TEXT: return Text(viewed(vantro_collection_text(collection, entry)));
        case VANTRO_KIND_LIST: return listAt(collection, entry);
        case VANTRO_KIND_NONE: break;
    }
    throw std::out_of_range("no such entry");
}

}  // namespace

Owned<vantro_collection> cCollection(const Entries& entries) {
    vantro_collection* made = nullptr;
    expectNoError(vantro_collection_new(&made));
    Owned<vantro_collection> collection(made);
    for (const Entry& entry : entries) expectNoError(std::visit(Store{made, entry.key}, entry.value));
    return collection;
}

Entries entriesOf(const vantro_collection* collection) {
    Entries entries;
    for (std::size_t entry = 0; entry < vantro_collection_size(collection); ++entry) {
        entries.emplace_back(viewed(vantro_collection_key(collection, entry)), valueAt(collection, entry));
    }
    return entries;
}

Owned<vantro_object> cObject(TextView className) {
    vantro_object* made = nullptr;
    expectNoError(vantro_object_new(argument(className), &made));
    return Owned<vantro_object>(made);
}

}  // namespace vantro::test
