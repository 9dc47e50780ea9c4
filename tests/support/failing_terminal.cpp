#include "tests/support/failing_terminal.h"

#include "tests/support/text.h"

#include <new>
#include <stdexcept>

namespace vantro::test {

namespace {

/// A copy of an entry, so that a view kept longer than the item dangles and the sanitizer sees it.
class WatchedItem final : public KeyedItem {
public:
    WatchedItem(std::shared_ptr<CallLog> log, const KeyedItem& item)
        : log_(std::move(log)), entry_(std::make_shared<BuiltInCollection::Entry>(TextView{}, item.Value())) {}

    const ItemValue& Value() const override {
        log_->note("Value");
        return entry_->Value();
    }

    ItemPtr entry() const { return entry_; }

private:
    std::shared_ptr<CallLog> log_;
    std::shared_ptr<BuiltInCollection::Entry> entry_;
};

/// A value that no reader of the key can use: a text instead of a list, a list instead of anything else.
class WrongItem final : public KeyedItem {
public:
    explicit WrongItem(bool insteadOfList)
        : value_(insteadOfList ? ItemValue(Text(u"no list")) : ItemValue(TextList{u"a list"})) {}

    const ItemValue& Value() const override { return value_; }

private:
    ItemValue value_;
};

ItemPtr unwatched(const ItemPtr& item) {
    const auto* watched = dynamic_cast<const WatchedItem*>(item.get());
    return watched != nullptr ? watched->entry() : item;
}

}  // namespace

void raise(FailureKind kind) {
    switch (kind) {
        case FailureKind::TerminalsError: throw CallLog::failure();
        case FailureKind::StandardException: throw std::runtime_error(exceptionsText);
        case FailureKind::NoException: throw thrownNumber;
        case FailureKind::OutOfMemory: throw std::bad_alloc();
        case FailureKind::WrongKind:
        case FailureKind::AbsentItem: break;
    }
    throw std::logic_error("this kind of failure is an answer");
}

bool CallLog::note(std::string call) {
    const bool isItem = call.starts_with("Item ");
    calls_.push_back(std::move(call));
    if (static_cast<int>(calls_.size()) != failing_.call) return false;
    if (isItem && (failing_.kind == FailureKind::WrongKind || failing_.kind == FailureKind::AbsentItem)) return true;
    raise(failing_.kind);
}

void CallLog::noteReport() {
    if (failing_.reports <= 0) return;
    --failing_.reports;
    raise(failing_.kind);
}

void WatchedCollection::Add(TextView key, ItemValue value) {
    log_->note("Add " + utf8(key));
    inner_->Add(key, std::move(value));
}

ItemPtr WatchedCollection::Item(TextView key) const {
    if (log_->note("Item " + utf8(key))) {
        if (log_->kind() == FailureKind::AbsentItem) return nullptr;
        return std::make_shared<WatchedItem>(log_, WrongItem(key.ends_with(u"()")));
    }
    const ItemPtr item = inner_->Item(key);
    return item ? std::make_shared<WatchedItem>(log_, *item) : nullptr;
}

CollectionPtr FailingTerminal::watched(std::shared_ptr<BuiltInCollection> collection) const {
    return collection ? std::make_shared<WatchedCollection>(log_, std::move(collection)) : nullptr;
}

CollectionPtr FailingTerminal::createCollection() {
    log_->note("createCollection");
    return watched(std::make_shared<BuiltInCollection>());
}

TextView FailingTerminal::ItemText(const ItemPtr& item, TextStore& store) {
    log_->note("ItemText");
    return store.keep(Text(inner_.functions().ItemText(unwatched(item), store)));
}

bool FailingTerminal::ItemBoolean(const ItemPtr& item) {
    log_->note("ItemBoolean");
    return inner_.functions().ItemBoolean(unwatched(item));
}

TextView FailingTerminal::ScreenLine(TextView response, std::int16_t line, TextStore& store) {
    log_->note("ScreenLine " + std::to_string(line));
    return store.keep(Text(inner_.functions().ScreenLine(response, line, store)));
}

bool FailingTerminal::FindMarker(TextView response, TextView marker, std::int16_t line) {
    log_->note("FindMarker " + utf8(marker) + " at " + std::to_string(line));
    return inner_.functions().FindMarker(response, marker, line);
}

TextView FailingTerminal::TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) {
    log_->note("TextField " + std::to_string(number));
    return store.keep(Text(inner_.functions().TextField(text, number, separator, store)));
}

void FailingTerminal::ReportError(const Error& current, const Error* replacement) {
    log_->noteReport();
    reports_.push_back({current, replacement != nullptr ? std::make_shared<const Error>(*replacement) : nullptr});
}

}  // namespace vantro::test
