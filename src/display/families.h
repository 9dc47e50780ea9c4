// The element families of a profile display, one row each: what the engines look for, and what the family means and is
// called. A new family is a new row here and an enumerator of `Family`. What looks irregular here is meant and says so.
#pragma once

#include "display/sections.h"
#include "framework/text_ops.h"
#include "vantro/families.h"
#include "vantro/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace vantro {

/// Where in a trimmed line the search for a prefix starts.
enum class PrefixFrom : std::uint8_t { Column1, Column3 };

/// Which lines continue an element, and how they are joined to it.
enum class JoinRule : std::uint8_t {
    Directly,         ///< all lines that begin with nine blanks, one after the other
    ColonAfterBlank,  ///< the same, with a blank before a line whose third character is ":"
    OneBelow,         ///< the next line, if it begins with seventeen blanks
    TwoBelow,         ///< the next two lines, the same
};

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

/// What a family's row says for everyone but the engines.
struct FamilyAbout {
    int queryPlace;  ///< of its word among the words that a query is compared with, from 1; a new one comes last
    ElementOutput output;
    TextView countProperty;  ///< its lists are named after it
    TextView meaning;
    TextView sample;     ///< a line under the section's header
    int indexError = 0;  ///< raised for an index beyond the count where that is not the row's `error`
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
    FamilyAbout about;
};

// clang-format off
inline constexpr auto prefixedFamilies = std::to_array<PrefixedFamily>({
    // family     section                 prefix    scheme                 from                  tag   error  lists cut
    //            at  output                          count property        meaning                                  sample, index error
    {Family::PPR, Section::Priority,      u"PPR/",  Scheme::Plain,         PrefixFrom::Column1,  {0},  5266,  ListCut::AfterEmptyTest,
                 {19, ElementOutput::ElementAndLists, u"PPRElementsCount",  u"priority line",                        u"   1 PPR/ ALWAYS OFFER AN AISLE SEAT"}},
    {Family::PGL, Section::GlobalSearch,  u"PGL/",  Scheme::GlobalSearch,  PrefixFrom::Column3,  {5},  5267,  ListCut::AfterEmptyTest,
                 {21, ElementOutput::ElementAndLists, u"PGLElementsCount",  u"line of the global search",            u"   2 PGL/ HALVORSEN MARINE", 5266}},  // Meant: an index beyond the count raises the priority lines' number
    {Family::PPS, Section::PreStored,     u"PPS/",  Scheme::ColonJoining,  PrefixFrom::Column1,  {0},  5270,  ListCut::AfterEmptyTest,
                 {20, ElementOutput::ElementAndLists, u"PPSElementsCount",  u"pre-stored entry",                     u"   3 PPS/ RM PURCHASE ORDER 4711"}},
    {Family::PHI, Section::Hotel,         u"PHI/",  Scheme::Policy,        PrefixFrom::Column1,  {5},  5272,  ListCut::AfterEmptyTest,  // Meant: from 1, its siblings from 3; lists cut late
                 {11, ElementOutput::Lists,           u"PHIElementsCount",  u"hotel travel policy of the kind PHI",  u"   4 PHI/ RATE CEILING 120 EUR IN LYON"}},
    {Family::PCI, Section::Car,           u"PCI/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5290,  ListCut::BeforeEmptyTest,  // Meant: 5290 is PID's number too
                 {13, ElementOutput::Lists,           u"PCIElementsCount",  u"car travel policy of the kind PCI",    u"   5 PCI/ COLLISION COVER IS ALWAYS BOUGHT"}},
    {Family::PPC, Section::Car,           u"PPC/",  Scheme::Policy,        PrefixFrom::Column3,  {6},  5285,  ListCut::BeforeEmptyTest,  // Meant: 6 characters, its siblings 5
                 {14, ElementOutput::Lists,           u"PPCElementsCount",  u"car travel policy of the kind PPC",    u"   6 PPC/ NORDKAP RENTAL"}},
    {Family::PPH, Section::Hotel,         u"PPH/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5273,  ListCut::BeforeEmptyTest,
                 {12, ElementOutput::Lists,           u"PPHElementsCount",  u"hotel travel policy of the kind PPH",  u"   7 PPH/ FJELLHEIM HOTELS"}},
    {Family::PPA, Section::Air,           u"PPA/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5292,  ListCut::BeforeEmptyTest,
                 {22, ElementOutput::Lists,           u"PPAElementsCount",  u"air travel policy of the kind PPA",    u"   8 PPA/ XQ"}},
    {Family::PPK, Section::Air,           u"PPK/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5293,  ListCut::BeforeEmptyTest,
                 {23, ElementOutput::Lists,           u"PPKElementsCount",  u"air travel policy of the kind PPK",    u"   9 PPK/ NORTHERN ALLIANCE"}},
    {Family::PPI, Section::Air,           u"PPI/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5280,  ListCut::BeforeEmptyTest,
                 {24, ElementOutput::Lists,           u"PPIElementsCount",  u"air travel policy of the kind PPI",    u"  10 PPI/ TRAVEL COVER POLICY 55-1870"}},
    {Family::PXC, Section::Car,           u"PXC/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5295,  ListCut::BeforeEmptyTest,
                 {25, ElementOutput::Lists,           u"PXCElementsCount",  u"car travel policy of the kind PXC",    u"  11 PXC/ SPORTS CARS"}},
    {Family::PXA, Section::Air,           u"PXA/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5296,  ListCut::BeforeEmptyTest,
                 {26, ElementOutput::Lists,           u"PXAElementsCount",  u"air travel policy of the kind PXA",    u"  12 PXA/ QV"}},
    {Family::PXK, Section::Air,           u"PXK/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5281,  ListCut::BeforeEmptyTest,
                 {27, ElementOutput::Lists,           u"PXKElementsCount",  u"air travel policy of the kind PXK",    u"  13 PXK/ EASTERN ALLIANCE"}},
    {Family::PSH, Section::Hotel,         u"PSH/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5282,  ListCut::BeforeEmptyTest,
                 {28, ElementOutput::Lists,           u"PSHElementsCount",  u"hotel travel policy of the kind PSH",  u"  14 PSH/ NO SUITES"}},
    {Family::PSC, Section::Car,           u"PSC/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5283,  ListCut::BeforeEmptyTest,
                 {29, ElementOutput::Lists,           u"PSCElementsCount",  u"car travel policy of the kind PSC",    u"  15 PSC/ WINTER TYRES IN JANUARY"}},
    {Family::PPT, Section::Air,           u"PPT/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5284,  ListCut::BeforeEmptyTest,
                 {30, ElementOutput::Lists,           u"PPTElementsCount",  u"air travel policy of the kind PPT",    u"  16 PPT/ ECONOMY UNDER FIVE HOURS"}},
    {Family::PXT, Section::Air,           u"PXT/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5286,  ListCut::BeforeEmptyTest,
                 {31, ElementOutput::Lists,           u"PXTElementsCount",  u"air travel policy of the kind PXT",    u"  17 PXT/ FIRST CLASS"}},
});
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

