#include "common/element_set.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace vantro::bench {

namespace {

PlainElement plain(const Element& element) {
    return {.number = Text(element.number),
            .text = Text(element.text),
            .code = Text(element.code),
            .airline = Text(element.airline),
            .account = Text(element.frequentFlyerNumber),
            .freeText = Text(element.freeText)};
}

std::string shown(const PlainElement& element) {
    std::string text;
    for (const std::u16string* part :
         {&element.number, &element.text, &element.code, &element.airline, &element.account, &element.freeText}) {
        text += '[' + toAscii(*part) + ']';
    }
    return text;
}

std::string familyDifference(std::size_t family, const std::vector<PlainElement>& ours,
                             const std::vector<PlainElement>& theirs) {
    for (std::size_t i = 0; i < std::min(ours.size(), theirs.size()); ++i) {
        if (ours[i] == theirs[i]) continue;
        return "family " + std::to_string(family) + " element " + std::to_string(i + 1) + ": ours " + shown(ours[i]) +
               ", theirs " + shown(theirs[i]);
    }
    if (ours.size() == theirs.size()) return {};
    return "family " + std::to_string(family) + ": ours " + std::to_string(ours.size()) + " elements, theirs " +
           std::to_string(theirs.size());
}

}  // namespace

std::size_t ElementSet::elementCount() const {
    std::size_t count = 0;
    for (const auto& family : families) count += family.size();
    return count;
}

ElementSet elementSetOf(const Profile& profile) {
    ElementSet set;
    set.name = profile.name;
    set.recordLocator = profile.recordLocator;
    set.officeIdentifier = profile.officeIdentifier;
    if (profile.companyName.number) set.companyNumber = Text(*profile.companyName.number);
    set.companyName = profile.companyName.text;
    set.pin = plain(profile.pin);
    if (profile.psl) set.psl = plain(*profile.psl);
    for (std::size_t family = 0; family < familyCount; ++family) {
        for (const Element& element : profile.families[family]) set.families[family].push_back(plain(element));
    }
    for (const Note& note : profile.notes) set.notes.push_back({note.number, Text(note.qualifier), Text(note.text)});
    return set;
}

std::string difference(const ElementSet& ours, const ElementSet& theirs) {
    const auto differs = [](const char* what, const std::u16string& a, const std::u16string& b) {
        return std::string(what) + ": ours [" + toAscii(a) + "], theirs [" + toAscii(b) + "]";
    };
    if (ours.name != theirs.name) return differs("name", ours.name, theirs.name);
    if (ours.recordLocator != theirs.recordLocator) {
        return differs("record locator", ours.recordLocator, theirs.recordLocator);
    }
    if (ours.officeIdentifier != theirs.officeIdentifier) {
        return differs("office", ours.officeIdentifier, theirs.officeIdentifier);
    }
    if (ours.companyName != theirs.companyName) return differs("company name", ours.companyName, theirs.companyName);
    if (ours.companyNumber != theirs.companyNumber) {
        return differs("company number", ours.companyNumber.value_or(u"none"), theirs.companyNumber.value_or(u"none"));
    }
    if (ours.pin != theirs.pin) return "PIN: ours " + shown(ours.pin) + ", theirs " + shown(theirs.pin);
    if (ours.psl != theirs.psl) return "PSL differs";
    for (std::size_t family = 0; family < familyCount; ++family) {
        const std::string found = familyDifference(family, ours.families[family], theirs.families[family]);
        if (!found.empty()) return found;
    }
    return ours.notes == theirs.notes ? std::string() : "notes differ";
}

void requireEqual(std::string_view contender, std::size_t display, const std::string& difference) {
    if (difference.empty()) return;
    std::fprintf(stderr, "%.*s disagrees on display %zu: %s\n", static_cast<int>(contender.size()), contender.data(),
                 display, difference.c_str());
    std::exit(1);
}

std::string toAscii(std::u16string_view text) {
    std::string ascii;
    for (const char16_t c : text) ascii += c < 0x80 ? static_cast<char>(c) : '?';
    return ascii;
}

std::u16string widen(std::string_view ascii) { return {ascii.begin(), ascii.end()}; }

}  // namespace vantro::bench
