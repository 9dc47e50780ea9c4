// Whole profiles as tables for people.
#pragma once

#include "cli/json/profile_json.h"

#include <string>

namespace vantro {

/// A row for every value and element that there is of these queries, under the prefix by which it can be asked for.
std::string profileTable(const Profile& profile, const ProfileQueries& queries = {});

}  // namespace vantro
