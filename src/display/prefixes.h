// The prefixes that open elements ("PPR/") and header lines ("PIN/"), and which of them a line holds: every slash of
// the line is looked at once, and no prefix is searched for afterwards.
#pragma once

#include "display/line_bits.h"
#include "vantro/profile.h"
#include "vantro/text.h"

#include <cstddef>
#include <cstdint>

namespace vantro {

/// "P", two capitals and a slash.
class Prefix {
public:
    /// The prefix of a family that has one.
    constexpr explicit Prefix(Family family) : Prefix(indexOf(family)) {}

    friend constexpr bool operator==(Prefix, Prefix) = default;

    static const Prefix companyName;  ///< "PCN/"
    static const Prefix pin;          ///< "PIN/"
    static const Prefix psl;          ///< "PSL/"

private:
    constexpr explicit Prefix(std::size_t index) : index_(static_cast<std::uint8_t>(index)) {}

    friend class PrefixSet;
    std::uint8_t index_;
};

inline constexpr Prefix Prefix::companyName{familyCount};
inline constexpr Prefix Prefix::pin{familyCount + 1};
inline constexpr Prefix Prefix::psl{familyCount + 2};

/// The header lines' prefixes as the host prints them.
inline constexpr TextView companyNamePrefix = u"PCN/";
inline constexpr TextView pinPrefix = u"PIN/";
inline constexpr TextView pslPrefix = u"PSL/";

class PrefixSet {
public:
    constexpr void add(Prefix prefix) { bits_ |= bit(prefix); }
    constexpr bool contains(Prefix prefix) const { return (bits_ & bit(prefix)) != 0; }

private:
    static constexpr std::uint64_t bit(Prefix prefix) { return std::uint64_t{1} << prefix.index_; }
    static_assert(familyCount + 3 <= 64);

    std::uint64_t bits_ = 0;
};

/// Where in a trimmed line the search for a prefix starts.
enum class PrefixFrom : std::uint8_t { Column1, Column3 };

/// The prefixes in a trimmed line.
struct LinePrefixes {
    PrefixSet anywhere;
    PrefixSet fromColumn3;  ///< those that begin there or further on
};

/// The prefixes of a line whose slashes and whose first character that is no blank are known.
LinePrefixes prefixesIn(TextView line, LineBits slashes, std::size_t contentBegin);

/// The same for a line of any length.
LinePrefixes prefixesIn(TextView line);

}  // namespace vantro
