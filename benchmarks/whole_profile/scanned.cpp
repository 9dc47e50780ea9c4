#include "whole_profile/scanned.h"

namespace vantro::bench {

namespace {

template <class String>
PlainElement plainOf(const typename Scanned<String>::Item& item) {
    PlainElement plain;
    plain.number = widen(item.number);
    plain.text = widen(item.text);
    return plain;
}

}  // namespace

template <class String>
void Scanned<String>::prepare(std::size_t displaySize) {
    name = recordLocator = officeIdentifier = companyName = String();
    companyNumber = String();
    pin = {};
    psl.reset();
    for (auto& family : families) family.clear();
    flyers.clear();
    requests.clear();
    remarkDetails.clear();
    notes.clear();
    joined.clear();
    joined.reserve(displaySize);
}

template <class String>
ElementSet elementSetOf(const Scanned<String>& scanned) {
    ElementSet set;
    set.name = widen(scanned.name);
    set.recordLocator = widen(scanned.recordLocator);
    set.officeIdentifier = widen(scanned.officeIdentifier);
    if (scanned.companyNumber) set.companyNumber = widen(*scanned.companyNumber);
    set.companyName = widen(scanned.companyName);
    set.pin = plainOf<String>(scanned.pin);
    if (scanned.psl) set.psl = plainOf<String>(*scanned.psl);
    for (std::size_t family = 0; family < familyCount; ++family) {
        for (const auto& item : scanned.families[family]) set.families[family].push_back(plainOf<String>(item));
    }
    for (std::size_t i = 0; i < scanned.flyers.size(); ++i) {
        PlainElement& flyer = set.families[indexOf(Family::FrequentFlyer)][i];
        flyer.airline = widen(scanned.flyers[i].carrier);
        flyer.account = widen(scanned.flyers[i].account);
    }
    for (std::size_t i = 0; i < scanned.requests.size(); ++i) {
        PlainElement& request = set.families[indexOf(Family::ServiceRequest)][i];
        request.code = widen(scanned.requests[i].code);
        request.airline = widen(scanned.requests[i].carrier);
        request.account = widen(scanned.requests[i].account);
        request.freeText = widen(scanned.requests[i].freeText);
    }
    for (std::size_t i = 0; i < scanned.remarkDetails.size(); ++i) {
        set.families[indexOf(Family::RemarkConf)][i].freeText = widen(scanned.remarkDetails[i]);
    }
    for (const auto& note : scanned.notes) {
        set.notes.push_back({note.number, widen(note.qualifier), widen(note.text)});
    }
    return set;
}

ElementSet elementsOnly(ElementSet set) {
    ElementSet only;
    only.companyNumber.emplace();
    only.families = std::move(set.families);
    only.notes = std::move(set.notes);
    for (auto& family : only.families) {
        for (PlainElement& element : family) {
            element.code.clear();
            element.airline.clear();
            element.account.clear();
            element.freeText.clear();
        }
    }
    return only;
}

template struct Scanned<std::string_view>;
template struct Scanned<std::u16string_view>;
template struct Scanned<std::u16string>;
template ElementSet elementSetOf(const Scanned<std::string_view>&);
template ElementSet elementSetOf(const Scanned<std::u16string_view>&);
template ElementSet elementSetOf(const Scanned<std::u16string>&);

}  // namespace vantro::bench
