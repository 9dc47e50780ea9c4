// The calls noted by a watching terminal, written in a short form that can be compared with a hand-written list.
#pragma once

#include <string>
#include <vector>

namespace vantro::test {

/// The calls in order: "text KEY" (`Item`, then `ItemText`), "flag KEY" (`Item`, then `ItemBoolean`), "value KEY"
/// (`Item`, then `Value`), "line 1-3 5" (`ScreenLine`), "find MARK at 6" (`FindMarker`), "field" (`TextField` 1), "new"
/// (`createCollection`) and "add KEY". Consecutive calls of one kind share their first word; others are separated by ";
/// ".
std::string summaryOf(const std::vector<std::string>& calls);

}  // namespace vantro::test
