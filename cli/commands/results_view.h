// Results as a table or as JSON.
#pragma once

#include "vantro/collection.h"

#include <string>

namespace vantro {

class ResultPositions;

enum class View { Table, Json };

/// The view that the options ask for; without any, a table on a terminal and JSON elsewhere.
View chosenView(bool table, bool json);

/// Results in that view, line end included. No collection is a sentence in a table and `null` in JSON. Positions,
/// unless null, are a column of the table and a member of the JSON.
std::string resultsText(const CollectionPtr& results, View view, const ResultPositions* positions = nullptr);

}  // namespace vantro
