#include "collection.h"

namespace oracle {

void Collection::add(const std::string& key, Value value) {
    for (auto& present : entries) {
        if (present.first == key) {
            present.second = std::move(value);
            return;
        }
    }
    entries.emplace_back(key, std::move(value));
}

const Value* Collection::item(const std::string& key) const {
    for (const auto& present : entries) {
        if (present.first == key) {
            return &present.second;
        }
    }
    return nullptr;
}

Text itemText(const Value* item) {
    if (item == nullptr) {
        return Text();
    }
    if (const Text* text = std::get_if<Text>(item)) {
        return *text;
    }
    if (const bool* flag = std::get_if<bool>(item)) {
        return *flag ? Text(u"True") : Text(u"False");
    }
    if (const int* number = std::get_if<int>(item)) {
        return decimal(*number);
    }
    throw Failure{typeMismatch};
}

namespace {

// The digits after an optional sign; empty when the text is anything else.
Text digitsOf(const Text& text) {
    const Text first = mid(text, 1, 1);
    const Text digits = (first == u"+" || first == u"-") ? mid(text, 2) : text;
    return isNumeric(digits) ? digits : Text();
}

bool textBoolean(const Text& text) {
    if (text.empty()) {
        return false;
    }
    if (upperCase(text) == u"TRUE") {
        return true;
    }
    if (upperCase(text) == u"FALSE") {
        return false;
    }
    const Text digits = digitsOf(text);
    if (digits.empty()) {
        throw Failure{typeMismatch};
    }
    for (const char16_t digit : digits) {
        if (digit != u'0') {
            return true;
        }
    }
    return false;
}

int textInteger16(const Text& text) {
    const Text bare = trimmed(text);
    const Text digits = digitsOf(bare);
    if (digits.empty()) {
        throw Failure{typeMismatch};
    }
    const int sign = mid(bare, 1, 1) == u"-" ? -1 : 1;
    int number = 0;
    for (const char16_t digit : digits) {
        number = number * 10 + sign * (digit - u'0');
        if (number < -32768 || number > 32767) {
            throw Failure{overflow};
        }
    }
    return number;
}

}  // namespace

bool itemBoolean(const Value* item) {
    if (item == nullptr) {
        return false;
    }
    if (const bool* flag = std::get_if<bool>(item)) {
        return *flag;
    }
    if (const int* number = std::get_if<int>(item)) {
        return *number != 0;
    }
    if (const Text* text = std::get_if<Text>(item)) {
        return textBoolean(*text);
    }
    throw Failure{typeMismatch};
}

const Value& itemValue(const Value* item) {
    if (item == nullptr) {
        throw Failure{objectNotSet};
    }
    return *item;
}

int toInteger16(const Value& value) {
    if (const bool* flag = std::get_if<bool>(&value)) {
        return *flag ? -1 : 0;
    }
    if (const int* number = std::get_if<int>(&value)) {
        return add16(*number, 0);
    }
    if (const Text* text = std::get_if<Text>(&value)) {
        return textInteger16(*text);
    }
    throw Failure{typeMismatch};
}

}  // namespace oracle
