#include "fuzz/common/compare.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace vantro::fuzz {

namespace {

bool sameKey(const Text& key, const std::string& expected) {
    return std::ranges::equal(key, expected,
                              [](char16_t unit, char byte) { return unit == static_cast<unsigned char>(byte); });
}

std::string plain(TextView key) {
    std::string text;
    for (const char16_t unit : key) text.push_back(static_cast<char>(unit));
    return text;
}

}  // namespace

bool same(const ItemValue& value, const oracle::Value& expected) {
    if (value.index() != expected.index()) return false;
    if (const auto* truth = std::get_if<bool>(&value)) return *truth == std::get<bool>(expected);
    if (const auto* number = std::get_if<std::int16_t>(&value)) return *number == std::get<int>(expected);
    if (const auto* text = std::get_if<Text>(&value)) return *text == std::get<oracle::Text>(expected);
    return std::get<TextList>(value) == std::get<TextList>(expected);
}

bool same(const BuiltInCollection* collection, const oracle::Collection* expected) {
    if (collection == nullptr || expected == nullptr) return (collection == nullptr) == (expected == nullptr);
    return std::ranges::equal(collection->entries(), expected->entries, [](const auto& entry, const auto& wanted) {
        return sameKey(entry.key(), wanted.first) && same(entry.Value(), wanted.second);
    });
}

oracle::Value oracleValue(const ItemValue& value) {
    if (const auto* truth = std::get_if<bool>(&value)) return *truth;
    if (const auto* number = std::get_if<std::int16_t>(&value)) return int{*number};
    if (const auto* text = std::get_if<Text>(&value)) return *text;
    return std::get<TextList>(value);
}

oracle::Collection oracleCollection(const BuiltInCollection& collection) {
    oracle::Collection copy;
    for (const auto& entry : collection.entries()) copy.add(plain(entry.key()), oracleValue(entry.Value()));
    return copy;
}

std::string shown(TextView text) {
    std::string out = "'";
    for (const char16_t unit : text) {
        if (unit >= 0x20 && unit < 0x7F) {
            out.push_back(static_cast<char>(unit));
        } else {
            std::array<char, 8> escape{};
            std::snprintf(escape.data(), escape.size(), "\\u%04X", static_cast<unsigned>(unit));
            out += escape.data();
        }
    }
    return out + "'";
}

std::string shown(const TextList& list) {
    std::string out = "[";
    for (const Text& entry : list) out += (out.size() > 1 ? ", " : "") + shown(TextView(entry));
    return out + "]";
}

std::string shown(const oracle::Value& value) {
    if (const auto* truth = std::get_if<bool>(&value)) return *truth ? "True" : "False";
    if (const auto* number = std::get_if<int>(&value)) return std::to_string(*number);
    if (const auto* text = std::get_if<oracle::Text>(&value)) return shown(TextView(*text));
    return shown(std::get<TextList>(value));
}

std::string shown(const oracle::Collection* collection) {
    if (collection == nullptr) return "no collection";
    std::string out = "{";
    for (const auto& [key, value] : collection->entries) {
        out += (out.size() > 1 ? ", " : "") + key + ": " + shown(value);
    }
    return out + "}";
}

std::string drawn(TextView screen, std::size_t width) {
    std::string out = std::to_string(screen.size()) + " characters in lines of " + std::to_string(width) + "\n";
    for (std::size_t start = 0; start < screen.size(); start += width) out += shown(screen.substr(start, width)) + "\n";
    return out;
}

}  // namespace vantro::fuzz