/// What a transferable element is split into.
enum class Split : std::uint8_t { None, FrequentFlyer, ServiceRequest, RemarkDetail };

namespace detail {

template <ElementPart... Parts>
inline constexpr std::array<ElementPart, sizeof...(Parts)> parts{Parts...};

}  // namespace detail

/// Text, number and the parts of a split, in the order in which a query adds them.
constexpr std::span<const ElementPart> partsOf(Split split) {
    using enum ElementPart;
    switch (split) {  // Not covered: every split has its case
        case Split::None: break;
        case Split::FrequentFlyer: return detail::parts<WholeText, Number, Airline, FrequentFlyerNumber>;
        case Split::ServiceRequest:
            return detail::parts<WholeText, Number, Code, Airline, FrequentFlyerNumber, FreeText, Asterisk>;
        case Split::RemarkDetail: return detail::parts<WholeText, Number, Detail>;
    }
    return detail::parts<WholeText, Number>;
}

struct TransferableFamily {
    Family family;
    TextView code;
    CodeTest test;
    ScanEnd end;
    ScanStart start;
    JoinRule join;
    Split split;
    int error;
    FamilyAbout about;
};

// clang-format off
inline constexpr auto transferableFamilies = std::to_array<TransferableFamily>({
    // family                  code       test                         end                        start                     join                 split                   error
    //                         at  output                  count property                  meaning                     sample, index error
    {Family::Remark,           u" RM ",   CodeTest::FoundFromColumn13, ScanEnd::PromptAnywhere,   ScanStart::SectionHeader, JoinRule::TwoBelow,  Split::None,            5260,  // Meant: two lines joined, its siblings one
                              {3,  ElementOutput::Element, u"RemarkElementsCount",         u"remark",                  u"S      1     RM  PREFERS MORNING FLIGHTS"}},
    {Family::Contact,          u"  AP  ", CodeTest::StandsAtColumn12,  ScanEnd::PromptLineAlone,  ScanStart::SectionHeader, JoinRule::OneBelow,  Split::None,            5235,  // Meant: ">" inside a line does not end the scan
                              {4,  ElementOutput::Element, u"ContactElementsCount",        u"contact",                 u"A      2     AP  LYS 04 72 55 01 90-B"}},
    {Family::OtherService,     u" OS ",   CodeTest::FoundFromColumn13, ScanEnd::PromptAnywhere,   ScanStart::SectionHeader, JoinRule::OneBelow,  Split::None,            5250,
                              {5,  ElementOutput::Element, u"OtherServiceElementsCount",   u"other-service element",   u"S      3     OS  XQ CORPORATE CONTRACT 7001"}},
    {Family::FrequentFlyer,    u" FFN ",  CodeTest::FoundFromColumn13, ScanEnd::PromptAnywhere,   ScanStart::SectionHeader, JoinRule::OneBelow,  Split::FrequentFlyer,   5255,
                              {6,  ElementOutput::Element, u"FrequentFlyerElementsCount",  u"frequent flyer number",   u"S      4     FFN QV 1234567"}},
    {Family::ServiceRequest,   u" SR ",   CodeTest::FoundFromColumn13, ScanEnd::PromptAnywhere,   ScanStart::SectionHeader, JoinRule::OneBelow,  Split::ServiceRequest,  5245,
                              {2,  ElementOutput::Element, u"ServiceRequestElementsCount", u"special service request", u"S      5     SR  FQTVXQ 7654321-GOLD"}},
    {Family::Seat,             u" ST ",   CodeTest::FoundFromColumn13, ScanEnd::PromptAnywhere,   ScanStart::SectionHeader, JoinRule::OneBelow,  Split::None,            5240,
                              {7,  ElementOutput::Element, u"SeatElementsCount",           u"seat request",            u"A      6     ST  WINDOW"}},
    {Family::RemarkConf,       u" RC ",   CodeTest::FoundFromColumn13, ScanEnd::PromptAnywhere,   ScanStart::FirstLine,     JoinRule::OneBelow,  Split::RemarkDetail,    5260,  // Meant: shares the remarks' number; found only above or in the display's first section
                              {18, ElementOutput::Element, u"RemarkConfElementsCount",     u"confidential remark",     u"S      7     RC  CREDIT LIMIT 400000", 5265}},  // Meant: its count raises 5260
});
// clang-format on

