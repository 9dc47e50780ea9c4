#include "profile/codes.h"

#include "framework/text_ops.h"
#include "profile/families.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace vantro {

namespace {

constexpr Column contactCodeColumn{12};
constexpr Column codeSearchColumn{13};

/// Places of blanks with two or three other characters and a further blank behind them.
LineBits shortWords(LineBits blanks) {
    const LineBits begins = blanks & ~blanks.down(1) & ~blanks.down(2);
    return begins & (blanks.down(3) | blanks.down(4));
}

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

void addFamilyOf(TextView word, FamilySet& set) {
    if (word.size() < keyLength) return;
    const Key key = keyAt(word.data());
    for (std::size_t row = 0; row < keys.size(); ++row) {
        if (key == keys[row] && word.starts_with(transferableFamilies[row].code)) {
            set.add(transferableFamilies[row].family);
        }
    }
}

void addContact(TextView text, FamilySet& set) {
    for (const TransferableFamily& row : transferableFamilies) {
        if (row.test != CodeTest::StandsAtColumn12) continue;
        if (mid(text, contactCodeColumn).starts_with(row.code)) set.add(row.family);
    }
}

}  // namespace

FamilySet codesIn(TextView text) {
    if (text.size() <= LineBits::capacity) return codesIn(text, blanksAndSlashesOf(text).blanks);
    FamilySet set;
    for (const TransferableFamily& row : transferableFamilies) {
        const bool isSearched = row.test == CodeTest::FoundFromColumn13;
        if (isSearched && holdsFrom(text, row.code, codeSearchColumn)) set.add(row.family);
    }
    addContact(text, set);
    return set;
}

FamilySet codesIn(TextView text, LineBits blanks) {
    FamilySet set;
    const LineBits searched = LineBits::from(static_cast<std::size_t>(codeSearchColumn.value - 1));
    for (LineBits words = shortWords(blanks) & searched; words.any(); words.removeLowest()) {
        if (words.lowest() < text.size()) addFamilyOf(text.substr(words.lowest()), set);
    }
    addContact(text, set);
    return set;
}

}  // namespace vantro
