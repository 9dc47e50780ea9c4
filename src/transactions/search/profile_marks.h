// The marks of a profile display, as several readers test them: the company's first.
#pragma once

#include "framework/constants.h"
#include "framework/screen.h"

namespace vantro {

enum class ProfileShown : std::uint8_t { None, Company, Traveller };

// clang-format off
inline constexpr ScreenTest<ProfileShown> profileMarks[] = {
    {mark::companyProfile,   Place::StartsLine, ProfileShown::Company},
    {mark::travellerProfile, Place::StartsLine, ProfileShown::Traveller},
};
// clang-format on

}  // namespace vantro
