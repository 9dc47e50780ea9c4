// A whole profile written out, so that two can be compared.
#pragma once

#include "vantro/profile.h"

#include <string>

namespace vantro::test {

std::string profileText(const Profile& profile);

}  // namespace vantro::test
