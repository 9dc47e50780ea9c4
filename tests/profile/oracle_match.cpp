#include "tests/profile/oracle_match.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <stdexcept>

namespace vantro {

namespace {

constexpr std::array contents{"Text", "Number", "Code", "Carrier", "Account", "FreeText", "Detail"};

oracle::Value oracleValue(const ItemValue& value) {
    if (const auto* const number = std::get_if<std::int16_t>(&value)) return static_cast<int>(*number);
    if (const auto* const flag = std::get_if<bool>(&value)) return *flag;
    if (const auto* const text = std::get_if<Text>(&value)) return *text;
    return std::get<TextList>(value);
}

ItemValue itemValue(const oracle::Value& value) {
    if (const auto* const number = std::get_if<int>(&value)) return static_cast<std::int16_t>(*number);
    if (const auto* const flag = std::get_if<bool>(&value)) return *flag;
    if (const auto* const text = std::get_if<Text>(&value)) return *text;
    return std::get<TextList>(value);
}

struct Outcome {
    int count = 0;
    int error = 0;

    friend bool operator==(const Outcome&, const Outcome&) = default;
};

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
    return outcome.error != 0 ? out << "error " << outcome.error : out << "count " << outcome.count;
}

std::string listsOf(const std::vector<std::string>& names, const std::vector<const TextList*>& lists) {
    std::string text;
    for (std::size_t index = 0; index < names.size(); ++index) {
        text += "    " + names[index] + " = " + written(*lists[index]) + "\n";
    }
    return text;
}

}  // namespace

OracleMatch::OracleMatch(std::unique_ptr<Terminal> terminal) : parser_(u"CProfile", std::move(terminal)) {
    for (const CountProperty& property : findClass(u"CProfile")->counts) {
        MatchedProperty& matched = properties_.emplace_back(MatchedProperty{utf8(property.name), &property});
        const std::string stem = matched.name.substr(0, matched.name.find("ElementsCount"));
        if (matched.name.ends_with("old")) continue;
        for (const char* const content : contents) {
            const std::string name = "str" + stem + content;
            const auto expected = oracle_.lists.find(name);
            const TextList* const list = parser_.object().list(wide(name));
            if ((expected == oracle_.lists.end()) != (list == nullptr)) {
                throw std::logic_error("the library or profile_oracle.cpp has no list " + name);
            }
            if (list == nullptr) continue;
            matched.lists.push_back(list);
            matched.expected.push_back(&expected->second);
            matched.listNames.push_back(name);
        }
    }
}

const MatchedProperty& OracleMatch::propertyOf(const std::string& stem) const {
    const auto found = std::ranges::find(properties_, stem + "ElementsCount", &MatchedProperty::name);
    if (found == properties_.end()) throw std::invalid_argument("no property of " + stem);
    return *found;
}

std::string OracleMatch::count(const MatchedProperty& property, const Text& display) {
    Outcome outcome;
    Outcome expected;
    try {
        outcome.count = property.property->call(parser_.object(), CountRequest{display});
    } catch (const Error& error) {
        outcome.error = error.number();
    }
    try {
        expected.count = oracle_.count(property.name, display);
    } catch (const oracle::Failure& failure) {
        expected.error = failure.number;
    }
    const auto same = [](const TextList* list, const TextList* other) { return *list == *other; };
    if (outcome == expected && std::ranges::equal(property.lists, property.expected, same)) return {};
    std::ostringstream message;
    message << property.name << " gave " << outcome << "\n"
            << listsOf(property.listNames, property.lists) << "  expected " << expected << "\n"
            << listsOf(property.listNames, property.expected) << "  for " << drawn(display);
    return message.str();
}

std::string OracleMatch::query(const Text& display, const Request& request) {
    std::optional<TextList> selection;
    if (request.selection != nullptr) selection = *request.selection;
    Request own = request;
    TextList changed = selection.value_or(TextList{});
    if (selection) own.selection = &changed;

    const Answer answer = bare(parser_.query(display, own));
    const Answer expected = answerOf(request, [&](oracle::Collection& collection) {
        return oracle_.profileElements(display, collection, selection ? &*selection : nullptr, request.qualifier)
            .returnedCollection;
    });
    const std::string what = request.given.empty() ? "no prefix" : written(request.given.front().second);
    if (answer != expected) return differenceMessage(display, what, answer, expected);
    if (selection && changed != *selection)
        return "the selection became " + written(changed) + " for " + drawn(display);
    return {};
}

Answer answerOf(const Request& request, const std::function<bool(oracle::Collection&)>& ask) {
    oracle::Collection collection;
    for (const auto& [key, value] : request.given) collection.add(key, oracleValue(value));
    Answer answer;
    try {
        answer.returnedCollection = ask(collection);
    } catch (const oracle::Failure& failure) {
        answer.raised.number = failure.number;
    }
    for (std::size_t index = request.given.size(); index < collection.entries.size(); ++index) {
        const auto& [key, value] = collection.entries[index];
        answer.added.emplace_back(key, written(itemValue(value)));
    }
    return answer;
}

Answer bare(Answer answer) {
    answer.raised = Raised{answer.raised.number};
    return answer;
}

std::string differenceMessage(const Text& display, const std::string& what, const Answer& answer,
                              const Answer& expected) {
    std::ostringstream message;
    message << what << ": " << answer << "\n  expected " << expected << "\n  for " << drawn(display);
    return message.str();
}

}  // namespace vantro
