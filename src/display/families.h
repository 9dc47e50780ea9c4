// The element families of a profile display, one row each: what the engines search for, and the family's meaning and
// names. A new family is a new row here and an enumerator of `Family`. Irregular cells are intended and marked.
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
    Directly,         ///< all lines that begin with nine blanks
    ColonAfterBlank,  ///< the same, with a blank before a line whose third character is ":"
    OneBelow,         ///< the next line, if it begins with seventeen blanks
    TwoBelow,         ///< the next two lines, each if it begins with seventeen blanks
};

/// How the lines of a prefixed family's section are collected.
enum class Scheme : std::uint8_t {
    Plain,         ///< every line from the first prefixed one on; `JoinRule::Directly`
    ColonJoining,  ///< the same lines; `JoinRule::ColonAfterBlank`
    Policy,        ///< only the family's own lines, its section has other families too; `JoinRule::ColonAfterBlank`
    GlobalSearch,  ///< the line after the header and at most ten unprefixed lines after it; not joined
};

/// When a count property cuts its lists back to the empty entry 0.
enum class ListCut : std::uint8_t {
    BeforeEmptyTest,  ///< before the test for an empty display: an empty display cuts them too
    AfterEmptyTest,   ///< after that test: an empty display leaves them unchanged
};

/// The part of a family's row that the engines do not use.
struct FamilyAbout {
    int queryOrder;  ///< position, from 1, in the order in which queries compare their words; a new family comes last
    ElementOutput output;
    TextView countProperty;  ///< the names of its lists begin like it
    TextView meaning;
    TextView sample;     ///< an invented line of the section
    int indexError = 0;  ///< raised for an index beyond the count; 0 if that is the row's `error`
};

struct PrefixedFamily {
    Family family;
    Section section;
    TextView prefix;
    Scheme scheme;
    PrefixFrom searchFrom;  ///< where the search for the prefix starts in the section's lines
    Width tagWidth;         ///< characters from column 3 that are blank in a line without a prefix
    int error;
    ListCut cut;
    FamilyAbout about;
};

