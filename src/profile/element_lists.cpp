#include "profile/element_lists.h"

namespace vantro {

namespace {

void storeLast(TextList& list, std::size_t length, TextView text) {
    list.resize(length);
    list.back() = text;
}

}  // namespace

void NumberedListsSink::store(Family /*family*/, std::int16_t count, const FoundElement& element) {
    const auto length = static_cast<std::size_t>(count) + 1;
    storeLast(lists_.text, length, element.text);
    storeLast(lists_.number, length, element.number);
}

void TransferableListsSink::store(Family /*family*/, std::int16_t count, const FoundElement& element) {
    const auto length = static_cast<std::size_t>(count);
    storeLast(lists_.text, length, element.text);
    storeLast(lists_.number, length, element.number);
    if (split_ == Split::None) return;
    if (split_ == Split::RemarkDetail) {
        storeLast(lists_.freeText, length, element.freeText);
        return;
    }
    storeLast(lists_.carrier, length, element.airline);
    storeLast(lists_.account, length, element.frequentFlyerNumber);
    if (split_ == Split::FrequentFlyer) return;
    storeLast(lists_.code, length, element.code);
    storeLast(lists_.freeText, length, element.freeText);
    lists_.flag.resize(length);
    lists_.flag.back() = false;
}

}  // namespace vantro
