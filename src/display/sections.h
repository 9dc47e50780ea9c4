// The header texts of the sections.
#pragma once

#include "vantro/profile.h"
#include "vantro/text.h"

#include <algorithm>
#include <array>

namespace vantro {

/// In the order of the sections.
inline constexpr std::array<TextView, sectionCount> sectionHeaders{{
    u"------- PRIORITY",
    u"------- GLOBAL SEARCH",
    u"------- PRE-STORED ENTRIES",
    u"------- TRAVEL POLICIES - HOTEL",
    u"------- TRAVEL POLICIES - CAR",
    u"------- TRAVEL POLICIES - AIR",
    u"------- PNR TRANSFERABLE DATA",
    u"------- DOCUMENTS",
    u"------- FOLLOW UP",
    u"------- PROFILE NOTES",
}};

/// The rule of a section. A line that contains it anywhere ends a section.
inline constexpr TextView sectionRule = u"-------";

/// The beginning of every header: the rule and one blank.
inline constexpr TextView headerStart = u"------- ";

static_assert(headerStart.starts_with(sectionRule));
static_assert(std::ranges::all_of(sectionHeaders, [](TextView header) { return header.starts_with(headerStart); }));

}  // namespace vantro
