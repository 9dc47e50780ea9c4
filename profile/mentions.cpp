#include "profile/mentions.h"

#include <algorithm>
#include <array>

namespace vantro {

namespace {

constexpr std::size_t letters = 26;
constexpr std::uint8_t noFamily = 0xFF;

/// Families by two capital letters.
using ByLetters = std::array<std::uint8_t, letters * letters>;

constexpr bool isCapital(char16_t character) { return character >= u'A' && character <= u'Z'; }

constexpr std::size_t indexOfLetters(char16_t first, char16_t second) {
    return static_cast<std::size_t>(first - u'A') * letters + static_cast<std::size_t>(second - u'A');
}

/// Every prefix is "P", two letters and "/".
constexpr ByLetters makePrefixes() {
    ByLetters families{};
    families.fill(noFamily);
    const auto enter = [&](const auto& rows) {
        for (const auto& row : rows) {
            families[indexOfLetters(row.prefix[1], row.prefix[2])] = static_cast<std::uint8_t>(row.family);
        }
    };
    enter(prefixedFamilies);
    enter(documentFamilies);
    return families;
}

constexpr bool hasTwoLetters(const TransferableFamily& row) {
    return row.test == CodeTest::FoundFromColumn13 && row.code.size() == 4;
}

/// Every code is two letters between blanks, but for the frequent flyers' three and the contacts' fixed place.
constexpr ByLetters makeCodes() {
    ByLetters families{};
    families.fill(noFamily);
    for (const TransferableFamily& row : transferableFamilies) {
        if (hasTwoLetters(row)) families[indexOfLetters(row.code[1], row.code[2])] = static_cast<std::uint8_t>(row.family);
    }
    return families;
}

constexpr ByLetters prefixes = makePrefixes();
constexpr ByLetters codes = makeCodes();
constexpr TextView frequentFlyerCode = u" FFN ";

static_assert(std::ranges::all_of(transferableFamilies, [](const TransferableFamily& row) {
    return hasTwoLetters(row) || row.family == Family::Contact || row.code == frequentFlyerCode;
}));

void add(FamilySet& set, const ByLetters& families, char16_t first, char16_t second) {
    if (!isCapital(first) || !isCapital(second)) return;
    const std::uint8_t family = families[indexOfLetters(first, second)];
    if (family != noFamily) set.add(static_cast<Family>(family));
}

void addPrefixBefore(FamilySet& set, TextView text, std::size_t slash) {
    if (slash >= 3 && text[slash - 3] == u'P') add(set, prefixes, text[slash - 2], text[slash - 1]);
}

void addWordAfter(FamilySet& set, TextView text, std::size_t blank) {
    const TextView word = text.substr(blank, frequentFlyerCode.size());
    if (word.size() >= 4 && word[3] == u' ') add(set, codes, word[1], word[2]);
    if (word == frequentFlyerCode) set.add(Family::FrequentFlyer);
}

}  // namespace

FamilySet mentionedIn(TextView text) {
    FamilySet set;
    for (std::size_t place = 0; place < text.size(); ++place) {
        if (text[place] == u'/') addPrefixBefore(set, text, place);
        if (text[place] == u' ') addWordAfter(set, text, place);
    }
    return set;
}

FamilySet mentionedAcross(TextView before, TextView after) {
    constexpr std::size_t reach = frequentFlyerCode.size() - 1;  // of the longest text that can lie across
    std::array<char16_t, 2 * reach> seam{};
    const TextView end = before.substr(before.size() - std::min(before.size(), reach));
    const TextView begin = after.substr(0, reach);
    std::ranges::copy(begin, std::ranges::copy(end, seam.begin()).out);
    return mentionedIn(TextView(seam.data(), end.size() + begin.size()));
}

FamilySet mentionedIn(TextView line, LineBits blanks, LineBits slashes) {
    FamilySet set;
    for (; slashes.any(); slashes.removeLowest()) addPrefixBefore(set, line, slashes.lowest());
    // A blank, two characters and a blank; or a blank, three and a blank.
    const LineBits first = blanks & ~blanks.down(1) & ~blanks.down(2);
    for (LineBits words = first & (blanks.down(3) | blanks.down(4)); words.any(); words.removeLowest()) {
        addWordAfter(set, line, words.lowest());
    }
    return set;
}

}  // namespace vantro
