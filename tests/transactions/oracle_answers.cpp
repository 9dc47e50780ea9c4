#include "tests/transactions/oracle_answers.h"

#include "tests/support/text.h"

namespace vantro::test {

namespace {

oracle::Value oracleValue(const ItemValue& value) {
    if (const auto* truth = std::get_if<bool>(&value)) return *truth;
    if (const auto* number = std::get_if<std::int16_t>(&value)) return int{*number};
    if (const auto* text = std::get_if<Text>(&value)) return *text;
    return std::get<TextList>(value);
}

std::string printed(const oracle::Value& value) {
    if (const auto* truth = std::get_if<bool>(&value)) return *truth ? "True" : "False";
    if (const auto* number = std::get_if<int>(&value)) return std::to_string(*number);
    if (const auto* text = std::get_if<Text>(&value)) return "\"" + utf8(*text) + "\"";
    std::string list;
    for (const Text& entry : std::get<TextList>(value)) list += (list.empty() ? "\"" : ", \"") + utf8(entry) + "\"";
    return "[" + list + "]";
}

}  // namespace

std::string printed(const OracleAnswer& answer) {
    if (answer.error != 0) return "error " + std::to_string(answer.error);
    if (!answer.hasCollection) return "no collection";
    std::string text;
    for (const auto& [key, value] : answer.entries) text += "\n  " + key + " = " + printed(value);
    return text + "\n";
}

oracle::Collection oracleCollection(const Entries& entries) {
    oracle::Collection collection;
    for (const Entry& entry : entries) collection.add(utf8(entry.key), oracleValue(entry.value));
    return collection;
}

OracleAnswer libraryAnswer(DrivenClass& driven, const Text& response, const std::optional<Entries>& state) {
    try {
        const CollectionPtr results = driven.read(response, state ? collection(*state) : nullptr);
        if (results == nullptr) return {};
        return {oracleCollection(entriesOf(results)).entries, 0, true};
    } catch (const Error& error) {
        return {{}, error.number(), false};
    }
}

OracleAnswer oracleAnswer(oracle::Verify verify, const Text& response, const std::optional<Entries>& state) {
    std::optional<oracle::Collection> given;
    if (state) given = oracleCollection(*state);
    try {
        const auto results = verify(response, given ? &*given : nullptr);
        if (!results) return {};
        return {results->entries, 0, true};
    } catch (const oracle::Failure& failure) {
        return {{}, failure.number, false};
    }
}

std::string drawn(const Text& response) {
    std::string lines;
    for (std::size_t start = 0; start < response.size(); start += 80) {
        lines += "\n|" + utf8(TextView(response).substr(start, 80)) + "|";
    }
    return lines;
}

}  // namespace vantro::test
