#include "tests/support/recorder.h"

#include <utility>

namespace vantro::test {

class RecordingTerminal::Recorded final : public KeyedCollection {
public:
    Recorded(RecordingTerminal& terminal, std::shared_ptr<BuiltInCollection> inner)
        : terminal_(terminal), inner_(std::move(inner)) {}

    void Add(TextView key, ItemValue value) override {
        terminal_.record_.added.emplace_back(key, value);
        inner_->Add(key, std::move(value));
    }

    ItemPtr Item(TextView key) const override {
        terminal_.noteUnread();
        terminal_.lastAsked_ = key;
        return inner_->Item(key);
    }

private:
    RecordingTerminal& terminal_;
    std::shared_ptr<BuiltInCollection> inner_;
};

CollectionPtr RecordingTerminal::recorded(std::shared_ptr<BuiltInCollection> collection) {
    return collection ? std::make_shared<Recorded>(*this, std::move(collection)) : nullptr;
}

Record RecordingTerminal::take() {
    noteUnread();
    return std::exchange(record_, {});
}

// An item that neither function was asked about is read through its value.
void RecordingTerminal::noteUnread() {
    if (!lastAsked_.empty()) note(Reading::AsValue);
}

void RecordingTerminal::note(Reading reading) {
    const Text key = std::exchange(lastAsked_, {});
    if (!record_.asked.contains(key)) record_.firstAsked.push_back(key);
    record_.asked[key].insert(reading);
}

TextView RecordingTerminal::ItemText(const ItemPtr& item, TextStore& store) {
    note(Reading::AsText);
    return inner_.functions().ItemText(item, store);
}

bool RecordingTerminal::ItemBoolean(const ItemPtr& item) {
    note(Reading::AsBoolean);
    return inner_.functions().ItemBoolean(item);
}

TextView RecordingTerminal::ScreenLine(TextView response, std::int16_t line, TextStore& store) {
    return inner_.functions().ScreenLine(response, line, store);
}

bool RecordingTerminal::FindMarker(TextView response, TextView marker, std::int16_t line) {
    return inner_.functions().FindMarker(response, marker, line);
}

TextView RecordingTerminal::TextField(TextView text, std::int16_t number, TextView separator, TextStore& store) {
    return inner_.functions().TextField(text, number, separator, store);
}

void RecordingTerminal::ReportError(const Error& /*current*/, const Error* /*replacement*/) { ++record_.reports; }

}  // namespace vantro::test
