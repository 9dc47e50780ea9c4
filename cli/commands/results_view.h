// Results as people and programs want them.
#pragma once

#include "vantro/collection.h"

#include <string>

namespace vantro {

enum class View { Table, Json };

/// The view that was asked for; without one a table on a terminal and JSON elsewhere.
View chosenView(bool table, bool json);

/// Results in that view, line end included. Null is said in words in a table and is `null` in JSON.
std::string resultsText(const CollectionPtr& results, View view);

}  // namespace vantro
