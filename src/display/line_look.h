// What one pass over the characters of a line finds.
#pragma once

#include "display/display_line.h"
#include "framework/constants.h"
#include "vantro/screen_lines.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace vantro {

// Pre-filter: every mark is the prompt or contains one of these pairs at an even position of the line, whatever column
// the mark begins in.
inline constexpr std::array<TextView, 1> rulePairs{u"--"};
inline constexpr std::array<TextView, 2> endTextPairs{u"SP", u"PL"};

template <std::size_t N>
constexpr bool passes(TextView mark, const std::array<TextView, N>& pairs) {
    bool passesAt[2] = {false, false};  // if the mark begins at an even, at an odd position
    for (std::size_t at = 0; at + 2 <= mark.size(); ++at) {
        if (std::ranges::find(pairs, mark.substr(at, 2)) != pairs.end()) passesAt[at % 2] = true;
    }
    return passesAt[0] && passesAt[1];
}

static_assert(mark::prompt == u">");
static_assert(passes(mark::endOfDisplay, endTextPairs));
static_assert(passes(sectionRule, rulePairs), "headers begin with the rule, so they pass too");

template <std::size_t N>
Bytes anyPair(Bytes bytes, const std::array<TextView, N>& pairs) {
    Bytes found = bytes.equalPairs(static_cast<char>(pairs[0][0]), static_cast<char>(pairs[0][1]));
    for (std::size_t pair = 1; pair < N; ++pair) {
        found = found | bytes.equalPairs(static_cast<char>(pairs[pair][0]), static_cast<char>(pairs[pair][1]));
    }
    return found;
}

/// The prompts, and the pairs of which every other mark contains one.
inline Bytes pairsInMarks(Bytes bytes) {
    return bytes.equal('>') | anyPair(bytes, rulePairs) | anyPair(bytes, endTextPairs);
}

inline constexpr Column column3{3};
inline constexpr std::size_t prefixLength = 4;

inline constexpr std::size_t prefixCount = prefixedFamilies.size() + documentFamilies.size() + 3;

struct HeaderPrefix {
    TextView text;
    Prefix prefix;
};

inline constexpr HeaderPrefix headerPrefixes[] = {
    {companyNamePrefix, Prefix::companyName},
    {pinPrefix, Prefix::pin},
    {pslPrefix, Prefix::psl},
};

inline constexpr PrefixSet headPrefixes = [] {
    PrefixSet prefixes;
    for (const HeaderPrefix& row : headerPrefixes) prefixes.add(row.prefix);
    return prefixes;
}();

template <class Take>
constexpr void forEachPrefix(Take take) {
    for (const PrefixedFamily& row : prefixedFamilies) take(row.prefix, Prefix(row.family));
    for (const DocumentFamily& row : documentFamilies) take(row.prefix, Prefix(row.family));
    for (const HeaderPrefix& row : headerPrefixes) take(row.text, row.prefix);
}

/// The prefixes by their second and third letters, which are unique.
class PrefixTable {
public:
    struct Row {
        char16_t text[prefixLength] = {};
        Prefix prefix = Prefix::companyName;
    };

    constexpr PrefixTable() {
        std::size_t row = 0;
        forEachPrefix([&](TextView text, Prefix prefix) {
            rows_[row] = {{text[0], text[1], text[2], text[3]}, prefix};
            rowOf_[indexFor(text[1], text[2])] = static_cast<std::uint8_t>(row);
            ++row;
        });
    }

    /// The only prefix that may begin with these characters.
    constexpr const Row& rowFor(const char16_t* characters) const {
        return rows_[rowOf_[indexFor(characters[1], characters[2])]];
    }

private:
    static constexpr std::size_t indexFor(char16_t second, char16_t third) {
        return (second & 31U) << 5 | (third & 31U);
    }

    std::array<std::uint8_t, 32 * 32> rowOf_{};
    std::array<Row, prefixCount> rows_{};
};

inline constexpr PrefixTable prefixTable;

constexpr bool isEveryPrefixFound() {
    bool isFound = true;
    forEachPrefix([&](TextView text, Prefix prefix) {
        isFound = isFound && text.size() == prefixLength && text.back() == u'/' &&
                  prefixTable.rowFor(text.data()).prefix == prefix;
    });
    return isFound;
}

static_assert(isEveryPrefixFound(), "no two prefixes share their letters");

/// One pass over the slashes of a line finds all prefixes.
inline LinePrefixes prefixesIn(TextView line, LineBits slashes, std::size_t contentBegin) {
    LinePrefixes found;
    for (; slashes.any(); slashes.removeLowest()) {
        const std::size_t slash = slashes.lowest();
        if (slash + 1 < prefixLength) continue;
        const std::size_t begin = slash + 1 - prefixLength;
        const PrefixTable::Row& row = prefixTable.rowFor(line.data() + begin);
        const bool isPrefix = std::memcmp(line.data() + begin, row.text, sizeof row.text) == 0;
        const bool isFromColumn3 = begin >= contentBegin + static_cast<std::size_t>(column3.value - 1);
        found.anywhere.addIf(isPrefix, row.prefix);
        found.fromColumn3.addIf(isPrefix & isFromColumn3, row.prefix);
    }
    return found;
}

/// Asks for a line that will be reached soon; `below` is the number of whole lines below this one. Lines are passed
/// faster than a display arrives that is not in the processor's caches.
inline void prefetchAhead(const char16_t* line, std::size_t below) {
    constexpr std::size_t distance = 16;
    constexpr std::size_t cacheLine = 64 / sizeof(char16_t);
    const char16_t* const ahead = line + std::min(distance, below) * screenWidth;
    for (std::size_t part = 0; part < screenWidth; part += cacheLine) Bytes::prefetch(ahead + part);
}

/// What one pass over the characters of a line finds.
struct LineLook {
    LineBits blanks;
    LineBits slashes;
    bool mayContainMark;
};

template <std::size_t Length>
static LineLook look(const char16_t* text) {
    std::uint64_t blanks[2] = {0, 0};
    std::uint64_t slashes[2] = {0, 0};
    Bytes inMarks = pairsInMarks(Bytes::narrow(text));
    for (std::size_t group = 0; group < Length / Bytes::count; ++group) {
        const Bytes bytes = Bytes::narrow(text + group * Bytes::count);
        const std::size_t shift = group % 4 * Bytes::count;
        blanks[group / 4] |= std::uint64_t{bytes.equal(' ').bits()} << shift;
        slashes[group / 4] |= std::uint64_t{bytes.equal('/').bits()} << shift;
        inMarks = inMarks | pairsInMarks(bytes);
    }
    return {LineBits(blanks[0], blanks[1]) | LineBits::from(Length), {slashes[0], slashes[1]}, inMarks.bits() != 0};
}

}  // namespace vantro