struct DocumentFamily {
    Family family;
    Section section;
    TextView prefix;
    int error;
    FamilyAbout about;
};

// clang-format off
inline constexpr auto documentFamilies = std::to_array<DocumentFamily>({
    // family      section              prefix   error  at  output                 count property       meaning                sample
    {Family::PAS,  Section::Documents,  u"PAS/", 5287,  {32, ElementOutput::Lists, u"PASElementsCount", u"passport",           u"   1 PAS/ 12345678 FR 01JAN30"}},
    {Family::PIV,  Section::Documents,  u"PIV/", 5288,  {33, ElementOutput::Lists, u"PIVElementsCount", u"visa",               u"   2 PIV/ VISA 998877"}},
    {Family::PCE,  Section::Documents,  u"PCE/", 5289,  {34, ElementOutput::Lists, u"PCEElementsCount", u"certificate",        u"   3 PCE/ VACCINATION 01JAN24"}},
    {Family::PID,  Section::Documents,  u"PID/", 5290,  {35, ElementOutput::Lists, u"PIDElementsCount", u"identity document",  u"   4 PID/ 87654321 FR 31DEC28"}},  // Meant: 5290 is PCI's number too
    {Family::PFO,  Section::FollowUp,   u"PFO/", 5291,  {36, ElementOutput::Lists, u"PFOElementsCount", u"follow-up element",  u"   5 PFO/ CONTRACT ENDS 31DEC"}},
});
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

/// What the host prints to mark a line of the family.
constexpr TextView tagOf(const PrefixedFamily& row) { return row.prefix; }
constexpr TextView tagOf(const TransferableFamily& row) { return row.code; }
constexpr TextView tagOf(const DocumentFamily& row) { return row.prefix; }

/// The word that asks for the family: its tag without slash and blanks.
template <class Row>
constexpr TextView wordOf(const Row& row) {
    const TextView tag = trimmed(tagOf(row));
    return tag.ends_with(u'/') ? tag.substr(0, tag.size() - 1) : tag;
}

namespace detail {

// Each table is in the order of the enumeration, and together they contain every family.
template <class Rows>
constexpr bool areInOrder(const Rows& rows, std::size_t first) {
    return std::ranges::all_of(rows,
                               [&, next = first](const auto& row) mutable { return indexOf(row.family) == next++; });
}

static_assert(areInOrder(prefixedFamilies, 0));
static_assert(areInOrder(transferableFamilies, firstTransferable));
static_assert(areInOrder(documentFamilies, firstDocument));
static_assert(prefixedFamilies.size() + transferableFamilies.size() + documentFamilies.size() == familyCount);

template <class Test>
constexpr bool eachFamily(Test test) {
    for (std::size_t index = 0; index < familyCount; ++index) {
        if (!withRow(static_cast<Family>(index), test)) return false;
    }
    return true;
}

constexpr bool isPrefix(TextView tag) { return tag.size() == 4 && tag.ends_with(u'/'); }

static_assert(std::ranges::all_of(prefixedFamilies, [](const auto& row) { return isPrefix(row.prefix); }));
static_assert(std::ranges::all_of(documentFamilies, [](const auto& row) { return isPrefix(row.prefix); }));
static_assert(std::ranges::all_of(transferableFamilies, [](const auto& row) {
    return row.code.starts_with(u' ') && row.code.ends_with(u' ');
}));
static_assert(eachFamily([](const auto& row) {
    return eachFamily([&](const auto& other) { return row.family == other.family || wordOf(row) != wordOf(other); });
}));
static_assert(eachFamily([](const auto& row) { return row.about.countProperty.ends_with(u"ElementsCount"); }));
static_assert(eachFamily([](const auto& row) { return row.about.sample.find(tagOf(row)) != TextView::npos; }));
static_assert(eachFamily([](const auto& row) {
    return row.about.indexError == 0 || row.about.output != ElementOutput::Lists;
}));

}  // namespace detail

}  // namespace vantro
