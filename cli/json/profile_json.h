// Whole profiles as JSON.
#pragma once

#include "cli/json/output.h"
#include "vantro/profile.h"

namespace vantro {

/// Writes a profile as one object. Its last member "problems" is there only when there are any.
void writeProfile(const Profile& profile, JsonOut& out);

}  // namespace vantro
