// The marks of a profile display, in the order in which several readers test them.
#pragma once

#include "framework/constants.h"
#include "framework/screen.h"
#include "transactions/marks.h"

namespace vantro {

enum class ProfileShown : std::uint8_t { None, Company, Traveller };

// clang-format off
inline constexpr ScreenTest<ProfileShown> profileMarks[] = {
    {mark::companyProfile,   Match::LineStart, ProfileShown::Company},
    {mark::travellerProfile, Match::LineStart, ProfileShown::Traveller},
};
// clang-format on

/// True when the line that a search found has the merge mark.
template <class Shown>
bool isMergedIn(const Screen& screen, const ShownLine<Shown>& seen) {
    const TextView found = shownIn(seen.line, mark::merged);
    screen.watch().searched(mark::merged, MarkSearch::InLine, seen.number, seen.number, found);
    return !found.empty();
}

}  // namespace vantro
