// The lines of a profile display that no value of the profile comes from.
#pragma once

#include "vantro/profile.h"
#include "vantro/text.h"

#include <cstddef>
#include <vector>

namespace vantro {

/// The lines (from 0) of the display's sections from which nothing was read: neither blank nor a rule nor the end nor
/// part of an element or note. `display` is the text that the profile was read from, where its views point to.
std::vector<std::size_t> unreadRows(const Profile& profile, TextView display);

}  // namespace vantro
