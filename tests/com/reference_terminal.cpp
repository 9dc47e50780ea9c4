#include "tests/com/reference_terminal.h"

#include "tests/support/text.h"

namespace vantro::test {

namespace {

class ScriptedItem final : public KeyedItem {
public:
    ScriptedItem(std::shared_ptr<CallScript> script, const KeyedItem& item)
        : script_(std::move(script)), entry_(std::make_shared<BuiltInCollection::Entry>(TextView{}, item.Value())) {}

    const ItemValue& Value() const override {
        static const ItemValue nothing = Text();
        return script_->enter("Value") ? nothing : entry_->Value();
    }

    ItemPtr entry() const { return entry_; }

private:
    std::shared_ptr<CallScript> script_;
    std::shared_ptr<BuiltInCollection::Entry> entry_;
};

class ScriptedCollection final : public KeyedCollection {
public:
    ScriptedCollection(std::shared_ptr<CallScript> script, std::shared_ptr<BuiltInCollection> inner)
        : script_(std::move(script)), inner_(std::move(inner)) {}

    // The result of `Add` is not used, so the item is added in any case.
    void Add(TextView key, ItemValue value) override {
        script_->enter("Add " + utf8(key));
        inner_->Add(key, std::move(value));
    }

    ItemPtr Item(TextView key) const override {
        const bool absent = script_->enter("Item " + utf8(key));
        const ItemPtr item = absent ? nullptr : inner_->Item(key);
        return item ? std::make_shared<ScriptedItem>(script_, *item) : nullptr;
    }

    CollectionPtr inner() const { return inner_; }

private:
    std::shared_ptr<CallScript> script_;
    std::shared_ptr<BuiltInCollection> inner_;
};

ItemPtr unscripted(const ItemPtr& item) {
    return item ? static_cast<const ScriptedItem&>(*item).entry() : item;  // every item came from ScriptedCollection
}

}  // namespace

bool CallScript::enter(std::string call) {
    calls_.push_back(std::move(call));
    if (static_cast<long>(calls_.size()) != chosen_) return false;
    if (ending_.kind == Ending::Kind::Raised) throw Error(*ending_.error);
    return ending_.kind == Ending::Kind::Absent;
}

ReferenceTerminal::ReferenceTerminal(long chosen, Ending ending, std::optional<Error> failedReport)
    : script_(std::make_shared<CallScript>(chosen, std::move(ending))), failedReport_(std::move(failedReport)) {}

CollectionPtr ReferenceTerminal::createCollection() {
    script_->enter("createCollection");
    return watched(std::make_shared<BuiltInCollection>());
}

CollectionPtr ReferenceTerminal::watched(std::shared_ptr<BuiltInCollection> collection) const {
    return collection ? std::make_shared<ScriptedCollection>(script_, std::move(collection)) : nullptr;
}

CollectionPtr ReferenceTerminal::inner(const CollectionPtr& collection) {
    return collection ? static_cast<const ScriptedCollection&>(*collection).inner() : nullptr;
}

TextView ReferenceTerminal::ItemText(const ItemPtr& item, TextStore& store) {
    if (script_->enter("ItemText")) return {};
    return store.keep(Text(inner_.functions().ItemText(unscripted(item), store)));
}

bool ReferenceTerminal::ItemBoolean(const ItemPtr& item) {
    return !script_->enter("ItemBoolean") && inner_.functions().ItemBoolean(unscripted(item));
}

TextView ReferenceTerminal::ScreenLine(TextView response, std::int16_t line, TextStore& store) {
    const bool absent = script_->enter("ScreenLine " + std::to_string(line));
    return absent ? TextView() : inner_.functions().ScreenLine(response, line, store);
}

bool ReferenceTerminal::FindMarker(TextView response, TextView marker, std::int16_t line) {
    const bool absent = script_->enter("FindMarker " + utf8(marker) + " at " + std::to_string(line));
    return !absent && inner_.functions().FindMarker(response, marker, line);
}

TextView ReferenceTerminal::TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) {
    const bool absent = script_->enter("TextField " + std::to_string(number));
    return absent ? TextView() : inner_.functions().TextField(text, number, separator, store);
}

void ReferenceTerminal::ReportError(const Error& current, const Error* replacement) {
    if (failedReport_) throw Error(*failedReport_);
    reported_.push_back(replacement != nullptr ? replacement->number() : current.number());
}

}  // namespace vantro::test
