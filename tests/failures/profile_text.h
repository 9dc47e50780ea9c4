// A whole profile as text, for comparing two.
#pragma once

#include "vantro/profile.h"

#include <string>

namespace vantro::test {

std::string profileText(const Profile& profile);

}  // namespace vantro::test
