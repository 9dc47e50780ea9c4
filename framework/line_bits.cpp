#include "framework/line_bits.h"

#include "framework/simd.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vantro {

namespace {

constexpr std::size_t groupSize = 16;  // characters whose bits are made at once
constexpr std::size_t groups = LineBits::capacity / groupSize;
constexpr std::size_t usualGroups = 5;  // a line of 80 characters

#if VANTRO_SSE2

// Sixteen characters as bytes. Every character that is not a byte becomes one that is no mark.
struct Group {
    __m128i bytes;
};

Group groupAt(const char16_t* characters) {
    return {simd::asBytes(simd::load(characters), simd::load(characters + simd::charactersPerVector))};
}

std::uint64_t bitsOf(Group group, char16_t wanted) {
    return simd::bits(simd::eachByteEqual(group.bytes, static_cast<char>(wanted)));
}

#else

using Group = const char16_t*;

Group groupAt(const char16_t* characters) { return characters; }

std::uint64_t bitsOf(Group group, char16_t wanted) {
    std::uint64_t bits = 0;
    for (std::size_t place = 0; place < groupSize; ++place) bits |= std::uint64_t{group[place] == wanted} << place;
    return bits;
}

#endif

/// The bits of all groups of a line; the groups are written out so that each one's place is a constant.
template <std::size_t Groups, class BitsOfGroup, std::size_t... Place>
LineBits bitsOfGroups(const std::array<Group, Groups>& line, BitsOfGroup bitsOfGroup, std::index_sequence<Place...>) {
    std::uint64_t words[2] = {0, 0};
    ((words[Place / 4] |= bitsOfGroup(line[Place]) << (Place % 4 * groupSize)), ...);
    return {words[0], words[1]};
}

template <std::size_t Groups>
LineBits bitsOfLine(const std::array<Group, Groups>& line, char16_t wanted) {
    return bitsOfGroups(
        line, [=](Group group) { return bitsOf(group, wanted); }, std::make_index_sequence<Groups>());
}

template <std::size_t... Place>
std::array<Group, sizeof...(Place)> groupsOf(const char16_t* characters, std::index_sequence<Place...>) {
    return {groupAt(characters + Place * groupSize)...};
}

/// Gives the line's groups to a function: of a usual line as they are, of any other with blanks behind.
template <class Look>
auto lookAt(TextView line, Look look) {
    if (line.size() == usualGroups * groupSize) {
        return look(groupsOf(line.data(), std::make_index_sequence<usualGroups>()));
    }
    std::array<char16_t, LineBits::capacity> padded;
    padded.fill(u' ');
    std::ranges::copy(line, padded.begin());
    return look(groupsOf(padded.data(), std::make_index_sequence<groups>()));
}

}  // namespace

BlanksAndSlashes blanksAndSlashesOf(TextView line) {
    return lookAt(line, []<std::size_t Groups>(const std::array<Group, Groups>& groupsOfLine) {
        constexpr LineBits pastTheEnd = LineBits::from(Groups * groupSize);
        return BlanksAndSlashes{bitsOfLine(groupsOfLine, u' ') | pastTheEnd, bitsOfLine(groupsOfLine, u'/')};
    });
}

OneAndEither placesOf(TextView line, char16_t one, char16_t first, char16_t second) {
    const auto isEither = [=](Group group) { return bitsOf(group, first) | bitsOf(group, second); };
    return lookAt(line, [&]<std::size_t Groups>(const std::array<Group, Groups>& groupsOfLine) {
        constexpr auto all = std::make_index_sequence<Groups>();
        return OneAndEither{bitsOfLine(groupsOfLine, one), bitsOfGroups(groupsOfLine, isEither, all)};
    });
}

}  // namespace vantro
