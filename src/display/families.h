// The element families of a profile display, one row each. A family more is a row more; what looks irregular
// here is meant and says so.
#pragma once

#include "display/join_rule.h"
#include "display/prefixes.h"
#include "display/sections.h"
#include "framework/text_ops.h"
#include "vantro/profile.h"
#include "vantro/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace vantro {

/// How the lines of a prefixed family's section are collected.
enum class Scheme : std::uint8_t {
    Plain,         ///< every line from the first prefixed one on; wrapped lines joined directly
    ColonJoining,  ///< the same, a wrapped line with ":" as its third character joined with a blank
    Policy,        ///< the family's lines among those of its section's other families; joined as above
    GlobalSearch,  ///< the line under the header and at most ten unprefixed lines under it
};

/// When a property cuts its lists back to the empty entry 0.
enum class ListCut : std::uint8_t {
    BeforeEmptyTest,  ///< an empty display leaves them cut
    AfterEmptyTest,   ///< an empty display leaves them as the last call filled them
};

struct PrefixedFamily {
    Family family;
    Section section;
    TextView prefix;
    Scheme scheme;
    PrefixFrom searchFrom;  ///< in the lines of its section
    Width tagWidth;         ///< characters from column 3 that are blank in a line without a prefix of its own
    int error;
    ListCut cut;
};

