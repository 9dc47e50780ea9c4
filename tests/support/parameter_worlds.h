// Parameters made from a class's rows: every combination of a few values of each.
#pragma once

#include "tests/support/collections.h"
#include "vantro/registry.h"

#include <functional>
#include <span>
#include <string>

namespace vantro::test {

using Visit = std::function<void(const Entries&)>;

/// Visits every combination of what a careful caller passes for these keys: nothing, an empty value, True and False,
/// the texts that the class knows and one that it does not, short lists.
void forEachGood(std::span<const ParameterRow> rows, const Visit& visit);

/// Visits what a careless caller passes: one key with a value that cannot be read as its kind or is out of range, the
/// others absent or all there.
void forEachOdd(std::span<const ParameterRow> rows, const Visit& visit);

/// The parameters of an example.
Entries entriesOf(std::span<const ExampleParameter> example);

/// The name of a class for a test's name.
std::string className(const ClassRow& row);

}  // namespace vantro::test
