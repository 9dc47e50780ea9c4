#include "cli/json/values.h"

#include "cli/io/utf.h"

#include <charconv>
#include <cstdint>
#include <optional>

namespace vantro {

namespace {

constexpr const char* wantedText = "a text is expected";
constexpr const char* wantedList = "an array of texts is expected";
constexpr const char* wantedCollection = "an object of keys and values is expected";
constexpr const char* wantedItem =
    "a text, true or false, a whole number from -32768 to 32767 or an array of texts is expected";

// The conversion stops before a fraction or an exponent and fails for a number out of range.
std::optional<std::int16_t> wholeNumber(std::string_view spelled) {
    std::int16_t number = 0;
    const char* const end = spelled.data() + spelled.size();
    const auto [stop, problem] = std::from_chars(spelled.data(), end, number);
    if (problem != std::errc{} || stop != end) return std::nullopt;
    return number;
}

}  // namespace

void ValueReader::begin() {
    forget();
    given_ = true;
}

void ValueReader::forget() {
    given_ = false;
    fault_.clear();
    clear();
}

void ValueReader::take(const JsonEvent& event) {
    if (fault_.empty()) takeWanted(event);
}

void ValueReader::refuse(std::string fault) { fault_ = std::move(fault); }

void TextReader::takeWanted(const JsonEvent& event) {
    if (event.kind != JsonKind::String) return refuse(wantedText);
    appendUtf16(event.text, text_);
}

void ListReader::clear() {
    list_.clear();
    inList_ = false;
}

void ListReader::takeWanted(const JsonEvent& event) {
    if (event.kind == JsonKind::StartArray && !inList_) {
        inList_ = true;
    } else if (event.kind == JsonKind::String && inList_) {
        list_.push_back(toUtf16(event.text));
    } else if (event.kind != JsonKind::EndArray) {
        refuse(wantedList);
    }
}

void CollectionReader::clear() {
    collection_.reset();
    place_ = Place::Outside;
    wrongKeys_.clear();
}

void CollectionReader::takeWanted(const JsonEvent& event) {
    switch (place_) {
        case Place::InObject: return takeInObject(event);
        case Place::InList: return takeInList(event);
        case Place::InUnwanted: return takeNested(event);
        case Place::Outside: break;
    }
    if (event.kind == JsonKind::Null) return;
    if (event.kind != JsonKind::StartObject) return refuse(wantedCollection);
    collection_ = std::make_shared<BuiltInCollection>();
    place_ = Place::InObject;
}

void CollectionReader::takeInObject(const JsonEvent& event) {
    switch (event.kind) {
        case JsonKind::Key: key_.clear(); return appendUtf16(event.text, key_);
        case JsonKind::String: return add(toUtf16(event.text));
        case JsonKind::Boolean: return add(event.truth);
        case JsonKind::Number: return addNumber(event.text);
        case JsonKind::StartArray:
            list_.clear();
            place_ = Place::InList;
            return;
        case JsonKind::StartObject:
            markWrong();
            place_ = Place::InUnwanted;
            unwantedDepth_ = 1;
            return;
        case JsonKind::EndObject: return finish();
        default: return markWrong();
    }
}

void CollectionReader::takeInList(const JsonEvent& event) {
    if (event.kind == JsonKind::String) {
        list_.push_back(toUtf16(event.text));
    } else if (event.kind == JsonKind::EndArray) {
        place_ = Place::InObject;
        add(std::move(list_));
    } else {
        markWrong();
        place_ = Place::InUnwanted;
        unwantedDepth_ = 1;
        takeNested(event);
    }
}

// Skips the contents of a value of a wrong kind, up to its end.
void CollectionReader::takeNested(const JsonEvent& event) {
    if (event.kind == JsonKind::StartObject || event.kind == JsonKind::StartArray) ++unwantedDepth_;
    if (event.kind == JsonKind::EndObject || event.kind == JsonKind::EndArray) --unwantedDepth_;
    if (unwantedDepth_ == 0) place_ = Place::InObject;
}

// A key that occurs twice keeps its first position and takes its last value.
void CollectionReader::add(ItemValue value) {
    if (!wrongKeys_.empty()) std::erase(wrongKeys_, key_);
    collection_->Add(key_, std::move(value));
}

void CollectionReader::addNumber(std::string_view spelled) {
    const auto number = wholeNumber(spelled);
    number ? add(*number) : markWrong();
}

void CollectionReader::markWrong() {
    // Keeps the key's position: a correct value for the same key may follow.
    add(false);
    wrongKeys_.push_back(key_);
}

void CollectionReader::finish() {
    place_ = Place::Outside;
    if (!wrongKeys_.empty()) refuse(inQuotes(wrongKeys_.front()) + ": " + wantedItem);
}

void CopyReader::clear() {
    json_.clear();
    out_.restart();
}

void CopyReader::takeWanted(const JsonEvent& event) {
    decoded_.clear();
    if (event.kind == JsonKind::String || event.kind == JsonKind::Key) appendUtf16(event.text, decoded_);
    switch (event.kind) {
        case JsonKind::Null: return out_.null();
        case JsonKind::Boolean: return out_.boolean(event.truth);
        case JsonKind::Number: return out_.raw(event.text);
        case JsonKind::String: return out_.text(decoded_);
        case JsonKind::Key: return out_.key(decoded_);
        case JsonKind::StartObject: return out_.beginObject();
        case JsonKind::EndObject: return out_.endObject();
        case JsonKind::StartArray: return out_.beginArray();
        case JsonKind::EndArray: return out_.endArray();
    }
}

}  // namespace vantro
