// Whole profiles as comma-separated values.
#pragma once

#include "cli/json/profile_json.h"

#include <string>

namespace vantro {

/// The names of all columns, with a line feed. The first four say which display a row is from.
std::string csvHeader();

/// Appends a row, without the first four columns, for each value, element, note and problem of these queries that
/// there is.
void appendProfileCsv(const Profile& profile, const ProfileQueries& queries, std::string& out);

/// Appends the row, without the first four columns, of a display that could not be read.
void appendErrorCsv(const std::string& description, std::string& out);

}  // namespace vantro
