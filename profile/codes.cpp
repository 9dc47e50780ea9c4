#include "profile/codes.h"

#include "framework/line_bits.h"

#include <algorithm>

namespace vantro {

namespace {

/// Places of blanks with two or three other characters and a further blank behind them.
LineBits shortWords(LineBits blanks) {
    const LineBits begins = blanks & ~blanks.down(1) & ~blanks.down(2);
    return begins & (blanks.down(3) | blanks.down(4));
}

}  // namespace

FamilySet codesIn(TextView text) {
    if (text.size() > LineBits::capacity) return FamilySet::all();
    FamilySet set;
    for (LineBits words = shortWords(blanksAndSlashesOf(text).blanks); words.any(); words.removeLowest()) {
        const TextView word = text.substr(words.lowest());
        for (const TransferableFamily& row : transferableFamilies) {
            if (row.code[1] == word[1] && word.starts_with(row.code)) set.add(row.family);
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
