#include "framework/access.h"

#include "framework/int16.h"

#include <utility>

namespace vantro {

ItemPtr Parameters::item(TextView name) const {
    if (collection_ == nullptr) fail(Failure::ObjectNotSet);
    return collection_->Item(name);
}

std::int16_t Parameters::read(const Key<std::int16_t>& key) {
    const ItemPtr stored = item(key.name);
    if (!stored) fail(Failure::ObjectNotSet);
    const std::int16_t value = toInt16(stored->Value());
    if (watch_) watch_.keyRead(key.name, decimal(value));
    return value;
}

ListEntry Parameters::readEntry(const Key<TextList>& key, std::int16_t index) {
    ItemPtr stored = item(key.name);
    if (!stored) fail(Failure::ObjectNotSet);
    const auto* list = std::get_if<TextList>(&stored->Value());
    if (list == nullptr) fail(Failure::TypeMismatch);
    if (index < 0) fail(Failure::SubscriptOutOfRange);
    const auto position = static_cast<std::size_t>(index);
    if (position < stored->firstIndex() || position >= list->size()) fail(Failure::SubscriptOutOfRange);
    watch_.keyRead(key.name, (*list)[position]);
    return {(*list)[position], std::move(stored)};
}

}  // namespace vantro
