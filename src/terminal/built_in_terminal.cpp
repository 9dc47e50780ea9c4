#include "vantro/built_in_terminal.h"

#include "framework/int16.h"
#include "framework/screen.h"
#include "framework/text_ops.h"

#include <algorithm>

namespace vantro {

namespace {

constexpr char16_t lowerCase(char16_t character) {
    return character >= u'A' && character <= u'Z' ? static_cast<char16_t>(character - u'A' + u'a') : character;
}

bool equalsIgnoringCase(TextView text, TextView lowerCased) {
    return std::ranges::equal(text, lowerCased, {}, lowerCase);
}

bool truthOf(TextView text) {
    if (text.empty() || equalsIgnoringCase(text, u"false")) return false;
    if (equalsIgnoringCase(text, u"true")) return true;
    if (text.front() == u'+' || text.front() == u'-') text.remove_prefix(1);
    if (!isNumeric(text)) fail(Failure::TypeMismatch);
    return text.find_first_not_of(u'0') != TextView::npos;
}

// Up to this size a collection is searched from front to back; a larger one keeps the indexes of its keys.
constexpr std::size_t fewKeys = 32;

}  // namespace

std::size_t BuiltInCollection::indexOf(TextView key) const {
    if (!indexes_.empty()) {
        const auto known = indexes_.find(Text(key));
        return known == indexes_.end() ? absent : known->second;
    }
    const auto entry = std::ranges::find_if(entries_, [&](const Entry& stored) {
        return stored.key_.size() == key.size() && beginsWith(stored.key_, key);
    });
    return entry == entries_.end() ? absent : static_cast<std::size_t>(entry - entries_.begin());
}

void BuiltInCollection::Add(TextView key, ItemValue value) { store(key, std::move(value), {}); }

void BuiltInCollection::AddShared(TextView key, std::shared_ptr<const ItemValue> value) {
    store(key, {}, std::move(value));
}

void BuiltInCollection::store(TextView key, ItemValue&& value, std::shared_ptr<const ItemValue>&& shared) {
    if (const std::size_t index = indexOf(key); index != absent) {
        entries_[index].value_ = std::move(value);
        entries_[index].shared_ = std::move(shared);
        return;
    }
    // All allocations come before the first change, so that a call that fails leaves the collection unchanged.
    constexpr std::size_t usualKeys = 8;
    if (entries_.size() == entries_.capacity()) entries_.reserve(std::max(usualKeys, 2 * entries_.size()));
    if (entries_.size() < fewKeys) {
        entries_.emplace_back(key, std::move(value), std::move(shared));
        return;
    }
    Entry added(key, std::move(value), std::move(shared));
    addIndexOfNext(added.key());
    entries_.push_back(std::move(added));
}

void BuiltInCollection::addIndexOfNext(const Text& key) {
    if (!indexes_.empty()) {
        indexes_.emplace(key, entries_.size());
        return;
    }
    std::unordered_map<Text, std::size_t> indexes;
    for (std::size_t index = 0; index < entries_.size(); ++index) indexes.emplace(entries_[index].key(), index);
    indexes.emplace(key, entries_.size());
    indexes_ = std::move(indexes);
}

ItemPtr BuiltInCollection::Item(TextView key) const {
    const std::size_t index = indexOf(key);
    // The item is the entry itself, so the pointer has no owner: nothing is allocated or counted.
    return index == absent ? ItemPtr() : ItemPtr(std::shared_ptr<void>(), &entries_[index]);
}

TextView BuiltInTerminal::ItemText(const ItemPtr& item, TextStore& store) {
    if (!item) return {};
    const ItemValue& value = item->Value();
    if (const auto* text = std::get_if<Text>(&value)) return *text;
    if (const auto* truth = std::get_if<bool>(&value)) return *truth ? u"True" : u"False";
    if (const auto* number = std::get_if<std::int16_t>(&value)) return store.keep(decimal(*number));
    fail(Failure::TypeMismatch);
}

bool BuiltInTerminal::ItemBoolean(const ItemPtr& item) {
    if (!item) return false;
    const ItemValue& value = item->Value();
    if (const auto* truth = std::get_if<bool>(&value)) return *truth;
    if (const auto* number = std::get_if<std::int16_t>(&value)) return *number != 0;
    if (const auto* text = std::get_if<Text>(&value)) return truthOf(*text);
    fail(Failure::TypeMismatch);
}

TextView BuiltInTerminal::ScreenLine(TextView response, std::int16_t line, TextStore& /*store*/) {
    if (line < 0) fail(Failure::InvalidProcedureCall);
    return lineByPosition(response, line);
}

// The built-in library searches the whole screen, whatever the line argument.
bool BuiltInTerminal::FindMarker(TextView response, TextView marker, std::int16_t /*line*/) {
    return contains(response, marker);
}

TextView BuiltInTerminal::TextField(TextView text, std::int16_t number, TextView separator, TextStore& /*store*/) {
    for (std::int16_t field = 1;; ++field) {
        const std::size_t end = separator.empty() ? TextView::npos : text.find(separator);
        if (field >= number) return number < 1 ? TextView{} : text.substr(0, end);
        if (end == TextView::npos) return {};
        text.remove_prefix(end + separator.size());
    }
}

void BuiltInTerminal::ReportError(const Error& current, const Error* replacement) {
    if (sink_) sink_(replacement != nullptr ? *replacement : current);
}

}  // namespace vantro
