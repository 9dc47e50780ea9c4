#include "bindings/c/handles.h"

#include <algorithm>

namespace vantro::c {

namespace {

const ItemValue* valueAt(const vantro_collection* collection, std::size_t entry) {
    if (collection == nullptr || entry >= collection->collection->entries().size()) return nullptr;
    return &collection->collection->entries()[entry].Value();
}

/// The value if it is of this kind, or null.
template <class Value>
const Value* valueAs(const vantro_collection* collection, std::size_t entry) {
    const ItemValue* const value = valueAt(collection, entry);
    return value != nullptr ? std::get_if<Value>(value) : nullptr;
}

struct KindOf {
    vantro_kind operator()(bool /*value*/) const { return VANTRO_KIND_BOOLEAN; }
    vantro_kind operator()(std::int16_t /*value*/) const { return VANTRO_KIND_INTEGER; }
    vantro_kind operator()(const Text& /*value*/) const { return VANTRO_KIND_TEXT; }
    vantro_kind operator()(const TextList& /*value*/) const { return VANTRO_KIND_LIST; }
};

std::int32_t store(vantro_collection* collection, const vantro_text& key, ItemValue value) {
    collection->collection->Add(TextArgument(key).view(), std::move(value));
    return 0;
}

}  // namespace

}  // namespace vantro::c

using namespace vantro;
using namespace vantro::c;

std::int32_t vantro_collection_new(vantro_collection** collection) {
    *collection = nullptr;
    return guarded([&] { *collection = new vantro_collection{std::make_shared<BuiltInCollection>()}; });
}

void vantro_collection_free(vantro_collection* collection) { delete collection; }

std::int32_t vantro_collection_set_text(vantro_collection* collection, vantro_text key, vantro_text value) {
    return guarded([&] { store(collection, key, TextArgument(value).text()); });
}

std::int32_t vantro_collection_set_boolean(vantro_collection* collection, vantro_text key, std::int32_t value) {
    return guarded([&] { store(collection, key, value != 0); });
}

std::int32_t vantro_collection_set_integer(vantro_collection* collection, vantro_text key, std::int16_t value) {
    return guarded([&] { store(collection, key, value); });
}

std::int32_t vantro_collection_set_list(vantro_collection* collection, vantro_text key, const vantro_text* entries,
                                        std::size_t count) {
    return guarded([&] {
        TextList list;
        list.reserve(count);
        for (std::size_t index = 0; index < count; ++index) list.push_back(TextArgument(entries[index]).text());
        store(collection, key, std::move(list));
    });
}

std::size_t vantro_collection_size(const vantro_collection* collection) {
    return collection != nullptr ? collection->collection->entries().size() : 0;
}

std::ptrdiff_t vantro_collection_find(const vantro_collection* collection, vantro_text key) {
    if (collection == nullptr) return -1;
    return guardedOr(std::ptrdiff_t{-1}, [&] {
        const TextArgument wanted(key);
        const auto entries = collection->collection->entries();
        const auto found = std::ranges::find(entries, wanted.view(), &BuiltInCollection::Entry::key);
        return found != entries.end() ? found - entries.begin() : -1;
    });
}

vantro_view vantro_collection_key(const vantro_collection* collection, std::size_t entry) {
    const bool isEntry = valueAt(collection, entry) != nullptr;
    return viewOf(isEntry ? TextView(collection->collection->entries()[entry].key()) : TextView());
}

vantro_kind vantro_collection_kind(const vantro_collection* collection, std::size_t entry) {
    const ItemValue* const value = valueAt(collection, entry);
    return value != nullptr ? std::visit(KindOf(), *value) : VANTRO_KIND_NONE;
}

vantro_view vantro_collection_text(const vantro_collection* collection, std::size_t entry) {
    const Text* const text = valueAs<Text>(collection, entry);
    return viewOf(text != nullptr ? TextView(*text) : TextView());
}

std::int32_t vantro_collection_boolean(const vantro_collection* collection, std::size_t entry) {
    const bool* const value = valueAs<bool>(collection, entry);
    return value != nullptr && *value ? 1 : 0;
}

std::int16_t vantro_collection_integer(const vantro_collection* collection, std::size_t entry) {
    const std::int16_t* const value = valueAs<std::int16_t>(collection, entry);
    return value != nullptr ? *value : std::int16_t{0};
}

std::size_t vantro_collection_list_size(const vantro_collection* collection, std::size_t entry) {
    const TextList* const list = valueAs<TextList>(collection, entry);
    return list != nullptr ? list->size() : 0;
}

vantro_view vantro_collection_list_entry(const vantro_collection* collection, std::size_t entry, std::size_t index) {
    const TextList* const list = valueAs<TextList>(collection, entry);
    return viewOf(list != nullptr && index < list->size() ? TextView((*list)[index]) : TextView());
}
