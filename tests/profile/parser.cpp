#include "tests/profile/parser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace vantro {

std::ostream& operator<<(std::ostream& out, const Raised& raised) {
    if (raised.number == 0) return out << "nothing raised";
    return out << "raised " << raised.number << " from " << raised.source << ": " << raised.description;
}

Raised raisedBy(const std::function<void()>& steps) {
    try {
        steps();
    } catch (const Error& error) {
        return {error.number(), utf8(TextView(error.source())), utf8(TextView(error.description()))};
    }
    return {};
}

Raised verifying(int number) {
    return {number, "VantroProfileUtils", "An error has occurred while verifying the profile."};
}

std::string written(const ItemValue& value) {
    if (const auto* const text = std::get_if<Text>(&value)) return "'" + utf8(TextView(*text)) + "'";
    if (const auto* const flag = std::get_if<bool>(&value)) return *flag ? "True" : "False";
    if (const auto* const number = std::get_if<std::int16_t>(&value)) return std::to_string(*number);
    std::string list;
    for (const Text& entry : std::get<TextList>(value))
        list += (list.empty() ? "'" : ", '") + utf8(TextView(entry)) + "'";
    return "[" + list + "]";
}

std::ostream& operator<<(std::ostream& out, const Answer& answer) {
    for (const auto& [key, value] : answer.added) out << "\n    " << key << " = " << value;
    return out << "\n    " << (answer.returnedCollection ? "returned the collection, " : "returned no object, ")
               << answer.raised;
}

Request wanting(const std::string& prefix) { return {.given = {{"strKeyPrefix", wide(prefix)}}}; }

Request wanting(const std::string& prefix, ItemValue index) {
    Request request = wanting(prefix);
    request.given.emplace_back("intKeyIndex", std::move(index));
    return request;
}

Parser::Parser(TextView className, std::unique_ptr<Terminal> terminal)
    : row_(*findClass(className)), terminal_(std::move(terminal)), object_(createObject(row_, *terminal_)) {}

int Parser::count(const std::string& property, const CountRequest& request) {
    const CountProperty* const found = findCount(row_, wide(property));
    if (found == nullptr) throw std::invalid_argument("no property " + property);
    return found->call(*object_, request);
}

Texts Parser::list(const std::string& name) const {
    const TextList* const found = object_->list(wide(name));
    if (found == nullptr) throw std::invalid_argument("no list " + name);
    return utf8(*found);
}

Answer Parser::query(TextView display, const Request& request) {
    const auto collection = std::make_shared<BuiltInCollection>();
    for (const auto& [key, value] : request.given) collection->Add(wide(key), value);
    Answer answer;
    answer.raised = raisedBy([&] {
        const CollectionPtr result =
            object_->profileGet()->ProfileElements(display, collection, request.selection, request.qualifier);
        if (result != nullptr && result != collection) throw std::logic_error("returned another collection");
        answer.returnedCollection = result != nullptr;
    });
    for (const BuiltInCollection::Entry& entry : collection->entries()) {
        const auto isInRequest = [&](const auto& given) {
            return wide(given.first) == entry.key() && given.second == entry.Value();
        };
        if (std::ranges::any_of(request.given, isInRequest)) continue;
        answer.added.emplace_back(utf8(TextView(entry.key())), written(entry.Value()));
    }
    return answer;
}

std::ostream& operator<<(std::ostream& out, const Elements& elements) {
    return out << elements.count << " elements " << testing::PrintToString(elements.texts) << " numbered "
               << testing::PrintToString(elements.numbers);
}

Elements collected(const std::string& stem, TextView display) {
    Parser parser;
    const int count = parser.count(stem + "ElementsCount", display);
    return {count, parser.list("str" + stem + "Text"), parser.list("str" + stem + "Number")};
}

}  // namespace vantro
