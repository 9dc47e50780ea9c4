// The built-in collection against a list of pairs: the bytes are operations with keys and values.
#include "framework/int16.h"
#include "fuzz/common/compare.h"
#include "fuzz/common/input.h"

#include <algorithm>

namespace vantro::fuzz {

namespace {

/// A result, or the error number instead.
template <class Result>
struct Outcome {
    Result result{};
    int error = 0;

    friend bool operator==(const Outcome&, const Outcome&) = default;
};

template <class Steps>
auto outcomeOf(Steps&& steps) {
    Outcome<decltype(steps())> outcome;
    try {
        outcome.result = steps();
    } catch (const Error& error) {
        outcome.error = error.number();
    } catch (const oracle::Failure& failure) {
        outcome.error = failure.number;
    }
    return outcome;
}

class Comparison {
public:
    std::string add(const std::string& key, const ItemValue& value) {
        collection_.Add(Text(key.begin(), key.end()), value);
        model_.add(key, oracleValue(value));
        return same(&collection_, &model_) ? std::string() : mismatch("Add of " + key);
    }

    std::string look(const std::string& key) {
        const ItemPtr item = collection_.Item(Text(key.begin(), key.end()));
        const oracle::Value* const expected = model_.item(key);
        if ((item == nullptr) != (expected == nullptr)) return mismatch("only one has " + key);
        if (item != nullptr && !same(item->Value(), *expected)) return mismatch("Item of " + key);
        return convert(item, expected, key);
    }

private:
    std::string convert(const ItemPtr& item, const oracle::Value* expected, const std::string& key) {
        TerminalFunctions& functions = terminal_.functions();
        TextStore store;
        const auto text = outcomeOf([&] { return Text(functions.ItemText(item, store)); });
        if (text != outcomeOf([&] { return oracle::itemText(expected); })) return mismatch("ItemText of " + key);
        const auto truth = outcomeOf([&] { return functions.ItemBoolean(item); });
        if (truth != outcomeOf([&] { return oracle::itemBoolean(expected); })) return mismatch("ItemBoolean of " + key);
        if (item == nullptr) return {};
        const auto number = outcomeOf([&] { return int{toInt16(item->Value())}; });
        if (number != outcomeOf([&] { return oracle::toInteger16(*expected); })) return mismatch("toInt16 of " + key);
        return {};
    }

    std::string mismatch(const std::string& what) const {
        const oracle::Collection held = oracleCollection(collection_);
        return what + "\nthe collection contains " + shown(&held) + "\nexpected " + shown(&model_) + "\n";
    }

    BuiltInTerminal terminal_;
    BuiltInCollection collection_;
    oracle::Collection model_;
};

constexpr TextView valueKey[] = {u""};

}  // namespace

// Every line is an operation: "+" adds, anything else reads. The key ends at a colon; the value follows, its kind
// first.
std::string collections(Bytes bytes) {
    std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    Comparison comparison;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        const bool adds = line.starts_with('+');
        if (adds) line.remove_prefix(1);
        const std::size_t keyEnd = std::min(line.find(':'), line.size());
        std::string key;
        for (const char byte : line.substr(0, keyEnd)) key.push_back(static_cast<char>(byte & 0x7F));
        std::string message;
        if (adds) {
            const std::string field = "A" + std::string(line.substr(std::min(keyEnd + 1, line.size()))) + " ";
            message = comparison.add(key, itemOf(std::string_view(field).substr(0, field.size() - 1), valueKey)
                                              .value_or(Item(Text(), ItemValue(Text())))
                                              .second);
        }
        if (message.empty()) message = comparison.look(key);
        if (!message.empty()) return message;
    }
    return {};
}

}  // namespace vantro::fuzz
