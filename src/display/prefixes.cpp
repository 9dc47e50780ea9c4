#include "display/prefixes.h"

#include "display/families.h"
#include "framework/text_ops.h"

#include <array>
#include <optional>

namespace vantro {

namespace {

struct NamedPrefix {
    TextView text;
    Prefix prefix;
};

constexpr NamedPrefix headerPrefixes[] = {
    {companyNamePrefix, Prefix::companyName},
    {pinPrefix, Prefix::pin},
    {pslPrefix, Prefix::psl},
};

template <class Take>
constexpr void forEachPrefix(Take take) {
    for (const PrefixedFamily& row : prefixedFamilies) take(row.prefix, Prefix(row.family));
    for (const DocumentFamily& row : documentFamilies) take(row.prefix, Prefix(row.family));
    for (const NamedPrefix& row : headerPrefixes) take(row.text, row.prefix);
}

constexpr std::size_t prefixLength = 4;
constexpr std::size_t letters = 26;

constexpr bool isCapital(char16_t character) { return character >= u'A' && character <= u'Z'; }

/// The prefixes by the two letters that tell them apart.
class PrefixTable {
public:
    constexpr PrefixTable() {
        forEachPrefix([this](TextView text, Prefix prefix) { rows_[place(text[1], text[2])] = prefix; });
    }

    constexpr std::optional<Prefix> of(TextView text) const {
        if (text[0] != u'P' || !isCapital(text[1]) || !isCapital(text[2])) return std::nullopt;
        return rows_[place(text[1], text[2])];
    }

private:
    static constexpr std::size_t place(char16_t second, char16_t third) {
        return (second - std::size_t{u'A'}) * letters + (third - std::size_t{u'A'});
    }

    std::array<std::optional<Prefix>, letters * letters> rows_;
};

constexpr PrefixTable prefixTable;

constexpr bool isTableTrue() {
    bool isTrue = true;
    forEachPrefix([&](TextView text, Prefix prefix) {
        isTrue = isTrue && text.size() == prefixLength && text.back() == u'/' && prefixTable.of(text) == prefix;
    });
    return isTrue;
}

static_assert(isTableTrue(), "every prefix is found under its letters, so no two share them");

constexpr Column column3{3};

}  // namespace

LinePrefixes prefixesIn(TextView line, LineBits slashes, std::size_t contentBegin) {
    LinePrefixes found;
    for (; slashes.any(); slashes.removeLowest()) {
        const std::size_t slash = slashes.lowest();
        if (slash + 1 < prefixLength) continue;
        const std::size_t begin = slash + 1 - prefixLength;
        const std::optional<Prefix> prefix = prefixTable.of(line.substr(begin, prefixLength));
        if (!prefix) continue;
        found.anywhere.add(*prefix);
        if (begin >= contentBegin + static_cast<std::size_t>(column3.value - 1)) found.fromColumn3.add(*prefix);
    }
    return found;
}

LinePrefixes prefixesIn(TextView line) {
    LinePrefixes found;
    forEachPrefix([&, content = trimmed(line)](TextView text, Prefix prefix) {
        if (contains(content, text)) found.anywhere.add(prefix);
        if (containsFrom(content, text, column3)) found.fromColumn3.add(prefix);
    });
    return found;
}

}  // namespace vantro