// clang-format off
inline constexpr auto prefixedFamilies = std::to_array<PrefixedFamily>({
    // family     section                 prefix    scheme                 from                  tag   error  lists cut
    //            order, output                       count property        meaning                                  sample, index error
    {Family::PPR, Section::Priority,      u"PPR/",  Scheme::Plain,         PrefixFrom::Column1,  {0},  5266,  ListCut::AfterEmptyTest,
                 {19, ElementOutput::ElementAndLists, u"PPRElementsCount",  u"priority line",                        u"   1 PPR/ ALWAYS OFFER AN AISLE SEAT"}},
    {Family::PGL, Section::GlobalSearch,  u"PGL/",  Scheme::GlobalSearch,  PrefixFrom::Column3,  {5},  5267,  ListCut::AfterEmptyTest,
                 {21, ElementOutput::ElementAndLists, u"PGLElementsCount",  u"line of the global search",            u"   2 PGL/ HALVORSEN MARINE", 5266}},  // Meant: an index beyond the count raises the number of PPR
    {Family::PPS, Section::PreStored,     u"PPS/",  Scheme::ColonJoining,  PrefixFrom::Column1,  {0},  5270,  ListCut::AfterEmptyTest,
                 {20, ElementOutput::ElementAndLists, u"PPSElementsCount",  u"pre-stored entry",                     u"   3 PPS/ RM PURCHASE ORDER 4711"}},
    {Family::PHI, Section::Hotel,         u"PHI/",  Scheme::Policy,        PrefixFrom::Column1,  {5},  5272,  ListCut::AfterEmptyTest,  // Meant: searched from column 1, its siblings from 3; lists cut after the empty test
                 {11, ElementOutput::Lists,           u"PHIElementsCount",  u"hotel travel policy of the kind PHI",  u"   4 PHI/ RATE CEILING 120 EUR IN LYON"}},
    {Family::PCI, Section::Car,           u"PCI/",  Scheme::Policy,        PrefixFrom::Column3,  {5},  5290,  ListCut::BeforeEmptyTest,  // Meant: 5290 is PID's number too
                 {13, ElementOutput::Lists,           u"PCIElementsCount",  u"car travel policy of the kind PCI",    u"   5 PCI/ COLLISION COVER IS ALWAYS BOUGHT"}},
    {Family::PPC, Section::Car,           u"PPC/",  Scheme::Policy,        PrefixFrom::Column3,  {6},  5285,  ListCut::BeforeEmptyTest,  // Meant: six tag columns, its siblings five
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

/// Where a transferable element's line contains its code.
enum class CodeTest : std::uint8_t {
    FromColumn13,  ///< anywhere from column 13 on
    AtColumn12,    ///< in columns 12 to 17
};

/// What ends the scan for a transferable family, in addition to "END OF DISPLAY".
enum class ScanEnd : std::uint8_t {
    PromptAnywhere,   ///< ">" anywhere in a line
    PromptLineAlone,  ///< a line that consists of ">"
};

/// Where the scan for a transferable family begins.
enum class ScanStart : std::uint8_t {
    SectionHeader,  ///< at the section's header
    FirstLine,      ///< at line 0, so that the header of any other section ends the scan
};

/// What a transferable element is split into.
enum class Split : std::uint8_t { None, FrequentFlyer, ServiceRequest, RemarkDetail };

namespace detail {

using enum ElementPart;
inline constexpr std::array wholeParts{WholeText, Number};
inline constexpr std::array frequentFlyerParts{WholeText, Number, Airline, FrequentFlyerNumber};
inline constexpr std::array serviceRequestParts{WholeText,           Number,   Code,    Airline,
                                                FrequentFlyerNumber, FreeText, Asterisk};
inline constexpr std::array remarkParts{WholeText, Number, Detail};

}  // namespace detail

/// Text, number and the parts of a split, in the order in which a query adds them.
constexpr std::span<const ElementPart> partsOf(Split split) {
    switch (split) {  // Not covered: every split has its case
        case Split::None: break;
        case Split::FrequentFlyer: return detail::frequentFlyerParts;
        case Split::ServiceRequest: return detail::serviceRequestParts;
        case Split::RemarkDetail: return detail::remarkParts;
    }
    return detail::wholeParts;
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
    // family                  code       test                    end                        start                     join                 split                   error
    //                         order, output               count property                  meaning                     sample, index error
    {Family::Remark,           u" RM ",   CodeTest::FromColumn13, ScanEnd::PromptAnywhere,   ScanStart::SectionHeader, JoinRule::TwoBelow,  Split::None,            5260,  // Meant: joins two lines, its siblings one
                              {3,  ElementOutput::Element, u"RemarkElementsCount",         u"remark",                  u"S      1     RM  PREFERS MORNING FLIGHTS"}},
    {Family::Contact,          u"  AP  ", CodeTest::AtColumn12,   ScanEnd::PromptLineAlone,  ScanStart::SectionHeader, JoinRule::OneBelow,  Split::None,            5235,  // Meant: ">" inside a line does not end the scan
                              {4,  ElementOutput::Element, u"ContactElementsCount",        u"contact",                 u"A      2     AP  LYS 04 72 55 01 90-B"}},
    {Family::OtherService,     u" OS ",   CodeTest::FromColumn13, ScanEnd::PromptAnywhere,   ScanStart::SectionHeader, JoinRule::OneBelow,  Split::None,            5250,
                              {5,  ElementOutput::Element, u"OtherServiceElementsCount",   u"other-service element",   u"S      3     OS  XQ CORPORATE CONTRACT 7001"}},
    {Family::FrequentFlyer,    u" FFN ",  CodeTest::FromColumn13, ScanEnd::PromptAnywhere,   ScanStart::SectionHeader, JoinRule::OneBelow,  Split::FrequentFlyer,   5255,
                              {6,  ElementOutput::Element, u"FrequentFlyerElementsCount",  u"frequent flyer number",   u"S      4     FFN QV 1234567"}},
    {Family::ServiceRequest,   u" SR ",   CodeTest::FromColumn13, ScanEnd::PromptAnywhere,   ScanStart::SectionHeader, JoinRule::OneBelow,  Split::ServiceRequest,  5245,
                              {2,  ElementOutput::Element, u"ServiceRequestElementsCount", u"special service request", u"S      5     SR  FQTVXQ 7654321-GOLD"}},
    {Family::Seat,             u" ST ",   CodeTest::FromColumn13, ScanEnd::PromptAnywhere,   ScanStart::SectionHeader, JoinRule::OneBelow,  Split::None,            5240,
                              {7,  ElementOutput::Element, u"SeatElementsCount",           u"seat request",            u"A      6     ST  WINDOW"}},
    {Family::RemarkConf,       u" RC ",   CodeTest::FromColumn13, ScanEnd::PromptAnywhere,   ScanStart::FirstLine,     JoinRule::OneBelow,  Split::RemarkDetail,    5260,  // Meant: raises the remarks' number; found only above or in the display's first section
                              {18, ElementOutput::Element, u"RemarkConfElementsCount",     u"confidential remark",     u"S      7     RC  CREDIT LIMIT 400000", 5265}},  // Meant: its extractor raises 5260
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
    // family      section              prefix   error  order, output              count property       meaning                sample
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

/// Calls `use` with the family's row, which has one of three types, and returns the result.
template <class Use>
constexpr decltype(auto) withRow(Family family, Use&& use) {
    const std::size_t index = indexOf(family);
    if (index < firstTransferable) return use(prefixedFamilies[index]);
    if (index < firstDocument) return use(transferableFamilies[index - firstTransferable]);
    return use(documentFamilies[index - firstDocument]);
}

/// The section in which the host prints the elements of a family.
constexpr Section sectionOf(const TransferableFamily& /*row*/) { return Section::Transferable; }
constexpr Section sectionOf(const auto& row) { return row.section; }

/// What the host prints in the lines of a family to identify it.
constexpr TextView tagOf(const PrefixedFamily& row) { return row.prefix; }
constexpr TextView tagOf(const TransferableFamily& row) { return row.code; }
constexpr TextView tagOf(const DocumentFamily& row) { return row.prefix; }

/// The word of the family's query: its tag without slash and blanks.
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

static_assert(eachFamily([](const auto& row) {
    const TextView tag = tagOf(row);
    if (isTransferable(row.family)) return tag.starts_with(u' ') && tag.ends_with(u' ');
    return tag.size() == 4 && tag.ends_with(u'/');
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
