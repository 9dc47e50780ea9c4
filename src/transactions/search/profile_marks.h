// The marks of a profile display, in the order in which several readers test them.
#pragma once

#include "framework/constants.h"
#include "framework/screen.h"

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
    const Column begin = find(seen.line, mark::merged);
    const bool isFound = begin > Column{0};
    if (screen.watch()) {
        const TextView shown = onlyIf(isFound, mark::merged);
        const TextView found = isFound ? mid(seen.line, begin, Width{static_cast<int>(shown.size())}) : TextView{};
        screen.watch().searched(mark::merged, MarkSearch::InLine, seen.number, seen.number, found);
    }
    return isFound;
}

}  // namespace vantro
