// The queries that --only names.
#pragma once

#include "cli/json/profile_json.h"

#include <span>
#include <string>

namespace vantro {

/// The queries with these words ("PPR", "NM") or names in JSON ("name", "notes"); all queries for no names. Raises
/// UsageError for another name.
ProfileQueries chosenQueries(std::span<const std::string> names);

}  // namespace vantro