// clang-format off
inline constexpr std::array<PrefixedFamily, 17> prefixedFamilies{{
    // family       section                 prefix    scheme                 from                  tag   error  lists cut
    {Family::PPR,   Section::Priority,     u"PPR/",  Scheme::Plain,         PrefixFrom::Column1,  {0},  5266,  ListCut::AfterEmptyTest},
    {Family::PGL,   Section::GlobalSearch, u"PGL/",  Scheme::GlobalSearch,  PrefixFrom::Column3,  {5},  5267,  ListCut::AfterEmptyTest},
    {Family::PPS,   Section::PreStored,    u"PPS/",  Scheme::ColonJoining,  PrefixFrom::Column1,  {0},  5270,  ListCut::AfterEmptyTest},
    {Family::PHI,   Section::Hotel,        u"PHI/",  Scheme::Policy,        PrefixFrom::Column1,  {5},  5272,  ListCut::AfterEmptyTest},   // Meant: from 1, its siblings from 3; lists cut late
    {Family::PCI,   Section::Car,          u"PCI/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5290,  ListCut::BeforeEmptyTest},  // Meant: 5290 is PID's number too
    {Family::PPC,   Section::Car,          u"PPC/",  Scheme::Policy,        PrefixFrom::Column3,  {6},  5285,  ListCut::BeforeEmptyTest},  // Meant: 6 characters, its siblings 5
    {Family::PPH,   Section::Hotel,        u"PPH/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5273,  ListCut::BeforeEmptyTest},
    {Family::PPA,   Section::Air,          u"PPA/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5292,  ListCut::BeforeEmptyTest},
    {Family::PPK,   Section::Air,          u"PPK/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5293,  ListCut::BeforeEmptyTest},
    {Family::PPI,   Section::Air,          u"PPI/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5280,  ListCut::BeforeEmptyTest},
    {Family::PXC,   Section::Car,          u"PXC/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5295,  ListCut::BeforeEmptyTest},
    {Family::PXA,   Section::Air,          u"PXA/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5296,  ListCut::BeforeEmptyTest},
    {Family::PXK,   Section::Air,          u"PXK/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5281,  ListCut::BeforeEmptyTest},
    {Family::PSH,   Section::Hotel,        u"PSH/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5282,  ListCut::BeforeEmptyTest},
    {Family::PSC,   Section::Car,          u"PSC/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5283,  ListCut::BeforeEmptyTest},
    {Family::PPT,   Section::Air,          u"PPT/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5284,  ListCut::BeforeEmptyTest},
    {Family::PXT,   Section::Air,          u"PXT/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5286,  ListCut::BeforeEmptyTest},
}};
// clang-format on

/// How a transferable element's line shows its kind.
enum class CodeTest : std::uint8_t {
    FoundFromColumn13,  ///< the code stands somewhere from column 13 on
    StandsAtColumn12,   ///< the code fills columns 12 to 17 exactly
};

/// What ends the scan for a transferable family, "END OF DISPLAY" aside.
enum class ScanEnd : std::uint8_t {
    PromptAnywhere,   ///< ">" anywhere in a line
    PromptLineAlone,  ///< a line that is ">" and nothing else
};

/// Which lines a transferable family is looked for in.
enum class ScanStart : std::uint8_t {
    SectionHeader,  ///< from the section's header on
    FirstLine,      ///< from line 0 on, so that any other section's header ends the scan
};

/// The parts of a transferable element that its family's own lists hold.
enum class Split : std::uint8_t { None, FrequentFlyer, ServiceRequest, RemarkDetail };

struct TransferableFamily {
    Family family;
    TextView code;
    CodeTest test;
    ScanEnd end;
    ScanStart start;
    JoinRule join;
    Split split;
    int error;
};

// clang-format off
inline constexpr std::array<TransferableFamily, 7> transferableFamilies{{
    // family                  code       test                         end                       start                     join                split                   error
    {Family::Remark,          u" RM ",    CodeTest::FoundFromColumn13, ScanEnd::PromptAnywhere,  ScanStart::SectionHeader, JoinRule::TwoBelow, Split::None,            5260},  // Meant: two lines joined, its siblings one
    {Family::Contact,         u"  AP  ",  CodeTest::StandsAtColumn12,  ScanEnd::PromptLineAlone, ScanStart::SectionHeader, JoinRule::OneBelow, Split::None,            5235},  // Meant: ">" inside a line does not end the scan
    {Family::OtherService,    u" OS ",    CodeTest::FoundFromColumn13, ScanEnd::PromptAnywhere,  ScanStart::SectionHeader, JoinRule::OneBelow, Split::None,            5250},
    {Family::FrequentFlyer,   u" FFN ",   CodeTest::FoundFromColumn13, ScanEnd::PromptAnywhere,  ScanStart::SectionHeader, JoinRule::OneBelow, Split::FrequentFlyer,   5255},
    {Family::ServiceRequest,  u" SR ",    CodeTest::FoundFromColumn13, ScanEnd::PromptAnywhere,  ScanStart::SectionHeader, JoinRule::OneBelow, Split::ServiceRequest,  5245},
    {Family::Seat,            u" ST ",    CodeTest::FoundFromColumn13, ScanEnd::PromptAnywhere,  ScanStart::SectionHeader, JoinRule::OneBelow, Split::None,            5240},
    {Family::RemarkConf,      u" RC ",    CodeTest::FoundFromColumn13, ScanEnd::PromptAnywhere,  ScanStart::FirstLine,     JoinRule::OneBelow, Split::RemarkDetail,    5260},  // Meant: shares the remarks' number; found only above or in the display's first section
}};
// clang-format on

struct DocumentFamily {
    Family family;
    Section section;
    TextView prefix;
    int error;
};

// clang-format off
inline constexpr std::array<DocumentFamily, 5> documentFamilies{{
    // family      section              prefix   error
    {Family::PAS,  Section::Documents, u"PAS/", 5287},
    {Family::PIV,  Section::Documents, u"PIV/", 5288},
    {Family::PCE,  Section::Documents, u"PCE/", 5289},
    {Family::PID,  Section::Documents, u"PID/", 5290},  // Meant: 5290 is PCI's number too
    {Family::PFO,  Section::FollowUp,  u"PFO/", 5291},
}};
// clang-format on

inline constexpr std::size_t firstTransferable = indexOf(Family::Remark);
inline constexpr std::size_t firstDocument = indexOf(Family::PAS);

constexpr bool isTransferable(Family family) {
    return indexOf(family) >= firstTransferable && indexOf(family) < firstDocument;
}

/// Calls `use` with the family's row, which is of one of the three kinds, and returns what it returns.
template <class Use>
constexpr decltype(auto) withRow(Family family, Use&& use) {
    const std::size_t index = indexOf(family);
    if (index < firstTransferable) return use(prefixedFamilies[index]);
    if (index < firstDocument) return use(transferableFamilies[index - firstTransferable]);
    return use(documentFamilies[index - firstDocument]);
}

/// The number that the family's count property raises.
constexpr int extractorError(Family family) {
    return withRow(family, [](const auto& row) { return row.error; });
}

// Each table stands in the order of the enumeration and together they hold every family.
namespace detail {

template <class Rows>
constexpr bool standInOrder(const Rows& rows, std::size_t first) {
    return std::ranges::all_of(rows,
                               [&, next = first](const auto& row) mutable { return indexOf(row.family) == next++; });
}

}  // namespace detail

static_assert(detail::standInOrder(prefixedFamilies, 0));
static_assert(detail::standInOrder(transferableFamilies, firstTransferable));
static_assert(detail::standInOrder(documentFamilies, firstDocument));
static_assert(prefixedFamilies.size() + transferableFamilies.size() + documentFamilies.size() == familyCount);
static_assert(std::ranges::all_of(prefixedFamilies, [](const PrefixedFamily& row) {
    return row.prefix.size() == 4 && row.prefix.ends_with(u'/');
}));

}  // namespace vantro
