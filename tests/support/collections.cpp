#include "tests/support/collections.h"

#include "tests/support/failing_terminal.h"
#include "tests/support/text.h"

#include <ostream>
#include <stdexcept>

namespace vantro::test {

namespace {

std::string quoted(TextView text) { return '"' + utf8(text) + '"'; }

std::string printed(const TextList& list) {
    std::string text = "[";
    for (const Text& entry : list) text += (text.size() > 1 ? ", " : "") + quoted(entry);
    return text + "]";
}

const BuiltInCollection& contents(const CollectionPtr& collection) {
    if (const auto* watched = dynamic_cast<const WatchedCollection*>(collection.get())) return watched->inner();
    return dynamic_cast<const BuiltInCollection&>(*collection);
}

}  // namespace

std::string printed(const ItemValue& value) {
    if (const auto* truth = std::get_if<bool>(&value)) return *truth ? "true" : "false";
    if (const auto* number = std::get_if<std::int16_t>(&value)) return std::to_string(*number);
    if (const auto* text = std::get_if<Text>(&value)) return quoted(*text);
    return printed(std::get<TextList>(value));
}

void PrintTo(const Entry& entry, std::ostream* out) { *out << quoted(entry.key) << ": " << printed(entry.value); }

std::shared_ptr<BuiltInCollection> collection(const Entries& entries) {
    auto filled = std::make_shared<BuiltInCollection>();
    for (const Entry& entry : entries) filled->Add(entry.key, entry.value);
    return filled;
}

Entries entriesOf(const CollectionPtr& collection) {
    Entries entries;
    for (const auto& entry : contents(collection).entries()) entries.emplace_back(entry.key(), entry.Value());
    return entries;
}

std::vector<std::string> keysOf(const CollectionPtr& collection) {
    std::vector<std::string> keys;
    for (const Entry& entry : entriesOf(collection)) keys.push_back(utf8(entry.key));
    return keys;
}

std::vector<std::string> flagsOf(const CollectionPtr& collection) {
    std::vector<std::string> keys;
    for (const Entry& entry : entriesOf(collection)) {
        if (entry.value == ItemValue(true)) keys.push_back(utf8(entry.key));
    }
    return keys;
}

ItemValue valueOf(const CollectionPtr& collection, TextView key) {
    for (const Entry& entry : entriesOf(collection)) {
        if (entry.key == key) return entry.value;
    }
    throw std::out_of_range("no key " + utf8(key));
}

}  // namespace vantro::test
