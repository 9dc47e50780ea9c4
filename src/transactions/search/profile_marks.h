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

}  // namespace vantro
