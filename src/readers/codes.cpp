#include "readers/codes.h"

#include "display/families.h"
#include "display/line_groups.h"
#include "framework/text_ops.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace vantro {

namespace {

constexpr Column contactCodeColumn{12};
constexpr Column codeSearchColumn{13};

/// Four characters that are compared at once.
constexpr std::size_t keyLength = 4;
using Key = std::uint64_t;

constexpr Key keyOf(TextView code) {
    return std::bit_cast<Key>(std::array<char16_t, keyLength>{code[0], code[1], code[2], code[3]});
}

Key keyAt(const char16_t* characters) {
    Key key = 0;
    std::memcpy(&key, characters, sizeof key);
    return key;
}

constexpr std::array<Key, transferableFamilies.size()> keys = [] {
    std::array<Key, transferableFamilies.size()> all{};
    std::ranges::transform(transferableFamilies, all.begin(),
                           [](const TransferableFamily& row) { return keyOf(row.code); });
    return all;
}();

// Their keys and the codes themselves say the same of words this short.
static_assert(std::ranges::all_of(transferableFamilies, [](const TransferableFamily& row) {
    const bool isShort = row.code.size() == keyLength || row.code.size() == keyLength + 1;
    return row.test == CodeTest::StandsAtColumn12 || (isShort && row.code.front() == u' ' && row.code.back() == u' ');
}));

LineBits blanksOf(TextView text) {
    return lookAtGroups(text, [](const auto& groups) { return groups.blanks(); });
}

void addFamilyOf(TextView text, std::size_t place, FamilySet& set) {
    if (place + keyLength > text.size()) return;
    const Key key = keyAt(text.data() + place);
    for (std::size_t row = 0; row < keys.size(); ++row) {
        if (key == keys[row] && beginsWith(text.substr(place), transferableFamilies[row].code)) {
            set.add(transferableFamilies[row].family);
        }
    }
}

constexpr const TransferableFamily& contact = transferableFamilies[indexOf(Family::Contact) - firstTransferable];

static_assert(std::ranges::all_of(transferableFamilies, [](const TransferableFamily& row) {
    return (row.test == CodeTest::StandsAtColumn12) == (row.family == contact.family);
}));

void addContact(TextView text, FamilySet& set) {
    if (beginsWith(mid(text, contactCodeColumn), contact.code)) set.add(contact.family);
}

}  // namespace

FamilySet codesIn(TextView text) {
    if (text.size() <= LineBits::capacity) return codesIn(text, blanksOf(text));
    FamilySet set;
    for (const TransferableFamily& row : transferableFamilies) {
        const bool isSearched = row.test == CodeTest::FoundFromColumn13;
        if (isSearched && containsFrom(text, row.code, codeSearchColumn)) set.add(row.family);
    }
    addContact(text, set);
    return set;
}

FamilySet codesIn(TextView text, LineBits blanks) {
    FamilySet set;
    const LineBits searched = LineBits::from(static_cast<std::size_t>(codeSearchColumn.value - 1));
    const LineBits shortWords = (blanks.beforeWords(2) | blanks.beforeWords(3)) & searched;
    for (LineBits words = shortWords; words.any(); words.removeLowest()) {
        addFamilyOf(text, words.lowest(), set);
    }
    addContact(text, set);
    return set;
}

}  // namespace vantro
