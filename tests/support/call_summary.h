// The calls that a watching terminal noted, written short enough to be compared with a list made by hand.
#pragma once

#include <string>
#include <vector>

namespace vantro::test {

/// The calls in their order: "text KEY" (`Item`, then `ItemText`), "flag KEY" (`Item`, then `ItemBoolean`), "value KEY"
/// (`Item`, then `Value`), "line 1-3 5" (`ScreenLine`), "find MARK at 6" (`FindMarker`), "field" (`TextField` 1), "new"
/// (a collection is created) and "add KEY". Calls of one kind in a row share their first word; other calls follow "; ".
std::string summaryOf(const std::vector<std::string>& calls);

}  // namespace vantro::test
