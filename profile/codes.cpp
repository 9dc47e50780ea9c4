#include "profile/codes.h"

#include <algorithm>

namespace vantro {

namespace {

/// Places of blanks with two or three other characters and a further blank behind them.
LineBits shortWords(LineBits blanks) {
    const LineBits begins = blanks & ~blanks.down(1) & ~blanks.down(2);
    return begins & (blanks.down(3) | blanks.down(4));
}

/// The letters that codes begin with, one bit each.
constexpr std::uint32_t firstLetters() {
    std::uint32_t letters = 0;
    for (const TransferableFamily& row : transferableFamilies) letters |= std::uint32_t{1} << (row.code[1] % 32);
    return letters;
}

constexpr bool canBegin(char16_t letter) { return (firstLetters() >> (letter % 32) & 1) != 0; }

}  // namespace

FamilySet codesIn(TextView text) {
    if (text.size() > LineBits::capacity) return FamilySet::all();
    return codesIn(text, blanksAndSlashesOf(text).blanks);
}

FamilySet codesIn(TextView line, LineBits blanks) {
    FamilySet set;
    for (LineBits words = shortWords(blanks); words.any(); words.removeLowest()) {
        const TextView word = line.substr(words.lowest());
        if (!canBegin(word[1])) continue;
        for (const TransferableFamily& row : transferableFamilies) {
            if (word.starts_with(row.code)) set.add(row.family);
        }
    }
    return set;
}

// What makes a word short enough to be looked at: two or three letters.
static_assert(std::ranges::all_of(transferableFamilies, [](const TransferableFamily& row) {
    const bool isShort = row.code.size() == 4 || row.code.size() == 5;
    return row.test == CodeTest::StandsAtColumn12 || (isShort && row.code.front() == u' ' && row.code.back() == u' ');
}));

}  // namespace vantro
