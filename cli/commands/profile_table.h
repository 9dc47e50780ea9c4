// Whole profiles as tables for people.
#pragma once

#include "vantro/profile.h"

#include <string>

namespace vantro {

/// A row for every value and element that there is, under the prefix by which it can be asked for.
std::string profileTable(const Profile& profile);

}  // namespace vantro
